#pragma once

#include "Screen.h"

#include <QString>

namespace host {

/// The text of a text field's element as somebody reads and edits it who does not type. Positions count
/// UTF-16 units; those out of range are pinned. An element of another role, or one whose view has gone, has
/// no text.

struct TextSelection {
    int begin = 0;
    int end = 0;
};

int caretOf(const Element&); ///< Behind the text while nobody edits it.
TextSelection selectionOf(const Element&); ///< Empty without one.
/// While it is edited, alone.
bool selectText(const Element&, TextSelection);

/// Puts a text in the place of what lies there, and tells the field's page as typing does. While nobody edits
/// the field it is one whole edit, which also stores the text; a field in an alert stays open. False when the
/// field is disabled, or cannot be reached.
bool replaceText(Screen&, const Element&, TextSelection, const QString&);

}
