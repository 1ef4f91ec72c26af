#include "PickerFixture.h"
#include "PickerModel.h"

namespace vekora::test {

TYPED_TEST_SUITE(EveryColorPicker, Kinds, KindNames);

// Small pickers, so that every quarter point of them and around them can be touched.
TYPED_TEST(EveryColorPicker, AnswersEveryQuarterPointAsItsModel)
{
    using Its = typename TestFixture::Its;
    constexpr double around = 16;
    for (const auto& size : { CGSize { 80, 170 }, CGSize { 66.5, 156.25 } }) {
        const auto picker = this->make(size, UIColor::redColor());
        PickerModel<TypeParam> model;
        model.start(size, picker->labelHeight, UIColor::redColor());
        ASSERT_EQ(difference(*picker, model), "");
        const auto upperLimit = 10 + picker->labelHeight;
        const auto lowerLimit = size.height - 70;
        int moved = 0;
        this->changed.clear();
        for (double y = -around; y <= size.height + around; y += 0.25) {
            for (double x = -around; x <= size.width + around; x += 0.25) {
                const auto before = model.hsb;
                model.route({ x, y }, upperLimit, lowerLimit);
                moved += model.hsb != before;
                picker->dispatchTouchEventIsMoving({ x, y }, true);
                ASSERT_EQ(difference(*picker, model), "") << "at " << x << ", " << y;
            }
        }
        EXPECT_GT(moved, 10000);
        EXPECT_EQ(this->changed, model.changed);
        EXPECT_EQ(Its::caption(*picker).frame().y, lowerLimit);
    }
}

}
