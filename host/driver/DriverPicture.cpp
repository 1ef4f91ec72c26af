#include "DriverCommands.h"

#include "Digest.h"
#include "Json.h"

#include <cmath>
#include <QImage>
#include <QSaveFile>

namespace host {

using namespace platform;

namespace {

QJsonObject pixel(Driver& driver, Words words)
{
    const auto& picture = driver.window().picture();
    const double x = std::floor(pointsFromWord(words[0]) * driver.window().scale());
    const double y = std::floor(pointsFromWord(words[1]) * driver.window().scale());
    if (!(x >= 0 && y >= 0 && x < picture.width && y < picture.height))
        throw CommandFailure("The point lies outside the window.");
    const auto color = picture.at(static_cast<int>(x), static_cast<int>(y));
    char text[16];
    std::snprintf(text, sizeof text, "#%06X%02X", static_cast<unsigned>(color & 0xFFFFFF),
        static_cast<unsigned>(color >> 24));
    return { { "color", text } };
}

QJsonObject shot(Driver& driver, Words words)
{
    const auto& picture = driver.window().picture();
    const QImage image(reinterpret_cast<const uchar*>(picture.pixels.get()), picture.width, picture.height,
        static_cast<qsizetype>(picture.width) * 4, QImage::Format_RGB32);
    QSaveFile file(QString::fromStdString(words[0]));
    if (!file.open(QIODevice::WriteOnly) || !image.save(&file, "PNG") || !file.commit())
        throw CommandFailure(
            quoted(words[0]) + " can't be written: " + file.errorString().toStdString() + ".");
    return {
        { "file", jsonFromText(words[0]) },
        { "size", QJsonArray { picture.width, picture.height } },
    };
}

QJsonObject digest(Driver& driver, Words)
{
    const auto digest = digestOf(driver.window());
    return {
        { "prefs", digest.preferences ? jsonFromText(*digest.preferences) : QJsonValue() },
        { "tree", jsonFromText(digest.tree) },
        { "picture", jsonFromText(digest.picture) },
    };
}

constexpr DriverCommand commands[] = {
    { "digest", 0, 0, "", digest },
    { "pixel", 2, 2, "X and Y", pixel },
    { "shot", 1, 1, "one FILE", shot },
};

}

std::span<const DriverCommand> pictureCommands()
{
    return commands;
}

}
