#pragma once

#include "ReadOut.h"

#include "platform/UIAlertView.h"
#include "platform/UIButton.h"
#include "platform/UIEvent.h"
#include "platform/UIImageView.h"
#include "platform/UILabel.h"

#include <functional>
#include <optional>

namespace vekora {

using ColorBlock = std::function<void(const platform::UIColor&)>;

/// What does not depend on the kind of a picker: the colour it shows and the one it has committed, its
/// blocks, its three read-outs and the dialogs behind them.
///
/// A block may do anything to the picker, even let go of it: an owned picker lives until the call returns.
class ColorPickerBase : public platform::UIView, public platform::UIAlertViewDelegate {
protected:
    // The layer's names that this class and the kinds use.
    template <typename T> using Ref = platform::Ref<T>;
    using CGFloat = platform::CGFloat;
    using CGPoint = platform::CGPoint;
    using CGRect = platform::CGRect;
    using NSObject = platform::NSObject;
    using UIAlertView = platform::UIAlertView;
    using UIButton = platform::UIButton;
    using UIColor = platform::UIColor;
    using UIEvent = platform::UIEvent;
    using UIImageView = platform::UIImageView;
    using UILabel = platform::UILabel;
    using UIView = platform::UIView;

public:
    ~ColorPickerBase() override;

    /// Shows a colour without committing it: `color` stays as it was, and no block is called. A nil colour
    /// leaves the components alone and empties the cross-hair.
    virtual void setColor(const std::optional<UIColor>&) = 0;

    void askUserForHue() { askUserFor(Component::Hue); }
    void askUserForSaturation() { askUserFor(Component::Saturation); }
    void askUserForBrightness() { askUserFor(Component::Brightness); }
    void alertViewClickedButtonAtIndex(UIAlertView&, long buttonIndex) override;

    /// Called with each newly committed colour, while `color` is still the one before. May be empty.
    const ColorBlock& colorsHaveChangedBlock() const { return _colorsHaveChangedBlock; }
    void setColorsHaveChangedBlock(ColorBlock block) { _colorsHaveChangedBlock = std::move(block); }
    /// Called with the committed colour (black as long as there is none) when an edit is finished, whether
    /// it changed the colour or not. May be empty.
    const ColorBlock& saveChangesBlock() const { return _saveChangesBlock; }
    void setSaveChangesBlock(ColorBlock block) { _saveChangesBlock = std::move(block); }

    /// The last committed colour.
    const std::optional<UIColor>& color() const { return _color; }

    /// Views are never null. One that is set takes over the role only: its place among the subviews is the
    /// caller's business.
    const Ref<UIView>& crossHairs() const { return _crossHairs; }
    void setCrossHairs(Ref<UIView> view) { _crossHairs = std::move(view); }
    const Ref<UILabel>& currentHueLabel() const { return _currentHueLabel; }
    void setCurrentHueLabel(Ref<UILabel> label) { _currentHueLabel = std::move(label); }
    const Ref<UILabel>& currentSaturationLabel() const { return _currentSaturationLabel; }
    void setCurrentSaturationLabel(Ref<UILabel> label) { _currentSaturationLabel = std::move(label); }
    const Ref<UILabel>& currentBrightnessLabel() const { return _currentBrightnessLabel; }
    void setCurrentBrightnessLabel(Ref<UILabel> label) { _currentBrightnessLabel = std::move(label); }

    // Internal: for the class itself and its tests.
    /// Commits a colour: when it is not equal to `color`, tells the block and then keeps it.
    void _setColor(const UIColor&);

    /// The components of the colour shown, which only an outside `setColor` takes apart from `color`.
    CGFloat currentHue = 0;
    CGFloat currentSaturation = 0;
    CGFloat currentBrightness = 0;
    /// Of one line of text; the layout follows from it.
    CGFloat labelHeight = 0;

protected:
    /// The first steps of construction; the views are the derived class's to make.
    ColorPickerBase(CGRect frame, const std::optional<UIColor>& color, ColorBlock colorsHaveChanged,
        ColorBlock saveChanges);

    CGFloat& valueOf(Component);
    Ref<UILabel>& labelOf(Component);
    void showReadOut(const ReadOut&);
    UIColor shownColor() const; ///< Opaque.
    void commitShownColor(); ///< And fills the cross-hair with it.
    void save();

    /// For the length of a call from which a block may be reached. Null in the constructor and on the stack.
    Ref<NSObject> keptAlive() { return weak_from_this().lock(); }

private:
    /// Where what belongs to a component is kept.
    struct Place {
        CGFloat ColorPickerBase::*value;
        Ref<UILabel> ColorPickerBase::*label;
    };
    static const Place& placeOf(Component);

    void askUserFor(Component);

    ColorBlock _colorsHaveChangedBlock;
    ColorBlock _saveChangesBlock;
    std::optional<UIColor> _color;
    Ref<UIView> _crossHairs;
    Ref<UILabel> _currentHueLabel;
    Ref<UILabel> _currentSaturationLabel;
    Ref<UILabel> _currentBrightnessLabel;
};

}
