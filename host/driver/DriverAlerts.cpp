#include "DriverCommands.h"

#include "Json.h"
#include "platform/UIAlertView.h"
#include "platform/UIButton.h"
#include "TapTarget.h"
#include "ViewSearch.h"

namespace host {

using namespace platform;

namespace {

QJsonArray buttonsOf(const UIAlertView& alert)
{
    QJsonArray titles;
    for (long index = 0; index < alert.numberOfButtons(); ++index)
        titles.append(jsonFromText(alert.buttonTitleAtIndex(index)));
    return titles;
}

QJsonObject alert(Driver&, Words)
{
    auto* shown = UIAlertView::topmost();
    if (!shown)
        return { { "alert", QJsonValue() } };
    auto* field = shown->textFieldAtIndex(0);
    return { { "alert",
        QJsonObject {
            { "title", shown->title() ? jsonFromTextOrNull(*shown->title()) : QJsonValue() },
            { "message", jsonFromText(shown->message()) },
            { "buttons", buttonsOf(*shown) },
            { "tag", static_cast<qint64>(shown->tag()) },
            { "style", static_cast<int>(shown->alertViewStyle()) },
            { "keyboard", field ? static_cast<int>(field->keyboardType()) : 0 },
            { "text", field ? jsonFromText(shownText(*field).value_or("")) : QJsonValue() },
        } } };
}

QJsonObject answer(Driver& driver, Words words)
{
    auto* shown = UIAlertView::topmost();
    if (!shown)
        throw CommandFailure("No alert is shown.");
    const auto* button = buttonTitled(*shown, words[0]);
    if (!button)
        throw CommandFailure("The alert has no button " + quoted(words[0]) + "; it has "
            + textFromJson(buttonsOf(*shown)) + ".");
    driver.tap(middleInWindow(*button));
    return {};
}

constexpr DriverCommand commands[] = {
    { "alert", 0, 0, "", alert },
    { "answer", 1, 1, "one BUTTON, in quotation marks when it has blanks", answer },
};

}

std::span<const DriverCommand> alertCommands()
{
    return commands;
}

}
