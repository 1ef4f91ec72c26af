#pragma once

#include "UIControl.h"
#include "UILabel.h"

namespace platform {

enum class UIButtonType { Custom = 0, RoundedRect = 1 };
enum class UIControlState { Normal = 0 };

/// A button: nothing but its tinted title, if it has one. Without a title it draws nothing, yet takes
/// touches.
class UIButton : public UIControl {
public:
    explicit UIButton(UIButtonType = UIButtonType::Custom);
    static Ref<UIButton> buttonWithType(UIButtonType);

    void setTitleForState(const std::string&, UIControlState);
    std::string currentTitle() const;
    UILabel& titleLabel();
    void setEnabled(bool) override;
    void layoutSubviews() override;

protected:
    void highlightedDidChange() override;

private:
    Ref<UILabel> _titleLabel;
};

}
