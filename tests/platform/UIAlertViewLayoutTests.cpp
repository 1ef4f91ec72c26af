#include "ControlTestSupport.h"
#include "platform/UIAlertView.h"
#include "platform/UIButton.h"
#include "platform/UIScrollView.h"

#include <algorithm>
#include <cmath>

using namespace platform;

namespace {

const std::string longMessage
    = "Please enter a Saturation value between 0% and 100%\n current value is: 45%. An explanation that goes "
      "on "
      "and on and that nobody will ever read to its end fills the lines that follow, one after the other.";

class UIAlertViewLayoutTest : public ControlTest {
protected:
    Ref<UIAlertView> show(UIAlertView::Settings settings, UIAlertViewStyle style = UIAlertViewStyle::Default)
    {
        const auto alert = UIAlertView::make(std::move(settings));
        alert->setAlertViewStyle(style);
        alert->show();
        window->display();
        return alert;
    }

    template <typename View> static void collect(const UIView& view, std::vector<View*>& found)
    {
        for (const auto& subview : view.subviews()) {
            if (subview->isHidden())
                continue;
            if (auto* const match = dynamic_cast<View*>(subview.get()))
                found.push_back(match);
            collect(*subview, found);
        }
    }
    template <typename View> static std::vector<View*> all(const UIView& view)
    {
        std::vector<View*> found;
        collect(view, found);
        return found;
    }
    static CGRect inWindow(const UIView& view)
    {
        return view.convertRectToView({ 0, 0, view.bounds().width, view.bounds().height }, nullptr);
    }
    static UIView& box(const UIAlertView& alert) { return *alert.subviews().front(); }

