#pragma once

#include <cstddef>
#include <cstdint>

namespace host {

/// Writes a crash's report. Each function calls only what a signal's handler may call, and what cannot be
/// written is left out.
class CrashWriter {
public:
    /// The file stays open.
    explicit CrashWriter(int file)
        : _file(file)
    {
    }

    void text(const char*) const;
    void bytes(const char*, std::size_t count) const;
    void line(const char* key, const char* value) const;
    void line(const char* key, std::uintptr_t number) const; ///< In hexadecimal.
    void contentsOf(const char* path) const;

private:
    int _file;
};

}
