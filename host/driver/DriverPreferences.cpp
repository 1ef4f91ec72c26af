#include "DriverCommands.h"

#include "host/ValueText.h"
#include "Json.h"

namespace host {

using namespace platform;

namespace {

/// Whether the file could be changed is a result, as it is of what a pane stores.
QJsonObject outcome(const std::string& failure)
{
    return { { "stored", failure.empty() },
        { "reason", failure.empty() ? QJsonValue() : jsonFromText(failure) } };
}

QJsonObject store(Driver& driver, Words words)
{
    if (std::holds_alternative<std::string>(valueFromText("string", words[0])))
        throw CommandFailure("A key has no control characters but tabs and line ends.");
    const auto value = valueFromText(words[1], words[2]);
    if (const auto* const sentence = std::get_if<std::string>(&value))
        throw CommandFailure(*sentence);
    return outcome(driver.phone().storePreference(words[0], std::get<PropertyValue>(value)));
}

QJsonObject remove(Driver& driver, Words words)
{
    return outcome(driver.phone().storePreference(words[0], std::nullopt));
}

QJsonObject reset(Driver& driver, Words)
{
    return outcome(driver.phone().deletePreferences());
}

constexpr DriverCommand commands[] = {
    { "store", 3, 3, "a KEY, its TYPE and its VALUE", store },
    { "remove", 1, 1, "one KEY", remove },
    { "reset", 0, 0, "", reset },
};

}

std::span<const DriverCommand> preferenceCommands()
{
    return commands;
}

}
