#include "Actor.h"

#include "host/driver/TapTarget.h"
#include "host/driver/ViewSearch.h"
#include "platform/PSControlCells.h"
#include "platform/PSListController.h"
#include "platform/UIAlertView.h"
#include "platform/UIButton.h"
#include "platform/UIImageView.h"
#include "platform/UISegmentedControl.h"
#include "platform/UISwitch.h"
#include "platform/UITextField.h"
#include "ScriptText.h"

#include <array>
#include <typeindex>

namespace host {

using namespace platform;

namespace {

using Kind = Actor::Kind;

constexpr std::size_t longestName = 500; // Bytes; nobody reads a longer one in a script.

/// What hands every touch to its superview. A pane's own subclasses may do anything.
bool isInert(const UIView& view)
{
    static const std::array inert { std::type_index(typeid(UIView)), std::type_index(typeid(UILabel)),
        std::type_index(typeid(UIImageView)), std::type_index(typeid(UITableViewCell)),
        std::type_index(typeid(PSTableCell)), std::type_index(typeid(PSSwitchTableCell)),
        std::type_index(typeid(PSSliderTableCell)), std::type_index(typeid(PSSegmentTableCell)),
        std::type_index(typeid(PSEditableTableCell)) };
    return std::find(inert.begin(), inert.end(), std::type_index(typeid(view))) != inert.end();
}

bool isButtonOfAlert(const UIView& view)
{
    auto* alert = UIAlertView::topmost();
    return alert && typeid(*alert) == typeid(UIAlertView) && view.isDescendantOfView(*alert)
        && dynamic_cast<const UIButton*>(&view);
}

Kind kindOf(const UIView& control)
{
    static const std::array kinds {
        std::pair(std::type_index(typeid(UIButton)), Kind::Button),
        std::pair(std::type_index(typeid(UISwitch)), Kind::Switch),
        std::pair(std::type_index(typeid(UISegmentedControl)), Kind::Segment),
        std::pair(std::type_index(typeid(UITextField)), Kind::Field),
    };
    for (const auto& [type, kind] : kinds) {
        if (type == std::type_index(typeid(control)))
            return kind;
    }
    return isButtonOfAlert(control) ? Kind::Button : Kind::None;
}

std::string tapOn(const std::string& text)
{
    return "tap " + scriptWord(text) + '\n';
}

/// Finds a name by trying what the driver would make of each.
class Namer {
public:
    Namer(Phone& phone, const Actor& actor)
        : _phone(phone)
        , _actor(actor)
    {
    }

    std::string name()
    {
        if (auto name = ofWayBack(); !name.empty())
            return name;
        if (auto name = ofAlertButton(); !name.empty())
            return name;
        auto* const cell = rowsCell();
        if (cell && leadsHere(cell->textLabel().text()))
            return tapOn(cell->textLabel().text());
        if (_actor.kind == Kind::Button || _actor.kind == Kind::Segment) {
            if (const auto text = shownText(*_actor.view); text && leadsHere(*text))
                return tapOn(*text);
        }
        if (const auto text = anyTextHere(_phone.window()))
            return tapOn(*text);
        return cell ? ofRow(*cell) : std::string();
    }

private:
    bool isHere(std::optional<CGPoint> place) const
    {
        return place && Actor::at(_phone.window(), *place) == _actor;
    }

    bool leadsHere(const std::string& text) const
    {
        return text.size() <= longestName && fitsInScript(text)
            && isHere(unscrolledPlaceOfText(_phone.window(), text));
    }

    std::string ofWayBack() const
    {
        auto& navigation = _phone.navigation();
        auto& button = navigation.backButton();
        return _actor.view == &button && navigation.viewControllers().size() > 1
                && isHere(unscrolledPlaceOf(_phone.window(), button))
            ? "back\n"
            : "";
    }

    std::string ofAlertButton() const
    {
        auto* const alert = UIAlertView::topmost();
        const auto* const button = dynamic_cast<UIButton*>(_actor.view);
        if (!alert || !button || button->currentTitle().size() > longestName
            || !fitsInScript(button->currentTitle()))
            return {};
        const auto* const found = buttonTitled(*alert, button->currentTitle());
        return found == button && isHere(middleInWindow(*button))
            ? "answer " + scriptWord(button->currentTitle()) + '\n'
            : "";
    }

    PSTableCell* rowsCell() const
    {
        if (_actor.kind != Kind::Row)
            return cellAround(_actor.view);
        const auto* const table = static_cast<UITableView*>(_actor.view);
        return dynamic_cast<PSTableCell*>(table->cellForRowAtIndexPath(*_actor.row));
    }

    std::string ofRow(PSTableCell& cell) const
    {
        auto* const page = dynamic_cast<PSListController*>(_phone.navigation().topViewController());
        const auto path = page ? page->table().indexPathForCell(&cell) : std::nullopt;
        if (!path || !page->specifierAtIndexPath(*path) || !isShownAlready(cell)
            || !isHere(unscrolledPlaceOf(_phone.window(), meantBy(cell))))
            return {};
        return "row " + std::to_string(path->section) + ' ' + std::to_string(path->row) + '\n';
    }

    /// A text below a clear button, say, or another label of the row.
    std::optional<std::string> anyTextHere(UIView& view) const
    {
        if (view.isHidden())
            return std::nullopt;
        const auto* const field = dynamic_cast<UITextField*>(&view);
        const auto text = field && field->isSecureTextEntry() ? std::nullopt : shownText(view);
        if (text && !text->empty() && isHere(middleInWindow(view)) && leadsHere(*text))
            return text;
        for (const auto& child : view.subviews()) {
            if (auto found = anyTextHere(*child))
                return found;
        }
        return std::nullopt;
    }

    Phone& _phone;
    const Actor& _actor;
};

}

Actor Actor::at(UIWindow& window, CGPoint point)
{
    auto* const hit = window.hitTestWithEvent(point, nullptr);
    for (auto* view = hit; view; view = view->superview()) {
        if (dynamic_cast<UIControl*>(view)) {
            const auto kind = host::kindOf(*view);
            if (kind == Kind::Segment && hit == view)
                return {};
            return { kind, kind == Kind::Segment ? hit : view, std::nullopt };
        }
        if (auto* table = dynamic_cast<UITableView*>(view)) {
            const auto row = table->indexPathForRowAtPoint(table->convertPointFromView(point, nullptr));
            return row && typeid(*table) == typeid(UITableView) ? Actor { Kind::Row, table, row } : Actor {};
        }
        if (!isInert(*view))
            return {};
    }
    return {};
}

std::string nameOf(Phone& phone, const Actor& actor)
{
    return actor ? Namer(phone, actor).name() : std::string();
}

UIScrollView* pannedBy(UIView* view)
{
    for (; view; view = view->superview()) {
        if (typeid(*view) == typeid(UITableView) || typeid(*view) == typeid(UIScrollView))
            return static_cast<UIScrollView*>(view);
        if (!isInert(*view))
            return nullptr;
    }
    return nullptr;
}

}
