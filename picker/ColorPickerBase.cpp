#include "ColorPickerBase.h"

#include "PickerViews.h"
#include "ValueDialog.h"

using namespace platform;

namespace vekora {

ColorPickerBase::ColorPickerBase(
    CGRect frame, const std::optional<UIColor>& color, ColorBlock colorsHaveChanged, ColorBlock saveChanges)
    : _colorsHaveChangedBlock(std::move(colorsHaveChanged))
    , _saveChangesBlock(std::move(saveChanges))
    , _color(color)
{
    setFrame(frame);
    labelHeight = measuredLabelHeight(this->frame().width);
}

ColorPickerBase::~ColorPickerBase()
{
    UIAlertView::delegateIsGone(this);
}

const ColorPickerBase::Place& ColorPickerBase::placeOf(Component component)
{
    static constexpr Place places[] = {
        { &ColorPickerBase::currentHue, &ColorPickerBase::_currentHueLabel },
        { &ColorPickerBase::currentSaturation, &ColorPickerBase::_currentSaturationLabel },
        { &ColorPickerBase::currentBrightness, &ColorPickerBase::_currentBrightnessLabel },
    };
    return places[static_cast<std::size_t>(component)];
}

CGFloat& ColorPickerBase::valueOf(Component component)
{
    return this->*placeOf(component).value;
}

Ref<UILabel>& ColorPickerBase::labelOf(Component component)
{
    return this->*placeOf(component).label;
}

void ColorPickerBase::showReadOut(const ReadOut& readOut)
{
    labelOf(readOut.component)->setText(readOutText(readOut, valueOf(readOut.component)));
}

UIColor ColorPickerBase::shownColor() const
{
    return UIColor::colorWithHueSaturationBrightnessAlpha(
        currentHue, currentSaturation, currentBrightness, 1);
}

void ColorPickerBase::commitShownColor()
{
    const auto color = shownColor();
    _crossHairs->layer().setBackgroundColor(color.cgColor());
    _setColor(color);
}

void ColorPickerBase::_setColor(const UIColor& color)
{
    if (_color && _color->isEqual(color))
        return;

    // The block may change anything here: the picker's own blocks, its colour, its life.
    const auto alive = keptAlive();
    const auto committed = color;
    if (const auto block = _colorsHaveChangedBlock)
        block(committed);
    _color = committed;
}

void ColorPickerBase::save()
{
    const auto committed = _color.value_or(UIColor::colorWithRedGreenBlueAlpha(0, 0, 0, 1));
    if (const auto block = _saveChangesBlock)
        block(committed);
}

void ColorPickerBase::askUserFor(Component component)
{
    makeValueDialog(component, valueOf(component), this)->show();
}

void ColorPickerBase::alertViewClickedButtonAtIndex(UIAlertView& alert, long buttonIndex)
{
    if (buttonIndex != valueDialogOK)
        return;

    const auto alive = keptAlive();
    if (const auto typed = typedValue(alert)) {
        valueOf(typed->component) = typed->value;
        const auto color = shownColor();
        setColor(color);
        _setColor(color);
    }
    save();
}

}
