// The peer of a start: the least that a program of the same toolkit does to show one label.

#include <QApplication>
#include <QLabel>
#include <QPixmap>

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    QLabel label(QStringLiteral("Vekora"));
    label.resize(750, 1334);
    label.show();
    QApplication::processEvents();
    return label.grab().isNull() ? 1 : 0;
}
