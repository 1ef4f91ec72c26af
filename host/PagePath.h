#pragma once

#include "platform/Geometry.h"
#include "platform/UINavigationController.h"

#include <string>
#include <vector>

namespace host {

/// Which pages lie on a stack, and how far each is scrolled, so that the same pages can be opened again when
/// the first was made anew, by the same or another build of its bundle.
struct PagePath {
    /// The row that opened a page.
    struct Row {
        std::string identifier;
        std::string className; ///< Of the page that it opens.
        platform::NSIndexPath place {};
    };
    struct Page {
        Row openedBy; ///< Says nothing for the first.
        /// Of everything on the page that scrolls, the page itself first.
        std::vector<platform::CGPoint> offsets;
    };

    std::vector<Page> pages; ///< The first page first.
};

PagePath pagePathOf(const platform::UINavigationController&);

/// Opens the pages above the first as a tap on their rows does, and scrolls all of them to where they were,
/// as far as there is content. A row counts as the same by its identifier, of several best at its old place;
/// or where it was, when it opens the same class (another language's title makes another identifier). Only
/// rows that link to a page are followed. Ends early at a row that is not there any more or opens nothing;
/// false then.
bool followPagePath(platform::UINavigationController&, const PagePath&);

}
