#pragma once

#include "UITextField.h"
#include "UIView.h"

#include <string>
#include <vector>

namespace platform {

class UIAlertView;

class UIAlertViewDelegate {
public:
    virtual ~UIAlertViewDelegate() = default;
    /// Called before the alert goes away, while its field can still be read.
    virtual void alertViewClickedButtonAtIndex(UIAlertView&, long buttonIndex) = 0;
};

enum class UIAlertViewStyle { Default = 0, SecureTextInput = 1, PlainTextInput = 2 };

/// A question above a dimmed page: the view covers the whole key window, and in it lies a box. Lives, once
/// shown, until one of its buttons is tapped; an alert shown meanwhile takes its place, and it returns
/// afterwards.
class UIAlertView final : public UIView {
public:
    struct Settings {
        std::optional<std::string> title = std::nullopt;
        std::string message = {};
        UIAlertViewDelegate* delegate = nullptr; ///< Not kept alive: its owner calls `delegateIsGone`.
        std::optional<std::string> cancelButtonTitle = std::nullopt; ///< Index 0 when there is one.
        std::vector<std::string> otherButtonTitles = {};
    };

    /// Alerts are held by name, as they outlive the call that shows them.
    static Ref<UIAlertView> make(Settings);
    explicit UIAlertView(Settings);
    ~UIAlertView() override;

    UIAlertViewStyle alertViewStyle() const;
    void setAlertViewStyle(UIAlertViewStyle);
    /// Null when the style has no such field. A field exists as soon as the style is set.
    UITextField* textFieldAtIndex(long);

    const std::optional<std::string>& title() const;
    const std::string& message() const;
    long numberOfButtons() const;
    std::string buttonTitleAtIndex(long) const; ///< Empty beyond the last.

    /// Ends the editing of whatever field has the keys; an alert with a field takes them for it. Does nothing
    /// without a key window.
    void show();
    bool isVisible() const; ///< Shown and not answered, even while another covers it.

    /// The one that can be answered in the key window; null when none is shown.
    static UIAlertView* topmost();
    /// As a tap on the last button, which stands out. Nothing happens without buttons.
    void pressDefaultButton();
    /// As a tap on the button of index 0.
    void pressCancelButton();

    /// Forgets the delegate in every alert: for a delegate's destructor.
    static void delegateIsGone(const UIAlertViewDelegate*);

    void layoutSubviews() override;

    // Internal: the action of its buttons.
    void _buttonTapped(UIView* button);

private:
    struct AlertImpl;
    AlertImpl& alert() const;
    void press(long buttonIndex);
    void takeKeys();
};

}