    static void expectWithin(CGRect inner, CGRect outer)
    {
        EXPECT_GE(inner.minX(), outer.minX());
        EXPECT_GE(inner.minY(), outer.minY());
        EXPECT_LE(inner.maxX(), outer.maxX());
        EXPECT_LE(inner.maxY(), outer.maxY());
    }
    static void expectNothingClipped(const UIAlertView& alert)
    {
        for (const auto* label : all<UILabel>(alert)) {
            SCOPED_TRACE(label->text());
            const auto needed = label->sizeThatFits({ label->bounds().width, 1e6 });
            EXPECT_LE(needed.width, label->bounds().width);
            EXPECT_LE(needed.height, label->bounds().height);
            expectWithin(inWindow(*label), inWindow(box(alert)));
        }
        for (const auto* field : all<UITextField>(alert))
            expectWithin(inWindow(*field), inWindow(box(alert)));
    }
};

struct Screen {
    CGSize size;
    double scale;
};

class EveryScreen : public UIAlertViewLayoutTest, public testing::WithParamInterface<Screen> {
protected:
    EveryScreen() { setScreen(GetParam().size, GetParam().scale); }
};

TEST_P(EveryScreen, ShowsAnAlertWhole)
{
    const auto alert
        = show({ .title = "A title that is long enough to need at least a second line of its own",
                   .message = longMessage,
                   .cancelButtonTitle = "Cancel",
                   .otherButtonTitles = { "Save" } },
            UIAlertViewStyle::PlainTextInput);

    const auto frame = inWindow(box(*alert));
    const auto size = GetParam().size;
    EXPECT_EQ(frame.width, 270);
    EXPECT_NEAR(frame.midX(), size.width / 2, 0.5);
    EXPECT_LT(frame.midY(), size.height / 2);
    expectWithin(frame, { 10, 10, size.width - 20, size.height - 20 });
    expectNothingClipped(*alert);
    EXPECT_EQ(alert->frame(), (CGRect { 0, 0, size.width, size.height }));
}

TEST_P(EveryScreen, StandsOnWholePixels)
{
    const auto alert = show(
        { .message = longMessage, .cancelButtonTitle = "Cancel", .otherButtonTitles = { "Save", "More" } },
        UIAlertViewStyle::PlainTextInput);
    for (const auto* view : all<UIView>(*alert)) {
        const auto frame = inWindow(*view);
        for (const auto length : { frame.x, frame.y, frame.height }) {
            const auto pixels = length * GetParam().scale;
            EXPECT_NEAR(pixels, std::round(pixels), 1e-6) << view->className();
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Every, EveryScreen,
    testing::Values(Screen { { 320, 480 }, 1 }, Screen { { 320, 480 }, 2 }, Screen { { 320, 568 }, 3 },
        Screen { { 375, 667 }, 1 }, Screen { { 375, 667 }, 2 }, Screen { { 414, 736 }, 3 },
        Screen { { 768, 1024 }, 1 }, Screen { { 768, 1024 }, 2 }, Screen { { 768, 1024 }, 3 }));

TEST_F(UIAlertViewLayoutTest, StaysInTheMiddleWhenTheWindowChanges)
{
    const auto alert = show({ .message = "Well?", .cancelButtonTitle = "Cancel" });
    setScreen({ 768, 1024 }, 3);
    EXPECT_EQ(alert->frame(), (CGRect { 0, 0, 768, 1024 }));
    EXPECT_NEAR(inWindow(box(*alert)).midX(), 384, 0.5);
    setScreen({ 320, 480 }, 1);
    EXPECT_NEAR(inWindow(box(*alert)).midX(), 160, 0.5);
    expectNothingClipped(*alert);
}

TEST_F(UIAlertViewLayoutTest, PutsTwoShortButtonsSideBySide)
{
    const auto alert
        = show({ .message = "Well?", .cancelButtonTitle = "Cancel", .otherButtonTitles = { "Save" } });
    const auto buttons = all<UIButton>(*alert);
    ASSERT_EQ(buttons.size(), 2U);
    EXPECT_EQ(buttons[0]->frame().y, buttons[1]->frame().y);
    EXPECT_EQ(buttons[0]->frame().maxX(), buttons[1]->frame().x);
    EXPECT_EQ(buttons[1]->frame().maxX(), 270);
    EXPECT_EQ(buttons[0]->titleLabel().text(), "Cancel");
    EXPECT_EQ(buttons[0]->frame().height, 44);
    EXPECT_EQ(buttons[0]->frame().maxY(), box(*alert).bounds().height);
}

TEST_F(UIAlertViewLayoutTest, StacksMoreOrLongerButtonsWithTheCancelButtonLast)
{
    for (const auto& others : { std::vector<std::string> { "One", "Two" },
             std::vector<std::string> {
                 "Disarm the alarm clock until tomorrow morning at half past seven" } }) {
        const auto alert
            = show({ .message = "Well?", .cancelButtonTitle = "Cancel", .otherButtonTitles = others });
        const auto buttons = all<UIButton>(*alert);
        ASSERT_EQ(buttons.size(), others.size() + 1);
        for (std::size_t index = 1; index + 1 < buttons.size(); ++index)
            EXPECT_EQ(buttons[index]->frame().maxY(), buttons[index + 1]->frame().y);
        EXPECT_EQ(buttons.back()->frame().maxY(), buttons[0]->frame().y);
        EXPECT_EQ(buttons[0]->frame().maxY(), box(*alert).bounds().height);
        for (const auto* button : buttons)
            EXPECT_EQ(button->frame().width, 270);
        expectNothingClipped(*alert);
        alert->pressCancelButton();
    }
}

TEST_F(UIAlertViewLayoutTest, ScrollsAMessageThatIsHigherThanTheWindow)
{
    std::string message;
    for (int line = 0; line < 100; ++line)
        message += "Line\n";
    const auto alert = show({ .message = message, .cancelButtonTitle = "Cancel" });
    const auto frame = inWindow(box(*alert));
    expectWithin(frame, { 10, 10, 300, 460 });
    const auto scrolls = all<UIScrollView>(*alert);
    ASSERT_EQ(scrolls.size(), 1U);
    EXPECT_GT(scrolls[0]->maximumOffset(), 500);
    const auto buttons = all<UIButton>(*alert);
    EXPECT_EQ(inWindow(*buttons[0]).maxY(), frame.maxY());
}

TEST_F(UIAlertViewLayoutTest, NeedsNeitherTitleNorMessage)
{
    const auto alert = show({ .cancelButtonTitle = "Cancel" }, UIAlertViewStyle::PlainTextInput);
    expectNothingClipped(*alert);
    EXPECT_EQ(all<UILabel>(*alert).size(), 1U);
    ASSERT_EQ(all<UITextField>(*alert).size(), 1U);
}

TEST_F(UIAlertViewLayoutTest, KeepsTextFieldAndButtonsApart)
{
    const auto alert = show({ .title = "Title",
                                .message = longMessage,
                                .cancelButtonTitle = "Cancel",
                                .otherButtonTitles = { "Save" } },
        UIAlertViewStyle::PlainTextInput);
    const auto labels = all<UILabel>(*alert);
    const auto field = inWindow(*all<UITextField>(*alert).front());
    EXPECT_LE(inWindow(*labels[0]).maxY(), inWindow(*labels[1]).minY());
    EXPECT_LT(inWindow(*labels[1]).maxY(), field.minY());
    EXPECT_LT(field.maxY(), inWindow(*all<UIButton>(*alert).front()).minY());
}

TEST_F(UIAlertViewLayoutTest, StandsWindowsWithoutRoom)
{
    const auto alert = show({ .title = "Title",
                                .message = longMessage,
                                .cancelButtonTitle = "Cancel",
                                .otherButtonTitles = { "Save" } },
        UIAlertViewStyle::PlainTextInput);
    for (const auto size : { CGSize { 0, 0 }, CGSize { 1, 1 }, CGSize { 30, 30 }, CGSize { 320, 60 } }) {
        setScreen(size, 2);
        for (const auto* view : all<UIView>(*alert))
            EXPECT_FALSE(std::isnan(inWindow(*view).y)) << view->className();
    }
    setScreen({ 320, 480 }, 2);
    expectNothingClipped(*alert);
}

}
