#pragma once

#include "platform/UIViewController.h"

namespace host {

/// Stands in for a page that could not be opened, and says why.
class ErrorPage final : public platform::UIViewController {
public:
    /// One sentence.
    explicit ErrorPage(std::string reason);

    void loadView() override;

private:
    std::string _reason;
};

}
