#pragma once

#include "tests/support/TemporaryFolder.h"

#include <string>

/// A bundle's folder as a linker and a copying tool leave it, and leave it again.
class PaneFolder {
public:
    explicit PaneFolder(std::filesystem::path folder)
        : _folder(std::move(folder))
    {
    }

    const std::filesystem::path& path() const { return _folder; }
    std::filesystem::path module() const { return _folder / "Pane"; }

    /// Everything anew, with one of the builds of Pane.cpp.
    void build(const std::string& name)
    {
        writeInfo("PanePage");
        writeRows("Pane");
        link(name);
    }

    /// A linker takes the old file away first.
    void link(const std::string& name) { linkBytes(bytesOf(name)); }
    void linkBytes(const std::string& bytes)
    {
        std::filesystem::remove(module());
        writeTestFile(module(), bytes);
    }
    static std::string bytesOf(const std::string& build)
    {
        return readTestFile(std::filesystem::path(PANE_BUILDS) / build);
    }

    void writeInfo(const std::string& principalClass)
    {
        writeTestFile(_folder / "Info.plist",
            "<plist version=\"1.0\"><dict><key>CFBundleExecutable</key><string>Pane</string>"
            "<key>NSPrincipalClass</key><string>"
                + principalClass + "</string></dict></plist>");
    }

    /// The first page: a link to the long one, a button, and enough beside to scroll.
    void writeRows(const std::string& title)
    {
        auto rows = item("PSLinkCell", "More", "detail", "PaneMorePage")
            + item("PSButtonCell", "Bump", "action", "bump");
        constexpr int others = 30;
        for (int row = 0; row < others; ++row)
            rows += item("PSButtonCell", "Other " + std::to_string(row), "action", "bump");
        writeTestFile(_folder / "Pane.plist",
            "<plist version=\"1.0\"><dict><key>title</key><string>" + title
                + "</string><key>items</key><array>" + rows + "</array></dict></plist>");
    }

private:
    static std::string item(
        const std::string& cell, const std::string& label, const std::string& key, const std::string& value)
    {
        return "<dict><key>cell</key><string>" + cell + "</string><key>label</key><string>" + label
            + "</string><key>" + key + "</key><string>" + value + "</string></dict>";
    }

    std::filesystem::path _folder;
};
