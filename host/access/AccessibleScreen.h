#pragma once

#include "ElementIndex.h"

#include <QAccessible>

#include <deque>

namespace host {

class PhoneView;
class Screen;

/// Stands between the phone and assistive technologies: keeps an interface for each element that is shown
/// (until the first change, for each that one of them has asked about), takes it back when the element goes,
/// and tells them what changes. It exists only once one of them has asked.
class AccessibleScreen {
public:
    /// Has the toolkit make interfaces for phone views when it is asked for them. May be called again.
    static void install();

    /// The view owns it.
    explicit AccessibleScreen(PhoneView&);
    ~AccessibleScreen();
    AccessibleScreen(const AccessibleScreen&) = delete;
    AccessibleScreen& operator=(const AccessibleScreen&) = delete;

    PhoneView& view() { return _view; }
    Screen& screen();
    const Element& root();

    /// Null for what is not shown any more.
    QAccessibleInterface* interfaceFor(const ElementId&);
    /// The element around it, else the view itself; null for what is not shown.
    QAccessibleInterface* parentOf(const ElementId&);
    /// What the keyboard is at; null without one.
    const Element* focused();

    /// Compares what is shown with what was told before, tells the difference, and takes interfaces back.
    void tellChanges();

private:
    struct Known {
        ElementId id;
        QAccessible::Id number = 0; ///< Of its interface, with the toolkit.
        ElementId parent; ///< When it was made known.
        Element told; ///< Without its children.
        int caret = 0;
        bool isNew = false;
    };

    Known* known(const ElementId&);
    Known& makeKnown(const Element&, const Element* parent);
    void noticeNew(const Element&);
    void tellOne(Known&, const Element& now);
    void tellText(QAccessibleInterface&, Known&, const Element& now);
    void tellFocus();
    void forgetGone(const ElementIndex& shown);
    void tellGone(const Known&);

    PhoneView& _view;
    std::deque<Known> _known; ///< What is told may make more of them, which must not move these.
    std::unordered_map<ElementKey, Known*, ElementKeyHash> _knownByKey;
    ElementId _focused;
    platform::WeakObject _context { nullptr };
};

}
