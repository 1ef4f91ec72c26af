#include "ViewFacts.h"

#include "driver/ViewSearch.h"
#include "platform/UIButton.h"
#include "platform/UILabel.h"
#include "platform/UISegmentedControl.h"
#include "platform/UISlider.h"
#include "platform/UISwitch.h"
#include "platform/UITextField.h"

namespace host {

using namespace platform;

namespace {

void tell(ViewFacts& facts, const UILabel& label)
{
    facts.textColor = label.textColor().cgColor();
    facts.alignment = static_cast<int>(label.textAlignment());
    facts.lines = label.numberOfLines();
}

void tell(ViewFacts& facts, const UITextField& field)
{
    facts.textColor = field.textColor().cgColor();
    facts.alignment = static_cast<int>(field.textAlignment());
}

void tell(ViewFacts& facts, const UISlider& slider)
{
    facts.value = static_cast<double>(slider.value());
    facts.minimum = static_cast<double>(slider.minimumValue());
    facts.maximum = static_cast<double>(slider.maximumValue());
}

void tell(ViewFacts& facts, UIButton& button)
{
    facts.textColor = button.titleLabel().textColor().cgColor();
}

void tell(ViewFacts& facts, const UISwitch& toggle)
{
    facts.isOn = toggle.isOn();
}

void tell(ViewFacts& facts, const UISegmentedControl& segments)
{
    facts.value = static_cast<double>(segments.selectedSegmentIndex());
}

/// True when it was one.
template <typename View> bool tellAs(ViewFacts& facts, UIView& view)
{
    auto* const special = dynamic_cast<View*>(&view);
    if (special)
        tell(facts, *special);
    return special;
}

}

ViewFacts ViewFacts::of(UIView& view)
{
    const auto& layer = view.layer();
    ViewFacts facts {
        .className = view.className(),
        .frame = view.frame(),
        .onScreen = rectInWindow(view),
        .isHidden = view.isHidden(),
        .alpha = view.alpha(),
        .mask = view.autoresizingMask(),
        .tag = view.tag(),
        .background = layer.backgroundColor(),
        .cornerRadius = layer.cornerRadius(),
        .borderWidth = layer.borderWidth(),
        .masksToBounds = layer.masksToBounds(),
        .text = shownText(view),
    };
    if (layer.borderWidth() > 0)
        facts.borderColor = layer.borderColor();
    if (tellAs<UILabel>(facts, view))
        return facts;
    const auto* const control = dynamic_cast<UIControl*>(&view);
    if (!control)
        return facts;
    facts.isEnabled = control->isEnabled();
    static_cast<void>(tellAs<UIButton>(facts, view) || tellAs<UITextField>(facts, view)
        || tellAs<UISlider>(facts, view) || tellAs<UISwitch>(facts, view)
        || tellAs<UISegmentedControl>(facts, view));
    return facts;
}

}
