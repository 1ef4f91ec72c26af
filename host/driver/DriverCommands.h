#pragma once

#include "Driver.h"

/// The commands by topic; `Driver` looks them up by name.
namespace host {

using Words = std::span<const std::string>;

struct DriverCommand {
    std::string_view name;
    std::size_t fewest; ///< Words after the name.
    std::size_t most;
    std::string_view usage; ///< How they are called in a failure; empty for none.
    /// The answer without "do" and "ok". Throws CommandFailure.
    QJsonObject (*carryOut)(Driver&, Words);
};

std::span<const DriverCommand> alertCommands();
std::span<const DriverCommand> environmentCommands();
std::span<const DriverCommand> faultCommands();
std::span<const DriverCommand> fileCommands();
std::span<const DriverCommand> pictureCommands();
std::span<const DriverCommand> preferenceCommands();
std::span<const DriverCommand> rowCommands();
std::span<const DriverCommand> textCommands();
std::span<const DriverCommand> touchCommands();
std::span<const DriverCommand> treeCommands();

/// A coordinate or distance in points; a failure for any other word, and for one that is beyond a million.
double pointsFromWord(const std::string&);

/// The text in quotation marks, for a sentence.
std::string quoted(std::string_view);

}
