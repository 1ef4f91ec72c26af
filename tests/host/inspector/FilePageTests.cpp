#include "host/inspector/FilePage.h"

#include "host/inspector/Inspector.h"
#include "host/PreferenceFile.h"
#include "platform/Journal.h"
#include "platform/NSMutableDictionary.h"
#include "WindowTest.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTableView>
#include <QtTest/QTest>

using namespace platform;
using host::FileModel;

namespace {

class InspectorFilePage : public WindowTest {
protected:
    InspectorFilePage()
    {
        writePreferences("<key>buttonColor</key><string>#3366CC</string><key>enabled</key><true/>"
                         "<key>minutes</key><integer>60</integer>");
        open();
        page = openPage<host::FilePage>("file");
        table = page->findChild<QTableView*>();
        _listener = Journal::shared().listen([this](const JournalEntry& entry) {
            if (entry.kind == JournalEntry::Kind::Notification)
                posted.push_back(entry.name);
        });
    }
    ~InspectorFilePage() override { Journal::shared().stop(_listener); }

    /// As another process does it.
    void writePreferences(const std::string& entries)
    {
        writeTestFile(preferences(), "<plist version=\"1.0\"><dict>" + entries + "</dict></plist>");
    }
    PropertyList stored() const
    {
        const auto file = NSMutableDictionary::dictionaryWithContentsOfFile(
            "/private/var/mobile/Library/Preferences/net.morvane.vekora.plist");
        return file ? file->entries() : PropertyList {};
    }

    QModelIndex cell(const QString& key, FileModel::Column column) const
    {
        const auto* const model = table->model();
        for (int row = 0; row < model->rowCount(); ++row) {
            if (model->index(row, FileModel::KeyColumn).data().toString() == key)
                return model->index(row, column);
        }
        return {};
    }
    QString value(const QString& key) const { return cell(key, FileModel::ValueColumn).data().toString(); }
    QString change(const QString& key) const { return cell(key, FileModel::ChangeColumn).data().toString(); }
    bool edit(const QString& key, const QString& text)
    {
        return table->model()->setData(cell(key, FileModel::ValueColumn), text);
    }
    /// Of the whole table, as "key type value".
    QStringList rows() const
    {
        QStringList lines;
        for (int row = 0; row < table->model()->rowCount(); ++row) {
            QStringList words;
            for (const auto column : { FileModel::KeyColumn, FileModel::TypeColumn, FileModel::ValueColumn })
                words += table->model()->index(row, column).data().toString();
            lines += words.join(' ');
        }
        return lines;
    }

    template <typename Widget> Widget* child(const char* name) const
    {
        return page->findChild<Widget*>(QString::fromLatin1(name));
    }
    void press(const char* button) { child<QPushButton>(button)->click(); }
    QString message() const
    {
        const auto* const label = child<QLabel>("message");
        return label->isHidden() ? QString() : label->text();
    }
    QString state() const { return child<QWidget>("state")->toolTip(); }
    void add(const QString& key, const QString& type, const QString& text)
    {
        child<QLineEdit>("newKey")->setText(key);
        child<QComboBox>("newType")->setCurrentText(type);
        child<QLineEdit>("newValue")->setText(text);
        press("add");
    }
    void tap(CGPoint point)
    {
        phone().window().touchBegan(point);
        phone().window().touchEnded(point);
        phone().settle();
    }

    host::FilePage* page = nullptr;
    QTableView* table = nullptr;
    std::vector<std::string> posted;

    static constexpr CGPoint enabledSwitch { 334, 121 };
    static constexpr CGPoint vekoraNow { 187, 209 };
    const std::vector<std::string> once { "net.morvane.vekora/preferences" };

private:
    int _listener = 0;
};

}

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

TEST_F(InspectorFilePage, StoresWhatIsTypedAndTellsTheAddOn)
{
    EXPECT_TRUE(edit("minutes", "90"));
    EXPECT_EQ(stored().at("minutes"), PropertyValue(90));
    EXPECT_EQ(stored().at("buttonColor"), PropertyValue("#3366CC"));
    EXPECT_EQ(posted, once);
    EXPECT_EQ(value("minutes"), "90");
    EXPECT_EQ(message(), "");
}

TEST_F(InspectorFilePage, IsEditedInPlaceByTheKeyboard)
{
    table->setFocus();
    table->setCurrentIndex(cell("minutes", FileModel::ValueColumn));
    QTest::keyClick(table, Qt::Key_F2);
    auto* const line = table->viewport()->findChild<QLineEdit*>();
    ASSERT_TRUE(line);
    line->selectAll();
    QTest::keyClicks(line, "120");
    QTest::keyClick(line, Qt::Key_Return);
    EXPECT_TRUE(waitUntil([&] { return stored().at("minutes") == PropertyValue(120); }));
}

TEST_F(InspectorFilePage, LetsBooleansBeChosen)
{
    table->setCurrentIndex(cell("enabled", FileModel::ValueColumn));
    table->edit(cell("enabled", FileModel::ValueColumn));
    auto* const choice = table->viewport()->findChild<QComboBox*>();
    ASSERT_TRUE(choice);
    EXPECT_EQ(choice->currentText(), "true");
    choice->setCurrentText("false");
    emit choice->activated(choice->currentIndex());
    EXPECT_EQ(stored().at("enabled"), PropertyValue(false));
}

TEST_F(InspectorFilePage, LeavesTheValueWhenTheTextIsNone)
{
    const auto before = readTestFile(preferences());
    EXPECT_FALSE(edit("minutes", "soon"));
    EXPECT_EQ(message(), "An integer is a whole number, as 60 or -1, not \"soon\".");
    EXPECT_EQ(value("minutes"), "60");
    EXPECT_EQ(readTestFile(preferences()), before);
    EXPECT_TRUE(posted.empty());
    EXPECT_TRUE(edit("minutes", "61"));
    EXPECT_EQ(message(), "");
}

