#include "Images.h"

#include "Apart.h"
#include "platform/Device.h"
#include "platform/qt/ImageFile.h"

namespace host {

using namespace platform;

namespace {

constexpr std::chrono::seconds longest { 60 };

void decodeAll(const BundleContents& contents, const RecordWriter& tell)
{
    Device::current().root = contents.folder;
    for (const auto& file : contents.images) {
        const auto image = bitmapFromImageFile("/" + file);
        tell({ file, std::to_string(image ? image->width : 0), std::to_string(image ? image->height : 0) });
    }
}

}

void inspectImages(const BundleContents& contents, BundleFacts& facts)
{
    if (contents.images.empty())
        return;
    const auto result = runApart([&](const RecordWriter& tell) { decodeAll(contents, tell); }, longest);
    for (const auto& file : contents.images)
        facts.images[file] = {};
    for (const auto& record : result.records) {
        if (record.size() == 3)
            facts.images[record[0]] = { std::stoi(record[1]), std::stoi(record[2]) };
    }
}

}
