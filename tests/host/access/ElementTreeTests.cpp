#include "AccessFixture.h"
#include "host/access/ElementTree.h"
#include "platform/UIAlertView.h"

namespace host {

using namespace platform;
using enum ElementRole;
using Names = std::vector<std::string>;

namespace {

class ElementTree : public AccessTest { };

/// Names of what the page holds, with those of groups around theirs.
Names namesIn(const Element& element)
{
    Names names;
    for (const auto& child : element.children) {
        names.push_back(child.name);
        for (const auto& inner : namesIn(child))
            names.push_back(inner);
    }
    return names;
}

}

TEST_F(ElementTree, ListsTheMainPageAsItIsRead)
{
    openScreen(options());
    EXPECT_EQ(namesIn(root()),
        (Names { "Navigation bar", "Vekora", "Vekora", "Enabled", "Silence Alarms For", "Vekora Now",
            "Let Alarms Ring Again", "Status Bar Icon", "Alarms Enabled",
            "Vekora Now silences every alarm for the chosen time, beginning now. Alarms come back by "
            "themselves when it is over.",
            "EXTRA ALERT VIEW BUTTON OPTIONS", "Button Color", "Button Text:" }));
    EXPECT_EQ(stops(),
        (Names { "Enabled", "Silence Alarms For", "Vekora Now", "Let Alarms Ring Again", "Button Color",
            "Button Text:" }));
}

TEST_F(ElementTree, TellsWhatRowsAreAndHold)
{
    openScreen(options());
    EXPECT_EQ(element("Enabled").id.role, Switch);
    EXPECT_FALSE(element("Enabled").chosen);
    EXPECT_EQ(element("Silence Alarms For").id.role, Link);
    EXPECT_EQ(element("Silence Alarms For").description, "1 Hour");
    EXPECT_EQ(element("Vekora Now").id.role, Button);
    EXPECT_EQ(element("Button Color").id.role, Link);
    EXPECT_EQ(element("Button Text:").id.role, TextField);
    EXPECT_EQ(element("Button Text:").text, "Vekora");
    EXPECT_EQ(element("EXTRA ALERT VIEW BUTTON OPTIONS").id.role, Heading);
    EXPECT_FALSE(element("Status Bar Icon").enabled);
    EXPECT_FALSE(element("Alarms Enabled").enabled);
}

TEST_F(ElementTree, TellsWhichChoiceIsChosen)
{
    openScreen(options());
    screen->actions().press(element("Silence Alarms For"));
    EXPECT_EQ(element("1 Hour").id.role, Choice);
    EXPECT_TRUE(element("1 Hour").chosen);
    EXPECT_FALSE(element("5 Minutes").chosen);
    EXPECT_EQ(stops().front(), "Back to Vekora");
}

TEST_F(ElementTree, ListsTheColorPageAsItIsRead)
{
    openScreen(options());
    openColorPage();
    EXPECT_EQ(stops(),
        (Names { "Back to Vekora", "#FF0000", "Brightness: 100%", "100% :Saturation",
            "Saturation and brightness", "Hue: 0°", "Hue", "Red 255", "Red", "Green 0", "Green", "Blue 0",
            "Blue" }));
    EXPECT_EQ(element("Red", Slider).value.value, 255);
    EXPECT_EQ(element("Red", Slider).value.most, 255);
    EXPECT_EQ(element("Red", Slider).value.step, 1);
    EXPECT_TRUE(has("Button")) << "the sample's text is shown, too";
}

TEST_F(ElementTree, SumsUpTheField)
{
    openScreen(options());
    openColorPage();
    const auto field = element("Saturation and brightness");
    EXPECT_EQ(field.id.role, Field);
    EXPECT_EQ(field.description, "saturation 100 percent, brightness 100 percent");
    ASSERT_EQ(field.children.size(), 2U);
    EXPECT_EQ(field.children[0].name, "Saturation");
    EXPECT_EQ(field.children[0].value.most, 100);
    EXPECT_EQ(field.children[1].name, "Brightness");
    const auto bar = element("Hue", ColorBar);
    EXPECT_EQ(bar.description, "hue 0 degrees");
    EXPECT_EQ(bar.value.most, 360);
}

TEST_F(ElementTree, KnowsEveryKindOfPicker)
{
    openScreen(optionsWithGallery());
    Names fields;
    for (const auto* stop : focusableElements(root())) {
        if (stop->id.role == Field || stop->id.role == ColorBar)
            fields.push_back(stop->description);
    }
    EXPECT_EQ(fields,
        (Names { "saturation 80 percent, brightness 90 percent", "hue 209 degrees",
            "hue 209 degrees, brightness 90 percent", "saturation 80 percent",
            "hue 209 degrees, saturation 80 percent", "brightness 90 percent" }));
    EXPECT_EQ(element("Hue and saturation", Picture).id.role, Picture);
}

TEST_F(ElementTree, IsTheAlertAloneWhileOneIsShown)
{
    openScreen(options());
    openColorPage();
    screen->actions().press(element("Hue: 0°"));
    ASSERT_TRUE(UIAlertView::topmost());
    ASSERT_EQ(root().children.size(), 1U);
    const auto alert = root().children.front();
    EXPECT_EQ(alert.id.role, Alert);
    EXPECT_NE(alert.name.find("Please enter a Hue value"), std::string::npos) << alert.name;
    ASSERT_EQ(stops().size(), 3U);
    EXPECT_EQ(stops()[1], "Cancel");
    EXPECT_EQ(stops()[2], "OK");
    EXPECT_EQ(focusableElements(root()).front()->id.role, TextField);
}

TEST_F(ElementTree, RunsLinesFromRightToLeft)
{
    auto options = this->options();
    options.locale = "ar_EG";
    openScreen(options);
    openColorPage();
    const auto bar = root().children.front();
    ASSERT_EQ(bar.children.size(), 2U);
    EXPECT_EQ(bar.children[0].name, "Back to Vekora");
    EXPECT_GT(bar.children[0].rect.midX(), bar.children[1].rect.midX());
}

TEST_F(ElementTree, ListsEveryKindOfRow)
{
    openScreen(optionsWithTestBundle());
    EXPECT_EQ(element("Flag").id.role, Switch);
    EXPECT_EQ(element("Name").text, "");
    EXPECT_EQ(element("Name").description, "Nobody");
    EXPECT_TRUE(element("Secret").secret);
    const auto segment = element("Left");
    EXPECT_EQ(segment.id.role, Segment);
    EXPECT_TRUE(segment.chosen);
    EXPECT_FALSE(element("Right").chosen);
    EXPECT_FALSE(takesKeyboardFocus(segment)) << "its control does";
}

TEST_F(ElementTree, SaysWhyABundleIsNotShown)
{
    auto options = this->options();
    options.bundle = folder.path() / "nothing.bundle";
    phone = std::make_unique<Phone>(options);
    ASSERT_TRUE(phone->openBundle());
    screen = std::make_unique<Screen>(*phone);
    EXPECT_TRUE(has("This page can’t be shown"));
    EXPECT_TRUE(stops().empty());
}

TEST_F(ElementTree, KnowsWhatIsInSight)
{
    openScreen(options());
    openColorPage();
    EXPECT_TRUE(element("#FF0000").inSight);
    EXPECT_FALSE(element("Blue", Slider).inSight);
    EXPECT_TRUE(visibleRect(element("Blue", Slider)).isEmpty());
    screen->actions().show(element("Blue", Slider));
    EXPECT_TRUE(element("Blue", Slider).inSight);
}

TEST_F(ElementTree, OutlivesItsViews)
{
    openScreen(options());
    openColorPage();
    const auto gone = element("Blue", Slider);
    phone->goBack();
    phone->settle();
    EXPECT_EQ(gone.id.get(), nullptr);
    EXPECT_TRUE(currentRect(gone).isEmpty());
    EXPECT_FALSE(findElement(root(), gone.id));
    EXPECT_FALSE(screen->actions().setValue(gone, 7));
    EXPECT_FALSE(screen->actions().press(gone));
    screen->actions().show(gone);
}

}
