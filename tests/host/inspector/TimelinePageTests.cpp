#include "host/inspector/TimelinePage.h"

#include "host/inspector/Inspector.h"
#include "host/PhoneView.h"
#include "TimelineTesting.h"
#include "WindowTest.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QJsonDocument>
#include <QLineEdit>
#include <QPushButton>
#include <QTableView>
#include <QToolButton>
#include <QtTest/QTest>

using host::TimelineModel;

namespace {

class InspectorTimelinePage : public WindowTest {
protected:
    InspectorTimelinePage()
    {
        page = openPage<host::TimelinePage>("timeline");
        table = page->findChild<QTableView*>();
        model = table->model();
        press("clear");
    }

    void press(const char* name) { page->findChild<QPushButton*>(QString::fromLatin1(name))->click(); }
    void toggleKind(const char* word) { page->findChild<QToolButton*>(QString::fromLatin1(word))->click(); }
    void type(const QString& text) { page->findChild<QLineEdit*>()->setText(text); }
    QString message() const { return page->findChild<QWidget*>("message")->accessibleName(); }
    QStringList kinds() const { return column(*model, TimelineModel::KindColumn); }
    QStringList names() const { return column(*model); }
    void click(QPoint point)
    {
        QTest::mouseClick(&view(), Qt::LeftButton, {}, point);
        QCoreApplication::processEvents();
    }

    host::TimelinePage* page = nullptr;
    QTableView* table = nullptr;
    QAbstractItemModel* model = nullptr;

    static constexpr QPoint enabledSwitch { 334, 121 };
    static constexpr QPoint vekoraNow { 187, 209 };
    static constexpr QPoint buttonColor { 187, 490 };
};

}

TEST_F(InspectorTimelinePage, TellsAnEditFromTheTouchToTheNotification)
{
    click(enabledSwitch);
    ASSERT_TRUE(waitUntil([&] { return kinds().contains("repaint"); }));
    EXPECT_EQ(kinds().mid(0, 2), (QStringList { "touch", "touch" }));
    EXPECT_EQ(names().mid(0, 2), (QStringList { "began", "ended" }));
    EXPECT_EQ(column(*model, TimelineModel::DetailColumn).front(), "UISwitch at 334, 121");
    const auto write = kinds().indexOf("write");
    const auto notification = kinds().indexOf("notification");
    const auto action = names().indexOf("setPreferenceValue:specifier:");
    EXPECT_EQ(names().at(write), "net.morvane.vekora.plist");
    EXPECT_EQ(names().at(notification), "net.morvane.vekora/preferences");
    EXPECT_EQ(column(*model, TimelineModel::DetailColumn).at(action), "VekoraListController");
    EXPECT_LT(1, action);
    EXPECT_LT(action, write);
    EXPECT_LT(write, notification);
    EXPECT_LT(notification, kinds().indexOf("repaint"));
}

TEST_F(InspectorTimelinePage, NamesTheActionOfARowWithItsTarget)
{
    click(vekoraNow);
    ASSERT_TRUE(waitUntil([&] { return names().contains("vekoraNow"); }));
    const auto row = static_cast<int>(names().indexOf("vekoraNow"));
    EXPECT_EQ(kinds().at(row), "action");
    EXPECT_EQ(column(*model, TimelineModel::DetailColumn).at(row), "VekoraListController");
}

TEST_F(InspectorTimelinePage, HasAnEntryForEachTouchOfADrag)
{
    click(buttonColor);
    press("clear");
    QTest::mousePress(&view(), Qt::LeftButton, {}, { 100, 300 });
    for (int step = 1; step <= 20; ++step)
        QTest::mouseMove(&view(), { 100 + 5 * step, 300 });
    QTest::mouseRelease(&view(), Qt::LeftButton, {}, { 200, 300 });
    ASSERT_TRUE(waitUntil([&] { return kinds().contains("write"); }));
    EXPECT_EQ(names().count("began"), 1);
    EXPECT_EQ(names().count("moved"), 20);
    EXPECT_EQ(names().count("ended"), 1);
    EXPECT_GE(names().count("touchesMovedButton:withEvent:"), 20);
}

TEST_F(InspectorTimelinePage, FiltersByKindAndText)
{
    click(enabledSwitch);
    ASSERT_TRUE(waitUntil([&] { return kinds().contains("repaint"); }));
    const auto all = model->rowCount();
    toggleKind("touch");
    EXPECT_FALSE(kinds().contains("touch"));
    EXPECT_TRUE(kinds().contains("write"));
    for (const auto* const word : { "action", "repaint", "notification", "toggle" })
        toggleKind(word);
    EXPECT_EQ(kinds(), QStringList { "write" });
    click(enabledSwitch);
    EXPECT_TRUE(waitUntil([&] { return kinds() == QStringList { "write", "write" }; }));
    for (const auto* const word : { "touch", "action", "repaint", "notification", "toggle" })
        toggleKind(word);
    EXPECT_GT(model->rowCount(), all);

    type("VEKORA/pref");
    EXPECT_EQ(kinds(), (QStringList { "notification", "notification" }));
    type("repaint");
    EXPECT_EQ(kinds().count("repaint"), model->rowCount());
    type("nothing like it");
    EXPECT_EQ(model->rowCount(), 0);
    EXPECT_EQ(message(), "Nothing so far");
    type("");
    EXPECT_GT(model->rowCount(), all);
}

