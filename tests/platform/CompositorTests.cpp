#include "platform/CGContextImpl.h"
#include "platform/RoundedRect.h"
#include "platform/UIWindow.h"

#include <gtest/gtest.h>

using namespace platform;

namespace {

UIColor rgb(CGFloat red, CGFloat green, CGFloat blue, CGFloat alpha = 1)
{
    return UIColor::colorWithRedGreenBlueAlpha(red, green, blue, alpha);
}

class Composition : public testing::Test {
protected:
    Composition() { window->setScale(1); }

    Ref<UIView> add(CGRect frame, const UIColor& color)
    {
        const auto view = std::make_shared<UIView>(frame);
        view->setBackgroundColor(color);
        window->addSubview(view);
        return view;
    }
    std::uint32_t at(int x, int y)
    {
        window->display();
        return window->picture().at(x, y);
    }

    Ref<UIWindow> window = std::make_shared<UIWindow>(CGSize { 64, 64 });
};

}

TEST_F(Composition, LaysLaterViewsOverEarlierOnes)
{
    add({ 0, 0, 20, 20 }, rgb(1, 0, 0));
    add({ 10, 10, 20, 20 }, rgb(0, 0, 1));
    EXPECT_EQ(at(9, 9), 0xFFFF0000U);
    EXPECT_EQ(at(10, 10), 0xFF0000FFU);
    EXPECT_EQ(at(29, 29), 0xFF0000FFU);
    EXPECT_EQ(at(30, 30), 0xFFFFFFFFU);
}

TEST_F(Composition, MixesWhatIsTranslucent)
{
    add({ 0, 0, 10, 10 }, rgb(0, 0, 0, 0.04));
    EXPECT_EQ(at(5, 5), 0xFFF5F5F5U); // 255 − 10.
    const auto faded = add({ 20, 20, 10, 10 }, rgb(0, 0, 0));
    faded->setAlpha(0.5);
    EXPECT_EQ(at(25, 25), 0xFF7F7F7FU);
}

TEST_F(Composition, FadesAViewWithItsSubviewsAsOne)
{
    const auto outer = add({ 0, 0, 40, 40 }, rgb(1, 0, 0));
    const auto inner = std::make_shared<UIView>(CGRect { 10, 10, 10, 10 });
    inner->setBackgroundColor(rgb(0, 0, 1));
    outer->addSubview(inner);
    outer->setAlpha(0.5);
    EXPECT_EQ(at(15, 15), 0xFF7F7FFFU); // Nothing of the red shines through the blue.
}

TEST_F(Composition, ClipsOnlyWhereItIsAskedTo)
{
    const auto outer = add({ 10, 10, 10, 10 }, rgb(1, 1, 0));
    const auto inner = std::make_shared<UIView>(CGRect { 5, 5, 20, 20 });
    inner->setBackgroundColor(rgb(0, 0, 1));
    outer->addSubview(inner);
    EXPECT_EQ(at(25, 25), 0xFF0000FFU);
    outer->setClipsToBounds(true);
    EXPECT_EQ(at(25, 25), 0xFFFFFFFFU);
    EXPECT_EQ(at(19, 19), 0xFF0000FFU);
}

TEST_F(Composition, RoundsBackgroundAndBorderAndMasksSubviewsOnlyWhenAsked)
{
    const auto outer = add({ 0, 0, 40, 40 }, rgb(1, 0, 0));
    outer->layer().setCornerRadius(10);
    EXPECT_EQ(at(0, 0), 0xFFFFFFFFU);
    EXPECT_EQ(at(20, 0), 0xFFFF0000U);
    const auto inner = std::make_shared<UIView>(CGRect { 0, 0, 40, 40 });
    inner->setBackgroundColor(rgb(0, 0, 1));
    outer->addSubview(inner);
    EXPECT_EQ(at(0, 0), 0xFF0000FFU);
    outer->layer().setMasksToBounds(true);
    EXPECT_EQ(at(0, 0), 0xFFFFFFFFU);
    EXPECT_EQ(at(20, 20), 0xFF0000FFU);
}

