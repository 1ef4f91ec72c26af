#pragma once

#include <string_view>

namespace host {

/// Standard output for the answers alone: as long as it lives, what anything else in the process prints there
/// goes to standard error.
class AnswerOutput {
public:
    AnswerOutput();
    ~AnswerOutput();
    AnswerOutput(const AnswerOutput&) = delete;
    AnswerOutput& operator=(const AnswerOutput&) = delete;

    /// Writes it all at once. Throws std::runtime_error with one sentence when that fails.
    void write(std::string_view text) const;

private:
    int _output = -1;
};

}
