#pragma once

#include "platform/PSListController.h"

namespace gallery {

/// The gallery's only page: the three pickers, and below them the six gradient views by themselves. Its rows
/// are those of the resource "Gallery".
class GalleryListController final : public platform::PSListController {
public:
    using platform::PSListController::PSListController;

    const Specifiers& specifiers() override;
};

}