TEST_F(Composition, DrawsTheBorderInsideAndAboveSubviews)
{
    const auto outer = add({ 10, 10, 20, 20 }, rgb(1, 1, 1));
    const auto inner = std::make_shared<UIView>(CGRect { 0, 0, 20, 20 });
    inner->setBackgroundColor(rgb(0, 0, 1));
    outer->addSubview(inner);
    outer->layer().setBorderColor(rgb(0, 1, 0).cgColor());
    outer->layer().setBorderWidth(2);
    EXPECT_EQ(at(10, 10), 0xFF00FF00U);
    EXPECT_EQ(at(11, 20), 0xFF00FF00U);
    EXPECT_EQ(at(12, 20), 0xFF0000FFU);
    EXPECT_EQ(at(29, 29), 0xFF00FF00U);
    EXPECT_EQ(at(9, 20), 0xFFFFFFFFU);
}

TEST_F(Composition, CastsAShadowOutwardsThatFades)
{
    const auto round = add({ 20, 20, 20, 20 }, rgb(1, 1, 1));
    round->layer().setShadowOpacity(1);
    round->layer().setShadowOffset({});
    round->layer().setShadowRadius(2);
    const auto near = at(19, 30) & 255U;
    const auto farther = at(17, 30) & 255U;
    EXPECT_LT(near, 200U);
    EXPECT_LT(near, farther);
    EXPECT_EQ(at(10, 30), 0xFFFFFFFFU);
    round->layer().setMasksToBounds(true);
    EXPECT_EQ(at(19, 30), 0xFFFFFFFFU);
}

// A part that is composed by itself shows the same as the whole picture: what lies under something opaque may
// be left out, and nothing else.
TEST_F(Composition, ShowsTheSameInPartsAsInOnePiece)
{
    window->setScale(3);
    for (int step = 0; step < 12; ++step) {
        const auto view = add({ step * 3.5, step * 2.25, 30, 26 },
            rgb(step % 3 / 2.0, step % 4 / 3.0, step % 5 / 4.0, step % 2 ? 1 : 0.6));
        view->layer().setCornerRadius(step % 4 * 3);
        view->layer().setBorderWidth(step % 3);
        view->layer().setMasksToBounds(step % 5 == 0);
        view->layer().setShadowOpacity(step % 3 == 1 ? 0.5F : 0);
        const auto inner = std::make_shared<UIView>(CGRect { -4, -4, 20, 20 });
        inner->setBackgroundColor(rgb(0, step / 12.0, 1));
        view->addSubview(inner);
        view->setAlpha(step % 6 == 3 ? 0.7 : 1);
    }
    window->display();
    const auto& picture = window->picture();
    const std::vector<std::uint32_t> whole(
        picture.pixels.get(), picture.pixels.get() + picture.width * picture.height);
    for (int y = 0; y < 64; y += 7) {
        for (int x = 0; x < 64; x += 9)
            window->_markDamage({ x * 1.0, y * 1.0, 9, 7 });
        window->display();
    }
    EXPECT_TRUE(std::equal(whole.begin(), whole.end(), picture.pixels.get()));
}

TEST_F(Composition, StretchesContentsThatWereDrawnAtAnotherSize)
{
    class Halves final : public UIView {
    public:
        using UIView::UIView;
        void drawRect(CGRect) override
        {
            auto& bitmap = UIGraphicsGetCurrentContext()->bitmap();
            for (int y = 0; y < bitmap.height; ++y) {
                for (int x = 0; x < bitmap.width; ++x)
                    bitmap.row(y)[x] = x < bitmap.width / 2 ? 0xFFFF0000U : 0xFF0000FFU;
            }
        }
    };
    const auto view = std::make_shared<Halves>(CGRect { 0, 0, 20, 20 });
    window->addSubview(view);
    window->display();
    view->setFrame({ 0, 0, 60, 20 });
    EXPECT_EQ(at(25, 10), 0xFFFF0000U);
    EXPECT_EQ(at(35, 10), 0xFF0000FFU);
}

TEST(RoundedRect, CoversTheMiddleWhollyAndTheCornersPartly)
{
    const RoundedRect shape { { 0, 0, 20, 20 }, 6 };
    std::vector<std::uint8_t> row(20);
    shape.coverageOfRow(0, 0, row);
    EXPECT_EQ(row[0], 0);
    EXPECT_GT(row[4], 0);
    EXPECT_EQ(row[10], 255);
    EXPECT_TRUE(std::equal(row.begin(), row.end(), row.rbegin()));
    shape.coverageOfRow(6, 0, row);
    EXPECT_EQ(row, std::vector<std::uint8_t>(20, 255));
    EXPECT_EQ(shape.solidBand(), (PixelRect { 0, 6, 20, 8 }));
    shape.coverageOfRow(20, 0, row);
    EXPECT_EQ(row, std::vector<std::uint8_t>(20, 0));
}
