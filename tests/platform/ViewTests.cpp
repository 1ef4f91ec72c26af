#include "platform/CGContextImpl.h"
#include "platform/Journal.h"
#include "platform/UILabel.h"
#include "platform/UIWindow.h"

#include <gtest/gtest.h>

#include <limits>

using namespace platform;

namespace {

class Painted final : public UIView {
public:
    using UIView::UIView;
    void drawRect(CGRect) override
    {
        ++paints;
        auto& bitmap = UIGraphicsGetCurrentContext()->bitmap();
        std::fill_n(bitmap.pixels.get(), bitmap.width * bitmap.height, 0xFF00FF00U);
    }
    void layoutSubviews() override { ++layouts; }

    int paints = 0;
    int layouts = 0;
};

class Views : public testing::Test {
protected:
    Views()
    {
        window->setScale(2);
        window->addSubview(view);
        window->display();
    }

    Ref<UIWindow> window = std::make_shared<UIWindow>(CGSize { 100, 100 });
    Ref<Painted> view = std::make_shared<Painted>(CGRect { 10, 20, 30, 40 });
};

}

TEST(View, ReadsBackExactlyWhatWasSet)
{
    UIView view;
    view.setFrame({ 0.1, 1.0 / 3, 62.0 / 3, 0.7 });
    EXPECT_EQ(view.frame(), (CGRect { 0.1, 1.0 / 3, 62.0 / 3, 0.7 }));
    view.setCenter({ 0.3, 0.2 });
    EXPECT_EQ(view.center(), (CGPoint { 0.3, 0.2 }));
    EXPECT_EQ(view.bounds().origin(), (CGPoint { 0, 0 }));
    EXPECT_NEAR(view.frame().midX(), 0.3, 1e-12);
}

TEST(View, TakesNoNegativeOrUndefinedSize)
{
    UIView view({ 5, 5, -10, std::numeric_limits<double>::quiet_NaN() });
    EXPECT_EQ(view.frame(), (CGRect { 5, 5, 0, 0 }));
    view.setFrame({ std::numeric_limits<double>::infinity(), 0, std::numeric_limits<double>::infinity(), 3 });
    EXPECT_EQ(view.frame(), (CGRect { 0, 0, 0, 3 }));
}

TEST(View, MovesToTheFrontWhenItIsAddedAgain)
{
    const auto parent = std::make_shared<UIView>();
    const auto first = std::make_shared<UIView>();
    const auto second = std::make_shared<UIView>();
    parent->addSubview(first);
    parent->addSubview(second);
    parent->addSubview(first);
    EXPECT_EQ(parent->subviews(), (std::vector<Ref<UIView>> { second, first }));
    first->addSubview(parent); // Would make a circle.
    EXPECT_EQ(parent->superview(), nullptr);
}

TEST(View, ConvertsPointsThroughScrolledViews)
{
    const auto outer = std::make_shared<UIView>(CGRect { 10, 10, 100, 100 });
    const auto inner = std::make_shared<UIView>(CGRect { 5, 50, 20, 20 });
    outer->addSubview(inner);
    outer->setBounds({ 0, 30, 100, 100 });
    const auto window = std::make_shared<UIWindow>(CGSize { 200, 200 });
    window->addSubview(outer);
    EXPECT_EQ(inner->convertPointToView({ 1, 2 }, nullptr), (CGPoint { 16, 32 }));
    EXPECT_EQ(inner->convertPointFromView({ 16, 32 }, nullptr), (CGPoint { 1, 2 }));
    EXPECT_EQ(window->hitTestWithEvent({ 16, 32 }, nullptr), inner.get());
}

TEST(View, FitsItsSizeAndKeepsItsOrigin)
{
    UILabel label({ 7, 8, 1, 1 });
    label.setText("Brightness:");
    label.sizeToFit();
    EXPECT_EQ(label.frame().origin(), (CGPoint { 7, 8 }));
    EXPECT_GT(label.frame().width, 50);
    EXPECT_GT(label.frame().height, 17);
}

TEST_F(Views, PaintsOnceAtFirstAndThenWhenMarked)
{
    EXPECT_EQ(view->paints, 1);
    window->display();
    EXPECT_EQ(view->paints, 1);
    view->setNeedsDisplay();
    view->setNeedsDisplay();
    EXPECT_EQ(view->paints, 1);
    window->display();
    EXPECT_EQ(view->paints, 2);
}

TEST_F(Views, PaintsNothingAnewForMovesCoversOrLayers)
{
    view->setFrame({ 50, 50, 30, 40 });
    view->setCenter({ 40, 40 });
    view->setFrame({ 0, 0, 60, 80 }); // Stretches what was painted.
    view->setHidden(true);
    view->setHidden(false);
    view->setAlpha(0.5);
    view->layer().setCornerRadius(4);
    view->layer().setBorderWidth(1);
    window->addSubview(std::make_shared<UIView>(CGRect { 0, 0, 100, 100 }));
    window->display();
    EXPECT_EQ(view->paints, 1);
}

TEST_F(Views, PaintsNoEmptyView)
{
    const auto empty = std::make_shared<Painted>(CGRect { 0, 0, 0, 10 });
    window->addSubview(empty);
    window->display();
    EXPECT_EQ(empty->paints, 0);
    empty->setFrame({ 0, 0, 10, 10 });
    window->display();
    EXPECT_EQ(empty->paints, 1);
}

