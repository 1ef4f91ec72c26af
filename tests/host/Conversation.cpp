#include "Conversation.h"

#include <csignal>
#include <gtest/gtest.h>

namespace {

constexpr int longestWait = 120000; // Milliseconds; only a failure waits that long.

QProcessEnvironment environmentWith(const QStringList& variables)
{
    QProcessEnvironment environment;
    const auto own = QProcessEnvironment::systemEnvironment();
    for (const char* kept :
        { "PATH", "ASAN_OPTIONS", "LSAN_OPTIONS", "UBSAN_OPTIONS", "HOME", "XDG_RUNTIME_DIR" }) {
        if (own.contains(kept))
            environment.insert(kept, own.value(kept));
    }
    // A display that is not there: the driver must not look for one.
    environment.insert("QT_QPA_PLATFORM", "xcb");
    environment.insert("DISPLAY", ":nowhere");
    environment.insert("DBUS_SESSION_BUS_ADDRESS", "disabled:");
    environment.insert("LC_ALL", "en_US.UTF-8");
    environment.insert("TZ", "UTC");
    for (const auto& variable : variables)
        environment.insert(variable.section('=', 0, 0), variable.section('=', 1));
    return environment;
}

QStringList optionsFor(const std::filesystem::path& folder, QStringList options)
{
    QStringList words { "drive", "--keep-going", "--root",
        QString::fromStdString((folder / "root").string()) };
    if (!options.removeAll("--own-bundle"))
        words << "--bundle" << TEST_BUNDLE;
    return words + options;
}

}

HostProcess::HostProcess(const QStringList& words, const QStringList& environment)
{
    _process.setProcessEnvironment(environmentWith(environment));
    _process.start(HOST_PROGRAM, words);
    EXPECT_TRUE(_process.waitForStarted(longestWait)) << _process.errorString().toStdString();
}

HostProcess::~HostProcess()
{
    if (_process.state() != QProcess::NotRunning) {
        _process.kill();
        _process.waitForFinished(longestWait);
    }
}

void HostProcess::write(const QByteArray& text)
{
    _process.write(text);
    while (_process.bytesToWrite() > 0 && _process.waitForBytesWritten(longestWait)) { }
}

void HostProcess::closeInput()
{
    _process.closeWriteChannel();
}

QByteArray HostProcess::readLineFrom(QProcess::ProcessChannel channel)
{
    _process.setReadChannel(channel);
    while (!_process.canReadLine() && _process.waitForReadyRead(longestWait)) { }
    auto line = _process.readLine();
    if (line.endsWith('\n'))
        line.chop(1);
    return line;
}

QByteArray HostProcess::readLine()
{
    return readLineFrom(QProcess::StandardOutput);
}

QByteArray HostProcess::readErrorLine()
{
    return readLineFrom(QProcess::StandardError);
}

QByteArray HostProcess::readRest()
{
    return _process.readAllStandardOutput();
}

QByteArray HostProcess::readErrors()
{
    return _process.readAllStandardError();
}

int HostProcess::waitForEnd()
{
    closeInput();
    const bool ended = _process.state() == QProcess::NotRunning || _process.waitForFinished(longestWait);
    return ended && _process.exitStatus() == QProcess::NormalExit ? _process.exitCode() : -1;
}

void HostProcess::send(int signal)
{
    ::kill(static_cast<pid_t>(_process.processId()), signal);
}

QList<QJsonObject> HostRun::answers() const
{
    QList<QJsonObject> answers;
    for (const auto& line : output.split('\n')) {
        if (!line.isEmpty())
            answers << QJsonDocument::fromJson(line).object();
    }
    return answers;
}

HostRun runHost(const QStringList& words, const QByteArray& input, const QStringList& environment)
{
    HostProcess host(words, environment);
    host.write(input);
    HostRun run;
    run.status = host.waitForEnd();
    run.output = host.readRest();
    run.errors = host.readErrors();
    return run;
}

Conversation::Conversation(const QStringList& options)
    : _host(optionsFor(_folder.path(), options))
{
}

QJsonObject Conversation::operator()(const QByteArray& command)
{
    _host.write(command + '\n');
    const auto line = _host.readLine();
    QJsonParseError error;
    const auto answer = QJsonDocument::fromJson(line, &error).object();
    EXPECT_EQ(error.error, QJsonParseError::NoError)
        << command.toStdString() << ": " << line.toStdString() << _host.readErrors().toStdString();
    return answer;
}

QJsonObject Conversation::ok(const QByteArray& command)
{
    const auto answer = (*this)(command);
    EXPECT_TRUE(answer["ok"].toBool()) << command.toStdString() << ": " << compact(answer).toStdString();
    EXPECT_FALSE(answer.contains("error"));
    return answer;
}

QString Conversation::error(const QByteArray& command)
{
    const auto answer = (*this)(command);
    EXPECT_EQ(answer["ok"], false) << compact(answer).toStdString();
    EXPECT_EQ(answer.keys(), (QStringList { "do", "error", "ok" })) << compact(answer).toStdString();
    const auto error = answer["error"].toString();
    EXPECT_TRUE(error.endsWith('.')) << error.toStdString();
    return error;
}

QJsonObject Conversation::row(const QString& title)
{
    const auto rows = ok("rows")["rows"].toArray();
    for (const auto& row : rows) {
        if (row.toObject()["title"] == title || row.toObject()["id"] == title)
            return row.toObject();
    }
    ADD_FAILURE() << "no row " << title.toStdString();
    return {};
}

int Conversation::end()
{
    return _host.waitForEnd();
}

double numberAt(const QJsonValue& array, int index)
{
    EXPECT_TRUE(array.toArray().at(index).isDouble()) << compact(array).toStdString();
    return array.toArray().at(index).toDouble();
}

QByteArray compact(const QJsonValue& value)
{
    const auto text = QJsonDocument(QJsonArray { value }).toJson(QJsonDocument::Compact);
    return text.mid(1, text.size() - 2);
}
