#include "FilePageTest.h"

#include "host/PreferenceFile.h"

using namespace platform;
using host::FileModel;

TEST_F(InspectorFilePage, ShowsKeysTypesAndValues)
{
    EXPECT_EQ(
        rows(), (QStringList { "buttonColor string #3366CC", "enabled boolean true", "minutes integer 60" }));
    EXPECT_EQ(state(), "3 keys.");
    EXPECT_EQ(change("enabled"), "");
}

TEST_F(InspectorFilePage, FollowsThePaneAtOnceAndMarksTheChangeUntilTheNext)
{
    tap(enabledSwitch);
    EXPECT_EQ(value("enabled"), "false");
    EXPECT_EQ(change("enabled"), "was true");
    EXPECT_EQ(change("minutes"), "");
    EXPECT_TRUE(cell("enabled", FileModel::KeyColumn).data(Qt::BackgroundRole).isValid());
    QCoreApplication::processEvents();
    EXPECT_EQ(change("enabled"), "was true");
    edit("minutes", "30");
    EXPECT_EQ(change("enabled"), "");
    EXPECT_EQ(change("minutes"), "was 60");
}

TEST_F(InspectorFilePage, FollowsOtherProcessesAndMarksWhatTheyDid)
{
    writePreferences("<key>enabled</key><false/><key>late</key><real>0.5</real>"
                     "<key>minutes</key><integer>60</integer>");
    ASSERT_TRUE(waitUntil([&] { return value("late") == "0.5"; }));
    EXPECT_EQ(change("late"), "added");
    EXPECT_EQ(change("enabled"), "was true");
    EXPECT_EQ(change("buttonColor"), "removed");
    EXPECT_EQ(value("buttonColor"), "#3366CC");
    EXPECT_EQ(change("minutes"), "");

    // A file that takes the other's place is followed too, again and again.
    for (int round = 1; round <= 3; ++round) {
        const auto other = preferences().string() + ".new";
        writeTestFile(other,
            "<plist version=\"1.0\"><dict><key>round</key><integer>" + std::to_string(round)
                + "</integer></dict></plist>");
        std::filesystem::rename(other, preferences());
        ASSERT_TRUE(waitUntil([&] { return value("round") == QString::number(round); })) << round;
    }
    EXPECT_EQ(rows(), QStringList { "round integer 3" });
    writePreferences("<key>round</key><integer>4</integer>");
    ASSERT_TRUE(waitUntil([&] { return value("round") == "4"; }));
}

TEST_F(InspectorFilePage, TellsOnlyRowsThatChanged)
{
    QStringList told;
    QObject::connect(table->model(), &QAbstractItemModel::dataChanged, page,
        [&](const QModelIndex& from, const QModelIndex& to) {
            for (int row = from.row(); row <= to.row(); ++row)
                told += table->model()->index(row, 0).data().toString();
        });
    QObject::connect(table->model(), &QAbstractItemModel::modelReset, page, [&] { told += "all"; });
    edit("minutes", "30");
    EXPECT_EQ(told, QStringList { "minutes" });
}

TEST_F(InspectorFilePage, OpensTheRealFileInAnEditor)
{
    QString opened;
    page->setOpener([&](const QString& path) {
        opened = path;
        return true;
    });
    press("open");
    EXPECT_EQ(opened.toStdString(), preferences().string());
    EXPECT_EQ(message(), "");
    page->setOpener([](const QString&) { return false; });
    press("open");
    EXPECT_EQ(message().toStdString(), "No program could open " + preferences().string() + ".");
    std::filesystem::remove(preferences());
    press("open");
    EXPECT_EQ(message(), "There is no file to open.");
}

TEST_F(InspectorFilePage, ShowsABrokenFileAsSuchAndNeverReplacesIt)
{
    const std::string half = "<plist version=\"1.0\"><dict><key>enabled</key><tr";
    writeTestFile(preferences(), half);
    const QString sentence
        = "The file is no whole property list with a dictionary; the pane takes it for an empty one.";
    ASSERT_TRUE(waitUntil([&] { return state() == sentence; }));
    EXPECT_EQ(change("enabled"), "removed");
    add("new", "boolean", "true");
    EXPECT_EQ(message(), "The file cannot be read and was left as it is; Reset deletes it.");
    EXPECT_EQ(readTestFile(preferences()), half);
    std::filesystem::remove(preferences());
    EXPECT_TRUE(
        waitUntil([&] { return state() == "There is no file; the pane takes it for an empty one."; }));
}

TEST_F(InspectorFilePage, ShowsWhatIsNoFileAsSuch)
{
    std::filesystem::remove(preferences());
    std::filesystem::create_directory(preferences());
    ASSERT_TRUE(waitUntil([&] { return state().startsWith("The file cannot be read (Is a directory)"); }))
        << state().toStdString();
    press("reset");
    press("confirm");
    EXPECT_TRUE(message().startsWith("The file could not be deleted (")) << message().toStdString();
}

