#include "Conversation.h"

#include <gtest/gtest.h>
#include <QImage>

// The commands that look at views and pixels.

namespace {

QJsonObject find(const QJsonObject& node, const QString& className, const QJsonValue& text = {})
{
    if (node["class"] == className && (text.isNull() || node["text"] == text))
        return node;
    for (const auto& child : node["children"].toArray()) {
        const auto found = find(child.toObject(), className, text);
        if (!found.isEmpty())
            return found;
    }
    return {};
}

QByteArray point(double x, double y)
{
    return QByteArray::number(x, 'g', 17) + " " + QByteArray::number(y, 'g', 17);
}

TEST(DriverTree, IsTheWholeWindow)
{
    Conversation ask;
    const auto window = ask.ok("tree")["tree"].toObject();
    EXPECT_EQ(window["class"], "UIWindow");
    EXPECT_EQ(compact(window["frame"]), "[0,0,375,667]");
    EXPECT_EQ(compact(window["onScreen"]), "[0,0,375,667]");
    EXPECT_FALSE(find(window, "UITableView").isEmpty());
    EXPECT_FALSE(find(window, "TestBlotCell").isEmpty());
}

TEST(DriverTree, BeginsAtTheFirstViewOfAClass)
{
    Conversation ask;
    const auto blot = ask.ok("tree TestBlot")["tree"].toObject();
    EXPECT_EQ(blot["class"], "TestBlot");
    EXPECT_EQ(compact(blot["frame"]), "[10,120,100.25,50.5]");
    EXPECT_EQ(blot["tag"], 9);
    EXPECT_EQ(blot["mask"], 36);
    EXPECT_EQ(blot["borderWidth"], 1.5);
    EXPECT_EQ(blot["borderColor"], "#0000FFFF");
    EXPECT_EQ(blot["cornerRadius"], 4);
    EXPECT_EQ(blot["masksToBounds"], false);
    EXPECT_EQ(blot["hidden"], false);
    EXPECT_EQ(blot["alpha"], 1);
    EXPECT_TRUE(blot["children"].toArray().isEmpty());
    for (const char* field : { "text", "background", "value", "on", "enabled", "lines", "alignment" })
        EXPECT_FALSE(blot.contains(field)) << field;
}

TEST(DriverTree, TellsWhereAViewIsOnTheScreen)
{
    Conversation ask;
    const QJsonValue before = ask.ok("tree TestBlot")["tree"].toObject()["onScreen"];
    const auto offset = ask.ok("scroll 33.5")["offset"].toDouble();
    const QJsonValue after = ask.ok("tree TestBlot")["tree"].toObject()["onScreen"];
    EXPECT_GT(offset, 0);
    EXPECT_EQ(numberAt(after, 0), 10);
    EXPECT_EQ(numberAt(after, 1), numberAt(before, 1) - offset);
    EXPECT_EQ(numberAt(after, 2), 100.25);
}

TEST(DriverTree, NeedsAClassThatIsThere)
{
    Conversation ask;
    EXPECT_EQ(ask.error("tree NoSuchView"), "The window has no view of class \"NoSuchView\".");
    EXPECT_EQ(ask.error("tree UIView UIView"), "tree takes at most one CLASS, not 2 words.");
}

TEST(DriverTree, LabelsHaveTexts)
{
    Conversation ask;
    const auto label = find(ask.ok("tree TestBlotCell")["tree"].toObject(), "UILabel", "Under glass");
    EXPECT_EQ(label["textColor"], "#000000FF");
    EXPECT_EQ(label["alignment"], 0);
    EXPECT_EQ(label["lines"], 1);
    EXPECT_FALSE(label.contains("enabled"));
    const auto hidden = find(ask.ok("tree TestBlotCell")["tree"].toObject(), "UILabel", "Hidden");
    EXPECT_EQ(hidden["hidden"], true);
    const auto clear = find(ask.ok("tree TestBlotCell")["tree"].toObject(), "UILabel", "Clear");
    EXPECT_EQ(clear["alpha"], 0);
}

TEST(DriverTree, ControlsHaveStates)
{
    Conversation ask;
    const auto window = ask.ok("tree")["tree"].toObject();
    EXPECT_EQ(find(window, "UISwitch")["on"], false);
    EXPECT_EQ(find(window, "UISwitch")["enabled"], true);
    const auto slider = find(window, "UISlider");
    EXPECT_EQ(slider["value"], 0);
    EXPECT_EQ(slider["min"], 0);
    EXPECT_EQ(slider["max"], 10);
    EXPECT_EQ(find(window, "UISegmentedControl")["value"], 0);
    const auto field = find(window, "UITextField");
    EXPECT_EQ(field["text"], "");
    EXPECT_TRUE(field.contains("textColor"));
    EXPECT_TRUE(field.contains("alignment"));
    const QJsonValue plate = find(window, "TestBlotCell")["children"];
    EXPECT_TRUE(compact(plate).contains("\"background\":\"#FFFFFFFF\""));
}

TEST(DriverTree, ChildrenAreBackToFront)
{
    Conversation ask;
    ask.ok("tap Tell");
    const auto children = ask.ok("tree")["tree"].toObject()["children"].toArray();
    EXPECT_EQ(children[children.size() - 1].toObject()["class"], "UIAlertView");
}

TEST(DriverPicture, PixelTellsTheShownColour)
{
    Conversation ask;
    ask.ok("scroll 10000");
    const QJsonValue blot = ask.ok("tree TestBlot")["tree"].toObject()["onScreen"];
    const double x = numberAt(blot, 0) + 50;
    const double y = numberAt(blot, 1) + 25;
    EXPECT_EQ(ask.ok("pixel " + point(x, y))["color"], "#FF0000FF");
    ask.ok("tap 'Under glass'");
    EXPECT_EQ(ask.ok("pixel " + point(x, y))["color"], "#0000FFFF");
}

TEST(DriverPicture, PixelLooksAtTheFloorOfPointTimesScale)
{
    Conversation ask({ "--scale", "3", "--size", "100x50" });
    ask.ok("pixel 99.99 49.99");
    ask.ok("pixel 0 0");
    EXPECT_EQ(ask.error("pixel 100 0"), "The point lies outside the window.");
    EXPECT_EQ(ask.error("pixel 0 50"), "The point lies outside the window.");
    EXPECT_EQ(ask.error("pixel -0.01 0"), "The point lies outside the window.");
    EXPECT_EQ(ask.error("pixel 0 nan"), "\"nan\" is not a number.");
    EXPECT_EQ(ask.error("pixel 0"), "pixel takes X and Y, not 1 word.");
}

TEST(DriverPicture, ShotWritesWhatPixelTells)
{
    Conversation ask({ "--scale", "3", "--size", "320x480" });
    const auto file = QString::fromStdString((ask.folder() / "a shot.png").string());
    const auto answer = ask.ok("shot \"" + file.toUtf8() + "\"");
    EXPECT_EQ(answer["file"], file);
    EXPECT_EQ(compact(answer["size"]), "[960,1440]");
    const QImage image(file, "PNG");
    ASSERT_EQ(image.size(), QSize(960, 1440));
    for (const auto& [x, y] :
        { std::pair { 0, 0 }, { 480, 100 }, { 900, 200 }, { 30, 1000 }, { 959, 1439 } }) {
        const auto color = image.pixelColor(x, y);
        const auto expected = QString("#%1%2%3FF")
                                  .arg(color.red(), 2, 16, QChar('0'))
                                  .arg(color.green(), 2, 16, QChar('0'))
                                  .arg(color.blue(), 2, 16, QChar('0'))
                                  .toUpper();
        EXPECT_EQ(ask.ok("pixel " + point((x + 0.5) / 3, (y + 0.5) / 3))["color"], expected);
    }
}

TEST(DriverPicture, ShotReplacesAFileAndFailsWhereItCannotWrite)
{
    Conversation ask;
    const auto file = ask.folder() / "shot.png";
    writeTestFile(file, "old");
    ask.ok("shot " + QByteArray::fromStdString(file.string()));
    EXPECT_EQ(readTestFile(file).substr(1, 3), "PNG");
    const auto nowhere = QByteArray::fromStdString((ask.folder() / "no/such/folder/shot.png").string());
    EXPECT_TRUE(ask.error("shot " + nowhere).contains("can't be written"));
    EXPECT_TRUE(
        ask.error("shot " + QByteArray::fromStdString(ask.folder().string())).contains("can't be written"));
    EXPECT_EQ(ask.error("shot"), "shot takes one FILE, not nothing.");
    EXPECT_TRUE(ask.error("shot ''").contains("can't be written"));
}

TEST(DriverPicture, TheSameRunMakesTheSamePicture)
{
    const auto picture = [] {
        Conversation ask;
        const auto file = ask.folder() / "shot.png";
        ask.ok("shot " + QByteArray::fromStdString(file.string()));
        return readTestFile(file);
    };
    EXPECT_EQ(picture(), picture());
}

}
