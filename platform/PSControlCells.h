#pragma once

#include "PSTableCell.h"

#include <optional>

namespace platform {

class UISegmentedControl;
class UISlider;

/// A title and a switch.
class PSSwitchTableCell final : public PSTableCell {
public:
    PSSwitchTableCell(long style, std::string reuseIdentifier, Ref<PSSpecifier>);

    void refreshCellContentsWithSpecifier(PSSpecifier&) override;
    UIView* control() const override;

    // Internal: the switch's action.
    void _switchChanged();

private:
    Ref<UISwitch> _switch;
};

/// A slider from "min" to "max" (0 to 1 without them), beside a title where there is one. "showValue" shows
/// the value too; "isSegmented" with "segmentCount" lets the thumb come to rest on that many even steps only.
class PSSliderTableCell final : public PSTableCell {
public:
    PSSliderTableCell(long style, std::string reuseIdentifier, Ref<PSSpecifier>);

    void refreshCellContentsWithSpecifier(PSSpecifier&) override;
    UIView* control() const override;
    void layoutSubviews() override;

    // Internal: the slider's actions.
    void _sliderMoved();
    void _sliderReleased();

private:
    void showValue();

    Ref<UISlider> _slider;
    Ref<UILabel> _valueLabel;
    float _storedValue = 0;
};

/// The row's choices side by side.
class PSSegmentTableCell final : public PSTableCell {
public:
    PSSegmentTableCell(long style, std::string reuseIdentifier, Ref<PSSpecifier>);

    void refreshCellContentsWithSpecifier(PSSpecifier&) override;
    UIView* control() const override;
    void layoutSubviews() override;

    // Internal: the control's action.
    void _segmentChanged();

private:
    void makeControl(const std::vector<std::string>& titles);

    Ref<UISegmentedControl> _segments;
    std::vector<std::string> _titles;
};

/// A title and a text field. The text goes to the row's setter when the editing ends, once, if anything was
/// edited.
class PSEditableTableCell final : public PSTableCell {
public:
    PSEditableTableCell(long style, std::string reuseIdentifier, Ref<PSSpecifier>);

    void refreshCellContentsWithSpecifier(PSSpecifier&) override;
    UIView* control() const override;
    void cellWasTapped() override;
    void layoutSubviews() override;

    // Internal: the field's actions.
    void _editingBegan();
    void _editingChanged();
    void _editingEnded();

private:
    Ref<UITextField> _field;
    std::string _textBefore; ///< When the editing began.
    bool _edited = false;
};

}
