#include "LintBundle.h"

#include "platform/qt/PropertyListFormat.h"
#include "tests/host/Conversation.h"

#include <gtest/gtest.h>

using namespace platform;

// What is said of Info.plist, of images, and of files that cannot be read.

namespace {

TEST(LintFile, SaysNothingOfAWholeBundle)
{
    const LintBundle bundle;
    std::filesystem::create_symlink("nowhere", bundle.path("link.png"));
    std::filesystem::create_directory_symlink(".", bundle.path("loop"));
    std::filesystem::create_symlink("round.plist", bundle.path("round.plist"));
    const auto result = bundle.lint();
    EXPECT_EQ(result.status, 0) << result.errors.toStdString();
    EXPECT_EQ(result.lines.join('\n'), QString());
    EXPECT_EQ(result.summary, "no findings in 2 pages, 2 rows.");
}

TEST(LintFile, MissesWhatInfoNeeds)
{
    for (const char* key : { "CFBundleExecutable", "CFBundleIdentifier", "NSPrincipalClass" }) {
        const auto name = '"' + QString(key) + '"';
        LintBundle bundle;
        bundle.setInfo(key, std::nullopt);
        EXPECT_EQ(bundle.findings().join('\n'), "Info.plist: has no " + name + ".");
        bundle.setInfo(key, "");
        EXPECT_EQ(bundle.findings().join('\n'), "Info.plist: " + name + " is empty.");
        bundle.setInfo(key, 7);
        EXPECT_EQ(bundle.findings().join('\n'), "Info.plist: " + name + " is no text.");
    }
}

TEST(LintFile, LooksAtIdentifierAndType)
{
    LintBundle bundle;
    bundle.setInfo("CFBundleIdentifier", "my pane");
    bundle.setInfo("CFBundlePackageType", "APPL");
    EXPECT_EQ(bundle.findings().join('\n'),
        "Info.plist: \"CFBundleIdentifier\" is \"my pane\", but may have letters, digits, dots and hyphens "
        "only.\n"
        "Info.plist: remark: \"CFBundlePackageType\" is not \"BNDL\".");
}

TEST(LintFile, TellsOfAMissingOrUnreadableInfo)
{
    LintBundle bundle;
    writeTestFile(bundle.path("Info.plist"), "<plist><dict>");
    EXPECT_EQ(bundle.findings().join('\n'), "Info.plist: cannot be read as a property list.");
    std::filesystem::remove(bundle.path("Info.plist"));
    EXPECT_EQ(bundle.findings().join('\n'), "Info.plist: is not there.");
}

TEST(LintFile, TellsOfListsThatCannotBeRead)
{
    LintBundle bundle;
    writeTestFile(bundle.path("Other.plist"), "<plist>");
    writeTestFile(bundle.path("de.lproj/Root.strings"), "\"a\" = ;");
    writeTestFile(bundle.path("fr.lproj/Root.strings"), "\"a\" = \"b\";");
    bundle.write("Third.plist", { { "items", "none" } });
    EXPECT_EQ(bundle.findings().join('\n'),
        "Other.plist: cannot be read as a property list.\n"
        "de.lproj/Root.strings: cannot be read as a property list.\n"
        "Third.plist: \"items\" is no list.");
}

TEST(LintFile, DoesNotReadAListThatIsFarTooLarge)
{
    LintBundle bundle;
    writeTestFile(bundle.path("Large.plist"), "");
    std::filesystem::resize_file(bundle.path("Large.plist"), 17U << 20U);
    EXPECT_EQ(bundle.findings().join('\n'), "Large.plist: is larger than 16 MiB, and is not looked at.");
}

TEST(LintFile, MeasuresImages)
{
    LintBundle bundle;
    bundle.writeImage("icon.png", 29, 29);
    bundle.writeImage("icon@2x.png", 57, 58);
    bundle.writeImage("icon@3x.png", 87, 133);
    bundle.writeImage("wide.png", 1367, 1);
    bundle.writeImage("wide@2x.png", 2734, 2);
    bundle.writeImage("plain.png", 5, 5);
    EXPECT_EQ(bundle.findings().join('\n'),
        "icon@2x.png: is 57x58 pixels large, not 2 times the 29x29 of icon.png.\n"
        "icon@3x.png: is 87x133 pixels large, more than the 132x132 that fit into a row of the list of "
        "settings.\n"
        "icon@3x.png: is 87x133 pixels large, not 3 times the 29x29 of icon.png.\n"
        "plain.png: remark: has no @2x variant, and is blurred on most screens.\n"
        "wide.png: is 1367x1 pixels large, more than the 1366x1366 that any screen has at that scale.\n"
        "wide@2x.png: is 2734x2 pixels large, more than the 2732x2732 that any screen has at that scale.");
}

TEST(LintFile, KeepsAFindingOnItsLine)
{
    LintBundle bundle;
    bundle.setRow({ { "cell", "PSButtonCell" }, { "label", "Two\nlines" } });
    EXPECT_EQ(bundle.findings().join('\n'),
        "Root.plist: row 2 \"Two lines\" (PSButtonCell): has no \"action\": a tap does nothing.");
}

}
