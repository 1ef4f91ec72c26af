#pragma once

#include <QAccessibleWidget>

namespace host {

class PhoneView;

/// The phone's view on the accessibility bus: what holds the elements of the screen.
class AccessiblePhone final : public QAccessibleWidget {
public:
    explicit AccessiblePhone(PhoneView&);

    int childCount() const override;
    QAccessibleInterface* child(int index) const override;
    int indexOfChild(const QAccessibleInterface*) const override;
    QAccessibleInterface* childAt(int x, int y) const override;
    QAccessibleInterface* focusChild() const override;
    QString text(QAccessible::Text) const override;

private:
    PhoneView* view() const;
};

}
