#include "Conversation.h"

#include <gtest/gtest.h>

// How a run begins, goes on and ends, whatever its commands do.

namespace {

class DriverRun : public testing::Test {
protected:
    QStringList words(const QStringList& more = {})
    {
        return QStringList { "drive", "--root", path("root"), "--bundle", TEST_BUNDLE } + more;
    }
    QString path(const char* name) { return QString::fromStdString((folder.path() / name).string()); }

    TemporaryFolder folder;
};

TEST_F(DriverRun, AnswersEachCommandWithOneLine)
{
    const auto run = runHost(words(), "page\nsettle\npage\n");
    EXPECT_EQ(run.status, 0) << run.errors.toStdString();
    EXPECT_EQ(run.output.count('\n'), 3);
    ASSERT_EQ(run.answers().size(), 3);
    for (const auto& answer : run.answers())
        EXPECT_EQ(answer["ok"], true);
    EXPECT_EQ(run.answers()[0]["do"], "page");
    EXPECT_EQ(run.answers()[1]["do"], "settle");
}

TEST_F(DriverRun, AnswersBeforeTheNextCommandIsThere)
{
    HostProcess host(words());
    for (int i = 0; i < 3; ++i) {
        host.write("page\n");
        EXPECT_TRUE(host.readLine().contains("\"do\":\"page\""));
    }
    host.write("pa");
    host.write("ge\n");
    EXPECT_TRUE(host.readLine().contains("\"do\":\"page\""));
    EXPECT_EQ(host.waitForEnd(), 0);
}

TEST_F(DriverRun, CarriesOutALastLineWithoutItsEnd)
{
    EXPECT_EQ(runHost(words(), "page\nsettle").answers().size(), 2);
}

TEST_F(DriverRun, PassesOverBlankLinesAndComments)
{
    const auto run = runHost(words(), "\n   \n# tap \"x\npage\n#\n");
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.answers().size(), 1);
}

TEST_F(DriverRun, EndsAtTheFirstFailureWithStatusOne)
{
    const auto run = runHost(words(), "page\nfly\npage\n");
    EXPECT_EQ(run.status, 1);
    ASSERT_EQ(run.answers().size(), 2);
    EXPECT_EQ(run.answers()[1]["do"], "fly");
    EXPECT_EQ(run.answers()[1]["ok"], false);
    EXPECT_EQ(run.answers()[1]["error"], "There is no command \"fly\".");
}

TEST_F(DriverRun, GoesOnAfterAFailureWhenTold)
{
    const auto run = runHost(words({ "--keep-going" }), "fly\npage\n");
    EXPECT_EQ(run.status, 1);
    ASSERT_EQ(run.answers().size(), 2);
    EXPECT_EQ(run.answers()[1]["ok"], true);
}

TEST_F(DriverRun, TakesALineThatCannotBeSplitForAFailure)
{
    QByteArray script = "tap \"Flag\ntype \\\nPAGE\x01\n\"\" x\n";
    script += QByteArray("page\0\n", 6) + "type \xFF\n" + "page\n";
    const auto answers = runHost(words({ "--keep-going" }), script).answers();
    ASSERT_EQ(answers.size(), 7);
    EXPECT_EQ(answers[0]["do"], "tap");
    EXPECT_EQ(answers[0]["error"], "The quotation mark in column 5 is never closed.");
    EXPECT_EQ(answers[1]["do"], "type");
    EXPECT_EQ(answers[2]["do"], "PAGE\x01");
    EXPECT_EQ(answers[3]["do"], "");
    EXPECT_EQ(answers[4]["error"], "The line holds a NUL byte.");
    EXPECT_EQ(answers[5]["do"], "type");
    EXPECT_EQ(answers[5]["error"], "The line is not UTF-8.");
    for (int i = 0; i < 6; ++i)
        EXPECT_EQ(answers[i]["ok"], false) << i;
    EXPECT_EQ(answers[6]["ok"], true);
}

TEST_F(DriverRun, AnswersALineThatIsTooLong)
{
    const auto script = "type " + QByteArray(3 << 20, 'x') + "\n# " + QByteArray(2 << 20, 'x') + "\npage\n";
    const auto answers = runHost(words({ "--keep-going" }), script).answers();
    ASSERT_EQ(answers.size(), 2);
    EXPECT_EQ(answers[0]["do"], "type");
    EXPECT_EQ(answers[0]["error"], "The line is longer than 1048576 bytes.");
    EXPECT_EQ(answers[1]["ok"], true);
}

TEST_F(DriverRun, ReadsAFile)
{
    writeTestFile(folder.path() / "script", "page\r\nsettle\r\n");
    const auto run = runHost(words({ path("script") }), "fly\n");
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.answers().size(), 2);
}

