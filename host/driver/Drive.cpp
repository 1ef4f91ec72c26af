#include "Drive.h"

#include "AnswerOutput.h"
#include "Driver.h"
#include "host/WithoutDisplay.h"
#include "Json.h"
#include "LineReader.h"
#include "platform/qt/NotifyCenter.h"
#include "ScriptParser.h"

#include <csignal>
#include <cstdio>
#include <future>

namespace host {

namespace {

constexpr int cannotBegin = 2;

std::optional<QJsonObject> answerTo(Driver& driver, LineReader::Result kind, const std::string& line)
{
    if (kind == LineReader::Result::Line)
        return driver.carryOut(line);
    const auto beginning = splitScriptLine(line);
    if (beginning.isPassedOver())
        return std::nullopt;
    return Driver::failure(beginning.words.empty() ? "" : beginning.words.front(),
        "The line is longer than " + std::to_string(LineReader::longestLine) + " bytes.");
}

std::optional<std::string> errorOfOpening(Phone& phone)
try {
    return phone.openBundle();
} catch (const std::exception& exception) {
    return std::string("The bundle threw an exception while it was opened: ") + exception.what() + ".";
}

int carryOutAll(Driver& driver, LineReader& script, const AnswerOutput& output, bool keepGoing)
{
    int status = 0;
    std::string line;
    for (;;) {
        const auto kind = script.next(line);
        if (kind == LineReader::Result::End)
            return status;
        const auto answer = answerTo(driver, kind, line);
        if (!answer)
            continue;
        output.write(lineFromJson(*answer));
        if (answer->value("ok").toBool())
            continue;
        status = 1;
        if (!keepGoing)
            return status;
    }
}

}

int runDrive(const Options& options)
{
    // Whoever reads the answers may go first; that is told as an error, not by a signal.
    std::signal(SIGPIPE, SIG_IGN);
    const AnswerOutput output;
    LineReader script(options.script);

    const auto application = applicationWithoutDisplay(options.phone.root);

    // The bus may take its time, as may the bundle.
    auto bus = std::async(std::launch::async, platform::sessionBusIsAvailable);
    Phone phone(options.phone);
    Driver driver(phone);
    if (const auto error = errorOfOpening(phone)) {
        std::fprintf(stderr, "%s\n", error->c_str());
        return cannotBegin;
    }
    if (!bus.get())
        std::fputs("There is no session bus: nobody else hears the notifications.\n", stderr);
    phone.settle();
    return carryOutAll(driver, script, output, options.keepGoing);
}

}
