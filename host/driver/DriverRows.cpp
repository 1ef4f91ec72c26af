#include "DriverCommands.h"

#include "Json.h"
#include "platform/PSListController.h"
#include "platform/PSTextFieldSpecifier.h"
#include "platform/UIAlertView.h"
#include "ViewSearch.h"

namespace host {

using namespace platform;

namespace {

QJsonObject page(Driver& driver, Words)
{
    auto& navigation = driver.phone().navigation();
    const auto* page = navigation.topViewController();
    if (!page)
        throw CommandFailure("No page is shown.");
    return {
        { "title", jsonFromTextOrNull(page->title()) },
        { "class", jsonFromText(page->className()) },
        { "depth", static_cast<qint64>(navigation.viewControllers().size()) },
    };
}

/// What a group has too.
QJsonObject descriptionOf(PSSpecifier& specifier)
{
    const auto* key = specifier.propertyForKey("key");
    const auto value = specifier.performGetter();
    return {
        { "id", jsonFromTextOrNull(specifier.identifier()) },
        { "key", key && key->string() ? jsonFromText(*key->string()) : QJsonValue() },
        { "action", jsonFromTextOrNull(specifier.buttonAction()) },
        { "title", jsonFromTextOrNull(specifier.name()) },
        { "cell", static_cast<int>(specifier.cellType()) },
        { "value", value ? jsonFromValue(*value) : QJsonValue() },
        { "enabled", specifier.isEnabled() },
        { "text", QJsonValue() },
        { "placeholder", QJsonValue() },
        { "textColor", QJsonValue() },
        { "background", QJsonValue() },
        { "height", QJsonValue() },
    };
}

void describeCell(QJsonObject& row, UITableViewCell& cell)
{
    row["textColor"] = jsonFromColor(cell.textLabel().textColor().cgColor());
    row["background"] = jsonFromColor(cell.layer().backgroundColor());
    auto* rowCell = dynamic_cast<PSTableCell*>(&cell);
    auto* field = rowCell ? dynamic_cast<UITextField*>(rowCell->control()) : nullptr;
    if (!field)
        return;
    row["text"] = jsonFromText(shownText(*field).value_or(""));
    row["placeholder"] = jsonFromTextOrNull(field->placeholder());
}

/// The sections and places of the rows follow from the list itself; a group opens the next section unless it
/// is the page's first row.
QJsonObject rows(Driver& driver, Words)
{
    auto& page = driver.page();
    auto& table = page.table();
    QJsonArray rows;
    long section = 0;
    bool isFirst = true;
    for (const auto& specifier : page.specifiers()) {
        if (!specifier)
            continue;
        auto row = descriptionOf(*specifier);
        const auto path = page.indexPathForSpecifier(specifier.get());
        section = path ? path->section : section + (isFirst ? 0 : 1);
        isFirst = false;
        row.insert("section", static_cast<qint64>(section));
        row.insert("row", path ? QJsonValue(static_cast<qint64>(path->row)) : QJsonValue());
        if (path) {
            row["height"] = page.tableViewHeightForRowAtIndexPath(table, *path);
            if (auto* cell = table.cellForRowAtIndexPath(*path))
                describeCell(row, *cell);
        }
        rows.append(row);
    }
    return { { "rows", rows } };
}

QJsonObject scroll(Driver& driver, Words words)
{
    const auto distance = pointsFromWord(words[0]);
    auto& table = driver.page().table();
    if (UIAlertView::topmost())
        throw CommandFailure("An alert lies over the page.");
    const auto offset = table.contentOffset();
    table.setContentOffset({ offset.x, offset.y + distance });
    return { { "offset", table.contentOffset().y } };
}

constexpr DriverCommand commands[] = {
    { "page", 0, 0, "", page },
    { "rows", 0, 0, "", rows },
    { "scroll", 1, 1, "DY", scroll },
};

}

std::span<const DriverCommand> rowCommands()
{
    return commands;
}

}
