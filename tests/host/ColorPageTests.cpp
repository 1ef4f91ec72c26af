#include "Conversation.h"

#include <gtest/gtest.h>

// Whole edits on the button colour page, as scripts make them: what is live, what is saved, and when.

namespace {

constexpr auto write
    = R"({"kind":"write","ok":true,"path":"/private/var/mobile/Library/Preferences/net.morvane.vekora.plist"})";
constexpr auto notification = R"({"kind":"notification","name":"net.morvane.vekora/preferences"})";
const auto oneSave = QByteArray("[") + write + "," + notification + "]";

class ColorPage : public testing::Test {
protected:
    void open(const std::string& entries)
    {
        store(entries);
        ask.ok("tap \"Button Color\"");
        ask.ok("posted");
        ask.ok("paints");
    }
    void store(const std::string& entries)
    {
        writeTestFile(ask.root() / "private/var/mobile/Library/Preferences/net.morvane.vekora.plist",
            "<plist version=\"1.0\"><dict>" + entries + "</dict></plist>");
    }
    QJsonObject stored() { return ask.ok("prefs")["prefs"].toObject(); }
    QByteArray posted() { return compact(ask.ok("posted")["posted"]); }
    QJsonObject view(const QByteArray& className) { return ask.ok("tree " + className)["tree"].toObject(); }

    /// The middle of a view, or another place of it in 0..1, as words of a command.
    QByteArray place(const QByteArray& className, double across = 0.5, double down = 0.5)
    {
        const auto rect = view(className)["onScreen"].toArray();
        return QByteArray::number(rect[0].toDouble() + across * rect[2].toDouble()) + " "
            + QByteArray::number(rect[1].toDouble() + down * rect[3].toDouble());
    }

    Conversation ask { Conversation::ownBundle() };
};

const std::string red = "<key>buttonColor</key><string>#FF0000</string>";

std::string kind(int number)
{
    return red + "<key>colorPickerType</key><integer>" + std::to_string(number) + "</integer>";
}

}

TEST_F(ColorPage, ShowsThePickerThatTheFileNames)
{
    const std::pair<int, const char*> kinds[] = { { 0, "VKColorPickerView_H" }, { 1, "VKColorPickerView_S" },
        { 2, "VKColorPickerView_B" }, { 7, "VKColorPickerView_H" }, { -1, "VKColorPickerView_H" } };
    for (const auto& [number, name] : kinds) {
        open(kind(number));
        EXPECT_EQ(view(name)["class"].toString(), name);
        ask.ok("back");
    }
}

TEST_F(ColorPage, OrdersPickerAndSlidersAsTheFilePrefers)
{
    open(red);
    EXPECT_EQ(view("VKColorPickerView_H")["frame"].toArray()[1].toDouble(), 90);
    EXPECT_EQ(view("UISlider")["frame"].toArray()[1].toDouble(), 508);
    ask.ok("back");
    open(red + "<key>preferColorPicker</key><false/>");
    EXPECT_EQ(view("VKColorPickerView_H")["frame"].toArray()[1].toDouble(), 285);
    EXPECT_EQ(view("UISlider")["frame"].toArray()[1].toDouble(), 108);
}

TEST_F(ColorPage, SavesOnceWhenTheFingerLeavesThePicker)
{
    for (const int number : { 0, 1, 2 }) {
        open(kind(number));
        const QByteArray field = number == 1 ? "VKHueBrightnessView"
            : number == 2                    ? "VKHueSaturationView"
                                             : "VKBrightnessSaturationView";
        ask.ok("press " + place(field));
        ask.ok("move " + place(field, 0.25, 0.25));
        ask.ok("move " + place(field, 0.75, 0.25));
        EXPECT_EQ(posted(), "[]") << number;
        EXPECT_EQ(stored()["buttonColor"], "#FF0000");
        ask.ok("release " + place(field, 0.5, 0.25));
        EXPECT_EQ(posted(), oneSave) << number;
        EXPECT_NE(stored()["buttonColor"], "#FF0000");
        EXPECT_FALSE(ask.ok("paints")["paints"].toObject().contains(field)) << "its own field never repaints";
        ask.ok("back");
    }
}

TEST_F(ColorPage, LosesNothingThatAnotherProcessStoresDuringTheEdit)
{
    open(red);
    ask.ok("press " + place("VKHueSliderView"));
    ask.ok("move " + place("VKHueSliderView", 0.25));
    store(red + "<key>buttonText</key><string>Later</string><key>stranger</key><integer>7</integer>");
    ask.ok("release " + place("VKHueSliderView", 1.0 / 3));
    EXPECT_EQ(compact(stored()), R"({"buttonColor":"#00FF00","buttonText":"Later","stranger":7})");
}

TEST_F(ColorPage, ASliderMovesEveryOtherToolAndSavesAtItsRelease)
{
    open(red + "<key>preferColorPicker</key><false/>");
    // The first slider's thumb stands at the right end.
    const auto rect = view("UISlider")["onScreen"].toArray();
    const auto y = QByteArray::number(rect[1].toDouble() + rect[3].toDouble() / 2);
    const auto thumb = rect[0].toDouble() + rect[2].toDouble() - 15.5;
    ask.ok("press " + QByteArray::number(thumb) + " " + y);
    ask.ok("move " + QByteArray::number(rect[0].toDouble() + rect[2].toDouble() / 2) + " " + y);
    EXPECT_EQ(posted(), "[]");
    EXPECT_EQ(ask.error("tap 10 10").isEmpty(), false) << "the finger is down";
    const auto hex
        = view("VKColorCell")["children"].toArray()[0].toObject()["children"].toArray()[0].toObject();
    EXPECT_EQ(hex["text"], "#7F0000");
    ask.ok("release 0 0");
    EXPECT_EQ(posted(), oneSave);
    EXPECT_EQ(stored()["buttonColor"], "#7F0000");
    ask.ok("back");
    EXPECT_EQ(ask.row("Button Color")["background"], "#7F0000FF");
    EXPECT_EQ(ask.row("Button Color")["textColor"], "#FFFFFFFF");
}

TEST_F(ColorPage, ShowsTheSampleAsOpaqueAsTheFileSays)
{
    open(red + "<key>buttonAlphaLevel</key><integer>50</integer>");
    const auto cell = view("VKColorCell")["children"].toArray()[0].toObject()["children"].toArray();
    EXPECT_EQ(cell[1].toObject()["text"], "Button");
    EXPECT_EQ(cell[1].toObject()["background"], "#FF000080");
}

TEST_F(ColorPage, TakesAValueThatIsTyped)
{
    open(red);
    ask.ok("tap \"#FF0000\"");
    EXPECT_EQ(ask.ok("alert")["alert"].toObject()["tag"].toInt(), 2629);
    ask.ok("type 00ff80");
    ask.ok("answer Save");
    EXPECT_EQ(posted(), oneSave);
    EXPECT_EQ(stored()["buttonColor"], "#00FF80");
    ask.ok("tap \"Hue:\"");
    ask.ok("type 240");
    ask.ok("answer OK");
    EXPECT_EQ(posted(), oneSave);
    EXPECT_EQ(stored()["buttonColor"], "#0000FF");
}
