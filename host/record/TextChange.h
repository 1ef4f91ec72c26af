#pragma once

#include "platform/UITextField.h"

#include <QString>

#include <algorithm>
#include <optional>
#include <string>

namespace host {

/// What a field that is being edited shows, and where one is in it.
struct FieldState {
    QString text;
    int anchor = 0; ///< UTF-16 units; where the selection began.
    int caret = 0;
    QString composition {}; ///< What an input method has not handed over yet.
    int compositionCaret = 0; ///< In that.

    /// Empty for a field that nobody edits.
    static FieldState of(platform::UITextField&);
    int selectionStart() const { return std::min(anchor, caret); }
    int selectionEnd() const { return std::max(anchor, caret); }
    bool hasSelection() const { return anchor != caret; }
    bool operator==(const FieldState&) const = default;
};

/// The command that takes the field from one state to the other, with everything that it tells its targets on
/// the way.
struct TextCommand {
    std::string line; ///< With its end; empty when nothing changed.
    std::string typed; ///< What the line types, when it does that.
};
TextCommand commandFor(const FieldState& before, const FieldState& after, platform::UIKeyboardType);

}
