#pragma once

#include "Screen.h"

#include <optional>
#include <vector>

class QKeyEvent;

namespace platform {
class UIScrollView;
}

namespace host {

/// Which element the keyboard is at, and what keys do there. It shows itself with the first key that moves
/// it, and hides from the mouse. What it is at survives changes of the page; each page and alert keeps its
/// own.
class KeyboardFocus {
public:
    /// The screen must outlive it.
    explicit KeyboardFocus(Screen&);

    /// True when the key was of use. Keys of a text field that is being edited are left to it, but for Tab.
    bool keyPress(const QKeyEvent&);
    /// After anything may have changed: another page or alert, or the element has gone. Costs next to nothing
    /// otherwise.
    void follow();
    /// The mouse is in use: Tab will go on from what it touches.
    void hide(platform::CGPoint touched);
    /// Goes to an element and shows itself there.
    void moveTo(const ElementId&);

    /// Without its children; null while it is hidden.
    const Element* element() const { return _isShown && _at && _at->id.get() ? &*_at : nullptr; }

    /// The text that is being edited, else `element()`.
    const Element* keysGoTo();

private:
    struct Place {
        platform::WeakObject context;
        ElementId id;
        platform::CGRect rect; ///< Where it was last, to find what takes its place.
    };

    const Element* current();
    const Element* touched();
    const Element* first();
    const Element* nearest(const Place&);
    platform::UIScrollView* pageScroller() const;

    // KeyboardFocusMoves.cpp; directions are 1 and -1.
    bool moveAlongOrder(int direction);
    bool moveToNeighbour(int direction);
    bool moveToEnd(int direction);
    bool movePage(int direction);
    void scrollBy(platform::CGFloat dy);

    bool goTo(const Element*);
    bool activate(const Element&);
    bool adjust(const Element&, const QKeyEvent&);

    Screen& _screen;
    std::vector<Place> _places; ///< One a context.
    std::optional<Element> _at;
    platform::WeakObject _context; ///< Of `_at`.
    platform::WeakObject _touchedContext;
    platform::CGPoint _touchedPoint;
    bool _isShown = false;
};

}
