#pragma once

#include <QString>

namespace host {

/// A text as a tool tip that shows just that text, whatever is in it: marks of rich text as they stand, what
/// is longer than a line of the screen in several, and of what is longer than any screen the beginning.
QString toolTipFor(const QString& text);

}
