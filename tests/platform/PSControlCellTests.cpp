#include "platform/PSTextFieldSpecifier.h"
#include "platform/qt/TextEditor.h"
#include "platform/UISegmentedControl.h"
#include "platform/UISlider.h"
#include "platform/UISwitch.h"
#include "SettingsScreen.h"

using namespace platform;

namespace {

/// The rows of the resource "Test", with values kept in memory.
class CellPage final : public PSListController {
public:
    using PSListController::PSListController;
    const Specifiers& specifiers() override
    {
        if (!_specifiers)
            _specifiers = loadSpecifiersFromPlistNameTarget("Test", this);
        return *_specifiers;
    }
    void setPreferenceValueSpecifier(std::optional<PropertyValue> value, PSSpecifier*) override
    {
        stored.push_back(*value);
    }
    std::optional<PropertyValue> readPreferenceValue(PSSpecifier* row) override
    {
        if (!stored.empty())
            return stored.back();
        const auto* value = row->propertyForKey("default");
        return value ? std::optional(*value) : std::nullopt;
    }
    PSSpecifier& row() { return *_specifiers->front(); }

    std::vector<PropertyValue> stored;
};

const auto registration = registerTestPage<CellPage>("CellPage");

class ControlCell : public SettingsScreen {
protected:
    /// A page of one row with the key "k".
    void load(const std::string& kind, const std::string& more = {}, const std::string& label = "Title")
    {
        writeResource(item(kind, label, text("key", "k") + more));
        page = show<CellPage>();
    }
    CGRect frameInCell(const UIView& view) { return view.convertRectToView(view.bounds(), cell(0, 0)); }

    Ref<CellPage> page;
    const std::string choices
        = "<key>validValues</key><array><integer>1</integer><string>two</string></array>"
          "<key>validTitles</key><array><string>One</string><string>Two</string></array>";
};

using Values = std::vector<PropertyValue>;

}

TEST_F(ControlCell, SwitchStoresBooleans)
{
    load("PSSwitchCell", "<key>default</key><integer>1</integer>");
    EXPECT_TRUE(control<UISwitch>(0, 0)->isOn());
    tap(*control<UISwitch>(0, 0));
    tap(*control<UISwitch>(0, 0));
    EXPECT_EQ(page->stored, (Values { false, true }));
    tapRow(0, 0);
    EXPECT_EQ(page->stored.size(), 2u);
}

TEST_F(ControlCell, SwitchShowsTheOppositeWhenNegated)
{
    load("PSSwitchCell", "<key>negate</key><true/>");
    EXPECT_TRUE(control<UISwitch>(0, 0)->isOn());
    tap(*control<UISwitch>(0, 0));
    EXPECT_EQ(page->stored, (Values { true }));
}

TEST_F(ControlCell, SwitchStandsAtTheRowsEnd)
{
    load("PSSwitchCell");
    EXPECT_EQ(frameInCell(*control<UISwitch>(0, 0)).maxX(), 375 - 15);
    Device::current().rightToLeft = true;
    load("PSSwitchCell");
    EXPECT_EQ(frameInCell(*control<UISwitch>(0, 0)).minX(), 15);
}

TEST_F(ControlCell, SliderStoresRealsWhenItIsReleased)
{
    load("PSSliderCell",
        "<key>min</key><integer>0</integer><key>max</key><integer>100</integer>"
        "<key>default</key><integer>50</integer>",
        "");
    auto* slider = control<UISlider>(0, 0);
    EXPECT_EQ(slider->value(), 50);
    const auto thumb
        = slider->convertPointToView({ slider->thumbRect().midX(), slider->thumbRect().midY() }, nullptr);
    window->touchBegan(thumb);
    window->touchMoved({ thumb.x + 50, thumb.y });
    EXPECT_TRUE(page->stored.empty());
    window->touchEnded({ thumb.x + 50, thumb.y });
    ASSERT_EQ(page->stored.size(), 1u);
    EXPECT_TRUE(std::holds_alternative<double>(page->stored[0].storage()));
    EXPECT_EQ(page->stored[0].floatValue(), slider->value());
    EXPECT_GT(slider->value(), 60);
    window->touchBegan({ thumb.x + 50, thumb.y });
    window->touchEnded({ thumb.x + 50, thumb.y });
    EXPECT_EQ(page->stored.size(), 1u);
}

TEST_F(ControlCell, SliderGoesFromZeroToOneWithoutARange)
{
    load("PSSliderCell", "<key>min</key><string>inf</string><key>default</key><real>7</real>");
    EXPECT_EQ(control<UISlider>(0, 0)->minimumValue(), 0);
    EXPECT_EQ(control<UISlider>(0, 0)->maximumValue(), 1);
    EXPECT_EQ(control<UISlider>(0, 0)->value(), 1);
}