TEST_F(DriverRun, EndsWithStatusTwoWhenTheScriptCannotBeRead)
{
    for (const auto& script : { path("nothing"), path(".") }) {
        const auto run = runHost(words({ script }));
        EXPECT_EQ(run.status, 2);
        EXPECT_EQ(run.output, "");
        EXPECT_EQ(run.errors.count('\n'), 1) << run.errors.toStdString();
        EXPECT_TRUE(run.errors.contains("can't be read")) << run.errors.toStdString();
    }
    EXPECT_FALSE(std::filesystem::exists(folder.path() / "root"));
}

TEST_F(DriverRun, EndsWithStatusTwoWhenTheOptionsAreBad)
{
    for (const auto& option :
        { "--scale=4", "--frobnicate", "--now=never", "--size=0x0", "--locale=xx_XX" }) {
        const auto run = runHost(words({ option }), "page\n");
        EXPECT_EQ(run.status, 2) << option;
        EXPECT_EQ(run.output, "") << option;
        EXPECT_EQ(run.errors.count('\n'), 1) << run.errors.toStdString();
    }
}

TEST_F(DriverRun, EndsWithStatusTwoWhenTheRootCannotBeMade)
{
    writeTestFile(folder.path() / "root", "a file");
    const auto run = runHost(words(), "page\n");
    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(run.output, "");
    EXPECT_NE(run.errors, "");
}

TEST_F(DriverRun, MakesTheRootAndKeepsWhatItHolds)
{
    writeTestFile(folder.path() / "root/private/var/mobile/mine", "kept");
    EXPECT_EQ(runHost(words(), "page\n").status, 0);
    EXPECT_EQ(readTestFile(folder.path() / "root/private/var/mobile/mine"), "kept");
    EXPECT_TRUE(std::filesystem::is_symlink(folder.path() / "root/var"));
    EXPECT_TRUE(std::filesystem::is_directory(folder.path() / "root/private/var/mobile/Library/Preferences"));
}

TEST_F(DriverRun, InstallsTheToggleAndTheStatusBarLibraryOrTakesThemAway)
{
    const auto libraries = folder.path() / "root/Library/MobileSubstrate/DynamicLibraries";
    EXPECT_EQ(runHost(words({ "--toggle", "--statusbar" }), "page\n").status, 0);
    EXPECT_TRUE(std::filesystem::exists(libraries / "Flipswitch.dylib"));
    EXPECT_TRUE(std::filesystem::exists(libraries / "libstatusbar.dylib"));
    EXPECT_EQ(runHost(words(), "page\n").status, 0);
    EXPECT_FALSE(std::filesystem::exists(libraries / "Flipswitch.dylib"));
    EXPECT_FALSE(std::filesystem::exists(libraries / "libstatusbar.dylib"));
}

TEST_F(DriverRun, SaysOnceThatThereIsNoBusAndNothingElse)
{
    const auto run = runHost(words(), "page\n");
    EXPECT_EQ(run.errors.count('\n'), 1) << run.errors.toStdString();
    EXPECT_TRUE(run.errors.contains("session bus"));
}

TEST_F(DriverRun, EndsWithStatusTwoWhenTheBundleCannotBeLoaded)
{
    std::filesystem::create_directories(folder.path() / "Broken.bundle");
    for (const char* bundle : { "Broken.bundle", "Missing.bundle" }) {
        const auto run = runHost({ "drive", "--root", path("root"), "--bundle", path(bundle) }, "page\n");
        EXPECT_EQ(run.status, 2);
        EXPECT_EQ(run.output, "");
        EXPECT_EQ(run.errors.count('\n'), 1) << run.errors.toStdString();
        EXPECT_TRUE(run.errors.contains(bundle)) << run.errors.toStdString();
    }
}

TEST_F(DriverRun, EndsWithStatusTwoWhenNobodyTakesTheAnswers)
{
    // /dev/full takes nothing that is written to it.
    QProcess shell;
    QStringList arguments { "-c", "echo page | \"$0\" \"$@\" >/dev/full", HOST_PROGRAM };
    shell.start("/bin/sh", arguments + words());
    ASSERT_TRUE(shell.waitForFinished(-1));
    EXPECT_EQ(shell.exitCode(), 2);
    EXPECT_TRUE(shell.readAllStandardError().contains("can't be written"));
}

TEST_F(DriverRun, HelpAndVersionGoToStandardOutput)
{
    const auto help = runHost({ "--help" });
    EXPECT_EQ(help.status, 0);
    EXPECT_TRUE(help.output.contains("--keep-going"));
    const auto version = runHost({ "--version" });
    EXPECT_EQ(version.status, 0);
    EXPECT_TRUE(version.output.startsWith("vekora "));
}

}
