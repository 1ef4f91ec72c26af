#include "Screen.h"

#include "ElementTree.h"
#include "platform/UIAlertView.h"

namespace host {

using namespace platform;

Screen::Screen(Phone& phone)
    : _phone(phone)
    , _actions(phone.window(), [this] {
        _phone.settle();
        invalidate();
    })
{
}

const Element& Screen::root()
{
    if (!_root) {
        _phone.settle();
        _root = readScreen(_phone.window(), _phone.navigation());
    }
    return *_root;
}

const ElementIndex::Place* Screen::place(const ElementId& id)
{
    const auto& all = root();
    if (!_index)
        _index.emplace(all);
    return _index->find(id);
}

const Element* Screen::find(const ElementId& id)
{
    const auto* const found = place(id);
    return found ? found->element : nullptr;
}

NSObject* Screen::context()
{
    if (auto* const alert = UIAlertView::topmost(); alert && alert->window() == &_phone.window())
        return alert;
    return _phone.navigation().topViewController();
}

}
