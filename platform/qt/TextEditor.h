#pragma once

#include "platform/Bitmap.h"
#include "platform/UITextField.h"

#include <QLineEdit>
#include <QString>
#include <QTextLayout>
#include <QVariant>

#include <functional>
#include <memory>
#include <string>
#include <string_view>

class QInputMethodEvent;
class QKeyEvent;

namespace platform {

class UIWindow;

/// For a host: a key goes to the foremost alert when it answers it (Return presses its default button, Escape
/// its cancel button), else to the window's first responder. True when it was of use to somebody.
bool sendKeyToWindow(UIWindow&, QKeyEvent&);

/// What edits a field's text: a line edit that is never shown, which exists while the field is the first
/// responder. It needs a QApplication. Everything here that types or pastes sends editing-changed when the
/// text changed, and does nothing while the field is not the first responder.
struct UITextField::Editor {
    explicit Editor(UITextField&);

    /// For the host and the script driver. Each is true when it was of use.

    /// Types characters one by one. When the keyboard lacks one of them, or the bytes are no UTF-8, none is
    /// typed.
    bool typeText(std::string_view utf8);
    bool typeCharacter(char32_t);
    /// Characters as the keyboard has them, and whatever a line edit does with keys: moving, selecting,
    /// deleting, undo, clipboard. Return and Enter end the editing, or answer the alert that the field is in.
    /// The number pad has no such key, so there they count in alerts only.
    bool keyPress(QKeyEvent&);
    /// The same by name: "Return", "Escape", "Backspace" or "Tab". An unknown name is of no use.
    bool key(std::string_view name);
    /// What is committed counts as typed: all of it, or none when the keyboard lacks a character.
    bool inputMethod(QInputMethodEvent&);
    /// Rectangles are in the field's points.
    QVariant inputMethodQuery(Qt::InputMethodQuery) const;
    /// Replaces the selection by any text, whatever the keyboard. Line breaks and other control characters
    /// become blanks; what would make the text longer than `maximumLength` is cut off.
    bool paste(const std::string& utf8);
    bool pasteFromClipboard();
    bool clear();
    /// Selects what lies between two places, counted in UTF-16 units, and puts the caret at the second;
    /// places beyond the text count as its ends.
    bool select(int anchor, int caret);
    /// Sets text and selection in one step, as an undo does. Line breaks become blanks, and what is too long
    /// is cut off.
    bool replace(const std::string& utf8, int anchor, int caret);
    /// Whether a press there and then is the second of a double one.
    bool continuesPress(CGFloat x, double timestamp) const;
    /// As if there had been a press there and then.
    void rememberPress(CGFloat x, double timestamp);
    bool isEditing() const { return lineEdit != nullptr; }
    /// What an input method has not committed yet, shown at the caret, and where in it its own caret is.
    const QString& composition() const { return _composition; }
    int compositionCaret() const { return _composition.isEmpty() ? 0 : _compositionCaret; }

    /// UTF-16 units. Text that is set from the program may be longer while nobody edits it.
    static constexpr int maximumLength = 100000;

    // For the field.
    void begin();
    bool end(); ///< False when it had ended.
    QString text() const { return lineEdit ? lineEdit->text() : idleText; }
    void setText(const QString&);
    void setKeyboardType(UIKeyboardType);
    void setSecure(bool);

    // Touches, in points of the field and seconds (0 when nobody times them).
    enum class Press { BeginsEditing, PlacesCaret };
    void pressAt(CGFloat x, double timestamp, Press);
    void dragTo(CGFloat x);

    // TextEditorDrawing.cpp.
    void draw(Bitmap&, double scale) const;
    CGRect caretRect() const;

    UITextField& field;
    QString idleText; ///< The text while nobody edits it.
    std::unique_ptr<QLineEdit> lineEdit;
    std::string placeholder;
    UIFont font;
    UIColor textColor = UIColor::blackColor();
    NSTextAlignment alignment = NSTextAlignment::Left;
    UIKeyboardType keyboard = UIKeyboardType::Default;
    bool secure = false;

private:
    bool edit(const std::function<void()>& change);
    static QString oneLine(QString); ///< Each line break or other control character becomes a blank.
    bool returnKey();
    void configure();
    void commitComposition();
    void selectWordAt(int index);
    void selectBetween(int anchor, int caret);
    void caretMoved(); ///< Scrolls it into sight, and has the field painted.

    struct Line;
    std::unique_ptr<Line> layOut(double scale) const;
    int indexAt(CGFloat x) const;
    QString shownText() const;

    QString _composition;
    int _compositionCaret = 0;
    CGFloat _offset = 0; ///< How far a text longer than the field is scrolled.
    int _anchor = 0; ///< Where a selection by dragging began.
    CGFloat _pressX = 0;
    double _pressTime = 0;
    bool _dragging = false;
};

}
