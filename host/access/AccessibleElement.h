#pragma once

#include "Element.h"

#include <QAccessible>
#include <QPointer>

namespace host {

class AccessibleScreen;
class PhoneView;

/// One element of the phone's screen for assistive technologies. It looks the element up whenever it is
/// asked, so it is never out of date; once the element has gone it is invalid, and whatever is asked of it
/// comes back empty. What it is told to do, it does by touches.
class AccessibleElement final : public QAccessibleInterface,
                                public QAccessibleActionInterface,
                                public QAccessibleEditableTextInterface,
                                public QAccessibleTextInterface,
                                public QAccessibleValueInterface {
public:
    AccessibleElement(PhoneView&, ElementId);

    /// While it is announced that the element goes, it counts as valid still, and as a child of this.
    void announceGoing(QAccessibleInterface* parent) { _goingFrom = parent; }

    bool isValid() const override;
    QObject* object() const override { return nullptr; }
    QWindow* window() const override;
    QVector<QPair<QAccessibleInterface*, QAccessible::Relation>> relations(
        QAccessible::Relation match) const override;
    QAccessibleInterface* parent() const override;
    QAccessibleInterface* child(int index) const override;
    int childCount() const override;
    int indexOfChild(const QAccessibleInterface*) const override;
    QAccessibleInterface* childAt(int x, int y) const override;
    QAccessibleInterface* focusChild() const override;
    QString text(QAccessible::Text) const override;
    void setText(QAccessible::Text, const QString&) override;
    QRect rect() const override;
    QAccessible::Role role() const override;
    QAccessible::State state() const override;
    void* interface_cast(QAccessible::InterfaceType) override;

    // Actions.
    QStringList actionNames() const override;
    void doAction(const QString& name) override;
    QStringList keyBindingsForAction(const QString&) const override { return {}; }

    // Values: of sliders, axes and bars, in their units.
    QVariant currentValue() const override;
    void setCurrentValue(const QVariant&) override;
    QVariant maximumValue() const override;
    QVariant minimumValue() const override;
    QVariant minimumStepSize() const override;

    // Texts: of text fields (AccessibleText.cpp).
    void selection(int index, int* begin, int* end) const override;
    int selectionCount() const override;
    void addSelection(int begin, int end) override;
    void removeSelection(int index) override;
    void setSelection(int index, int begin, int end) override;
    int cursorPosition() const override;
    void setCursorPosition(int) override;
    QString text(int begin, int end) const override;
    int characterCount() const override;
    QRect characterRect(int offset) const override;
    int offsetAtPoint(const QPoint&) const override;
    void scrollToSubstring(int begin, int end) override;
    QString attributes(int offset, int* begin, int* end) const override;
    void deleteText(int begin, int end) override;
    void insertText(int offset, const QString&) override;
    void replaceText(int begin, int end, const QString&) override;

private:
    AccessibleScreen* screen() const;
    /// Null once it has gone.
    const Element* element() const;
    QString fieldText() const;

    QPointer<PhoneView> _view;
    ElementId _id;
    QAccessibleInterface* _goingFrom = nullptr;
};

}
