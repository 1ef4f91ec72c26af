#pragma once

#include "access/FocusRing.h"
#include "access/KeyboardFocus.h"
#include "Phone.h"

#include <QElapsedTimer>
#include <QTimer>
#include <QWidget>

#include <optional>

namespace platform {
class UIScrollView;
}

namespace host {

class AccessibleScreen;

/// Shows a phone's window pixel for pixel, and hands it the mouse as a finger, the wheel, keys and input
/// methods. The keyboard alone will do: a ring shows what it is at (access/KeyboardFocus.h). Only what
/// changed is drawn, and nothing runs while nothing happens. Resizing it resizes the phone's screen.
class PhoneView final : public QWidget {
public:
    /// The phone must live as long as the view.
    explicit PhoneView(Phone&, QWidget* parent = nullptr);
    ~PhoneView() override;

    /// The phone's screen, in logical pixels.
    QSize sizeHint() const override;
    /// Whether the phone's screen is as large as this widget, as far as whole points go.
    bool showsWholeScreen() const;
    /// After a change of the scale: how small the widget may get.
    void updateSmallestSize();
    /// While it is held, the screen keeps its size; when it is let go, it takes the widget's.
    void holdScreen(bool);

    /// Marks a rectangle of the phone's window, above its picture and not in it; null takes the mark away.
    void setHighlight(std::optional<platform::CGRect>);
    /// Of the phone's window, from a place in this view.
    platform::CGPoint pointFor(QPointF) const;

    /// What the keyboard and assistive technologies see of the phone; made when the first of them asks.
    Screen& screen();
    KeyboardFocus& keyboardFocus();
    AccessibleScreen& accessibleScreen();
    /// Brings the keyboard to the element, ring and all.
    void focusElement(const ElementId&);
    /// From points of the phone to this widget.
    QRectF rectFor(platform::CGRect) const;

protected:
    void paintEvent(QPaintEvent*) override;
    void resizeEvent(QResizeEvent*) override;
    void mousePressEvent(QMouseEvent*) override;
    void mouseMoveEvent(QMouseEvent*) override;
    void mouseReleaseEvent(QMouseEvent*) override;
    void wheelEvent(QWheelEvent*) override;
    void keyPressEvent(QKeyEvent*) override;
    void focusInEvent(QFocusEvent*) override;
    void focusOutEvent(QFocusEvent*) override;
    void inputMethodEvent(QInputMethodEvent*) override;
    QVariant inputMethodQuery(Qt::InputMethodQuery) const override;
    bool focusNextPrevChild(bool) override { return false; } // Tab is a key of the phone's.

private:
    void showDamage(const std::vector<platform::PixelRect>&);
    void glide();
    void followChanges();
    void placeRing();
    /// Logical pixels of this widget a point.
    double pixelsAPoint() const;
    platform::CGSize sizeInPoints() const;
    void takeOwnSize();

    Phone& _phone;
    bool _screenIsHeld = false;
    QTimer _refresh, _glide;
    QElapsedTimer _clock;
    double _lastGlide = 0; ///< Seconds on the clock.
    platform::Ref<platform::UIScrollView> _gliding;
    int _whenPagesGo = 0;
    std::optional<platform::CGRect> _highlight;
    std::unique_ptr<Screen> _screen;
    std::unique_ptr<KeyboardFocus> _focus;
    std::unique_ptr<AccessibleScreen> _accessibleScreen;
    FocusRing _ring;
    bool _isLeft = false; ///< The keyboard is somewhere else.
};

}
