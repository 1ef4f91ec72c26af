#include "Compositor.h"
#include "Journal.h"
#include "UIWindowImpl.h"

#include <algorithm>
#include <cmath>

namespace platform {

namespace {

constexpr int mostLayoutPasses = 16; // A page that never settles still gets shown.
constexpr std::size_t mostDamagedRects = 12;

}

double UIWindow::scale() const
{
    return windowImpl().scale;
}
const Bitmap& UIWindow::picture() const
{
    return windowImpl().picture;
}

void UIWindow::setScale(double scale)
{
    auto& own = windowImpl();
    if (scale == own.scale)
        return;
    own.scale = scale;
    const auto mark = [](auto& self, UIView& view) -> void {
        view.setNeedsDisplay();
        view.setNeedsLayout();
        for (const auto& subview : view.subviews())
            self(self, *subview);
    };
    mark(mark, *this);
    own.picture = {};
}

void UIWindow::setNeedsDisplayHandler(std::function<void()> handler)
{
    windowImpl().needsDisplayHandler = std::move(handler);
}

void UIWindow::_markDamage(CGRect rect)
{
    auto& own = windowImpl();
    const CGRect visible = CGRectIntersection(rect, { 0, 0, bounds().width, bounds().height });
    if (visible.isEmpty())
        return;
    const auto left = static_cast<int>(std::floor(visible.minX() * own.scale));
    const auto top = static_cast<int>(std::floor(visible.minY() * own.scale));
    PixelRect pixels { left, top, static_cast<int>(std::ceil(visible.maxX() * own.scale)) - left,
        static_cast<int>(std::ceil(visible.maxY() * own.scale)) - top };
    // Rectangles that meet become one, so that nothing is composed twice.
    for (bool grown = true; grown;) {
        grown = false;
        for (auto known = own.damaged.begin(); known != own.damaged.end(); ++known) {
            if (known->intersected(pixels).isEmpty())
                continue;
            pixels = pixels.united(*known);
            own.damaged.erase(known);
            grown = true;
            break;
        }
    }
    own.damaged.push_back(pixels);
    if (own.damaged.size() > mostDamagedRects) {
        PixelRect all;
        for (const auto& known : own.damaged)
            all = all.united(known);
        own.damaged.assign(1, all);
    }
    _markPending();
}

void UIWindow::_markPending()
{
    auto& own = windowImpl();
    if (own.handlerCalled || !own.needsDisplayHandler)
        return;
    own.handlerCalled = true;
    own.needsDisplayHandler();
}

std::vector<PixelRect> UIWindow::display()
{
    auto& own = windowImpl();
    own.hasPainted = false;
    own.handlerCalled = true; // Marks that layout makes are served below.
    const auto needsLayout = [](auto& self, const UIView& view) -> bool {
        if (view.impl().needsLayout)
            return true;
        return view.impl().pendingBelow
            && std::any_of(view.subviews().begin(), view.subviews().end(),
                [&](const auto& subview) { return self(self, *subview); });
    };
    for (int pass = 0; pass < mostLayoutPasses && needsLayout(needsLayout, *this); ++pass)
        layoutTree();
    displayTree(*this);

    const auto pixels
        = [&](CGFloat points) { return static_cast<int>(std::floor(points * own.scale + 0.5)); };
    const auto width = pixels(bounds().width);
    const auto height = pixels(bounds().height);
    if (own.picture.width != width || own.picture.height != height) {
        own.picture = Bitmap::cleared(width, height);
        own.damaged.assign(1, own.picture.rect());
    }
    auto damaged = std::move(own.damaged);
    own.damaged.clear();
    Compositor compositor(own.picture, 0, 0, own.scale);
    for (auto& rect : damaged) {
        rect = rect.intersected(own.picture.rect());
        compositor.compose(*this, rect);
    }
    own.handlerCalled = false;
    if (own.pendingBelow || !own.damaged.empty())
        _markPending(); // A view marked itself while it was painted.
    if (auto& journal = Journal::shared(); (own.hasPainted || !damaged.empty()) && journal.isHeard())
        journal.record({ JournalEntry::Kind::Display, {} });
    return damaged;
}

void UIWindow::displayTree(UIView& view)
{
    auto& impl = view.impl();
    if (!impl.pendingBelow || impl.hidden)
        return;
    impl.pendingBelow = false;
    if (impl.needsDisplay && !impl.contentsAreSet && !impl.bounds.isEmpty()) {
        impl.needsDisplay = false;
        if (impl.draws) {
            CGContext context(impl.bounds.size(), windowImpl().scale);
            {
                CurrentContext current(context);
                view.drawRect(impl.bounds);
            }
            impl.draws = impl.draws || context.hasDrawn();
            if (impl.draws) {
                windowImpl().hasPainted = true;
                if (auto& journal = Journal::shared(); journal.isHeard())
                    journal.record({ JournalEntry::Kind::Paint, view.className() });
            }
            if (auto contents = context.finish(); contents || impl.contents) {
                impl.contents = std::move(contents);
                impl.damageOwn();
            }
        }
    }
    for (std::size_t index = 0; index < impl.subviews.size(); ++index) {
        const auto subview = impl.subviews[index];
        displayTree(*subview);
    }
}

}
