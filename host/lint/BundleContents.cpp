#include "BundleContents.h"

#include "platform/qt/PropertyListFormat.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <stdexcept>

namespace host {

namespace fs = std::filesystem;
using namespace platform;

namespace {

/// Somebody's whole disk is not gone through by mistake.
constexpr std::size_t mostFiles = 10000;
constexpr std::uintmax_t mostBytes = 1U << 30U;
/// Bytes of a property list; no page is near it.
constexpr std::uintmax_t largestList = 16U << 20U;

std::optional<PropertyList> listFrom(const fs::path& file)
{
    std::ifstream stream(file, std::ios::binary);
    const std::string bytes { std::istreambuf_iterator<char>(stream), {} };
    if (!stream.is_open() || stream.bad())
        return std::nullopt;
    const auto value = parsePropertyList(bytes);
    const auto* list = value ? value->dictionary() : nullptr;
    return list ? std::optional(*list) : std::nullopt;
}

/// Regular files in their names' order, hidden ones left out.
std::vector<std::string> filesIn(const fs::path& folder)
{
    std::vector<std::string> files;
    std::uintmax_t bytes = 0;
    std::error_code error;
    auto entry = fs::recursive_directory_iterator(folder, error);
    for (const fs::recursive_directory_iterator end; !error && entry != end && files.size() <= mostFiles;
         entry.increment(error)) {
        std::error_code none; // A link that leads nowhere is no file.
        if (!entry->is_regular_file(none))
            continue;
        // Hidden ones are copied with the bundle, too.
        bytes += entry->file_size(none);
        if (!entry->path().filename().string().starts_with('.'))
            files.push_back(entry->path().lexically_relative(folder).string());
    }
    if (files.size() > mostFiles)
        throw std::runtime_error(
            folder.string() + " holds more than " + std::to_string(mostFiles) + " files and is no bundle.");
    if (bytes > mostBytes)
        throw std::runtime_error(folder.string() + " holds more than 1 GiB and is no bundle.");
    if (error)
        throw std::runtime_error(folder.string() + " cannot be read: " + error.message() + ".");
    std::sort(files.begin(), files.end());
    return files;
}

}

std::size_t RowResource::size() const
{
    const auto* items = arrayUnder(root, "items");
    return items ? items->size() : 0;
}

const PropertyList* RowResource::row(std::size_t index) const
{
    return (*arrayUnder(root, "items"))[index].dictionary();
}

BundleContents::BundleContents(const fs::path& given)
{
    std::error_code error;
    folder = fs::canonical(given, error);
    if (error)
        throw std::runtime_error("There is no folder " + given.string() + ".");
    if (!fs::is_directory(folder, error))
        throw std::runtime_error(given.string() + " is no folder.");
    for (const auto& file : filesIn(folder)) {
        const auto extension = fs::path(file).extension();
        if (extension == ".png")
            images.push_back(file);
        if (extension != ".plist" && extension != ".strings")
            continue;
        const bool isTooLarge = fs::file_size(folder / file, error) > largestList;
        auto list = isTooLarge ? std::nullopt : listFrom(folder / file);
        if (isTooLarge)
            unreadable.push_back({ file, {}, "is larger than 16 MiB, and is not looked at" });
        else if (!list)
            unreadable.push_back({ file, {}, "cannot be read as a property list" });
        else if (file == "Info.plist")
            info = std::move(list);
        else if (extension == ".plist" && list->contains("items"))
            resources.push_back({ file, std::move(*list) });
    }
}

std::string BundleContents::infoText(std::string_view key) const
{
    const auto* text = info ? textUnder(*info, key) : nullptr;
    return text ? *text : std::string();
}

const std::string* textUnder(const PropertyList& list, std::string_view key)
{
    const auto found = list.find(key);
    return found == list.end() ? nullptr : found->second.string();
}

const PropertyArray* arrayUnder(const PropertyList& list, std::string_view key)
{
    const auto found = list.find(key);
    return found == list.end() ? nullptr : found->second.array();
}

std::string placeOfRow(const RowResource& resource, std::size_t index)
{
    auto place = "row " + std::to_string(index + 1);
    const auto* row = resource.row(index);
    if (!row)
        return place;
    for (const char* key : { "label", "id", "key" }) {
        if (const auto* text = textUnder(*row, key); text && !text->empty()) {
            place += " \"" + *text + '"';
            break;
        }
    }
    if (const auto* cell = textUnder(*row, "cell"))
        place += " (" + *cell + ')';
    return place;
}

}
