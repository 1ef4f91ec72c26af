#include "platform/PSListController.h"

// The principal class of a bundle that the tests load. Its rows come from the bundle's own resource.

namespace {

class ModuleTestPage final : public platform::PSListController {
public:
    using PSListController::PSListController;

    const Specifiers& specifiers() override
    {
        if (!_specifiers)
            _specifiers = loadSpecifiersFromPlistNameTarget("Rows", this);
        return *_specifiers;
    }
};

const auto registration
    = platform::registerClass<ModuleTestPage>("ModuleTestPage").initialiser<platform::CGSize>();

}
