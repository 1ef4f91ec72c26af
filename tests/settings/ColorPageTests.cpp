#include "PageTouchTest.h"

#include "colorcell/VKColorCell.h"
#include "settings/VekoraColorSelectorController.h"

#include "platform/UISlider.h"

#include <limits>

namespace vekora {

using namespace platform;

namespace {

class ColorPage : public SettingsTest {
protected:
    ColorPage() { opener->setPropertyForKey("buttonColor", "title"); }

    /// The page as its row opens it.
    VekoraColorSelectorController& open()
    {
        page = std::make_shared<VekoraColorSelectorController>(CGSize { 375, 603 });
        page->setSpecifier(opener);
        return *page;
    }
    PSSpecifier& colorRow() { return *page->specifiers().at(0); }

    Ref<PSSpecifier> opener
        = std::make_shared<PSSpecifier>("Button Color", nullptr, "", "", nullptr, PSCellType::Link);
    Ref<VekoraColorSelectorController> page;
};

const std::vector<std::string> nothing {};

bool isOn(const PropertyValue* value)
{
    return value && value->boolValue();
}

}

TEST_F(ColorPage, ReadsTheFileAndWritesNothing)
{
    storePreferences({ { "enabled", true } });
    open().specifiers();
    EXPECT_EQ(colorPagePreferences->entries(), (PropertyList { { "enabled", true } }));
    EXPECT_EQ(storedPreferences(), (PropertyList { { "enabled", true } }));
    EXPECT_EQ(takeEvents(), nothing);
}

TEST_F(ColorPage, DoesWithoutAFile)
{
    for (const auto* content : { "", "no property list", "<plist><array/></plist>" }) {
        writePreferenceFile(content);
        open().specifiers();
        EXPECT_EQ(colorPagePreferences->entries(), PropertyList {});
        EXPECT_TRUE(isOn(colorRow().propertyForKey("preferColorPicker")));
    }
    std::filesystem::remove(preferenceFile());
    open().specifiers();
    EXPECT_EQ(colorPagePreferences->entries(), PropertyList {});
    EXPECT_TRUE(isOn(colorRow().propertyForKey("preferColorPicker")));
    EXPECT_FALSE(std::filesystem::exists(preferenceFile()));
    EXPECT_EQ(takeEvents(), nothing);
}

TEST_F(ColorPage, HasOneRowThatACellOfItsOwnShows)
{
    ASSERT_EQ(open().specifiers().size(), 1U);
    const auto property = [&](const char* key) {
        const auto* value = colorRow().propertyForKey(key);
        return value ? *value : PropertyValue("missing");
    };
    EXPECT_EQ(property("cellClass"), PropertyValue("VKColorCell"));
    EXPECT_EQ(property("defaults"), PropertyValue("net.morvane.vekora"));
    EXPECT_EQ(property("PostNotification"), PropertyValue("net.morvane.vekora/preferences"));
    EXPECT_EQ(property("default"), PropertyValue("#FF0000"));
    EXPECT_EQ(property("min"), PropertyValue(0));
    EXPECT_EQ(property("max"), PropertyValue(255));
    EXPECT_EQ(colorRow().propertyForKey("type"), nullptr);
    EXPECT_EQ(colorRow().name(), "");
    EXPECT_TRUE(std::dynamic_pointer_cast<VKColorCell>(
        page->tableViewCellForRowAtIndexPath(page->table(), { 0, 0 })));
}

TEST_F(ColorPage, EditsThePreferenceThatItsOpenerNamesInItsTitle)
{
    open().specifiers();
    EXPECT_EQ(*colorRow().propertyForKey("key"), PropertyValue("buttonColor"));
    EXPECT_EQ(page->title(), "buttonColor");

    opener->setPropertyForKey("otherColor", "title");
    open().specifiers();
    EXPECT_EQ(*colorRow().propertyForKey("key"), PropertyValue("otherColor"));
    EXPECT_EQ(page->title(), "otherColor");
}

TEST_F(ColorPage, EditsNothingWithoutATitledOpener)
{
    opener->removePropertyForKey("title");
    open().specifiers();
    EXPECT_EQ(colorRow().propertyForKey("key"), nullptr);
    EXPECT_EQ(page->title(), "");
    opener = nullptr;
    open().specifiers();
    EXPECT_EQ(colorRow().propertyForKey("key"), nullptr);
}

TEST_F(ColorPage, HandsOnWhetherThePickerIsPreferred)
{
    storePreferences({ { "preferColorPicker", false } });
    open().specifiers();
    EXPECT_EQ(*colorRow().propertyForKey("preferColorPicker"), PropertyValue(false));
    storePreferences({ { "preferColorPicker", true } });
    open().specifiers();
    EXPECT_EQ(*colorRow().propertyForKey("preferColorPicker"), PropertyValue(true));
    storePreferences({ { "preferColorPicker", "no" } });
    open().specifiers();
    EXPECT_EQ(*colorRow().propertyForKey("preferColorPicker"), PropertyValue("no"));
    storePreferences({ { "enabled", true } });
    open().specifiers();
    EXPECT_EQ(*colorRow().propertyForKey("preferColorPicker"), PropertyValue(true));
}

TEST_F(ColorPage, KnowsTheFileAsItWasWhenThePageWasMade)
{
    storePreferences({ { "preferColorPicker", false } });
    open();
    storePreferences({ { "preferColorPicker", true } });
    page->specifiers();
    EXPECT_EQ(*colorRow().propertyForKey("preferColorPicker"), PropertyValue(false));
}

TEST_F(ColorPage, BuildsItsRowOnce)
{
    open();
    const auto row = page->specifiers().at(0);
    opener->setPropertyForKey("otherColor", "title");
    page->viewWillAppear(false);
    EXPECT_EQ(page->specifiers().at(0), row);
    EXPECT_EQ(*row->propertyForKey("key"), PropertyValue("buttonColor"));
}

TEST_F(ColorPage, PassesNoValues)
{
    storePreferences({ { "buttonColor", "#00FF80" } });
    open().specifiers();
    EXPECT_EQ(page->readPreferenceValue(&colorRow()), std::nullopt);
    page->setPreferenceValueSpecifier(PropertyValue("#123456"), &colorRow());
    EXPECT_EQ(page->performSelector("readPreferenceValue:", { &colorRow() }), Argument());
    page->performSelector("setPreferenceValue:specifier:", { PropertyValue("#123456"), &colorRow() });
    colorRow().performSetterWithValue("#123456");
    EXPECT_EQ(colorRow().performGetter(), std::nullopt);
    EXPECT_EQ(storedPreferences(), (PropertyList { { "buttonColor", "#00FF80" } }));
    EXPECT_EQ(takeEvents(), nothing);
}

TEST_F(ColorPage, MakesEveryRowEquallyHigh)
{
    open();
    for (const NSIndexPath path : { NSIndexPath { 0, 0 }, { 0, 1 }, { 7, 0 }, { -1, -1 },
             { std::numeric_limits<long>::max(), std::numeric_limits<long>::max() } })
        EXPECT_EQ(page->tableViewHeightForRowAtIndexPath(page->table(), path), 860);
    EXPECT_EQ(page->table().rectForRowAtIndexPath({ 0, 0 }).height, 860);
}

TEST_F(ColorPage, MakesItsCellAsWideAsThePage)
{
    open();
    const auto cell = page->tableViewCellForRowAtIndexPath(page->table(), { 0, 0 });
    const auto& slider = *cell->contentView().subviews().at(8);
    EXPECT_EQ(slider.frame().width, 345);
}

TEST_F(ColorPage, IsMadeByName)
{
    storePreferences({ { "preferColorPicker", false } });
    const auto* found = NSClassFromString("VekoraColorSelectorController");
    ASSERT_TRUE(found);
    EXPECT_TRUE(found->make<PSListController>(CGSize { 375, 603 }));
    EXPECT_EQ(colorPagePreferences->entries(), (PropertyList { { "preferColorPicker", false } }));
}

class ColorPageTouch : public PageTouchTest {
protected:
    UIView& partOfCell(std::size_t index)
    {
        auto& table = topPage().table();
        return *table.cellForRowAtIndexPath({ 0, 0 })->contentView().subviews().at(index);
    }
};

TEST_F(ColorPageTouch, OpensFromTheMainPage)
{
    PageTouchTest::open({ { "buttonColor", "#FF8800" } });
    tap(colorRow);
    EXPECT_EQ(topPage().title(), "buttonColor");
    EXPECT_EQ(dynamic_cast<UILabel&>(partOfCell(0)).text(), "#FF8800");
    EXPECT_EQ(takeEvents(), nothing);
}

TEST_F(ColorPageTouch, PaintsTheMainPagesRowInTheNewColor)
{
    PageTouchTest::open({ { "buttonColor", "#FF8800" }, { "preferColorPicker", false } });
    tap(colorRow);
    auto& red = dynamic_cast<UISlider&>(partOfCell(8));
    const auto inWindow = [&](CGPoint point) { return red.convertPointToView(point, nullptr); };
    const auto thumb = red.thumbRect();
    window->touchBegan(inWindow({ thumb.midX(), thumb.midY() }));
    window->touchMoved(inWindow({ 0, thumb.midY() }));
    EXPECT_EQ(takeEvents(), nothing);
    window->touchEnded(inWindow({ 0, thumb.midY() }));
    EXPECT_EQ(takeEvents(), (std::vector<std::string> { "write", "notification" }));
    goBack();
    EXPECT_EQ(shownBackground(colorRow), "#008800FF");
    EXPECT_EQ(
        storedPreferences(), (PropertyList { { "buttonColor", "#008800" }, { "preferColorPicker", false } }));
}

}