TEST_F(ControlCell, SliderRestsOnItsSteps)
{
    load("PSSliderCell",
        "<key>max</key><integer>10</integer><key>isSegmented</key><true/>"
        "<key>segmentCount</key><integer>5</integer><key>default</key><integer>4</integer>",
        "");
    auto* slider = control<UISlider>(0, 0);
    const auto thumb
        = slider->convertPointToView({ slider->thumbRect().midX(), slider->thumbRect().midY() }, nullptr);
    drag(thumb, { thumb.x + 60, thumb.y });
    EXPECT_EQ(slider->value(), 6);
    EXPECT_EQ(page->stored, (Values { 6.0 }));
}

TEST_F(ControlCell, SliderLeavesATouchOnItsTrackToTheTable)
{
    load("PSSliderCell", "<key>default</key><real>0</real>", "");
    auto* slider = control<UISlider>(0, 0);
    tap(slider->convertPointToView({ slider->bounds().width - 30, slider->bounds().midY() }, nullptr));
    EXPECT_TRUE(page->stored.empty());
    EXPECT_EQ(slider->value(), 0);
}

TEST_F(ControlCell, SliderShowsItsValueWhenAsked)
{
    load("PSSliderCell",
        "<key>showValue</key><true/><key>max</key><integer>100</integer>"
        "<key>default</key><integer>42</integer>");
    bool found = false;
    for (const auto& view : cell(0, 0)->contentView().subviews()) {
        const auto* label = dynamic_cast<UILabel*>(view.get());
        if (!label || label->text() != "42")
            continue;
        found = true;
        EXPECT_GE(frameInCell(*label).minX(), frameInCell(*control<UISlider>(0, 0)).maxX());
    }
    EXPECT_TRUE(found);
}

TEST_F(ControlCell, SegmentsStoreTheChosenValue)
{
    load("PSSegmentCell", choices + "<key>default</key><integer>1</integer>", "");
    auto* segments = control<UISegmentedControl>(0, 0);
    ASSERT_EQ(segments->numberOfSegments(), 2);
    EXPECT_EQ(segments->selectedSegmentIndex(), 0);
    const auto bounds = segments->bounds();
    tap(segments->convertPointToView({ bounds.width * 0.75, bounds.midY() }, nullptr));
    EXPECT_EQ(page->stored, (Values { "two" }));
    page->reload();
    EXPECT_EQ(segments->selectedSegmentIndex(), 1);
}

TEST_F(ControlCell, SegmentsShowNoChoiceForAnotherValue)
{
    load("PSSegmentCell", choices + text("default", "three"), "");
    EXPECT_EQ(control<UISegmentedControl>(0, 0)->selectedSegmentIndex(), -1);
    page->row().setValuesTitles({ "three" }, { "Three" });
    page->reload();
    EXPECT_EQ(control<UISegmentedControl>(0, 0)->numberOfSegments(), 1);
    EXPECT_EQ(control<UISegmentedControl>(0, 0)->selectedSegmentIndex(), 0);
}

TEST_F(ControlCell, FieldStoresOnceWhenTheEditingEnds)
{
    load("PSEditTextCell", text("default", "old"));
    auto* field = control<UITextField>(0, 0);
    EXPECT_EQ(field->text(), "old");
    tap(*field);
    ASSERT_TRUE(field->isFirstResponder());
    field->editor().clear();
    field->editor().typeText("new");
    EXPECT_TRUE(page->stored.empty());
    field->editor().key("Return");
    EXPECT_EQ(page->stored, (Values { "new" }));
    EXPECT_FALSE(field->isFirstResponder());
}

TEST_F(ControlCell, FieldStoresNothingWhenNothingWasEdited)
{
    load("PSEditTextCell", text("default", "old"));
    tap(*control<UITextField>(0, 0));
    control<UITextField>(0, 0)->editor().key("Return");
    EXPECT_TRUE(page->stored.empty());
}

TEST_F(ControlCell, FieldStoresAnEmptiedText)
{
    load("PSEditTextCell", text("default", "old"));
    tap(*control<UITextField>(0, 0));
    control<UITextField>(0, 0)->editor().clear();
    control<UITextField>(0, 0)->editor().key("Return");
    EXPECT_EQ(page->stored, (Values { "" }));
}

TEST_F(ControlCell, FieldTakesATapOnItsTitle)
{
    load("PSEditTextCell");
    tapRow(0, 0);
    EXPECT_TRUE(control<UITextField>(0, 0)->isFirstResponder());
    EXPECT_FALSE(cell(0, 0)->isHighlighted());
}

TEST_F(ControlCell, FieldStoresWhenThePageIsLeft)
{
    writeResource(item("PSEditTextCell", "Title", text("key", "k")));
    show(std::make_shared<UIViewController>());
    page = std::make_shared<CellPage>(navigation->contentSize());
    navigation->pushViewController(page);
    window->display();
    tapRow(0, 0);
    control<UITextField>(0, 0)->editor().typeText("left");
    navigation->popViewController();
    EXPECT_EQ(page->stored, (Values { "left" }));
}

TEST_F(ControlCell, FieldShowsItsPlaceholder)
{
    load("PSEditTextCell", text("placeholder", "Vekora"));
    EXPECT_EQ(control<UITextField>(0, 0)->placeholder(), "Vekora");
    EXPECT_EQ(control<UITextField>(0, 0)->text(), "");
    dynamic_cast<PSTextFieldSpecifier&>(page->row()).setPlaceholder("Other");
    page->reload();
    EXPECT_EQ(control<UITextField>(0, 0)->placeholder(), "Other");
}