TEST_F(InspectorFilePage, ShowsThePageWhatWasStoredWhenItAppearsAgain)
{
    const auto before = phone().window().picture().at(300, 490);
    edit("buttonColor", "#00FF00");
    phone().settle();
    // The page keeps what it read, as it does when another process changes the file.
    EXPECT_EQ(phone().window().picture().at(300, 490), before);
    press("reload");
    phone().settle();
    EXPECT_EQ(phone().window().picture().at(300, 490), 0xFF00FF00);
}

TEST_F(InspectorFilePage, ShowsThatAButtonOfThePageStoresItsOlderCopy)
{
    add("late", "boolean", "true");
    tap(vekoraNow);
    EXPECT_FALSE(stored().contains("late"));
    EXPECT_EQ(change("late"), "removed");
    EXPECT_EQ(change("disarmedUntil"), "added");
}

TEST_F(InspectorFilePage, LosesNothingWhenThePageAppearsAgainFirst)
{
    add("late", "boolean", "true");
    press("reload");
    tap(vekoraNow);
    EXPECT_TRUE(stored().contains("late"));
}

TEST_F(InspectorFilePage, FollowsTheBundleToAnotherFile)
{
    const auto other = preferences().parent_path() / "org.example.other.plist";
    writeTestFile(other, "<plist version=\"1.0\"><dict><key>a</key><integer>1</integer></dict></plist>");
    host::setPreferenceDomain("org.example.other");
    tap(enabledSwitch);
    EXPECT_EQ(rows(), QStringList { "a integer 1" });
    EXPECT_EQ(change("a"), "");
    EXPECT_TRUE(child<QWidget>("path")->accessibleName().endsWith("/org.example.other.plist"));
    posted.clear();
    edit("a", "2");
    EXPECT_EQ(posted, (std::vector<std::string> { "org.example.other/preferences" }));
    writeTestFile(other, "<plist version=\"1.0\"><dict><key>b</key><true/></dict></plist>");
    EXPECT_TRUE(waitUntil([&] { return value("b") == "true"; }));
    host::setPreferenceDomain("");
}

TEST_F(InspectorFilePage, FollowsFoldersThatGoAndComeBack)
{
    const auto folder = preferences().parent_path();
    for (const auto& moved : { folder, root() / "private" }) {
        std::filesystem::rename(moved, root() / "away");
        ASSERT_TRUE(
            waitUntil([&] { return state() == "There is no file; the pane takes it for an empty one."; }));
        std::filesystem::create_directories(folder);
        writePreferences("<key>anew</key><integer>1</integer>");
        ASSERT_TRUE(waitUntil([&] { return value("anew") == "1"; })) << moved;
        std::filesystem::remove_all(moved);
        std::filesystem::rename(root() / "away", moved);
        ASSERT_TRUE(waitUntil([&] { return value("anew").isEmpty() || change("anew") == "removed"; }))
            << moved;
    }
    writePreferences("<key>last</key><true/>");
    EXPECT_TRUE(waitUntil([&] { return value("last") == "true"; }));
}

TEST_F(InspectorFilePage, ShowsMarkedUpTextsAsTheyStand)
{
    const QString text = "<b>bold</b> &amp; <img src=x>";
    EXPECT_TRUE(edit("buttonColor", text));
    EXPECT_EQ(value("buttonColor"), text);
    EXPECT_EQ(shownTip("buttonColor"), text);
    EXPECT_FALSE(edit("minutes", "<b>x</b>"));
    EXPECT_EQ(message(), "An integer is a whole number, as 60 or -1, not \"<b>x</b>\".");
    EXPECT_EQ(child<QLabel>("message")->textFormat(), Qt::PlainText);
}

TEST_F(InspectorFilePage, TellsTheBeginningOfALongValueInSeveralLines)
{
    const QString text(5000, 'x');
    EXPECT_TRUE(edit("buttonColor", text));
    EXPECT_EQ(shownTip("buttonColor"), text.left(1000));
    QLabel tip(cell("buttonColor", FileModel::ValueColumn).data(Qt::ToolTipRole).toString());
    tip.setWordWrap(true); // As tool tips of rich text are shown.
    EXPECT_LT(tip.sizeHint().width(), 1000);
}

TEST(InspectorFileModel, HasSomethingToBeSeenForEachCharacter)
{
    const FileModel model({ { "a\x02", PropertyValue("one\ntwo\x1b\u2028three\tfour") } });
    EXPECT_EQ(model.index(0, FileModel::KeyColumn).data().toString(), "a\uFFFD");
    EXPECT_EQ(
        model.index(0, FileModel::ValueColumn).data().toString(), "one\u21B5two\uFFFD\u21B5three\tfour");
}
