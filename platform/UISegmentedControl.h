#pragma once

#include "UIControl.h"
#include "UILabel.h"

namespace platform {

/// A few choices side by side; a tap on another one selects it and sends value-changed.
class UISegmentedControl final : public UIControl {
public:
    explicit UISegmentedControl(std::vector<std::string> titles);

    long selectedSegmentIndex() const { return _selected; } ///< −1 for none.
    void setSelectedSegmentIndex(long); ///< Sends no event; out of range selects none.
    long numberOfSegments() const { return static_cast<long>(_labels.size()); }
    void setEnabled(bool) override;
    CGSize sizeThatFits(CGSize) const override; ///< As wide as its titles need, 29 points high.
    void layoutSubviews() override;

protected:
    void endTrackingWithTouch(UITouch&, UIEvent&) override;

private:
    long _selected = -1;
    std::vector<Ref<UILabel>> _labels;
    std::vector<Ref<UIView>> _separators;
    Ref<UIView> _selection;
};

}
