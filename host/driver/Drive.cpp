#include "Drive.h"

#include "AnswerOutput.h"
#include "Driver.h"
#include "Json.h"
#include "LineReader.h"
#include "platform/qt/NotifyCenter.h"
#include "ScriptParser.h"

#include <clocale>
#include <csignal>
#include <cstdio>
#include <future>
#include <QApplication>

namespace host {

namespace {

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

/// While the application starts it looks for displays, and warns of folders that are not there for them.
void passOnErrors(QtMsgType type, const QMessageLogContext&, const QString& text)
{
    if (type == QtCriticalMsg || type == QtFatalMsg)
        std::fprintf(stderr, "%s\n", qPrintable(text));
}

}

int runDrive(const Options& options)
{
    // Whoever reads the answers may go first; that is told as an error, not by a signal.
    std::signal(SIGPIPE, SIG_IGN);
    const AnswerOutput output;
    LineReader script(options.script);

    qputenv("QT_QPA_PLATFORM", "offscreen");
    const auto usual = qInstallMessageHandler(passOnErrors);
    char name[] = "vekora";
    char* arguments[] = { name, nullptr };
    int count = 1;
    const QApplication application(count, arguments);
    qInstallMessageHandler(usual);
    // The application has taken the environment's; numbers in files have a point in every country.
    std::setlocale(LC_NUMERIC, "C");

    // The bus may take its time, as may the bundle.
    auto bus = std::async(std::launch::async, platform::sessionBusIsAvailable);
    Phone phone(options.phone);
    Driver driver(phone);
    if (const auto error = phone.openBundle())
        std::fprintf(stderr, "%s\n", error->c_str());
    if (!bus.get())
        std::fputs("There is no session bus: nobody else hears the notifications.\n", stderr);
    phone.settle();
    const int status = carryOutAll(driver, script, output, options.keepGoing);
    platform::flushNotifications();
    return status;
}

}
