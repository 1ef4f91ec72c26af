#pragma once

#include "host/Phone.h"
#include "platform/Journal.h"

#include <map>
#include <optional>
#include <QJsonObject>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace platform {
class PSListController;
}

namespace host {

/// Why a command could not be carried out, in one sentence.
class CommandFailure final : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// Carries out a script's commands on a phone, one at a time, with one finger. Everything it does goes the
/// way a touch or a key goes; docs/driver.md describes each command and its answer.
class Driver {
public:
    /// Listens to what happens in the phone from now on.
    explicit Driver(Phone&);
    ~Driver();
    Driver(const Driver&) = delete;
    Driver& operator=(const Driver&) = delete;

    /// The answer to one line, with the phone settled; nothing for a line that is passed over. Never throws.
    std::optional<QJsonObject> carryOut(std::string_view line);
    /// The answer to a line that cannot even be read.
    static QJsonObject failure(std::string_view command, std::string_view sentence);

    /// For the commands:
    Phone& phone() { return _phone; }
    platform::UIWindow& window() { return _phone.window(); }
    /// The shown page when it is one of rows; a failure otherwise.
    platform::PSListController& page();
    /// The finger. Each step settles the phone; steps that a finger cannot take are failures.
    void press(platform::CGPoint, double timestamp = 0);
    void move(platform::CGPoint);
    void release(platform::CGPoint);
    void tap(platform::CGPoint);
    /// What was recorded since it was last taken.
    std::vector<platform::JournalEntry> takePosted();
    std::map<std::string, int> takePaints();

private:
    QJsonObject answer(std::span<const std::string> words);

    Phone& _phone;
    int _listener = 0;
    bool _fingerIsDown = false;
    std::vector<platform::JournalEntry> _posted;
    std::map<std::string, int> _paints;
};

}
