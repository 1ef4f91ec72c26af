#include "picker/ValueDialog.h"

#include "PickerPrinting.h"

#include <gtest/gtest.h>
#include <limits>

using namespace platform;
using namespace vekora;

namespace {

struct Question {
    Component component;
    double current;
    long tag;
    const char* action;
    const char* message;
};

const Question questions[] = {
    { Component::Hue, 0.5, 3026, "askUserForHue",
        "Please enter a Hue value between 0\u00B0 and 360\u00B0\n current value is: 180\u00B0" },
    { Component::Brightness, 0.45, 3027, "askUserForBrightness",
        "Please enter a Brightness value between 0% and 100%\n current value is: 45%" },
    { Component::Saturation, 0.125, 3028, "askUserForSaturation",
        "Please enter a Saturation value between 0% and 100%\n current value is: 13%" },
};

TEST(ValueDialog, AsksForTheValueInItsUnits)
{
    for (const auto& question : questions) {
        const auto alert = makeValueDialog(question.component, question.current, nullptr);
        EXPECT_EQ(alert->title(), std::nullopt);
        EXPECT_EQ(alert->message(), question.message);
        EXPECT_EQ(alert->tag(), question.tag);
        EXPECT_EQ(valueDialogAction(question.component), question.action);
    }
}

TEST(ValueDialog, HasCancelOkAndAnEmptyFieldForDigits)
{
    for (const auto& question : questions) {
        const auto alert = makeValueDialog(question.component, question.current, nullptr);
        ASSERT_EQ(alert->numberOfButtons(), 2);
        EXPECT_EQ(alert->buttonTitleAtIndex(0), "Cancel");
        EXPECT_EQ(alert->buttonTitleAtIndex(valueDialogOK), "OK");
        EXPECT_EQ(alert->alertViewStyle(), UIAlertViewStyle::PlainTextInput);
        auto* const field = alert->textFieldAtIndex(0);
        ASSERT_TRUE(field);
        EXPECT_EQ(field->keyboardType(), UIKeyboardType::NumberPad);
        EXPECT_EQ(field->text(), "");
        EXPECT_EQ(field->placeholder(), "");
        EXPECT_FALSE(alert->isVisible());
    }
}

double typedInto(Component component, const char* text)
{
    const auto alert = makeValueDialog(component, 0.5, nullptr);
    alert->textFieldAtIndex(0)->setText(text);
    const auto typed = typedValue(*alert);
    EXPECT_TRUE(typed);
    EXPECT_EQ(typed->component, component);
    return typed->value;
}

TEST(ValueDialog, ReadsDegreesAndPercent)
{
    EXPECT_EQ(typedInto(Component::Hue, "180"), 0.5);
    EXPECT_EQ(typedInto(Component::Hue, "360"), 1);
    EXPECT_EQ(typedInto(Component::Saturation, "25"), 0.25);
    EXPECT_EQ(typedInto(Component::Brightness, "100"), 1);
}

TEST(ValueDialog, ReadsThroughSinglePrecision)
{
    EXPECT_EQ(typedInto(Component::Brightness, "33.3"), static_cast<double>(33.3f) / 100.0);
    EXPECT_NE(typedInto(Component::Brightness, "33.3"), 33.3 / 100.0);
    EXPECT_EQ(typedInto(Component::Hue, "16777217"), 16777216 / 360.0);
}

TEST(ValueDialog, ReadsATextWithoutANumberAsZero)
{
    for (const auto* text : { "", "abc", "-", "%", "inf", "nan" })
        EXPECT_EQ(typedInto(Component::Hue, text), 0) << text;
    EXPECT_EQ(typedInto(Component::Hue, " 90abc"), 0.25);
}

TEST(ValueDialog, DoesNotClamp)
{
    constexpr auto infinity = std::numeric_limits<double>::infinity();
    EXPECT_EQ(typedInto(Component::Hue, "720"), 2);
    EXPECT_EQ(typedInto(Component::Brightness, "150"), 1.5);
    EXPECT_EQ(typedInto(Component::Saturation, "-50"), -0.5);
    EXPECT_EQ(typedInto(Component::Saturation, "1e99"), infinity);
    EXPECT_EQ(typedInto(Component::Saturation, "-1e99"), -infinity);
}

TEST(ValueDialog, KnowsItsOwnAlertsOnly)
{
    for (const long tag : { 0L, 3025L, 3029L, 2626L }) {
        const auto alert = UIAlertView::make({ .message = "", .cancelButtonTitle = "Cancel" });
        alert->setTag(tag);
        EXPECT_EQ(typedValue(*alert), std::nullopt) << tag;
    }
}

TEST(ValueDialog, ReadsAnAlertWithoutFieldAsZero)
{
    const auto alert = UIAlertView::make({ .message = "", .cancelButtonTitle = "Cancel" });
    alert->setTag(3027);
    EXPECT_EQ(typedValue(*alert), (TypedValue { Component::Brightness, 0 }));
}

}
