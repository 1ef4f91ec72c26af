#pragma once

#include "Runtime.h"
#include "UIView.h"

#include <string>

namespace platform {

class UINavigationController;

/// A page: one view and what happens on it.
class UIViewController : public NSObject {
public:
    UIViewController();
    ~UIViewController() override;

    /// Made by `loadView` when it is first asked for.
    UIView& view();
    bool isViewLoaded() const { return _view != nullptr; }

    const std::string& title() const { return _title; }
    void setTitle(std::string);

    /// Null while the page is on no stack.
    UINavigationController* navigationController() const { return _navigationController; }
    void setNavigationController(UINavigationController* controller) { _navigationController = controller; }

    virtual void loadView();
    virtual void viewWillAppear(bool /* animated */) { }
    virtual void viewWillDisappear(bool /* animated */) { }

protected:
    void setView(Ref<UIView> view) { _view = std::move(view); }

private:
    Ref<UIView> _view;
    std::string _title;
    UINavigationController* _navigationController = nullptr;
};

}