TEST_F(InspectorFilePage, KeepsWhatOthersStoredMeanwhile)
{
    writePreferences("<key>minutes</key><integer>60</integer><key>other</key><true/>");
    EXPECT_TRUE(edit("minutes", "61"));
    EXPECT_EQ(stored(), (PropertyList { { "minutes", 61 }, { "other", true } }));
}

TEST_F(InspectorFilePage, DeletesTheSelectedKey)
{
    EXPECT_FALSE(child<QPushButton>("delete")->isEnabled());
    table->setCurrentIndex(cell("enabled", FileModel::KeyColumn));
    EXPECT_TRUE(child<QPushButton>("delete")->isEnabled());
    press("delete");
    EXPECT_FALSE(stored().contains("enabled"));
    EXPECT_EQ(change("enabled"), "removed");
    EXPECT_TRUE(cell("enabled", FileModel::KeyColumn).data(Qt::FontRole).value<QFont>().strikeOut());
    EXPECT_FALSE(table->model()->flags(cell("enabled", FileModel::ValueColumn)) & Qt::ItemIsEditable);
    EXPECT_FALSE(child<QPushButton>("delete")->isEnabled());
    EXPECT_EQ(posted, once);

    table->setFocus();
    table->setCurrentIndex(cell("minutes", FileModel::KeyColumn));
    QTest::keyClick(table, Qt::Key_Delete);
    EXPECT_EQ(rows(), (QStringList { "buttonColor string #3366CC", "minutes integer 60" }));
    EXPECT_EQ(change("minutes"), "removed");
}

TEST_F(InspectorFilePage, AddsKeysOfEveryType)
{
    add("a", "boolean", "yes");
    add("b", "integer", "-1");
    add("c", "real", "0.5");
    add("d", "string", "");
    add("e", "date", "2014-01-05T10:00:00Z");
    add("f", "data", "0a ff");
    add("g", "array", "<array><true/></array>");
    add("h", "dictionary", "<dict/>");
    EXPECT_EQ(message(), "");
    const auto list = stored();
    EXPECT_EQ(list.at("a"), PropertyValue(true));
    EXPECT_EQ(list.at("b"), PropertyValue(-1));
    EXPECT_EQ(list.at("c"), PropertyValue(0.5));
    EXPECT_EQ(list.at("d"), PropertyValue(""));
    EXPECT_EQ(list.at("e"), PropertyValue(NSDate::dateWithTimeIntervalSince1970(1388916000)));
    EXPECT_EQ(list.at("f"), PropertyValue(PropertyData { 10, 255 }));
    EXPECT_EQ(list.at("g"), PropertyValue(PropertyArray { true }));
    EXPECT_EQ(list.at("h"), PropertyValue(PropertyList {}));
    EXPECT_EQ(change("h"), "added");
    EXPECT_EQ(child<QLineEdit>("newKey")->text(), "");
}

TEST_F(InspectorFilePage, AddsNothingThatCannotBe)
{
    const auto before = readTestFile(preferences());
    add("", "string", "x");
    EXPECT_EQ(message(), "A new key needs a name.");
    add("enabled", "string", "x");
    EXPECT_EQ(message(), "There is a key \"enabled\" already.");
    add("n", "integer", "x");
    EXPECT_EQ(message(), "An integer is a whole number, as 60 or -1, not \"x\".");
    EXPECT_EQ(child<QLineEdit>("newKey")->text(), "n");
    EXPECT_EQ(readTestFile(preferences()), before);
    EXPECT_TRUE(posted.empty());
}

TEST_F(InspectorFilePage, AsksBeforeItResetsTheFile)
{
    press("reset");
    EXPECT_TRUE(std::filesystem::exists(preferences()));
    press("keep");
    EXPECT_TRUE(std::filesystem::exists(preferences()));
    EXPECT_TRUE(child<QPushButton>("reset")->isVisible());
    press("reset");
    EXPECT_FALSE(child<QPushButton>("reset")->isVisible());
    press("confirm");
    EXPECT_FALSE(std::filesystem::exists(preferences()));
    EXPECT_EQ(state(), "There is no file; the pane takes it for an empty one.");
    EXPECT_EQ(change("enabled"), "removed");
    EXPECT_EQ(posted, once);
    add("new", "boolean", "true");
    EXPECT_EQ(rows(), QStringList { "new boolean true" });
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

TEST_F(InspectorFilePage, SaysWhenTheFileCannotBeWritten)
{
    // A folder that is no folder any more: nothing can be stored in it, whoever the user is.
    const auto folder = preferences().parent_path();
    std::filesystem::rename(folder, folder.string() + ".away");
    writeTestFile(folder, "");
    add("new", "boolean", "true");
    EXPECT_NE(message(), "");
    EXPECT_TRUE(posted.empty());
    std::filesystem::remove(folder);
    std::filesystem::rename(folder.string() + ".away", folder);
    add("new", "boolean", "true");
    EXPECT_EQ(message(), "");
    EXPECT_EQ(stored().size(), 4u);
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
    EXPECT_TRUE(child<QWidget>("path")->toolTip().endsWith("/org.example.other.plist"));
    posted.clear();
    edit("a", "2");
    EXPECT_EQ(posted, (std::vector<std::string> { "org.example.other/preferences" }));
    writeTestFile(other, "<plist version=\"1.0\"><dict><key>b</key><true/></dict></plist>");
    EXPECT_TRUE(waitUntil([&] { return value("b") == "true"; }));
    host::setPreferenceDomain("");
}
