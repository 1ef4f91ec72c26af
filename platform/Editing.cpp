#include "Editing.h"

#include "UITextField.h"
#include "UIWindow.h"

namespace platform {

void endEditingInView(const UIView& view)
{
    auto* window = view.window();
    auto* field = window ? window->firstResponder() : nullptr;
    if (!field || !field->isDescendantOfView(view))
        return;
    const auto keep = field->weak_from_this().lock();
    field->resignFirstResponder();
}

}
