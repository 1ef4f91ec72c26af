#include "DriverCommands.h"

#include "host/Faults.h"

namespace host {

namespace {

constexpr std::string_view usage = "write, vanish, readonly, half-written or off";

QJsonObject fault(Driver&, Words words)
{
    for (const auto& known : faultWords()) {
        if (known.word != words[0])
            continue;
        auto& faults = Faults::current();
        faults.make(known.fault);
        return { { "nextWriteFails", faults.nextWriteFails() }, { "readOnly", faults.isReadOnly() } };
    }
    throw CommandFailure("fault takes " + std::string(usage) + ", not " + quoted(words[0]) + ".");
}

constexpr DriverCommand commands[] = {
    { "fault", 1, 1, usage, fault },
};

}

std::span<const DriverCommand> faultCommands()
{
    return commands;
}

}
