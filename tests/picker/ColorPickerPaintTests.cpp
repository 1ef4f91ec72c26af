#include "PickerFixture.h"

#include "platform/Journal.h"

#include <map>

namespace vekora::test {

TYPED_TEST_SUITE(EveryColorPicker, Kinds, KindNames);

namespace {

/// Counts what is painted, by class, while it lives.
class PaintCounter {
public:
    PaintCounter()
        : _listener(Journal::shared().listen([this](const JournalEntry& entry) {
            if (entry.kind == JournalEntry::Kind::Paint)
                ++_paints[entry.name];
        }))
    {
    }
    ~PaintCounter() { Journal::shared().stop(_listener); }
    PaintCounter(const PaintCounter&) = delete;
    PaintCounter& operator=(const PaintCounter&) = delete;

    int of(const std::string& name) { return _paints[name]; }

private:
    std::map<std::string, int> _paints;
    int _listener;
};

}

TYPED_TEST(EveryColorPicker, PaintsEachGradientOnceWhenItAppears)
{
    using Its = typename TestFixture::Its;
    PaintCounter paints;
    this->show();
    EXPECT_EQ(paints.of(Its::fieldClass), 1);
    EXPECT_EQ(paints.of(Its::barClass), 1);
    this->window.display();
    EXPECT_EQ(paints.of(Its::fieldClass), 1);
}

TYPED_TEST(EveryColorPicker, NeverRepaintsAFieldForADragInIt)
{
    using Its = typename TestFixture::Its;
    PaintCounter paints;
    this->touch(this->inField(0.5, 0.5));
    for (int step = 1; step <= 20; ++step) {
        this->move(this->inField(0.5 + step / 64.0, 0.5 - step / 64.0));
        this->window.display();
    }
    this->lift(this->inField(0.5, 0.25));
    this->window.display();
    EXPECT_EQ(this->changed.size(), 21u);
    EXPECT_EQ(paints.of(Its::fieldClass), 0);
}

TYPED_TEST(EveryColorPicker, NeverRepaintsABarForADragInIt)
{
    using Its = typename TestFixture::Its;
    PaintCounter paints;
    this->touch(this->inBar(0.25));
    for (int step = 1; step <= 20; ++step) {
        this->move(this->inBar(0.25 + step / 64.0));
        this->window.display();
    }
    EXPECT_EQ(paints.of(Its::barClass), 0);
    EXPECT_EQ(paints.of(Its::fieldClass), 20) << "the field follows each step";
}

TYPED_TEST(EveryColorPicker, PaintsOncePerDisplayHoweverOftenItIsTouched)
{
    using Its = typename TestFixture::Its;
    PaintCounter paints;
    this->touch(this->inBar(0.25));
    for (int step = 1; step <= 20; ++step)
        this->move(this->inBar(0.25 + step / 64.0));
    this->window.display();
    EXPECT_EQ(paints.of(Its::fieldClass), 1);
}

TYPED_TEST(EveryColorPicker, RepaintsNoGradientForALayout)
{
    using Its = typename TestFixture::Its;
    PaintCounter paints;
    this->picker->setFrame({ 0, 0, 400, 500 });
    this->window.display();
    EXPECT_EQ(paints.of(Its::fieldClass), 0) << "the pictures are stretched";
    EXPECT_EQ(paints.of(Its::barClass), 0);
}

TYPED_TEST(EveryColorPicker, RepaintsTheFieldForAWholeColour)
{
    using Its = typename TestFixture::Its;
    PaintCounter paints;
    this->picker->setColor(UIColor::blueColor());
    this->window.display();
    EXPECT_EQ(paints.of(Its::fieldClass), 1);
}

TEST(VKColorPickerView_H, NeverRepaintsItsHueBar)
{
    UIWindow window({ 320, 480 });
    const auto picker = std::make_shared<VKColorPickerView_H>(
        CGRect { 0, 0, 320, 400 }, UIColor::redColor(), nullptr, nullptr);
    window.addSubview(picker);
    window.display();
    PaintCounter paints;
    picker->setColor(UIColor::colorWithHueSaturationBrightnessAlpha(0, 0.5, 0.25, 1));
    window.display();
    picker->setColor(UIColor::blueColor());
    window.display();
    picker->dispatchTouchEventIsMoving({ 100, 100 }, true);
    window.display();
    EXPECT_EQ(paints.of("VKHueSliderView"), 0);
}

template <typename Picker, typename Point> int barPaintsForAFieldDrag(Point pointAt)
{
    UIWindow window({ 320, 480 });
    const auto picker
        = std::make_shared<Picker>(CGRect { 0, 0, 320, 400 }, UIColor::redColor(), nullptr, nullptr);
    window.addSubview(picker);
    window.display();
    PaintCounter paints;
    for (int step = 0; step < 5; ++step) {
        picker->dispatchTouchEventIsMoving(pointAt(step), true);
        window.display();
    }
    return paints.of(Kind<Picker>::barClass);
}

TEST(VKColorPickerView_B, RepaintsItsBarForEachStepInTheField)
{
    const auto point = [](int step) { return CGPoint { 50.0 + step, 100 }; };
    EXPECT_EQ(barPaintsForAFieldDrag<VKColorPickerView_B>(point), 5);
    EXPECT_EQ(barPaintsForAFieldDrag<VKColorPickerView_S>(point), 5);
    EXPECT_EQ(barPaintsForAFieldDrag<VKColorPickerView_H>(point), 0);
}

}
