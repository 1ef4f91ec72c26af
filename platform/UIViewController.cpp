#include "UIViewController.h"

#include "Device.h"
#include "UINavigationController.h"

namespace platform {

namespace {

const auto registration = registerClass<UIViewController>("UIViewController").initialiser<>();

}

UIViewController::UIViewController() = default;
UIViewController::~UIViewController() = default;

UIView& UIViewController::view()
{
    if (!_view)
        loadView();
    // A page that forgets to make a view gets a plain one.
    if (!_view)
        UIViewController::loadView();
    return *_view;
}

void UIViewController::loadView()
{
    const CGSize screen = Device::current().screenSize;
    setView(std::make_shared<UIView>(CGRect { 0, 0, screen.width, screen.height }));
}

void UIViewController::setTitle(std::string title)
{
    _title = std::move(title);
    if (_navigationController)
        _navigationController->titleDidChange();
}

}
