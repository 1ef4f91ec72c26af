#include "LintBundle.h"

#include "tests/host/Conversation.h"

#include <gtest/gtest.h>

using namespace platform;

// What is said of modules that cannot be loaded, and of what crashes.

namespace {

TEST(LintModule, TellsOfOneThatIsNotThere)
{
    LintBundle bundle;
    std::filesystem::remove(bundle.path("Lint"));
    EXPECT_EQ(bundle.findings().join('\n'),
        "Lint: is not there, though Info.plist names it as CFBundleExecutable.");
    std::filesystem::create_directory(bundle.path("Lint"));
    EXPECT_EQ(bundle.findings().join('\n'), "Lint: is no file.");
}

TEST(LintModule, LooksForOneInTheBundleAlone)
{
    LintBundle bundle;
    bundle.setInfo("CFBundleExecutable", "/bin/sh");
    EXPECT_EQ(bundle.findings().join('\n'),
        "/bin/sh: is not there, though Info.plist names it as CFBundleExecutable.");
}

TEST(LintModule, TellsOfOneOfAnotherMake)
{
    LintBundle bundle;
    const auto whole = readTestFile(bundle.path("Lint"));
    writeTestFile(bundle.path("Lint"), "#!/bin/sh\n");
    EXPECT_EQ(bundle.findings().join('\n'), "Lint: is not a loadable module (it is no module at all).");
    writeTestFile(bundle.path("Lint"), "");
    EXPECT_EQ(bundle.findings().join('\n'), "Lint: is not a loadable module (it is empty).");
    auto other = whole;
    other[18] = static_cast<char>(other[18] ^ 0x55); // The machine.
    writeTestFile(bundle.path("Lint"), other);
    EXPECT_EQ(bundle.findings().join('\n'),
        "Lint: is not a loadable module (it was built for another kind of processor).");
    auto object = whole;
    object[16] = 1; // The type: what a compiler leaves for the linker.
    writeTestFile(bundle.path("Lint"), object);
    EXPECT_EQ(bundle.findings().join('\n'),
        "Lint: is not a loadable module (it is a file of another kind than a module).");
}

TEST(LintModule, TellsOfOneThatIsCutOff)
{
    LintBundle bundle;
    const auto whole = readTestFile(bundle.path("Lint"));
    for (const std::size_t length : { std::size_t { 64 }, std::size_t { 700 }, std::size_t { 4096 } }) {
        writeTestFile(bundle.path("Lint"), whole.substr(0, length));
        EXPECT_EQ(bundle.findings().join('\n'),
            QString("Lint: is not a loadable module (it ends after %1 bytes, in the middle).").arg(length));
    }
}

TEST(LintModule, NamesEverySymbolThatNobodyHas)
{
    LintBundle bundle;
    bundle.setModule(NEEDS_SYMBOLS_MODULE);
    EXPECT_EQ(bundle.findings().join('\n'),
        "Lint: has the unresolved symbols elsewhere::first(), elsewhere::second(int).");
}

TEST(LintModule, TellsOfAPrincipalClassThatIsNotThereOrNoPage)
{
    LintBundle bundle;
    bundle.setInfo("NSPrincipalClass", "NoSuchPage");
    EXPECT_EQ(bundle.findings().join('\n'),
        "Info.plist: names the principal class \"NoSuchPage\", which the module does not have.");
    bundle.setInfo("NSPrincipalClass", "NoPage");
    EXPECT_EQ(
        bundle.findings().join('\n'), "Info.plist: names the principal class \"NoPage\", which is no page.");
    bundle.setInfo("NSPrincipalClass", "PSListController"); // The layer's own is none of the module.
    EXPECT_EQ(bundle.findings().join('\n'),
        "Info.plist: names the principal class \"PSListController\", which the module does not have.");
}

TEST(LintModule, SurvivesOneThatCrashesWhileItIsLoaded)
{
    LintBundle bundle;
    bundle.setModule(CRASHING_MODULE);
    EXPECT_EQ(bundle.findings().join('\n'), "Lint: crashed (SIGABRT) while the module was loaded.");
    bundle.setModule(EXITING_MODULE);
    EXPECT_EQ(
        bundle.findings().join('\n'), "Lint: ended the program (status 3) while the module was loaded.");
}

TEST(LintModule, SurvivesPagesAndCellsThatCrashAndGoesOnWithTheRest)
{
    const PropertyList crash { { "cell", "PSLinkCell" }, { "label", "Crash" }, { "detail", "CrashingPage" } };
    const PropertyList bad { { "cell", "PSButtonCell" }, { "label", "Bad" }, { "action", "fly" } };
    LintBundle bundle;
    bundle.setRows({ crash, crash, bad });
    EXPECT_EQ(bundle.findings().join('\n'),
        "Root.plist: row 1 \"Crash\" (PSLinkCell): crashed (SIGABRT) while its page was opened.\n"
        "Root.plist: row 2 \"Crash\" (PSLinkCell): crashed (SIGABRT) while its page was opened.\n"
        "Root.plist: row 3 \"Bad\" (PSButtonCell): names the action \"fly\", which LintPage does not have.");
    bundle.setInfo("NSPrincipalClass", "CrashingPage");
    EXPECT_EQ(bundle.findings().first(), "Lint: crashed (SIGABRT) while CrashingPage was opened.");
}

TEST(LintModule, SaysWhichPageHasNoRows)
{
    LintBundle bundle;
    std::filesystem::remove(bundle.path("Root.plist"));
    const auto result = bundle.lint();
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.lines.join('\n'), "Lint: remark: the page LintPage has no rows.");
    EXPECT_EQ(result.summary, "no findings and 1 remark in 1 page, 1 row.");
}

}
