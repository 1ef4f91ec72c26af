#include "FolderState.h"

#include "platform/qt/ModuleFile.h"

#include <QCryptographicHash>

#include <algorithm>
#include <filesystem>
#include <vector>

namespace host {

namespace fs = std::filesystem;

namespace {

/// Relative to the folder.
std::vector<fs::path> filesIn(const fs::path& folder)
{
    std::vector<fs::path> files;
    std::error_code error;
    auto entries = fs::recursive_directory_iterator(folder, error);
    for (const fs::recursive_directory_iterator end; !error && entries != end; entries.increment(error)) {
        if (!entries->path().filename().string().starts_with('.'))
            files.push_back(entries->path().lexically_relative(folder));
    }
    std::sort(files.begin(), files.end());
    return files;
}

}

std::string stateOfFolder(const std::string& folder)
{
    std::string text;
    for (const auto& file : filesIn(folder)) {
        const auto path = fs::path(folder) / file;
        std::error_code error;
        text += file.string();
        // A folder's own times change with what is hidden in it.
        if (!fs::is_directory(path, error)) {
            const auto state = platform::stateOfFile(path.string());
            text += ' ' + std::to_string(state.number) + ' ' + std::to_string(state.size) + ' '
                + std::to_string(state.changed);
        }
        text += '\n';
    }
    if (text.empty())
        return {};
    const QByteArrayView bytes(text.data(), static_cast<qsizetype>(text.size()));
    return QCryptographicHash::hash(bytes, QCryptographicHash::Sha256).toHex().toStdString();
}

bool isComplete(const std::string& folder)
{
    std::error_code error;
    if (!fs::is_regular_file(fs::path(folder) / "Info.plist", error))
        return false;
    bool hasModule = false;
    for (const auto& file : filesIn(folder)) {
        const auto path = fs::path(folder) / file;
        if (!fs::is_regular_file(path, error))
            continue;
        const platform::ModuleFile module(path.string());
        if (module.isUnwritten() || (module.isModule() && !module.problem().empty()))
            return false;
        hasModule = hasModule || module.isModule();
    }
    return hasModule;
}

}
