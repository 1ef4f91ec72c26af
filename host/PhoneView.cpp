#include "PhoneView.h"

#include "access/AccessibleScreen.h"
#include "platform/Device.h"
#include "platform/UIScrollView.h"

#include <QMouseEvent>
#include <QPainter>
#include <QWheelEvent>

#include <cmath>

namespace host {

using namespace platform;

namespace {

constexpr int frameInterval = 8; // Milliseconds between the steps of a glide.
constexpr double pointsAWheelStep = 40;
constexpr int smallestWidth = 320; // Points of the screen.
constexpr int smallestHeight = 320;

Ref<UIScrollView> scrollViewAt(UIWindow& window, CGPoint point)
{
    for (auto* view = window.hitTestWithEvent(point, nullptr); view; view = view->superview()) {
        if (auto scroll = std::dynamic_pointer_cast<UIScrollView>(view->weak_from_this().lock()))
            return scroll;
    }
    return nullptr;
}

}

PhoneView::PhoneView(Phone& phone, QWidget* parent)
    : QWidget(parent)
    , _phone(phone)
{
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_OpaquePaintEvent);
    setAttribute(Qt::WA_InputMethodEnabled);
    updateSmallestSize();
    AccessibleScreen::install();
    _clock.start();
    _refresh.setSingleShot(true);
    _glide.setInterval(frameInterval);
    connect(&_refresh, &QTimer::timeout, this, [this] {
        _phone.settle();
        followChanges();
    });
    connect(&_glide, &QTimer::timeout, this, [this] { glide(); });
    _phone.window().setNeedsDisplayHandler([this] {
        if (_screen)
            _screen->invalidate();
        _refresh.start(0);
    });
    _phone.setDamageHandler([this](const std::vector<PixelRect>& damage) { showDamage(damage); });
    _whenPagesGo = _phone.whenPagesGo([this] {
        _glide.stop();
        _gliding.reset();
    });
    _phone.settle();
}

PhoneView::~PhoneView()
{
    _phone.stopTellingWhenPagesGo(_whenPagesGo);
    _phone.window().setNeedsDisplayHandler({});
    _phone.setDamageHandler({});
}

QSize PhoneView::sizeHint() const
{
    const auto size = Device::current().screenSize;
    return (QSizeF(size.width, size.height) * pixelsAPoint()).toSize();
}

double PhoneView::pixelsAPoint() const
{
    return Device::current().scale / devicePixelRatioF();
}

CGPoint PhoneView::pointFor(QPointF position) const
{
    return { position.x() / pixelsAPoint(), position.y() / pixelsAPoint() };
}

QRectF PhoneView::rectFor(CGRect rect) const
{
    const auto pixels = pixelsAPoint();
    return { rect.x * pixels, rect.y * pixels, rect.width * pixels, rect.height * pixels };
}

void PhoneView::showDamage(const std::vector<PixelRect>& damage)
{
    const auto ratio = devicePixelRatioF();
    for (const auto& rect : damage) {
        // Outward to whole logical pixels, which is what an update counts in.
        const QRectF logical(rect.x / ratio, rect.y / ratio, rect.width / ratio, rect.height / ratio);
        update(logical.toAlignedRect());
    }
    placeRing();
}

void PhoneView::setHighlight(std::optional<CGRect> rect)
{
    if (rect == _highlight)
        return;
    for (const auto& change : { _highlight, rect }) {
        _highlight = change;
        if (_highlight)
            update(rectFor(*_highlight).toAlignedRect());
    }
}

void PhoneView::glide()
{
    const auto now = static_cast<double>(_clock.nsecsElapsed()) / 1e9;
    if (!_gliding || !_gliding->advance(now - _lastGlide)) {
        _glide.stop();
        _gliding.reset();
    }
    _lastGlide = now;
}

void PhoneView::paintEvent(QPaintEvent* event)
{
    const auto& picture = _phone.window().picture();
    const auto ratio = devicePixelRatioF();
    QImage image(reinterpret_cast<const uchar*>(picture.pixels.get()), picture.width, picture.height,
        picture.width * 4, QImage::Format_RGB32);
    image.setDevicePixelRatio(ratio);
    QPainter painter(this);
    for (const auto& rect : event->region()) {
        const QRectF source(rect.x() * ratio, rect.y() * ratio, rect.width() * ratio, rect.height() * ratio);
        painter.drawImage(QRectF(rect), image, source);
    }
    if (_highlight) {
        painter.setPen(QColor(0, 90, 255));
        painter.setBrush(QColor(0, 122, 255, 70));
        painter.drawRect(rectFor(*_highlight).adjusted(0.5, 0.5, -0.5, -0.5));
    }
    _ring.paint(painter);
}

void PhoneView::resizeEvent(QResizeEvent*)
{
    if (!_screenIsHeld)
        takeOwnSize();
}

CGSize PhoneView::sizeInPoints() const
{
    const auto pixels = pixelsAPoint();
    return { std::floor(width() / pixels), std::floor(height() / pixels) };
}

bool PhoneView::showsWholeScreen() const
{
    return sizeInPoints() == Device::current().screenSize;
}

void PhoneView::updateSmallestSize()
{
    // A phone that is smaller still, as its user wishes, is shown as it is.
    const auto least = QSizeF(smallestWidth, smallestHeight) * pixelsAPoint();
    setMinimumSize(least.toSize().boundedTo(sizeHint()));
}

void PhoneView::holdScreen(bool isHeld)
{
    _screenIsHeld = isHeld;
    if (!isHeld)
        takeOwnSize();
}

void PhoneView::takeOwnSize()
{
    _phone.setScreen(sizeInPoints(), static_cast<int>(Device::current().scale));
    _phone.settle();
    update();
}

void PhoneView::mousePressEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton)
        return;
    const auto point = pointFor(event->position());
    _glide.stop();
    const auto touched = scrollViewAt(_phone.window(), point);
    if (_gliding && _gliding != touched)
        _gliding->setContentOffset(_gliding->contentOffset());
    _gliding = touched;
    if (_focus) {
        _focus->hide(point);
        placeRing();
    }
    _phone.window().touchBegan(point, static_cast<double>(event->timestamp()) / 1e3);
    // A control took the touch; the content stands still below it all the same.
    if (_gliding && _gliding->isDecelerating())
        _gliding->setContentOffset(_gliding->contentOffset());
}

void PhoneView::mouseMoveEvent(QMouseEvent* event)
{
    if (event->buttons() & Qt::LeftButton)
        _phone.window().touchMoved(
            pointFor(event->position()), static_cast<double>(event->timestamp()) / 1e3);
}

void PhoneView::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton)
        return;
    _phone.window().touchEnded(pointFor(event->position()), static_cast<double>(event->timestamp()) / 1e3);
    if (_gliding && _gliding->isDecelerating()) {
        _lastGlide = static_cast<double>(_clock.nsecsElapsed()) / 1e9;
        _glide.start();
    }
}

void PhoneView::wheelEvent(QWheelEvent* event)
{
    // Touchpads tell pixels, wheels eighths of a degree, 120 a step.
    const auto dy = event->pixelDelta().isNull() ? event->angleDelta().y() / 120.0 * pointsAWheelStep
                                                 : event->pixelDelta().y() / pixelsAPoint();
    _glide.stop();
    _phone.scrollAt(pointFor(event->position()), -dy);
}

}
