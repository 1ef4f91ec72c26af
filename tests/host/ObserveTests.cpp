#include "Conversation.h"
#include "tests/platform/PrivateBus.h"

#include <csignal>
#include <gtest/gtest.h>

// The observer, beside a pane in another process, on a bus of their own.

namespace {

QStringList variables(const PrivateBus& bus)
{
    return { "DBUS_SESSION_BUS_ADDRESS=" + QString::fromStdString(bus.address()) };
}

class Observe : public testing::Test {
protected:
    QStringList rootOption() const { return { "--root", QString::fromStdString(root.string()) }; }
    void drive(const QByteArray& script)
    {
        const auto run = runHost(
            QStringList { "drive", "--bundle", TEST_BUNDLE } + rootOption(), script, variables(bus));
        EXPECT_EQ(run.status, 0) << run.output.toStdString();
        EXPECT_EQ(run.errors, "") << run.errors.toStdString();
    }

    TemporaryFolder folder;
    PrivateBus bus;
    std::filesystem::path root = folder.path() / "root";
};

/// A line without its time, which must look like one.
QByteArray withoutTime(const QByteArray& line, const char* offset = "+00:00")
{
    const auto end = line.indexOf(' ');
    const auto time = line.left(end);
    EXPECT_EQ(time.mid(4, 1) + time.mid(7, 1) + time.mid(10, 1), "--T") << line.toStdString();
    EXPECT_TRUE(time.endsWith(offset)) << line.toStdString();
    return line.mid(end + 1);
}

TEST_F(Observe, PrintsALineForEachNotificationWithWhatChanged)
{
    HostProcess observer(QStringList { "observe" } + rootOption(), variables(bus));
    EXPECT_TRUE(observer.readErrorLine().startsWith("Listening."));
    drive("tap Flag\n");
    EXPECT_EQ(withoutTime(observer.readLine()), "net.morvane.vekora/preferences \"flag\": absent -> true");
    drive("tap Flag\ntap Name\ntype x\nkey Return\n");
    EXPECT_EQ(withoutTime(observer.readLine()).left(31), "net.morvane.vekora/preferences ");
    EXPECT_EQ(withoutTime(observer.readLine()).left(31), "net.morvane.vekora/preferences ");
    observer.send(SIGTERM);
    EXPECT_EQ(observer.waitForEnd(), 0);
}

TEST_F(Observe, HearsOfWhatIsStoredWhenThePhoneGoes)
{
    HostProcess observer(QStringList { "observe" } + rootOption(), variables(bus));
    observer.readErrorLine();
    drive("tap Name\ntype x\n");
    EXPECT_EQ(withoutTime(observer.readLine()), "net.morvane.vekora/preferences \"name\": absent -> \"x\"");
    observer.send(SIGTERM);
    EXPECT_EQ(observer.waitForEnd(), 0);
}

TEST_F(Observe, ComparesWithWhatTheFileHeldAtTheStart)
{
    writeTestFile(root / "private/var/mobile/Library/Preferences/net.morvane.vekora.plist",
        "<plist "
        "version=\"1.0\"><dict><key>flag</key><false/><key>kept</key><integer>1</integer></dict></plist>");
    HostProcess observer(
        QStringList { "observe", "--timezone", "Asia/Kolkata" } + rootOption(), variables(bus));
    observer.readErrorLine();
    drive("tap Flag\n");
    EXPECT_EQ(
        withoutTime(observer.readLine(), "+05:30"), "net.morvane.vekora/preferences \"flag\": false -> true");
    observer.send(SIGINT);
    EXPECT_EQ(observer.waitForEnd(), 0);
}

TEST_F(Observe, SaysWhenNothingChanged)
{
    HostProcess observer(QStringList { "observe" } + rootOption(), variables(bus));
    observer.readErrorLine();
    QProcess poster;
    auto environment = QProcessEnvironment::systemEnvironment();
    environment.insert("DBUS_SESSION_BUS_ADDRESS", QString::fromStdString(bus.address()));
    poster.setProcessEnvironment(environment);
    poster.start("dbus-send",
        { "--session", "--type=signal", "/net/morvane/NotifyCenter", "net.morvane.NotifyCenter.Posted",
            "string:any.other" });
    ASSERT_TRUE(poster.waitForFinished(-1));
    EXPECT_EQ(withoutTime(observer.readLine()), "any.other no change");
    observer.send(SIGTERM);
    EXPECT_EQ(observer.waitForEnd(), 0);
}

TEST_F(Observe, EndsWithStatusTwoWithoutABus)
{
    const auto run = runHost(QStringList { "observe" } + rootOption());
    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(run.output, "");
    EXPECT_EQ(run.errors, "There is no session bus to listen on.\n");
    EXPECT_FALSE(std::filesystem::exists(root));
}

}
