#pragma once

#include <chrono>
#include <functional>
#include <string>
#include <vector>

namespace host {

/// What one process tells another: texts of any content.
using Record = std::vector<std::string>;

/// Sends records through a pipe; each is on its way when the call returns.
class RecordWriter {
public:
    explicit RecordWriter(int file)
        : _file(file)
    {
    }
    void operator()(const Record&) const;

private:
    int _file;
};

struct ApartResult {
    std::vector<Record> records; ///< Whole ones that came before the end.
    std::string ending; ///< How it went wrong, as "crashed (SIGSEGV)"; empty when it ended as it should.
};

/// Does the work in a child process, so that a crash, an exit or an endless loop in it harms nobody. The
/// process must have one thread. Standard output of the work goes nowhere. Throws std::runtime_error with one
/// sentence when no process can be made.
ApartResult runApart(const std::function<void(const RecordWriter&)>& work, std::chrono::seconds longest);

}
