#include "Digest.h"

#include "DriverTree.h"
#include "Json.h"
#include "platform/Device.h"
#include "platform/UIWindow.h"

#include <filesystem>
#include <QCryptographicHash>
#include <QFile>
#include <vector>

namespace host {

using namespace platform;

namespace {

namespace fs = std::filesystem;

constexpr const char* preferencesFolder = "private/var/mobile/Library/Preferences"; // Below the root.

std::string hexadecimal(const QCryptographicHash& hash)
{
    return hash.result().toHex().toStdString();
}

std::string digestOfText(const std::string& text)
{
    QCryptographicHash hash(QCryptographicHash::Sha256);
    hash.addData(QByteArray::fromStdString(text));
    return hexadecimal(hash);
}

/// Regular files; whatever else lies there is none of a pane's doing.
std::vector<fs::path> filesIn(const fs::path& folder)
{
    std::vector<fs::path> files;
    std::error_code error;
    for (const auto& entry : fs::directory_iterator(folder, error)) {
        if (entry.symlink_status(error).type() == fs::file_type::regular)
            files.push_back(entry.path());
    }
    std::sort(files.begin(), files.end());
    return files;
}

std::optional<std::string> digestOfPreferences()
{
    const auto files = filesIn(fs::path(Device::current().root) / preferencesFolder);
    if (files.empty())
        return std::nullopt;
    QCryptographicHash hash(QCryptographicHash::Sha256);
    for (const auto& path : files) {
        QFile file(QString::fromStdString(path.string()));
        if (!file.open(QIODevice::ReadOnly))
            continue;
        const auto bytes = file.readAll();
        hash.addData(QByteArray::fromStdString(path.filename().string()));
        hash.addData(QByteArray(1, '\0') + QByteArray::number(bytes.size()) + '\n');
        hash.addData(bytes);
    }
    return hexadecimal(hash);
}

std::string digestOfPicture(const Bitmap& picture)
{
    QCryptographicHash hash(QCryptographicHash::Sha256);
    hash.addData(QByteArray::number(picture.width) + 'x' + QByteArray::number(picture.height) + '\n');
    const auto pixels = static_cast<qsizetype>(picture.width) * picture.height;
    hash.addData(QByteArrayView(reinterpret_cast<const char*>(picture.pixels.get()), pixels * 4));
    return hexadecimal(hash);
}

}

Digest digestOf(UIWindow& window)
{
    return { digestOfPreferences(), digestOfText(textFromJson(treeOf(window))),
        digestOfPicture(window.picture()) };
}

}
