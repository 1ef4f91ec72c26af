#include "platform/PSListController.h"

// Compiled twice, as two builds of one module: BUILD is its number.

/// Unique in the process, unless somebody sees to it that each build has its own.
inline std::string titleOfBuild = "Build " + std::to_string(BUILD);

namespace builds {

using namespace platform;

class BuildPage final : public PSListController {
public:
    explicit BuildPage(CGSize size)
        : PSListController(size)
    {
        setTitle(titleOfBuild);
    }
};

#if BUILD == 1
class OnlyInBuild1 final : public NSObject { };
const auto onlyInBuild1 = registerClass<OnlyInBuild1>("OnlyInBuild1");
#endif
const auto registration = registerClass<BuildPage>("BuildPage").initialiser<CGSize>();

}
