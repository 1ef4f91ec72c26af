#include "PSControlCells.h"

#include "Device.h"
#include "PSTextFieldSpecifier.h"
#include "Style.h"
#include "UISegmentedControl.h"
#include "UISlider.h"
#include "UISwitch.h"
#include "UITextField.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace platform {

namespace {

/// Of a row, for a title beside a control.
constexpr CGFloat longestTitleBesideSlider = 0.4;
constexpr CGFloat longestTitleBesideField = 0.6;
constexpr CGFloat sliderHeight = 34;
constexpr CGFloat segmentsHeight = 29;

bool flag(const PSSpecifier& specifier, std::string_view key)
{
    const auto* value = specifier.propertyForKey(key);
    return value && value->boolValue();
}

float number(const PSSpecifier& specifier, std::string_view key, float otherwise)
{
    const auto* value = specifier.propertyForKey(key);
    const float result = value ? value->floatValue() : otherwise;
    return std::isfinite(result) ? result : otherwise;
}

UIColor textColor(const PSSpecifier& specifier)
{
    return specifier.isEnabled() ? UIColor::blackColor() : style::disabledText();
}

const auto switchRegistration = registerClass<PSSwitchTableCell>("PSSwitchTableCell")
                                    .initialiser<long, std::string, Ref<PSSpecifier>>()
                                    .method("_switchChanged", &PSSwitchTableCell::_switchChanged);
const auto sliderRegistration = registerClass<PSSliderTableCell>("PSSliderTableCell")
                                    .initialiser<long, std::string, Ref<PSSpecifier>>()
                                    .method("_sliderMoved", &PSSliderTableCell::_sliderMoved)
                                    .method("_sliderReleased", &PSSliderTableCell::_sliderReleased);
const auto segmentRegistration = registerClass<PSSegmentTableCell>("PSSegmentTableCell")
                                     .initialiser<long, std::string, Ref<PSSpecifier>>()
                                     .method("_segmentChanged", &PSSegmentTableCell::_segmentChanged);
const auto editableRegistration = registerClass<PSEditableTableCell>("PSEditableTableCell")
                                      .initialiser<long, std::string, Ref<PSSpecifier>>()
                                      .method("_editingBegan", &PSEditableTableCell::_editingBegan)
                                      .method("_editingChanged", &PSEditableTableCell::_editingChanged)
                                      .method("_editingEnded", &PSEditableTableCell::_editingEnded);

}

PSSwitchTableCell::PSSwitchTableCell(long style, std::string reuseIdentifier, Ref<PSSpecifier> specifier)
    : PSTableCell(style, std::move(reuseIdentifier), std::move(specifier))
    , _switch(std::make_shared<UISwitch>())
{
    _switch->addTargetActionForControlEvents(this, "_switchChanged", UIControlEventValueChanged);
    setAccessoryView(_switch);
}

UIView* PSSwitchTableCell::control() const
{
    return _switch.get();
}

void PSSwitchTableCell::refreshCellContentsWithSpecifier(PSSpecifier& specifier)
{
    PSTableCell::refreshCellContentsWithSpecifier(specifier);
    const auto value = specifier.performGetter();
    _switch->setOn((value && value->boolValue()) != flag(specifier, "negate"));
    _switch->setEnabled(specifier.isEnabled());
}

void PSSwitchTableCell::_switchChanged()
{
    if (const auto row = specifier())
        row->performSetterWithValue(_switch->isOn() != flag(*row, "negate"));
}

PSSliderTableCell::PSSliderTableCell(long style, std::string reuseIdentifier, Ref<PSSpecifier> specifier)
    : PSTableCell(style, std::move(reuseIdentifier), std::move(specifier))
    , _slider(std::make_shared<UISlider>())
    , _valueLabel(std::make_shared<UILabel>())
{
    _slider->addTargetActionForControlEvents(this, "_sliderMoved", UIControlEventValueChanged);
    _slider->addTargetActionForControlEvents(this, "_sliderReleased",
        UIControlEventTouchUpInside | UIControlEventTouchUpOutside | UIControlEventTouchCancel);
    _valueLabel->setTextColor(style::valueText());
    contentView().addSubview(_slider);
    contentView().addSubview(_valueLabel);
}

UIView* PSSliderTableCell::control() const
{
    return _slider.get();
}

void PSSliderTableCell::refreshCellContentsWithSpecifier(PSSpecifier& specifier)
{
    PSTableCell::refreshCellContentsWithSpecifier(specifier);
    _slider->setEnabled(specifier.isEnabled());
    if (_slider->isTracking())
        return; // The finger has the last word.
    _slider->setMinimumValue(number(specifier, "min", 0));
    _slider->setMaximumValue(number(specifier, "max", 1));
    const auto value = specifier.performGetter();
    _slider->setValue(value ? value->floatValue() : _slider->minimumValue());
    _storedValue = _slider->value();
    showValue();
}

void PSSliderTableCell::showValue()
{
    const auto& row = specifier();
    const bool shown = row && flag(*row, "showValue");
    _valueLabel->setText(shown ? textOfPropertyValue(double { _slider->value() }) : std::string());
    setNeedsLayout();
}

void PSSliderTableCell::layoutSubviews()
{
    UITableViewCell::layoutSubviews();
    auto room = layoutEnds();
    if (!_valueLabel->text().empty()) {
        // As wide as the widest value, so that the track does not change its length under the finger.
        const auto widthOf = [&](float value) {
            UILabel measure;
            measure.setText(textOfPropertyValue(std::floor(double { value }) + 0.88));
            return measure.sizeThatFits(bounds().size()).width;
        };
        const CGFloat width = std::max(widthOf(_slider->minimumValue()), widthOf(_slider->maximumValue()));
        place(*_valueLabel, room.end - width, width);
        const bool mirrored = Device::current().rightToLeft;
        _valueLabel->setTextAlignment(mirrored ? NSTextAlignment::Left : NSTextAlignment::Right);
        room.end -= width + style::margin;
    }
    layoutControlBesideTitle(*_slider, room, longestTitleBesideSlider, sliderHeight);
}