TEST_F(Views, PaintsOutsideAWindowNever)
{
    view->removeFromSuperview();
    view->setNeedsDisplay();
    window->display();
    EXPECT_EQ(view->paints, 1);
    window->addSubview(view);
    window->display();
    EXPECT_EQ(view->paints, 2);
}

TEST_F(Views, ReportsPaintsByClassAndOnlyOfViewsThatDraw)
{
    std::vector<std::string> painted;
    const auto listener = Journal::shared().listen([&](const JournalEntry& entry) {
        if (entry.kind == JournalEntry::Kind::Paint)
            painted.push_back(entry.name);
    });
    window->addSubview(std::make_shared<UIView>(CGRect { 0, 0, 10, 10 }));
    view->setNeedsDisplay();
    window->display();
    Journal::shared().stop(listener);
    EXPECT_EQ(painted, std::vector<std::string> { "Painted" });
}

TEST_F(Views, LaysOutForSizesAndSubviewsButNotForMoves)
{
    const auto child = std::make_shared<UIView>(CGRect { 0, 0, 5, 5 });
    view->addSubview(child);
    window->display();
    const auto before = view->layouts;
    child->setCenter({ 20, 20 });
    view->setFrame({ 0, 0, 30, 40 });
    window->display();
    EXPECT_EQ(view->layouts, before);
    child->setFrame({ 0, 0, 6, 6 });
    window->display();
    EXPECT_EQ(view->layouts, before + 1);
    view->setFrame({ 0, 0, 31, 40 });
    window->display();
    EXPECT_EQ(view->layouts, before + 2);
}

TEST_F(Views, ComposesOnlyWhatChanged)
{
    EXPECT_TRUE(window->display().empty());
    view->setFrame({ 60, 60, 30, 40 });
    const auto damaged = window->display();
    ASSERT_EQ(damaged.size(), 2U);
    EXPECT_EQ(damaged[0], (PixelRect { 20, 40, 60, 80 }));
    EXPECT_EQ(damaged[1], (PixelRect { 120, 120, 60, 80 }));
    EXPECT_EQ(window->picture().at(20, 40), 0xFFFFFFFFU);
    EXPECT_EQ(window->picture().at(120, 120), 0xFF00FF00U);
}

TEST_F(Views, TellsItsHostOnceThatSomethingIsPending)
{
    int calls = 0;
    window->setNeedsDisplayHandler([&] { ++calls; });
    view->setNeedsDisplay();
    view->setFrame({ 0, 0, 10, 10 });
    EXPECT_EQ(calls, 1);
    window->display();
    view->setNeedsDisplay();
    EXPECT_EQ(calls, 2);
}

TEST_F(Views, TellsItsHostOfMarksMadeWhilePainting)
{
    class Restless final : public UIView {
    public:
        using UIView::UIView;
        void drawRect(CGRect) override
        {
            UIGraphicsGetCurrentContext()->bitmap();
            setNeedsDisplay();
        }
    };
    int calls = 0;
    window->addSubview(std::make_shared<Restless>(CGRect { 0, 0, 5, 5 }));
    window->setNeedsDisplayHandler([&] { ++calls; });
    window->display();
    EXPECT_EQ(calls, 1);
    window->display();
    EXPECT_EQ(calls, 2);
}

TEST_F(Views, TakesNoTouchesWhileHiddenDisabledOrInvisible)
{
    const CGPoint inside { 15, 25 };
    EXPECT_EQ(window->hitTestWithEvent(inside, nullptr), view.get());
    view->setHidden(true);
    EXPECT_EQ(window->hitTestWithEvent(inside, nullptr), window.get());
    view->setHidden(false);
    view->setUserInteractionEnabled(false);
    EXPECT_EQ(window->hitTestWithEvent(inside, nullptr), window.get());
    view->setUserInteractionEnabled(true);
    view->setAlpha(0.009);
    EXPECT_EQ(window->hitTestWithEvent(inside, nullptr), window.get());
    view->setAlpha(0.01);
    EXPECT_EQ(window->hitTestWithEvent(inside, nullptr), view.get());
}

TEST_F(Views, LeavesLabelsTransparentToTouches)
{
    window->addSubview(std::make_shared<UILabel>(view->frame()));
    EXPECT_EQ(window->hitTestWithEvent({ 15, 25 }, nullptr), view.get());
}

TEST_F(Views, RepaintsLabelsForTextColourAndSizeOnly)
{
    const auto label = std::make_shared<UILabel>(CGRect { 0, 0, 50, 20 });
    label->setText("a");
    window->addSubview(label);
    window->display();
    int paints = 0;
    const auto listener = Journal::shared().listen(
        [&](const JournalEntry& entry) { paints += entry.kind == JournalEntry::Kind::Paint; });
    label->setText("a");
    label->setFrame({ 5, 5, 50, 20 });
    window->display();
    EXPECT_EQ(paints, 0);
    label->setText("b");
    window->display();
    label->setTextColor(UIColor::redColor());
    window->display();
    label->setFrame({ 5, 5, 60, 20 });
    window->display();
    Journal::shared().stop(listener);
    EXPECT_EQ(paints, 3);
}
