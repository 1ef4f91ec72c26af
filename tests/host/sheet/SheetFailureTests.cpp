#include "SheetFixture.h"

#include <QProcess>

#include <sys/stat.h>

// What goes wrong while a sheet is made is told in one sentence, and leaves no file.

namespace {

class SheetFailures : public SheetFixture {
protected:
    /// A sheet of the pane that does harm when it is drawn.
    HostRun renderHarm(const QString& harm, const QStringList& more = {}) const
    {
        return render("sheet.html", QStringList { "--bundle", HARM_BUNDLE } + more,
            { "HARM=" + harm, "TMPDIR=" + path("tmp") });
    }
    void SetUp() override { std::filesystem::create_directory(path("tmp").toStdString()); }
    void TearDown() override { EXPECT_TRUE(std::filesystem::is_empty(path("tmp").toStdString())); }

    const std::set<std::string> nothingNew { "tmp" };
    const QString place = "Fresh, 320x480 at 1x, (en_US|ar_EG): ";
};

TEST_F(SheetFailures, ACrashIsToldWithItsPlaces)
{
    expectRefusal(renderHarm("crash"),
        place
            + "HarmPane.bundle crashed: it used memory at 0x0, where there is none \\(SIGSEGV\\), while it "
              "was "
              "painted, in harmpane::HarmView::drawRect\\(platform::CGRect\\).*");
    expectRefusal(
        renderHarm("throw-number"), place + "HarmPane.bundle crashed: it threw int, which nobody caught, .*");
    EXPECT_EQ(files(), nothingNew);
}

TEST_F(SheetFailures, AnExceptionIsToldWithItsText)
{
    expectRefusal(renderHarm("throw"), place + "the bundle threw an exception: the cupboard is bare[.]");
    EXPECT_EQ(files(), nothingNew);
}

TEST_F(SheetFailures, ABundleThatEndsTheProgramIsTold)
{
    expectRefusal(renderHarm("exit"),
        place
            + "HarmPane.bundle crashed: it ended the program \\(exit status 0\\), while it was painted, in "
              "harmpane::HarmView::drawRect\\(platform::CGRect\\)[.]");
    expectRefusal(renderHarm("exit-at-once"), place + "the bundle ended the program \\(status 0\\)[.]");
    expectRefusal(renderHarm("kill"), place + "the process that drew it was killed \\(SIGKILL\\)[.]");
    EXPECT_EQ(files(), nothingNew);
}

TEST_F(SheetFailures, ABundleThatHangsIsGivenUp)
{
    // Where it hangs depends on how fast the machine is.
    expectRefusal(renderHarm("hang", { "--patience", "1" }), ".*: a page took longer than 1 seconds?[.]");
    EXPECT_EQ(files(), nothingNew);
}

TEST_F(SheetFailures, WhatABundlePrintsIsPassedOnOnce)
{
    const auto run = renderHarm("print");
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.output, "2 pictures.\n");
    EXPECT_EQ(run.errors.count("to standard output\n"), 1) << run.errors.toStdString();
    EXPECT_EQ(run.errors.count("to standard error\n"), 1) << run.errors.toStdString();
}

TEST_F(SheetFailures, NoSuchBundleIsTold)
{
    expectRefusal(render("sheet.html", { "--bundle", path("None.bundle") }), ".*None.bundle.*[.]");
    EXPECT_EQ(files(), nothingNew);
}

TEST_F(SheetFailures, WhereNothingCanBeWrittenNothingIsRendered)
{
    const auto cannot
        = [](const char* reason) { return QString("The sheet .* can't be written: ") + reason; };
    expectRefusal(render("no/such/folder.html"), cannot("No such file or directory[.]"));
    std::filesystem::create_directory(path("folder").toStdString());
    expectRefusal(render("folder"), cannot("It is no file[.]"));
    ASSERT_EQ(::mkfifo(path("pipe").toUtf8().constData(), 0600), 0);
    expectRefusal(render("pipe"), cannot("It is no file[.]"));
    EXPECT_TRUE(std::filesystem::is_fifo(path("pipe").toStdString()));
}

