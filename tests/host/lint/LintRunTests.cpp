#include "LintBundle.h"

#include "host/lint/Rules.h"
#include "platform/qt/PropertyListFormat.h"
#include "tests/host/Conversation.h"

#include <gtest/gtest.h>
#include <random>

using namespace platform;

// How a run ends, whatever the bundle holds.

namespace {

TEST(LintRun, FindsNothingInTheProjectsOwnBundles)
{
    for (const char* bundle : { OWN_BUNDLE, GALLERY_BUNDLE }) {
        const auto run = runHost({ "lint", bundle });
        EXPECT_EQ(run.status, 0) << run.output.toStdString();
        EXPECT_EQ(run.output.count('\n'), 1) << run.output.toStdString();
        EXPECT_TRUE(run.output.contains(": no findings in ")) << run.output.toStdString();
        EXPECT_EQ(run.errors, "");
    }
}

TEST(LintRun, FindsTheMistakeOfTheTestsOwnBundle)
{
    const auto run = runHost({ "lint", TEST_BUNDLE });
    EXPECT_EQ(run.status, 1);
    EXPECT_TRUE(run.output.contains("TestPage.plist: row 19 \"Nowhere\" (PSLinkCell): names the detail class "
                                    "\"NoSuchPage\", which the module does not have.\n"))
        << run.output.toStdString();
}

TEST(LintRun, EndsWithStatusTwoWhenThereIsNothingToCheck)
{
    TemporaryFolder folder;
    writeTestFile(folder.path() / "file", "");
    const auto at = [&](const char* name) { return QString::fromStdString(folder.path() / name); };
    const std::pair<QStringList, QString> bad[] = {
        { { "lint" }, "lint needs a bundle." },
        { { "lint", "a", "b" }, "lint takes one bundle, but there is \"b\" too." },
        { { "lint", "" }, "lint takes a bundle's folder, not an empty word." },
        { { "lint", "--root", "a", "b" }, "--root is no option of lint." },
        { { "lint", at("nothing") }, "There is no folder " + at("nothing") + "." },
        { { "lint", at("file") }, at("file") + " is no folder." },
    };
    for (const auto& [words, sentence] : bad) {
        const auto run = runHost(words);
        EXPECT_EQ(run.status, 2);
        EXPECT_EQ(run.output, "");
        EXPECT_EQ(QString::fromUtf8(run.errors), sentence + '\n');
    }
}

TEST(LintRun, EndsWithStatusTwoForAFolderThatIsFarTooLarge)
{
    TemporaryFolder folder;
    for (int number = 0; number <= 10000; ++number)
        writeTestFile(folder.path() / std::to_string(number), "");
    const auto run = runHost({ "lint", QString::fromStdString(folder.path()) });
    EXPECT_EQ(run.status, 2);
    EXPECT_TRUE(run.errors.contains("more than 10000 files")) << run.errors.toStdString();
    const LintBundle bundle;
    writeTestFile(bundle.path("large"), "");
    std::filesystem::resize_file(bundle.path("large"), std::uintmax_t { 1 } << 40U); // It holds nothing.
    EXPECT_EQ(bundle.lint().status, 2);
}

TEST(LintRun, EndsWithStatusTwoWhenNobodyTakesTheFindings)
{
    QProcess shell;
    shell.start("/bin/sh", { "-c", "\"$0\" lint \"$1\" >/dev/full", HOST_PROGRAM, TEST_BUNDLE });
    ASSERT_TRUE(shell.waitForFinished(-1));
    EXPECT_EQ(shell.exitCode(), 2);
    EXPECT_EQ(shell.readAllStandardError(), "The findings can't be written.\n");
}

TEST(LintRun, EndsWithStatusTwoWhenNothingTemporaryCanBeMade)
{
    const auto run = runHost({ "lint", TEST_BUNDLE }, {}, { "TMPDIR=/nowhere" });
    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(run.output, "");
    EXPECT_EQ(run.errors.toStdString(),
        "The folder for what is temporary (TMPDIR) can't be used: No such file or directory.\n");
}

TEST(LintRun, LeavesNothingBehind)
{
    const LintBundle bundle;
    TemporaryFolder home;
    const auto run = runHost({ "lint", QString::fromStdString(bundle.path()) }, {},
        { "TMPDIR=" + QString::fromStdString(home.path()), "HOME=" + QString::fromStdString(home.path()) });
    EXPECT_EQ(run.status, 0);
    EXPECT_TRUE(std::filesystem::is_empty(home.path()));
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(bundle.path()), {}), 4);
}

/// Every rule on every row, without a module.
void checkEverything(const host::BundleContents& contents)
{
    host::BundleFacts facts;
    facts.moduleIsLoaded = true;
    host::Findings findings;
    host::checkInfo(contents, findings);
    host::checkImages(contents, facts, findings);
    const host::RowFacts none;
    const host::RowReport report(
        [](const std::string& reason, host::Finding::Weight) { EXPECT_FALSE(reason.empty()); });
    for (const auto& resource : contents.resources) {
        host::checkSharedNames(contents, resource, findings);
        for (std::size_t index = 0; index < resource.size(); ++index) {
            const auto* item = resource.row(index);
            if (!item)
                continue;
            const auto* cell = host::textUnder(*item, "cell");
            const host::RowCase row { contents, facts, resource, *item, none,
                cell ? cellNameNamed(*cell) : nullptr };
            for (const auto rules :
                { host::keyRules(), host::nameRules(), host::valueRules(), host::iconRules() }) {
                for (const auto rule : rules)
                    rule(row, report);
            }
        }
    }
}

TEST(LintRun, TakesAnyPageThatIsCutOffOrChanged)
{
    const auto page = readTestFile(std::filesystem::path(TEST_BUNDLE) / "TestPage.plist");
    TemporaryFolder folder;
    const auto check = [&](const std::string& content) {
        writeTestFile(folder.path() / "Page.plist", content);
        checkEverything(host::BundleContents(folder.path()));
    };
    int readable = 0;
    for (std::size_t length = 0; length <= page.size(); ++length) {
        check(page.substr(0, length));
        readable += host::BundleContents(folder.path()).unreadable.empty();
    }
    EXPECT_GT(readable, 0); // The whole one, at least.
    constexpr int changes = 3000;
    std::mt19937 random(7);
    const auto below
        = [&](std::size_t end) { return std::uniform_int_distribution<std::size_t>(0, end - 1)(random); };
    constexpr std::string_view kinds[] = { "string", "integer", "real", "array", "dict", "date", "data" };
    for (int change = 0; change < changes; ++change) {
        auto changed = page;
        // Another kind of value, or another byte.
        const auto place = changed.find("<string>", below(changed.size()));
        if (change % 2 == 0 && place != std::string::npos) {
            const auto kind = std::string(kinds[below(std::size(kinds))]);
            const auto end = changed.find("</string>", place);
            changed.replace(place, end - place + 9, "<" + kind + "></" + kind + ">");
        } else {
            changed[below(changed.size())] = static_cast<char>(below(256));
        }
        check(changed);
    }
}

}