TEST_F(ControlCell, FieldShowsNumbersAsText)
{
    load("PSEditTextCell", "<key>default</key><integer>30</integer><key>isNumeric</key><true/>");
    EXPECT_EQ(control<UITextField>(0, 0)->text(), "30");
    EXPECT_EQ(control<UITextField>(0, 0)->keyboardType(), UIKeyboardType::NumbersAndPunctuation);
}

TEST_F(ControlCell, FieldHidesWhatIsSecret)
{
    load("PSSecureEditTextCell");
    EXPECT_TRUE(control<UITextField>(0, 0)->isSecureTextEntry());
    load("PSEditTextCell");
    EXPECT_FALSE(control<UITextField>(0, 0)->isSecureTextEntry());
}

TEST_F(ControlCell, FieldFillsWhatTheTitleLeaves)
{
    load("PSEditTextCell", {}, "Button Text:");
    window->display();
    const auto title = frameInCell(cell(0, 0)->textLabel());
    const auto field = frameInCell(*control<UITextField>(0, 0));
    EXPECT_EQ(title.minX(), 15);
    EXPECT_GE(title.width, cell(0, 0)->textLabel().sizeThatFits({ 375, 44 }).width);
    EXPECT_GT(field.minX(), title.maxX());
    EXPECT_EQ(field.maxX(), 360);
    load("PSEditTextCell", {}, "A title so long that next to nothing would be left for the field beside it");
    EXPECT_GT(control<UITextField>(0, 0)->frame().width, 100);
    Device::current().rightToLeft = true;
    load("PSEditTextCell", {}, "Button Text:");
    EXPECT_EQ(frameInCell(cell(0, 0)->textLabel()).maxX(), 360);
    EXPECT_EQ(frameInCell(*control<UITextField>(0, 0)).minX(), 15);
    EXPECT_EQ(control<UITextField>(0, 0)->textAlignment(), NSTextAlignment::Right);
}

TEST_F(ControlCell, TitleValueShowsTheTitleOfItsValue)
{
    load("PSTitleValueCell", choices + "<key>default</key><integer>1</integer>");
    EXPECT_EQ(cell(0, 0)->detailTextLabel().text(), "One");
    load("PSTitleValueCell", choices + text("default", "else"));
    EXPECT_EQ(cell(0, 0)->detailTextLabel().text(), "else");
    EXPECT_EQ(cell(0, 0)->control(), nullptr);
}

TEST_F(ControlCell, GreyedControlsAreDead)
{
    const std::string off = "<key>enabled</key><false/>" + choices;
    for (const char* kind : { "PSSwitchCell", "PSSliderCell", "PSSegmentCell", "PSEditTextCell" }) {
        load(kind, off);
        auto* dead = control<UIControl>(0, 0);
        ASSERT_TRUE(dead) << kind;
        EXPECT_FALSE(dead->isEnabled()) << kind;
        tap(*dead);
        tapRow(0, 0);
        EXPECT_TRUE(page->stored.empty()) << kind;
        EXPECT_EQ(window->firstResponder(), nullptr) << kind;
    }
}

TEST_F(ControlCell, ShowsTheIconOfTheBundle)
{
    load("PSLinkCell", text("icon", "missing.png"));
    EXPECT_EQ(cell(0, 0)->imageView().image(), std::nullopt);
    // A PNG of two by two pixels.
    static constexpr unsigned char png[] = { 0x89, 0x50, 0x4e, 0x47, 0xd, 0xa, 0x1a, 0xa, 0x0, 0x0, 0x0, 0xd,
        0x49, 0x48, 0x44, 0x52, 0x0, 0x0, 0x0, 0x2, 0x0, 0x0, 0x0, 0x2, 0x8, 0x0, 0x0, 0x0, 0x0, 0x57, 0xdd,
        0x52, 0xf8, 0x0, 0x0, 0x0, 0xe, 0x49, 0x44, 0x41, 0x54, 0x78, 0x9c, 0x63, 0xf8, 0xff, 0x9f, 0xe1,
        0xff, 0x7f, 0x0, 0xb, 0xfa, 0x3, 0xfd, 0xe0, 0x25, 0x8a, 0x10, 0x0, 0x0, 0x0, 0x0, 0x49, 0x45, 0x4e,
        0x44, 0xae, 0x42, 0x60, 0x82 };
    writeFile(testBundle + "/icon.png", std::string(reinterpret_cast<const char*>(png), sizeof png));
    load("PSLinkCell", text("icon", "icon.png"));
    ASSERT_TRUE(cell(0, 0)->imageView().image());
    EXPECT_EQ(cell(0, 0)->imageView().frame().minX(), 15);
    EXPECT_GT(cell(0, 0)->textLabel().frame().minX(), cell(0, 0)->imageView().frame().maxX());
    load("PSLinkCell", text("icon", testBundle + "/icon.png"));
    EXPECT_TRUE(cell(0, 0)->imageView().image());
}
