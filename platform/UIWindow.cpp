#include "InputObserver.h"
#include "Journal.h"
#include "UITextField.h"
#include "UIWindowImpl.h"

namespace platform {

namespace {

UIWindow* theKeyWindow = nullptr;

const char* phaseName(UITouchPhase phase)
{
    static constexpr const char* names[] = { "began", "moved", "ended", "cancelled" };
    return names[static_cast<int>(phase)];
}

}

void UIWindow::WindowImpl::deliver(UITouchPhase phase, CGPoint location, double timestamp)
{
    const auto current = event;
    auto& touch = current->touch();
    touch.update(phase, location, timestamp);
    if (observer)
        observer->touchArrives(touch);
    if (auto& journal = Journal::shared(); journal.isHeard())
        journal.record({ .kind = JournalEntry::Kind::Touch,
            .name = phaseName(phase),
            .detail = touch.view()->className(),
            .place = location });
    switch (phase) {
    case UITouchPhase::Began:
        return touch.view()->touchesBeganWithEvent(*current);
    case UITouchPhase::Moved:
        return touch.view()->touchesMovedWithEvent(*current);
    case UITouchPhase::Ended:
        event = nullptr;
        return touch.view()->touchesEndedWithEvent(*current);
    case UITouchPhase::Cancelled:
        event = nullptr;
        return touch.view()->touchesCancelledWithEvent(*current);
    }
}

UIWindow::UIWindow(CGSize size)
    : UIView({ 0, 0, size.width, size.height }, std::make_unique<WindowImpl>(*this))
{
    impl().window = this;
    setBackgroundColor(UIColor::whiteColor());
}

UIWindow::~UIWindow()
{
    touchCancelled();
    while (!subviews().empty())
        subviews().back()->removeFromSuperview();
    if (theKeyWindow == this)
        theKeyWindow = nullptr;
    impl().window = nullptr;
}

UIWindow::WindowImpl& UIWindow::windowImpl() const
{
    return static_cast<WindowImpl&>(const_cast<UIWindow*>(this)->impl());
}

UIWindow* UIWindow::keyWindow()
{
    return theKeyWindow;
}
void UIWindow::makeKey()
{
    theKeyWindow = this;
}

void UIWindow::touchBegan(CGPoint location, double timestamp)
{
    auto& own = windowImpl();
    if (own.event)
        touchEnded(own.lastLocation, timestamp);
    const InputSpan span(own.observer);
    auto* const hit = hitTestWithEvent(location, nullptr);
    if (!hit)
        return;
    // A touch keeps its view alive, but the window, which keeps the touch, not itself.
    const auto view = hit == this ? Ref<UIView>(Ref<UIView>(), this)
                                  : std::dynamic_pointer_cast<UIView>(hit->weak_from_this().lock());
    if (!view)
        return;
    own.lastLocation = location;
    own.event = std::make_shared<UIEvent>(std::make_shared<UITouch>(view, location));
    own.deliver(UITouchPhase::Began, location, timestamp);
}

void UIWindow::touchMoved(CGPoint location, double timestamp)
{
    auto& own = windowImpl();
    if (!own.event)
        return;
    const InputSpan span(own.observer);
    own.lastLocation = location;
    own.deliver(UITouchPhase::Moved, location, timestamp);
}

void UIWindow::touchEnded(CGPoint location, double timestamp)
{
    if (!windowImpl().event)
        return;
    const InputSpan span(windowImpl().observer);
    windowImpl().deliver(UITouchPhase::Ended, location, timestamp);
}

void UIWindow::touchCancelled()
{
    if (!windowImpl().event)
        return;
    const InputSpan span(windowImpl().observer);
    windowImpl().deliver(UITouchPhase::Cancelled, windowImpl().lastLocation, 0);
}

UITextField* UIWindow::firstResponder() const
{
    return windowImpl().firstResponder;
}

void UIWindow::setFirstResponder(UITextField* field)
{
    windowImpl().firstResponder = field;
    windowImpl().firstResponderView = field;
}

void UIWindow::setInputObserver(InputObserver* observer)
{
    windowImpl().observer = observer;
}

InputObserver* UIWindow::inputObserver() const
{
    return windowImpl().observer;
}

void UIWindow::_viewIsGone(const UIView* view)
{
    auto& own = windowImpl();
    if (view != own.firstResponderView)
        return;
    own.firstResponder = nullptr;
    own.firstResponderView = nullptr;
}

}
