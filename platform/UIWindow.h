#pragma once

#include "Bitmap.h"
#include "UIEvent.h"
#include "UIView.h"

#include <vector>

namespace platform {

class InputObserver;
class UITextField;

/// The screen's one window: delivers touches, lays out, paints and composes its views into a picture.
class UIWindow final : public UIView {
public:
    explicit UIWindow(CGSize);
    ~UIWindow() override;

    /// The window that alerts are shown in; null without one.
    static UIWindow* keyWindow();
    /// Makes it the key window.
    void makeKey();

    /// One finger, in points from the window's top left; `timestamp` in seconds, or 0 when nobody times it. A
    /// touch that begins while another is down ends the other first; moves and ends without a touch do
    /// nothing.
    void touchBegan(CGPoint, double timestamp = 0);
    void touchMoved(CGPoint, double timestamp = 0);
    void touchEnded(CGPoint, double timestamp = 0);
    void touchCancelled();

    /// The field that takes the keys; null when there is none.
    UITextField* firstResponder() const;
    void setFirstResponder(UITextField*);

    /// Lays out and paints whatever is marked, until nothing is; the picture is then up to date. Returns what
    /// changed in it, in device pixels: nothing when nothing did.
    std::vector<PixelRect> display();
    /// As of the last `display`. Opaque.
    const Bitmap& picture() const;
    double scale() const;
    void setScale(double); ///< Paints everything anew.

    /// Called whenever something is marked after a `display`, once until the next: for a host that shows the
    /// window.
    void setNeedsDisplayHandler(std::function<void()>);

    /// For a host that records what reaches the window; null for none. It must be taken away before it goes.
    void setInputObserver(InputObserver*);
    InputObserver* inputObserver() const;

    // Internal: for the layer's views.
    void _markDamage(CGRect inWindow);
    void _markPending(); ///< Layout or paint is due somewhere below.
    void _viewIsGone(const UIView*);

private:
    void displayTree(UIView&);

    struct WindowImpl;
    WindowImpl& windowImpl() const;
};

}
