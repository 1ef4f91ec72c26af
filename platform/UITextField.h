#pragma once

#include "UIControl.h"
#include "UILabel.h"

#include <string>

namespace platform {

enum class UIKeyboardType {
    Default = 0,
    ASCIICapable = 1,
    NumbersAndPunctuation = 2,
    URL = 3,
    NumberPad = 4,
    PhonePad = 5,
    DecimalPad = 8,
};

/// True when the keyboard has a key for this character.
bool keyboardHasCharacter(UIKeyboardType, char32_t);

/// A line of text that can be edited, with selection, clipboard and input methods. The keyboard limits the
/// keys that can be typed, never what is pasted or set.
class UITextField : public UIControl {
public:
    UITextField();
    explicit UITextField(CGRect frame);
    ~UITextField() override;

    std::string text() const; ///< UTF-8; empty when there is none.
    void setText(const std::string&);
    const std::string& placeholder() const;
    void setPlaceholder(std::string);
    UIKeyboardType keyboardType() const;
    void setKeyboardType(UIKeyboardType);
    bool isSecureTextEntry() const;
    void setSecureTextEntry(bool);
    void setFont(UIFont);
    void setTextColor(UIColor);
    UIColor textColor() const;
    void setTextAlignment(NSTextAlignment);
    NSTextAlignment textAlignment() const;

    /// The first responder takes the keys of its window. There is one at most.
    void becomeFirstResponder();
    void resignFirstResponder(); ///< Ends the editing: sends editing-did-end.
    bool isFirstResponder() const;

    void setEnabled(bool) override;
    void drawRect(CGRect) override;
    void didMoveToWindow() override;
    void touchesBeganWithEvent(UIEvent&) override;
    void touchesMovedWithEvent(UIEvent&) override;

    /// The desktop's editor behind the field, for the host that hands it keys; see qt/TextEditor.h.
    struct Editor;
    Editor& editor() { return *_editor; }

private:
    std::unique_ptr<Editor> _editor;
};

}
