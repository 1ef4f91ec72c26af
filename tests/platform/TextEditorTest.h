#pragma once

#include "ControlTestSupport.h"
#include "platform/qt/TextEditor.h"

#include <QInputMethodEvent>
#include <QKeyEvent>

namespace platform::tests {

/// A field that has the keys of its window.
class TextEditorTest : public ControlTest {
protected:
    Ref<UITextField> field = add(std::make_shared<UITextField>(), { 20, 20, 200, 30 });
    UITextField::Editor& editor = field->editor();

    TextEditorTest()
    {
        log->listenTo(*field);
        field->becomeFirstResponder();
        log->actions.clear();
    }

    bool press(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier, const QString& text = {})
    {
        QKeyEvent event(QEvent::KeyPress, key, modifiers, text);
        return sendKeyToWindow(*window, event);
    }
    bool press(const char* text) { return press(0, Qt::NoModifier, QString::fromUtf8(text)); }
    bool commit(const char* text)
    {
        QInputMethodEvent event;
        event.setCommitString(QString::fromUtf8(text));
        return editor.inputMethod(event);
    }
    void compose(const char* text)
    {
        QInputMethodEvent event(QString::fromUtf8(text), {});
        editor.inputMethod(event);
    }
    CGFloat caretX() const { return 20 + editor.caretRect().midX(); }
};

}