TEST_F(InspectorTimelinePage, CopiesTheSelectionOrAll)
{
    for (const auto* const name : { "one", "two", "three" })
        post(name);
    ASSERT_TRUE(waitUntil([&] { return model->rowCount() == 3; }));
    const auto copied = [] {
        QStringList names;
        for (const auto& line : QGuiApplication::clipboard()->text().split('\n', Qt::SkipEmptyParts))
            names += line.split('\t').value(3);
        return names;
    };
    press("copy");
    EXPECT_EQ(copied(), (QStringList { "one", "two", "three" }));
    table->selectRow(2);
    table->selectionModel()->select(
        model->index(0, 0), QItemSelectionModel::Select | QItemSelectionModel::Rows);
    table->setFocus();
    QTest::keyClick(table, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(copied(), (QStringList { "one", "three" }));
}

TEST_F(InspectorTimelinePage, SavesWhatIsShownAsTabsOrJson)
{
    post("one");
    post("two");
    ASSERT_TRUE(waitUntil([&] { return model->rowCount() == 2; }));
    type("two");
    const auto table = root() / "timeline.tsv";
    page->setAsker([&] { return QString::fromStdString(table.string()); });
    press("save");
    const auto lines = QString::fromStdString(readTestFile(table)).split('\n');
    ASSERT_EQ(lines.size(), 3);
    EXPECT_EQ(lines[0], "ms\ttime\tkind\tname\tdetail");
    EXPECT_EQ(lines[1].split('\t').value(3), "two");
    EXPECT_EQ(message().toStdString(), "Saved " + table.string() + ".");

    const auto json = root() / "timeline.jsonl";
    page->setAsker([&] { return QString::fromStdString(json.string()); });
    press("save");
    EXPECT_EQ(QJsonDocument::fromJson(QByteArray::fromStdString(readTestFile(json)))["name"], "two");

    page->setAsker([] { return QString(); });
    press("save");
    page->setAsker([&] { return QString::fromStdString((root() / "no folder/x.tsv").string()); });
    press("save");
    EXPECT_TRUE(message().startsWith("Could not save ")) << message().toStdString();
}

TEST_F(InspectorTimelinePage, RecordsNothingWhileItIsPaused)
{
    press("pause");
    post("unheard");
    press("pause");
    post("heard");
    ASSERT_TRUE(waitUntil([&] { return model->rowCount() > 0; }));
    EXPECT_EQ(names(), QStringList { "heard" });
    press("clear");
    EXPECT_EQ(model->rowCount(), 0);
}

TEST_F(InspectorTimelinePage, KeepsTheLastEntryInSightUnlessOneScrolledAway)
{
    const auto lastIsInSight = [&] {
        return table->visualRect(model->index(model->rowCount() - 1, 0)).isValid()
            && table->viewport()->rect().intersects(
                table->visualRect(model->index(model->rowCount() - 1, 0)));
    };
    for (int index = 0; index < 200; ++index)
        post("name");
    ASSERT_TRUE(waitUntil([&] { return model->rowCount() == 200; }));
    EXPECT_TRUE(lastIsInSight());
    table->scrollToTop();
    post("name");
    ASSERT_TRUE(waitUntil([&] { return model->rowCount() == 201; }));
    EXPECT_FALSE(lastIsInSight());
}

TEST_F(InspectorTimelinePage, KeepsWhatOneLooksAtInSightWhenTheFilterChanges)
{
    for (int index = 0; index < 200; ++index) {
        post("even " + std::to_string(2 * index));
        post("odd " + std::to_string(2 * index + 1));
    }
    ASSERT_TRUE(waitUntil([&] { return model->rowCount() == 400; }));
    table->scrollTo(model->index(100, 0), QTableView::PositionAtTop);
    const auto firstInSight = [&] { return names().value(table->rowAt(0)); };
    ASSERT_EQ(firstInSight(), "even 100");
    page->findChild<QLineEdit*>("text")->setText("odd");
    EXPECT_EQ(firstInSight(), "odd 101");
    page->findChild<QLineEdit*>("text")->clear();
    EXPECT_EQ(firstInSight(), "odd 101");
}

TEST_F(InspectorTimelinePage, RecordsWhileAnotherPageIsShown)
{
    window().inspector()->setCurrentPage("file");
    post("meanwhile");
    window().setInspectorShown(false);
    post("hidden");
    window().setInspectorShown(true);
    EXPECT_EQ(model->rowCount(), 0);
    window().inspector()->setCurrentPage("timeline");
    EXPECT_TRUE(names().contains("meanwhile"));
    EXPECT_TRUE(names().contains("hidden"));
}
