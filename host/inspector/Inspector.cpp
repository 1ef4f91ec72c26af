#include "Inspector.h"

#include "InspectorPages.h"

#include <QApplication>

namespace host {

Inspector::Inspector(Phone& phone, PhoneView& view, QWidget* parent)
    : QTabWidget(parent)
{
    setDocumentMode(true);
    // A caret that blinks would wake the program up twice a second.
    QApplication::setCursorFlashTime(0);
    QFont font(QStringLiteral("Inter"));
    font.setPixelSize(12);
    setFont(font);
    for (const auto& page : inspectorPages()) {
        auto* const widget = page.make(phone, view, this);
        widget->setObjectName(QLatin1String(page.name));
        addTab(widget, QLatin1String(page.title));
    }
}

QString Inspector::currentPage() const
{
    return currentWidget() ? currentWidget()->objectName() : QString();
}

void Inspector::setCurrentPage(const QString& name)
{
    for (int index = 0; index < count(); ++index) {
        if (widget(index)->objectName() == name)
            setCurrentIndex(index);
    }
}

QSize Inspector::minimumSizeHint() const
{
    // Low, so that the panel never makes the phone beside it any higher.
    return { smallestWidth, 200 };
}

}
