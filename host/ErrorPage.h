#pragma once

#include "platform/UIViewController.h"

#include <functional>
#include <vector>

namespace host {

/// Stands in for a page that could not be opened, and says why.
class ErrorPage final : public platform::UIViewController {
public:
    struct Content {
        std::string heading = "This page can’t be shown";
        std::string reason; ///< One sentence.
        /// Where it happened, one line each, the place itself first; may be empty.
        std::vector<std::string> places = {};
        std::function<void()> tryAgain = {}; ///< Without one there is no button for it.
    };

    explicit ErrorPage(Content);
    ~ErrorPage() override;

    const Content& content() const { return _content; }

    void loadView() override;

    // Internal: the button's action.
    void _tryAgain();

private:
    Content _content;
};

}
