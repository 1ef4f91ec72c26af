#include "DriverCommands.h"

#include "host/EnvironmentRules.h"
#include "Json.h"

namespace host {

namespace {

QJsonObject environment(Driver& driver, Words words)
{
    if (words.size() == 1)
        throw CommandFailure("environment takes [NAME VALUE], not 1 word.");
    if (words.size() == 2) {
        if (const auto error = changeEnvironment(driver.phone(), words[0], words[1]); !error.empty())
            throw CommandFailure(error);
    }
    QJsonObject values;
    for (const auto& rule : environmentRules())
        values.insert(jsonFromText(rule.name).toString(), jsonFromText(rule.word(driver.phone())));
    return { { "environment", values } };
}

QJsonObject reopen(Driver& driver, Words)
{
    driver.phone().makePagesAnew();
    return {};
}

QJsonObject reappear(Driver& driver, Words)
{
    driver.phone().showPageAgain();
    return {};
}

QJsonObject reload(Driver& driver, Words)
{
    if (const auto failure = driver.phone().reloadBundle())
        throw CommandFailure(*failure);
    return {};
}

constexpr DriverCommand commands[] = {
    { "environment", 0, 2, "[NAME VALUE]", environment },
    { "reopen", 0, 0, {}, reopen },
    { "reappear", 0, 0, {}, reappear },
    { "reload", 0, 0, {}, reload },
};

}

std::span<const DriverCommand> environmentCommands()
{
    return commands;
}

}
