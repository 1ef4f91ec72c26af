#include "FilePageTest.h"

#include "host/record/Recorder.h"

#include <QtTest/QTest>

using namespace platform;
using host::FileModel;

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
    auto* const line = editByKeys("minutes");
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

TEST_F(InspectorFilePage, KeepsATextThatIsNoValueToBePutRight)
{
    auto* const line = editByKeys("minutes");
    ASSERT_TRUE(line);
    line->selectAll();
    QTest::keyClicks(line, "6o");
    QTest::keyClick(line, Qt::Key_Return);
    EXPECT_EQ(message(), "An integer is a whole number, as 60 or -1, not \"6o\".");
    QCoreApplication::processEvents();
    ASSERT_TRUE(line->isVisible());
    EXPECT_EQ(line->text(), "6o");
    QTest::keyClick(line, Qt::Key_Backspace);
    QTest::keyClicks(line, "1");
    QTest::keyClick(line, Qt::Key_Return);
    EXPECT_EQ(stored().at("minutes"), PropertyValue(61));
    EXPECT_EQ(message(), "");
    EXPECT_FALSE(line->isVisible());
}

TEST_F(InspectorFilePage, EditsALongTextWithoutLosingItsEnd)
{
    const QString text(40000, 'x');
    EXPECT_TRUE(edit("buttonColor", text));
    auto* const line = editByKeys("buttonColor");
    ASSERT_TRUE(line);
    QTest::keyClick(line, Qt::Key_End);
    QTest::keyClicks(line, "y");
    QTest::keyClick(line, Qt::Key_Return);
    EXPECT_EQ(stored().at("buttonColor"), PropertyValue((text + 'y').toStdString()));
}

TEST_F(InspectorFilePage, IsRecordedAsCommands)
{
    const auto script = preferences().parent_path().string() + ".txt";
    host::RecordFile file(script, "");
    host::Recorder recorder(phone(), file);
    auto* const line = editByKeys("minutes");
    ASSERT_TRUE(line);
    line->selectAll();
    QTest::keyClicks(line, "90");
    QTest::keyClick(line, Qt::Key_Return);
    add("new", "boolean", "yes");
    table->setCurrentIndex(cell("new", FileModel::KeyColumn));
    press("delete");
    press("reset");
    press("confirm");
    press("reload");
    EXPECT_EQ(readTestFile(script),
        "store \"minutes\" integer \"90\"\nstore \"new\" boolean \"true\"\nremove "
        "\"new\"\nreset\nreappear\n");
}