TEST_F(SheetFailures, AFullDiskLeavesTheOldSheet)
{
    write("sheet.html", "as it was");
    // A bundle's files are shorter than a file may be then, and the sheet is longer.
    QProcess shell;
    auto environment = QProcessEnvironment::systemEnvironment();
    environment.insert("HARM", "noise");
    shell.setProcessEnvironment(environment);
    shell.start("sh",
        { "-c", "ulimit -f 250; exec \"$@\"", "sh", HOST_PROGRAM, "sheet", path("sheet.html"), "--bundle",
            HARM_BUNDLE, "--scales", "1", "--locales", "en_US" });
    constexpr int longestWait = 300000; // Milliseconds; only a failure waits that long.
    ASSERT_TRUE(shell.waitForFinished(longestWait));
    EXPECT_EQ(shell.exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(shell.exitCode(), 2);
    expectText(shell.readAllStandardError(), "The sheet .*sheet.html can't be written: File too large[.]\n");
    EXPECT_EQ(bytesOf("sheet.html"), "as it was");
    EXPECT_EQ(files(), (std::set<std::string> { "sheet.html", "tmp" }));
}

TEST_F(SheetFailures, WhatIsNoSheetIsNotComparedWith)
{
    const auto against = [&](const char* name) { return render("new.html", { "--against", path(name) }); };
    expectRefusal(against("none.html"), "The sheet .*none.html can't be read: No such file or directory[.]");
    write("page.html", "<html>");
    expectRefusal(against("page.html"), ".*page.html is no sheet[.]");
    write("empty.html", "");
    expectRefusal(against("empty.html"), ".*empty.html is no sheet[.]");
    ASSERT_EQ(::mkfifo(path("pipe").toUtf8().constData(), 0600), 0);
    expectRefusal(against("pipe"), ".*pipe is no file[.]");
    expectRefusal(against("tmp"), ".*tmp is no file[.]");
    EXPECT_FALSE(files().contains("new.html"));
}

TEST_F(SheetFailures, ASheetThatIsCutOffIsNotComparedWith)
{
    render("old.html", { "--locales", "en_US" });
    const auto whole = bytesOf("old.html");
    ASSERT_FALSE(whole.isEmpty());
    const auto expectToBeRefused = [&](const QByteArray& bytes, const char* sentence) {
        write("cut.html", bytes);
        try {
            sheet("cut.html");
            ADD_FAILURE() << bytes.size() << " of " << whole.size() << " bytes were taken";
        } catch (const std::runtime_error& error) {
            expectText(error.what(), sentence);
        }
    };
    for (const qsizetype percent : { 1, 2, 5, 20, 50, 90, 99 })
        expectToBeRefused(whole.left(whole.size() * percent / 100), ".* is no (whole )?sheet[.]");
    expectToBeRefused(whole.chopped(10), ".* is no whole sheet[.]");
    auto holes = whole;
    holes.remove(whole.size() / 3, whole.size() / 3);
    expectToBeRefused(holes, ".* lacks some of its pictures[.]");
}

TEST_F(SheetFailures, PicturesThatCannotBeReadAreTold)
{
    render("old.html");
    auto old = sheet("old.html");
    old.pictures["ab12"] = "AAAA";
    old.entries.at(0).id = "ab12";
    write("old.html", old);
    expectRefusal(render("new.html", { "--against", path("old.html") }),
        "A picture of the earlier sheet can't be read[.]");
    EXPECT_FALSE(files().contains("new.html"));
}

TEST_F(SheetFailures, WrongOptionsAreTold)
{
    expectRefusal(runHost({ "sheet" }), ".*file.*[.]");
    expectRefusal(runHost({ "sheet", "a.html", "--phones", "320x480,large" }), ".*--phones.*[.]");
    for (const char* patience : { "0", "3601", "soon", "-1", "1.5", "" })
        expectRefusal(runHost({ "sheet", "a.html", "--patience", patience }),
            QString("--patience takes whole seconds from 1 to 3600, not \"%1\"[.]").arg(patience));
}

}
