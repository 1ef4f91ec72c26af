#include "GalleryListController.h"

namespace gallery {

using namespace platform;

namespace {

// Info.plist names this class as the principal one; the Settings application makes it by that name.
const auto registration = registerClass<GalleryListController>("GalleryListController").initialiser<CGSize>();

}

const PSListController::Specifiers& GalleryListController::specifiers()
{
    if (!_specifiers)
        _specifiers = loadSpecifiersFromPlistNameTarget("Gallery", this);
    return *_specifiers;
}

}
