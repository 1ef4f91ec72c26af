#include "host/inspector/TimelineModel.h"

#include "TimelineTesting.h"
#include "WindowTest.h"

#include <QDateTime>
#include <QJsonDocument>
#include <QJsonObject>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>

#include <chrono>

using namespace platform;
using host::TimelineModel;

namespace {

void paint(const std::string& className)
{
    Journal::shared().record({ JournalEntry::Kind::Paint, className });
}

void endPass()
{
    Journal::shared().record({ JournalEntry::Kind::Display, {} });
}

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
    constexpr int longestWait = 60000; // Milliseconds; only a failure waits that long.
    EXPECT_TRUE(QTest::qWaitFor([&] { return inserted.count() > 0; }, longestWait));
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
