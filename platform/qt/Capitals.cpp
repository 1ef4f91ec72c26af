#include "platform/Device.h"
#include "platform/TextEngine.h"

#include <QLocale>

namespace platform {

std::string capitals(std::string_view utf8)
{
    const QLocale locale(QString::fromStdString(Device::current().locale));
    return locale.toUpper(QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()))).toStdString();
}

}
