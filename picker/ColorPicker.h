#pragma once

#include "ColorPickerBase.h"

namespace vekora {

/// What tells a kind of picker from the others, as far as it is data.
struct PickerPlan {
    Axis fieldX;
    Axis fieldY;
    Axis bar;
    ReadOut topLeft;
    ReadOut topRight;
    ReadOut caption; ///< Below the field, beside the caption's title.
    const char* captionTitle;
};

/// Which of a kind's own views and methods does which job.
template <typename Kind, typename Field, typename Bar> struct PickerRoles {
    platform::Ref<Field> Kind::*field;
    platform::Ref<platform::UIButton> Kind::*fieldTouchEater;
    platform::Ref<Bar> Kind::*bar;
    platform::Ref<platform::UIButton> Kind::*barTouchEater;
    platform::Ref<platform::UIImageView> Kind::*barSelector;

    void (Kind::*updateFieldWithTouch)(platform::CGPoint);
    void (Kind::*updateBarWithTouch)(platform::CGPoint);
    /// The field's values have changed: shows them in the bar and above the field.
    void (Kind::*updateFieldSelector)();
    /// The bar's value has changed: shows it in the field and the caption.
    void (Kind::*updateBarSelector)();
    void (Kind::*updateBarSelectorPosition)();
    /// A whole colour has been set.
    void (Kind::*showInGradients)();
};

/// A picker: a field of two values, a bar of the third, and three numbers that can be tapped and typed.
///
/// A kind derives from this with its own type and those of its field and bar, which are made without
/// arguments. It has a `PickerPlan` called `plan` and `Roles` called `roles`, and calls `build` in its
/// constructor. The definitions are in ColorPickerImpl.h, for the kind's source file.
template <typename Kind, typename Field, typename Bar> class ColorPicker : public ColorPickerBase {
public:
    using Roles = PickerRoles<Kind, Field, Bar>;

    void setColor(const std::optional<UIColor>&) override;
    void layoutSubviews() override;

    /// Actions of the buttons over field and bar: every location counts, wherever the touch began.
    void touchesMovedButtonWithEvent(UIButton* sender, UIEvent*);
    void touchesEndedButtonWithEvent(UIButton* sender, UIEvent*);

    /// One location, in the picker's coordinates. Moving or lifting the finger makes no difference here.
    void dispatchTouchEventIsMoving(CGPoint, bool isMoving);

    // Internal: for the class itself and its tests.
    void _updateCrosshairPosition();

protected:
    using ColorPickerBase::ColorPickerBase;

    /// Makes and adds the views, and shows the colour.
    void build();

    // What the kind's own methods have in common.
    void takeFromField(CGPoint touch);
    void takeFromBar(CGPoint touch);
    void placeBarSelector();

private:
    Kind& kind() { return static_cast<Kind&>(*this); }
    template <typename View> Ref<View>& viewOf(Ref<View> Kind::*role) { return kind().*role; }
    template <typename... Arguments> void perform(void (Kind::*role)(Arguments...), Arguments... arguments)
    {
        (kind().*role)(arguments...);
    }
    void dispatchTouches(UIButton* sender, UIEvent*, bool isMoving);
};

}
