#pragma once

#include "ColorPicker.h"
#include "PickerLayout.h"
#include "PickerViews.h"
#include "TouchRouting.h"
#include "ValueDialog.h"

/// The definitions behind ColorPicker.h, for the source file of a kind, which instantiates its `ColorPicker`
/// and registers itself.
namespace vekora {

template <typename Kind, typename Field, typename Bar> void ColorPicker<Kind, Field, Bar>::build()
{
    const auto& plan = Kind::plan;
    const auto& roles = Kind::roles;
    const auto size = frame().size();

    const auto makeLabel = [&](const ReadOut& readOut, CGRect frame, platform::NSTextAlignment alignment) {
        return labelOf(readOut.component) = makePickerLabel(frame, readOut.placeholder, alignment);
    };
    const auto makeButton = [&](const ReadOut& readOut, CGRect frame) {
        return makeValueButton(frame, this, valueDialogAction(readOut.component));
    };

    const auto topLeft
        = makeLabel(plan.topLeft, topLeftLabelFrame(size, labelHeight), platform::NSTextAlignment::Left);
    const auto topLeftButton = makeButton(plan.topLeft, topLeft->frame());
    const auto topRight
        = makeLabel(plan.topRight, topRightLabelFrame(size, labelHeight), platform::NSTextAlignment::Right);
    const auto topRightButton = makeButton(plan.topRight, topRight->frame());

    const auto field = std::make_shared<Field>();
    frameGradientView(*field, fieldFrame(size, labelHeight));
    const auto bar = std::make_shared<Bar>();
    frameGradientView(*bar, barFrame(size, field->frame(), labelHeight));
    viewOf(roles.field) = field;
    viewOf(roles.fieldTouchEater) = makeTouchEater(field->frame(), this);
    viewOf(roles.bar) = bar;
    viewOf(roles.barTouchEater) = makeTouchEater(bar->frame(), this);
    viewOf(roles.barSelector) = makeBarSelector(barSelectorFrame(bar->frame()));
    setCrossHairs(makeCrossHairs(crossHairsFrame(field->frame())));

    const auto captionTitle = makePickerLabel(captionTitleFrame(size, bar->frame(), labelHeight),
        plan.captionTitle, platform::NSTextAlignment::Right);
    const auto caption = makeLabel(
        plan.caption, captionValueFrame(size, bar->frame(), labelHeight), platform::NSTextAlignment::Left);
    const auto captionButton = makeButton(plan.caption, captionButtonFrame(size, bar->frame(), labelHeight));

    setColor(color());

    // The touch eaters lie over the markers, and the value buttons over their labels.
    const std::initializer_list<Ref<UIView>> bottomToTop {
        topLeft,
        topRight,
        field,
        crossHairs(),
        captionTitle,
        caption,
        bar,
        viewOf(roles.barSelector),
        viewOf(roles.fieldTouchEater),
        viewOf(roles.barTouchEater),
        topRightButton,
        topLeftButton,
        captionButton,
    };
    for (const auto& view : bottomToTop)
        addSubview(view);
}

template <typename Kind, typename Field, typename Bar>
void ColorPicker<Kind, Field, Bar>::setColor(const std::optional<UIColor>& color)
{
    if (color) {
        (void)color->getHueSaturationBrightnessAlpha(
            &currentHue, &currentSaturation, &currentBrightness, nullptr);
    }
    perform(Kind::roles.showInGradients);
    perform(Kind::roles.updateBarSelector);
    perform(Kind::roles.updateFieldSelector);
    _updateCrosshairPosition();
    perform(Kind::roles.updateBarSelectorPosition);
    crossHairs()->layer().setBackgroundColor(color ? std::optional(color->cgColor()) : std::nullopt);
}

template <typename Kind, typename Field, typename Bar> void ColorPicker<Kind, Field, Bar>::layoutSubviews()
{
    UIView::layoutSubviews();
    const auto size = frame().size();
    auto& field = *viewOf(Kind::roles.field);
    auto& bar = *viewOf(Kind::roles.bar);
    field.setFrame(fieldFrame(size, labelHeight));
    viewOf(Kind::roles.fieldTouchEater)->setFrame(field.frame());
    bar.setFrame(barFrame(size, field.frame(), labelHeight));
    viewOf(Kind::roles.barTouchEater)->setFrame(bar.frame());
    perform(Kind::roles.updateBarSelectorPosition);
    _updateCrosshairPosition();
}

template <typename Kind, typename Field, typename Bar>
void ColorPicker<Kind, Field, Bar>::touchesMovedButtonWithEvent(UIButton* sender, UIEvent* event)
{
    const auto alive = keptAlive();
    dispatchTouches(sender, event, true);
}

template <typename Kind, typename Field, typename Bar>
void ColorPicker<Kind, Field, Bar>::touchesEndedButtonWithEvent(UIButton* sender, UIEvent* event)
{
    const auto alive = keptAlive();
    dispatchTouches(sender, event, false);
    save();
}

template <typename Kind, typename Field, typename Bar>
void ColorPicker<Kind, Field, Bar>::dispatchTouches(UIButton* sender, UIEvent* event, bool isMoving)
{
    if (!event)
        return;
    for (const auto* touch : event->touchesForView(sender))
        dispatchTouchEventIsMoving(touch->locationInView(this), isMoving);
}

template <typename Kind, typename Field, typename Bar>
void ColorPicker<Kind, Field, Bar>::dispatchTouchEventIsMoving(CGPoint location, bool)
{
    const auto& bar = *viewOf(Kind::roles.bar);
    const auto [region, point] = routeTouch(location,
        {
            .field = viewOf(Kind::roles.field)->frame(),
            .bar = bar.frame(),
            .upperLimit = labelOf(Kind::plan.topLeft.component)->frame().minY() + labelHeight,
            .lowerLimit = labelOf(Kind::plan.caption.component)->frame().minY(),
        });
    if (region == TouchRegion::Field) {
        crossHairs()->setCenter(point);
        perform(Kind::roles.updateFieldWithTouch, point);
    } else if (region == TouchRegion::Bar) {
        viewOf(Kind::roles.barSelector)->setCenter({ point.x, bar.center().y });
        perform(Kind::roles.updateBarWithTouch, point);
    }
}

template <typename Kind, typename Field, typename Bar>
void ColorPicker<Kind, Field, Bar>::takeFromField(CGPoint touch)
{
    const auto& plan = Kind::plan;
    const auto field = viewOf(Kind::roles.field)->frame();
    valueOf(plan.fieldX.component) = plan.fieldX.valueAt(touch.x, field.minX(), field.width);
    valueOf(plan.fieldY.component) = plan.fieldY.valueAt(touch.y, field.minY(), field.height);
    perform(Kind::roles.updateFieldSelector);
    commitShownColor();
}

template <typename Kind, typename Field, typename Bar>
void ColorPicker<Kind, Field, Bar>::takeFromBar(CGPoint touch)
{
    const auto& axis = Kind::plan.bar;
    const auto bar = viewOf(Kind::roles.bar)->frame();
    valueOf(axis.component) = axis.valueAt(touch.x, bar.minX(), bar.width);
    perform(Kind::roles.updateBarSelector);
    commitShownColor();
}

template <typename Kind, typename Field, typename Bar>
void ColorPicker<Kind, Field, Bar>::_updateCrosshairPosition()
{
    const auto& plan = Kind::plan;
    const auto field = viewOf(Kind::roles.field)->frame();
    crossHairs()->setCenter({
        plan.fieldX.positionOf(valueOf(plan.fieldX.component), field.minX(), field.width),
        plan.fieldY.positionOf(valueOf(plan.fieldY.component), field.minY(), field.height),
    });
}

template <typename Kind, typename Field, typename Bar> void ColorPicker<Kind, Field, Bar>::placeBarSelector()
{
    const auto& axis = Kind::plan.bar;
    const auto& bar = *viewOf(Kind::roles.bar);
    // Through single precision, as the marker has always been placed.
    const auto x
        = static_cast<float>(axis.positionOf(valueOf(axis.component), bar.frame().minX(), bar.frame().width));
    viewOf(Kind::roles.barSelector)->setCenter({ x, bar.center().y });
}

/// Registers a kind with every method that is reached by its selector.
template <typename Kind> platform::TypedClassRegistration<Kind> registerColorPicker(std::string_view name)
{
    return platform::registerClass<Kind>(name)
        .method("touchesMovedButton:withEvent:", &Kind::touchesMovedButtonWithEvent)
        .method("touchesEndedButton:withEvent:", &Kind::touchesEndedButtonWithEvent)
        .method("askUserForHue", &Kind::askUserForHue)
        .method("askUserForSaturation", &Kind::askUserForSaturation)
        .method("askUserForBrightness", &Kind::askUserForBrightness);
}

}