void PSSliderTableCell::_sliderMoved()
{
    showValue();
}

void PSSliderTableCell::_sliderReleased()
{
    const auto row = specifier();
    if (!row)
        return;
    const float least = _slider->minimumValue();
    const float range = _slider->maximumValue() - least;
    const float steps = number(*row, "segmentCount", 0);
    if (flag(*row, "isSegmented") && steps >= 1 && range > 0)
        _slider->setValue(least + std::round((_slider->value() - least) / range * steps) / steps * range);
    showValue();
    if (_slider->value() == _storedValue)
        return;
    _storedValue = _slider->value();
    row->performSetterWithValue(double { _storedValue });
}

PSSegmentTableCell::PSSegmentTableCell(long style, std::string reuseIdentifier, Ref<PSSpecifier> specifier)
    : PSTableCell(style, std::move(reuseIdentifier), std::move(specifier))
{
    makeControl({});
}

UIView* PSSegmentTableCell::control() const
{
    return _segments.get();
}

void PSSegmentTableCell::makeControl(const std::vector<std::string>& titles)
{
    if (_segments)
        _segments->removeFromSuperview();
    _titles = titles;
    _segments = std::make_shared<UISegmentedControl>(titles);
    _segments->addTargetActionForControlEvents(this, "_segmentChanged", UIControlEventValueChanged);
    contentView().addSubview(_segments);
}

void PSSegmentTableCell::refreshCellContentsWithSpecifier(PSSpecifier& specifier)
{
    PSTableCell::refreshCellContentsWithSpecifier(specifier);
    if (specifier.titles() != _titles)
        makeControl(specifier.titles());
    const auto value = specifier.performGetter();
    const auto& values = specifier.values();
    const auto found = std::find_if(
        values.begin(), values.end(), [&](const auto& choice) { return value && choice.isEqual(*value); });
    _segments->setSelectedSegmentIndex(found == values.end() ? -1 : found - values.begin());
    _segments->setEnabled(specifier.isEnabled());
}

void PSSegmentTableCell::layoutSubviews()
{
    UITableViewCell::layoutSubviews();
    layoutControlBesideTitle(*_segments, layoutEnds(), longestTitleBesideSlider, segmentsHeight);
}

void PSSegmentTableCell::_segmentChanged()
{
    const auto row = specifier();
    const auto index = static_cast<std::size_t>(_segments->selectedSegmentIndex());
    if (row && index < row->values().size())
        row->performSetterWithValue(PropertyValue(row->values()[index]));
}

PSEditableTableCell::PSEditableTableCell(long style, std::string reuseIdentifier, Ref<PSSpecifier> specifier)
    : PSTableCell(style, std::move(reuseIdentifier), std::move(specifier))
    , _field(std::make_shared<UITextField>())
{
    setSelectionStyle(UITableViewCellSelectionStyle::None);
    _field->addTargetActionForControlEvents(this, "_editingBegan", UIControlEventEditingDidBegin);
    _field->addTargetActionForControlEvents(this, "_editingChanged", UIControlEventEditingChanged);
    _field->addTargetActionForControlEvents(this, "_editingEnded", UIControlEventEditingDidEnd);
    contentView().addSubview(_field);
}

UIView* PSEditableTableCell::control() const
{
    return _field.get();
}

void PSEditableTableCell::cellWasTapped()
{
    _field->becomeFirstResponder();
}

void PSEditableTableCell::refreshCellContentsWithSpecifier(PSSpecifier& specifier)
{
    PSTableCell::refreshCellContentsWithSpecifier(specifier);
    _field->setTextColor(textColor(specifier));
    _field->setEnabled(specifier.isEnabled());
    _field->setSecureTextEntry(specifier.cellType() == PSCellType::SecureEditText);
    if (flag(specifier, "isNumeric"))
        _field->setKeyboardType(UIKeyboardType::NumbersAndPunctuation);
    const auto* placeholder = specifier.propertyForKey("placeholder");
    const auto* text = placeholder ? placeholder->string() : nullptr;
    if (const auto* row = dynamic_cast<const PSTextFieldSpecifier*>(&specifier);
        row && !row->placeholder().empty())
        text = &row->placeholder();
    _field->setPlaceholder(text ? *text : std::string());
    if (_field->isFirstResponder())
        return; // What is being typed is not taken away.
    const auto value = specifier.performGetter();
    _field->setText(value ? textOfPropertyValue(*value) : std::string());
}

void PSEditableTableCell::layoutSubviews()
{
    UITableViewCell::layoutSubviews();
    layoutControlBesideTitle(*_field, layoutEnds(), longestTitleBesideField, bounds().height);
    _field->setTextAlignment(Device::current().rightToLeft ? NSTextAlignment::Right : NSTextAlignment::Left);
}

void PSEditableTableCell::_editingBegan()
{
    _textBefore = _field->text();
    _edited = false;
}

void PSEditableTableCell::_editingChanged()
{
    _edited = true;
}

void PSEditableTableCell::_editingEnded()
{
    const bool edited = std::exchange(_edited, false) || _field->text() != _textBefore;
    const auto row = specifier();
    if (row && edited)
        row->performSetterWithValue(_field->text());
}

}
