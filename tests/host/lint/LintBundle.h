#pragma once

#include "platform/PropertyValue.h"
#include "tests/support/TemporaryFolder.h"

#include <QStringList>

/// A bundle of a test's own, without anything wrong until the test spoils it.
class LintBundle {
public:
    LintBundle();

    std::filesystem::path path(const std::string& file = {}) const
    {
        return _folder.path() / "Lint.bundle" / file;
    }

    /// "Root.plist", or another page's, with these rows.
    void setRows(platform::PropertyArray rows, const std::string& page = "Root");
    /// "Root.plist" with one group and one more row.
    void setRow(platform::PropertyList row) { setRows({ group(), std::move(row) }); }
    static platform::PropertyList group() { return { { "cell", "PSGroupCell" } }; }
    /// Changes, or takes away, an entry of Info.plist.
    void setInfo(const std::string& key, std::optional<platform::PropertyValue>);
    void setModule(const std::string& file);
    void write(const std::string& file, const platform::PropertyList&);
    /// A picture of one colour.
    void writeImage(const std::string& file, int width, int height);

    struct Result {
        int status = -1;
        QStringList lines; ///< Of standard output, as far as they are findings, without the folder.
        QString summary; ///< The last line, without the folder.
        QString errors;
    };
    Result lint() const;
    /// The findings of a bundle that is then either clean or not.
    QStringList findings() const;

private:
    TemporaryFolder _folder;
    platform::PropertyList _info;
};
