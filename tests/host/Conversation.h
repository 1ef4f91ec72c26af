#pragma once

#include "tests/support/TemporaryFolder.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>

#include <ostream>

/// The built program as another process, without a display, a bus or anybody's home folder.
class HostProcess {
public:
    /// Starts it with these words.
    explicit HostProcess(const QStringList& words, const QStringList& environment = {});
    ~HostProcess();

    void write(const QByteArray&);
    void closeInput();
    /// The next line of standard output without its end; empty when there is none any more.
    QByteArray readLine();
    /// The same of standard error.
    QByteArray readErrorLine();
    /// What is left of the output when the process has ended.
    QByteArray readRest();
    QByteArray readErrors();
    /// Its exit status; −1 when it crashed or does not end.
    int waitForEnd();
    void send(int signal);

private:
    QByteArray readLineFrom(QProcess::ProcessChannel);

    QProcess _process;
};

/// What a run that needs no conversation printed.
struct HostRun {
    int status = -1;
    QByteArray output;
    QByteArray errors;

    QList<QJsonObject> answers() const;
};
HostRun runHost(const QStringList& words, const QByteArray& input = {}, const QStringList& environment = {});

/// A script held as a conversation with `drive`, below a root of its own: each command is answered before the
/// next is sent.
class Conversation {
public:
    /// With the tests' own bundle unless the options say otherwise.
    explicit Conversation(const QStringList& options = {});
    /// With the project's own bundle.
    static QStringList ownBundle() { return { "--own-bundle" }; }

    /// The answer to one command.
    QJsonObject operator()(const QByteArray& command);
    /// The same, which must have succeeded.
    QJsonObject ok(const QByteArray& command);
    /// The error of a command that must have failed.
    QString error(const QByteArray& command);
    /// The row of the page with this title, or identifier.
    QJsonObject row(const QString& title);
    int end();

    std::filesystem::path root() const { return _folder.path() / "root"; }
    std::filesystem::path folder() const { return _folder.path(); }

private:
    TemporaryFolder _folder;
    HostProcess _host;
};

/// A point of an answer as a number.
double numberAt(const QJsonValue& array, int index);
/// One line, as the driver prints it.
QByteArray compact(const QJsonValue&);

/// How a failed expectation shows them.
inline void PrintTo(const QJsonValue& value, std::ostream* stream)
{
    *stream << compact(value).constData();
}
inline void PrintTo(const QByteArray& text, std::ostream* stream)
{
    *stream << text.constData();
}
inline void PrintTo(const QString& text, std::ostream* stream)
{
    *stream << text.toStdString();
}
