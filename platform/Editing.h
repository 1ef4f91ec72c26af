#pragma once

namespace platform {

class UIView;

/// `endEditing:`: the text field in this view that is being edited, if there is one, ends its editing, which
/// stores its value.
void endEditingInView(const UIView&);

}
