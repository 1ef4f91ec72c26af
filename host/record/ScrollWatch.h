#pragma once

#include "host/Phone.h"
#include "platform/UIScrollView.h"

#include <functional>
#include <memory>
#include <vector>

namespace host {

/// Knows how far everything in a window is scrolled, and tells of what scrolled since it last looked.
class ScrollWatch {
public:
    struct Change {
        std::shared_ptr<platform::UIScrollView> scroller;
        platform::CGPoint from, to;
        /// Scrolling there made views that scrolling past it would not have made.
        bool madeViews = false;
    };

    explicit ScrollWatch(Phone&);

    /// On a settled phone. What it does not know yet has not scrolled.
    std::vector<Change> look();
    /// Lets go of everything it knows.
    void forget() { _known.clear(); }

private:
    struct Known {
        std::weak_ptr<platform::UIScrollView> scroller;
        platform::CGPoint offset;
        std::size_t views = 0; ///< A mark of which there are.
    };

    Phone& _phone;
    std::vector<Known> _known;
};

/// The command that scrolls it so far: a line.
std::string scrollCommand(
    Phone&, const platform::UIScrollView&, platform::CGPoint from, platform::CGPoint to);

}
