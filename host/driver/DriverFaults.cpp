#include "DriverCommands.h"

#include "host/Faults.h"

namespace host {

namespace {

/// All its words, as in "write, vanish or off".
const std::string& usage()
{
    static const auto usage = [] {
        const auto all = faultWords();
        std::string text(all.front().word);
        for (const auto& known : all.subspan(1))
            text += (&known == &all.back() ? " or " : ", ") + std::string(known.word);
        return text;
    }();
    return usage;
}

QJsonObject fault(Driver&, Words words)
{
    for (const auto& known : faultWords()) {
        if (known.word != words[0])
            continue;
        auto& faults = Faults::current();
        faults.make(known.fault);
        return { { "nextWriteFails", faults.nextWriteFails() }, { "readOnly", faults.isReadOnly() } };
    }
    throw CommandFailure("fault takes " + usage() + ", not " + quoted(words[0]) + ".");
}

}

std::span<const DriverCommand> faultCommands()
{
    static const DriverCommand commands[] = { { "fault", 1, 1, usage(), fault } };
    return commands;
}

}
