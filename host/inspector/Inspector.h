#pragma once

#include <QTabWidget>

namespace host {

class Phone;
class PhoneView;

/// The panel beside the phone: a tab for each page of `inspectorPages`. Made when it is first shown.
class Inspector final : public QTabWidget {
public:
    static constexpr int usualWidth = 620; ///< Logical pixels.
    static constexpr int smallestWidth = 320;

    /// Phone and view must live as long as the inspector.
    Inspector(Phone&, PhoneView&, QWidget* parent);

    /// The name of the page that is shown; empty without pages.
    QString currentPage() const;
    /// Stays where it is when there is no page of that name.
    void setCurrentPage(const QString& name);

    QSize minimumSizeHint() const override;
};

}
