#include "RecordTest.h"

#include "host/driver/ViewSearch.h"
#include "platform/qt/TextEditor.h"
#include "platform/UIAlertView.h"
#include "platform/UIButton.h"
#include "platform/UIScrollView.h"

#include <random>

using namespace platform;

// Whatever is done, in whatever order, the script leads to the same file, views and picture.

namespace {

class AnyRecording : public RecordTest, public testing::WithParamInterface<unsigned> {
protected:
    void SetUp() override { chance.seed(GetParam()); }

    int upTo(int greatest) { return std::uniform_int_distribution(0, greatest)(chance); }
    double fraction() { return std::uniform_real_distribution(0.0, 1.0)(chance); }

    CGPoint anyPoint()
    {
        const auto size = window().bounds().size();
        return { fraction() * (size.width - 1), fraction() * (size.height - 1) };
    }

    /// Near something to touch, mostly; the middles of views are what people aim at.
    CGPoint somePoint()
    {
        std::vector<UIView*> views;
        collect(window(), views);
        if (views.empty() || upTo(4) == 0)
            return anyPoint();
        const auto rect = host::rectInWindow(*views[static_cast<std::size_t>(upTo(int(views.size()) - 1))]);
        const CGPoint point { rect.midX() + (fraction() - 0.5) * rect.width * 0.9,
            rect.midY() + (fraction() - 0.5) * rect.height * 0.9 };
        return CGRectContainsPoint(window().bounds(), point) ? point : anyPoint();
    }

    void step()
    {
        switch (upTo(16)) {
        case 0:
        case 1:
        case 2:
        case 3:
            return tapAt(somePoint());
        case 4:
            return doubleTap(somePoint());
        case 5:
            return jitter(somePoint());
        case 6:
        case 7:
            return anyDrag();
        case 8:
            glide(upTo(60));
            return;
        case 9:
            phone->scrollAt(anyPoint(), (fraction() - 0.4) * 400);
            if (upTo(1))
                phone->settle();
            return;
        case 10:
        case 11:
        case 12:
            return someKey();
        case 13:
            if (!UIAlertView::topmost() && !phone->endEditing() && upTo(2) == 0)
                phone->goBack();
            return;
        case 14:
            return someEnvironment();
        case 15:
            return someComposition();
        default:
            if (auto* field = window().firstResponder())
                field->editor().paste(upTo(1) ? "some text" : "é\\\"$`'");
        }
    }

    std::mt19937 chance;

private:
    static void collect(UIView& view, std::vector<UIView*>& views)
    {
        if (view.isHidden())
            return;
        if (dynamic_cast<UIControl*>(&view) || dynamic_cast<UILabel*>(&view))
            views.push_back(&view);
        for (const auto& child : view.subviews())
            collect(*child, views);
    }

    void doubleTap(CGPoint point)
    {
        tapAt(point);
        wait(0.1);
        press({ point.x + upTo(3), point.y });
        release({ point.x + upTo(3), point.y });
    }

    void jitter(CGPoint point)
    {
        wait(1);
        press(point);
        for (int i = upTo(4); i >= 0; --i) {
            wait(0.02);
            move({ point.x + upTo(16) - 8, point.y + upTo(16) - 8 });
        }
        release({ point.x + upTo(10), point.y });
    }

    void anyDrag()
    {
        const auto from = somePoint();
        const bool isVertical = upTo(1);
        const CGPoint to { from.x + (fraction() - 0.5) * (isVertical ? 10 : 300),
            from.y + (fraction() - 0.5) * (isVertical ? 500 : 60) };
        dragTo(from, to, 1 + upTo(9), 0.05 + fraction() * 0.3);
    }

    void someKey()
    {
        static constexpr std::array keys { Qt::Key_Left, Qt::Key_Right, Qt::Key_Home, Qt::Key_End,
            Qt::Key_Backspace, Qt::Key_Delete, Qt::Key_Return, Qt::Key_Escape, Qt::Key_Tab };
        static constexpr std::array commands { Qt::Key_A, Qt::Key_Z, Qt::Key_Y, Qt::Key_X, Qt::Key_V,
            Qt::Key_Backspace, Qt::Key_Left };
        if (const auto kind = upTo(3); kind < 2)
            typeKeys(QString::number(upTo(300)) + (upTo(1) ? "ab €" : ""));
        else if (kind == 2)
            pressKey(keys[static_cast<std::size_t>(upTo(keys.size() - 1))],
                upTo(2) ? Qt::NoModifier : Qt::ShiftModifier);
        else
            pressKey(commands[static_cast<std::size_t>(upTo(commands.size() - 1))], Qt::ControlModifier);
    }

    void someComposition()
    {
        static const QStringList texts { {}, "n", "ni", "a longer one that the field is too narrow for" };
        if (!window().firstResponder())
            return;
        const auto& text = texts.at(upTo(3));
        compose(text, upTo(2) ? -1 : upTo(3), upTo(2) ? QString() : upTo(1) ? "你" : "12");
    }

    void someEnvironment()
    {
        switch (upTo(5)) {
        case 0:
            return phone->setScreen(
                { 320.0 + upTo(100), 400.0 + upTo(300) }, static_cast<int>(window().scale()));
        case 1:
            return phone->setToggleInstalled(upTo(1));
        case 2:
            return upTo(3) ? void() : phone->setLocale(upTo(1) ? "ar_EG" : "en_US");
        default:
            // Mostly people change nothing.
            return;
        }
    }
};

TEST_P(AnyRecording, OfThePaneReplaysToTheSame)
{
    record();
    for (int i = 0; i < 60; ++i)
        step();
    expectSameReplay();
}

TEST_P(AnyRecording, OfTheColorPageReplaysToTheSame)
{
    record();
    tapAt(middleOf("Button Color"));
    for (int i = 0; i < 40; ++i)
        step();
    expectSameReplay();
}

TEST_P(AnyRecording, OfTheGalleryReplaysToTheSame)
{
    auto small = optionsWithGallery();
    small.size = { 320, 480 };
    small.scale = 1;
    record(small);
    for (int i = 0; i < 40; ++i)
        step();
    expectSameReplay();
}

TEST_P(AnyRecording, OfEveryKindOfRowReplaysToTheSame)
{
    recordTestBundle();
    for (int i = 0; i < 80; ++i)
        step();
    expectSameReplay();
}

INSTANTIATE_TEST_SUITE_P(Seeds, AnyRecording, testing::Range(0U, SEEDS));

}
