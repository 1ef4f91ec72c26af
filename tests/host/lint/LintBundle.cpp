#include "LintBundle.h"

#include "platform/qt/PropertyListFormat.h"
#include "tests/host/Conversation.h"

#include <gtest/gtest.h>
#include <QImage>

using namespace platform;

LintBundle::LintBundle()
{
    _info = { { "CFBundleExecutable", "Lint" }, { "CFBundleIdentifier", "org.example.lint" },
        { "CFBundlePackageType", "BNDL" }, { "NSPrincipalClass", "LintPage" } };
    write("Info.plist", _info);
    setModule(LINT_MODULE);
    setRows({ group() });
    setRows({ group() }, "Second");
}

void LintBundle::setRows(PropertyArray rows, const std::string& page)
{
    write(page + ".plist", { { "id", page }, { "items", std::move(rows) } });
}

void LintBundle::setInfo(const std::string& key, std::optional<PropertyValue> value)
{
    _info.erase(key);
    if (value)
        _info.insert_or_assign(key, std::move(*value));
    write("Info.plist", _info);
}

void LintBundle::setModule(const std::string& file)
{
    std::filesystem::copy_file(file, path("Lint"), std::filesystem::copy_options::overwrite_existing);
}

void LintBundle::write(const std::string& file, const PropertyList& list)
{
    writeTestFile(path(file), xmlFromPropertyList(list).value());
}

void LintBundle::writeImage(const std::string& file, int width, int height)
{
    QImage image(width, height, QImage::Format_RGB32);
    image.fill(Qt::blue);
    ASSERT_TRUE(image.save(QString::fromStdString(path(file))));
}

LintBundle::Result LintBundle::lint() const
{
    const auto folder = QString::fromStdString(path().parent_path());
    const auto run = runHost({ "lint", folder });
    Result result {
        .status = run.status, .lines = {}, .summary = {}, .errors = QString::fromUtf8(run.errors)
    };
    for (auto line : QString::fromUtf8(run.output).split('\n', Qt::SkipEmptyParts)) {
        EXPECT_TRUE(line.startsWith(folder)) << line.toStdString();
        result.lines << line.mid(folder.size() + 1);
    }
    if (!result.lines.isEmpty())
        result.summary = result.lines.takeLast().trimmed();
    return result;
}

QStringList LintBundle::findings() const
{
    const auto result = lint();
    EXPECT_EQ(result.status, result.lines.filter(": remark: ").size() == result.lines.size() ? 0 : 1);
    return result.lines;
}
