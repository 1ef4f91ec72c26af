#include "host/inspector/TimelinePage.h"

#include "host/inspector/Inspector.h"
#include "host/inspector/TimelineModel.h"
#include "host/PhoneView.h"
#include "platform/CFNotificationCenter.h"
#include "WindowTest.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLineEdit>
#include <QPushButton>
#include <QTableView>
#include <QToolButton>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>

using namespace platform;
using host::TimelineModel;

namespace {

void post(const std::string& name)
{
    Journal::shared().record({ .kind = JournalEntry::Kind::Notification, .name = name });
}

void paint(const std::string& className)
{
    Journal::shared().record({ JournalEntry::Kind::Paint, className });
}

void endPass()
{
    Journal::shared().record({ JournalEntry::Kind::Display, {} });
}

/// Names of the rows, or of another column.
QStringList column(const QAbstractItemModel& model, int column = TimelineModel::NameColumn)
{
    QStringList texts;
    for (int row = 0; row < model.rowCount(); ++row)
        texts += model.index(row, column).data().toString();
    return texts;
}

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
    QString message() const { return page->findChild<QWidget*>("message")->toolTip(); }
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

TEST(Timeline, KeepsTheLastOfManyEntriesInOrder)
{
    constexpr int limit = 1000;
    TimelineModel model(nullptr, limit);
    model.setLive(true);
    for (int index = 0; index < 10 * limit; ++index) {
        post(std::to_string(index));
        if (index % 37 == 0)
            model.flush();
    }
    model.flush();
    EXPECT_LE(model.rowCount(), limit);
    EXPECT_GE(model.rowCount(), limit - limit / 100);
    for (int row = 0; row < model.rowCount(); ++row)
        ASSERT_EQ(model.entry(row).name().toInt(), 10 * limit - model.rowCount() + row);
}

TEST(Timeline, IsBoundedWhileNobodyLooks)
{
    TimelineModel model(nullptr, 100);
    for (int index = 0; index < 1000; ++index)
        post(std::to_string(index));
    EXPECT_LE(model.rowCount(), 100);
    model.setLive(true);
    EXPECT_LE(model.rowCount(), 100);
    EXPECT_EQ(model.entry(model.rowCount() - 1).name(), "999");
}

TEST(Timeline, HoldsTheRowsThatAreAboutToGo)
{
    TimelineModel model(nullptr, 100);
    QStringList going;
    QObject::connect(
        &model, &TimelineModel::rowsAboutToBeRemoved, [&](const QModelIndex&, int first, int last) {
            for (int row = first; row <= last; ++row)
                going += model.entry(row).name();
        });
    for (int index = 0; index < 100; ++index)
        post(std::to_string(index));
    model.flush();
    for (int index = 100; index < 102; ++index)
        post(std::to_string(index));
    model.flush();
    EXPECT_EQ(going, (QStringList { "0", "1", "2" }));
    EXPECT_EQ(model.rowCount(), 99);
    EXPECT_EQ(model.entry(0).name(), "3");
}

TEST(Timeline, CountsThePaintsOfADisplayPassInOneEntry)
{
    TimelineModel model;
    paint("UILabel");
    paint("UISlider");
    paint("UILabel");
    endPass();
    endPass();
    paint("UILabel");
    post("between");
    paint("UILabel");
    endPass();
    model.flush();
    EXPECT_EQ(column(model), (QStringList { "2 × UILabel, UISlider", "2 × UILabel", "between" }));
    EXPECT_EQ(column(model, TimelineModel::DetailColumn), (QStringList { "3 views", "2 views", "" }));
}

TEST(Timeline, CountsThePaintsOfAPassThatWasBegunBeforeItWasCleared)
{
    TimelineModel model;
    paint("UILabel");
    model.clear();
    paint("UISlider");
    model.setPaused(true);
    paint("UISlider");
    post("unheard");
    model.setPaused(false);
    paint("UISlider");
    model.flush();
    EXPECT_EQ(column(model), QStringList { "2 × UISlider" });
}

TEST(Timeline, TellsItsViewsOnceOfWhatHappensTogether)
{
    TimelineModel model;
    model.setLive(true);
    QSignalSpy inserted(&model, &QAbstractItemModel::rowsInserted);
    for (int index = 0; index < 50; ++index)
        post("name");
    EXPECT_EQ(inserted.count(), 0);
    EXPECT_TRUE(QTest::qWaitFor([&] { return inserted.count() > 0; }));
    EXPECT_EQ(inserted.count(), 1);
    EXPECT_EQ(model.rowCount(), 50);
}

TEST(Timeline, HasTimesThatNeverGoBack)
{
    TimelineModel model;
    for (int index = 0; index < 10; ++index)
        post("name");
    model.flush();
    for (int row = 1; row < 10; ++row)
        EXPECT_GE(model.entry(row).sinceStart, model.entry(row - 1).sinceStart);
    EXPECT_GT(model.entry(0).sinceStart.count(), 0);
    EXPECT_TRUE(QDateTime::fromString(model.entry(0).time(), Qt::ISODateWithMs).isValid());
}

TEST(Timeline, SavesEachEntryWithEverythingThatIsKnown)
{
    const auto entry = [](JournalEntry what) {
        host::TimelineEntry result { std::move(what), std::chrono::microseconds(1234567),
            std::chrono::system_clock::time_point() };
        return result;
    };
    using Kind = JournalEntry::Kind;
    EXPECT_EQ(entry({ Kind::Notification, "a\tb", "immediately" }).tsv(),
        "1234.6\t1970-01-01T00:00:00.000Z\tnotification\ta b\timmediately");
    const auto json
        = [](const host::TimelineEntry& of) { return QJsonDocument::fromJson(of.json()).object(); };
    const auto touch
        = json(entry({ .kind = Kind::Touch, .name = "moved", .detail = "UIView", .place = { 1, 2.5 } }));
    EXPECT_EQ(touch["ms"].toDouble(), 1234.6);
    EXPECT_EQ(touch["kind"].toString(), "touch");
    EXPECT_EQ(touch["name"].toString(), "moved");
    EXPECT_EQ(touch["detail"].toString(), "UIView at 1, 2.5");
    EXPECT_EQ(touch["x"].toDouble(), 1);
    EXPECT_EQ(touch["y"].toDouble(), 2.5);
    const auto write
        = json(entry({ .kind = Kind::Write, .name = "/private/var/a.plist", .succeeded = false }));
    EXPECT_EQ(write["name"].toString(), "/private/var/a.plist");
    EXPECT_EQ(write["detail"].toString(), "failed in /private/var");
    EXPECT_FALSE(write["ok"].toBool(true));
    const auto toggle = json(entry({ .kind = Kind::Toggle, .name = "x", .state = 1 }));
    EXPECT_EQ(toggle["state"].toInt(), 1);
    EXPECT_EQ(toggle["detail"].toString(), "on");
    auto paints = entry({ Kind::Paint, {} });
    paints.paints = { { "UILabel", 2 } };
    EXPECT_EQ(json(paints)["views"].toObject()["UILabel"].toInt(), 2);
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
