#include "Rules.h"

#include <algorithm>
#include <cctype>

namespace host {

namespace {

constexpr std::string_view file = "Info.plist";

/// Without these a bundle can't be loaded, or can't be told from others.
constexpr std::string_view neededKeys[] = { "CFBundleExecutable", "CFBundleIdentifier", "NSPrincipalClass" };

bool isIdentifier(const std::string& text)
{
    return std::all_of(text.begin(), text.end(),
        [](unsigned char c) { return (c < 128 && std::isalnum(c)) || c == '.' || c == '-'; });
}

}

void checkInfo(const BundleContents& contents, Findings& findings)
{
    const auto wrong = [&](std::string reason) {
        findings.push_back({ std::string(file), {}, std::move(reason) });
    };
    if (!contents.info) {
        const bool isThere = std::any_of(contents.unreadable.begin(), contents.unreadable.end(),
            [](const auto& finding) { return finding.file == file; });
        if (!isThere)
            wrong("is not there");
        return;
    }
    for (const auto key : neededKeys) {
        const auto found = contents.info->find(key);
        const auto* text = found == contents.info->end() ? nullptr : found->second.string();
        if (found == contents.info->end())
            wrong("has no " + inQuotes(key));
        else if (!text)
            wrong(inQuotes(key) + " is no text");
        else if (text->empty())
            wrong(inQuotes(key) + " is empty");
    }
    if (const auto identifier = contents.infoText("CFBundleIdentifier"); !isIdentifier(identifier))
        wrong("\"CFBundleIdentifier\" is " + inQuotes(identifier)
            + ", but may have letters, digits, dots and hyphens only");
    const auto type = contents.info->find("CFBundlePackageType");
    if (type != contents.info->end() && contents.infoText("CFBundlePackageType") != "BNDL")
        findings.push_back(
            { std::string(file), {}, "\"CFBundlePackageType\" is not \"BNDL\"", Finding::Weight::Remark });
}

}
