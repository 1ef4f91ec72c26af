#include "Rules.h"

#include "platform/UITableViewCell.h"

#include <algorithm>
#include <cmath>

namespace host {

namespace fs = std::filesystem;
using namespace platform;

namespace {

/// An icon is as high and as wide as a row at most: 44, 88 and 132 pixels at one, two and three a point.
constexpr double highestIcon = UITableViewCell::defaultHeight;
/// No phone's or tablet's screen is longer, in points.
constexpr double longestSide = 1366;

/// A file's name without "@2x" and its extension, and how many of its pixels are a point.
struct Variant {
    std::string stem;
    int scale = 1;

    explicit Variant(const std::string& file)
        : stem(file.substr(0, file.size() - std::string_view(".png").size()))
    {
        for (const int larger : { 2, 3 }) {
            const auto suffix = "@" + std::to_string(larger) + "x";
            if (stem.ends_with(suffix)) {
                stem.resize(stem.size() - suffix.size());
                scale = larger;
                return;
            }
        }
    }

    static std::string file(const std::string& stem, int scale)
    {
        return stem + (scale == 1 ? "" : "@" + std::to_string(scale) + "x") + ".png";
    }
};

std::string sizeText(std::pair<int, int> size)
{
    return std::to_string(size.first) + "x" + std::to_string(size.second);
}

/// What is too large of an image for a square of so many points; empty when nothing is.
std::string whatIsTooLarge(std::pair<int, int> pixels, int scale, double points)
{
    const double longest = std::max(pixels.first, pixels.second);
    if (longest <= points * scale)
        return {};
    return "is " + sizeText(pixels) + " pixels large, more than the "
        + sizeText({ static_cast<int>(points * scale), static_cast<int>(points * scale) }) + " that ";
}

/// Relative to the bundle's folder, without ".png"; nothing for what lies elsewhere on the device.
std::optional<std::string> stemOfIcon(const BundleContents& contents, std::string name)
{
    if (name.empty())
        return std::nullopt;
    if (name.front() == '/') {
        const auto own = "/Library/PreferenceBundles/" + contents.folder.stem().string() + ".bundle/";
        if (!name.starts_with(own))
            return std::nullopt;
        name.erase(0, own.size());
    }
    if (name.ends_with(".png"))
        name.resize(name.size() - std::string_view(".png").size());
    return fs::path(name).lexically_normal().string();
}

void checkIcon(const RowCase& row, const RowReport& report)
{
    const auto* name = textUnder(row.item, "icon");
    const auto stem = name ? stemOfIcon(row.contents, *name) : std::nullopt;
    if (!stem)
        return;
    const auto height = row.item.find("height");
    const bool isHigh = height != row.item.end() && height->second.doubleValue() > highestIcon;
    const double room
        = isHigh && std::isfinite(height->second.doubleValue()) ? height->second.doubleValue() : highestIcon;
    bool isThere = false;
    for (const int scale : { 1, 2, 3 }) {
        const auto file = Variant::file(*stem, scale);
        const auto found = row.bundle.images.find(file);
        if (found == row.bundle.images.end())
            continue;
        isThere = true;
        if (const auto reason = whatIsTooLarge(found->second, scale, room); !reason.empty()) {
            auto sentence = "its icon " + file + ' ' + reason;
            sentence += "fit into its row of " + textOfPropertyValue(room) + " points";
            report.wrong(std::move(sentence));
        }
    }
    if (!isThere)
        report.wrong("its icon " + Variant::file(*stem, 1) + " is not there, nor any @2x or @3x of it");
}

constexpr RowRule rules[] = { checkIcon };

}

std::span<const RowRule> iconRules()
{
    return rules;
}

void checkImages(const BundleContents&, const BundleFacts& facts, Findings& findings)
{
    const auto add = [&](const std::string& file, std::string reason, Finding::Weight weight) {
        findings.push_back({ file, {}, std::move(reason), weight });
    };
    for (const auto& [file, size] : facts.images) {
        const Variant variant(file);
        if (size.first == 0) {
            add(file, "cannot be decoded", Finding::Weight::Wrong);
            continue;
        }
        const bool isBundleIcon = variant.stem == "icon";
        const double room = isBundleIcon ? highestIcon : longestSide;
        if (const auto reason = whatIsTooLarge(size, variant.scale, room); !reason.empty())
            add(file,
                reason
                    + (isBundleIcon ? "fit into a row of the list of settings"
                                    : "any screen has at that scale"),
                Finding::Weight::Wrong);
        const auto plain = facts.images.find(Variant::file(variant.stem, 1));
        const bool hasPlain = plain != facts.images.end() && plain->second.first != 0;
        if (variant.scale > 1 && hasPlain
            && size != std::pair(plain->second.first * variant.scale, plain->second.second * variant.scale))
            add(file,
                "is " + sizeText(size) + " pixels large, not " + std::to_string(variant.scale) + " times the "
                    + sizeText(plain->second) + " of " + plain->first,
                Finding::Weight::Wrong);
        if (variant.scale == 1 && !facts.images.contains(Variant::file(variant.stem, 2)))
            add(file, "has no @2x variant, and is blurred on most screens", Finding::Weight::Remark);
    }
}

}
