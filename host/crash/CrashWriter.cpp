#include "CrashWriter.h"

#include <cstring>
#include <fcntl.h>
#include <unistd.h>

namespace host {

void CrashWriter::text(const char* text) const
{
    bytes(text, std::strlen(text));
}

void CrashWriter::bytes(const char* bytes, std::size_t count) const
{
    while (count > 0) {
        const auto written = ::write(_file, bytes, count);
        if (written <= 0)
            return;
        bytes += written;
        count -= static_cast<std::size_t>(written);
    }
}

void CrashWriter::line(const char* key, const char* value) const
{
    text(key);
    text(value);
    text("\n");
}

void CrashWriter::line(const char* key, std::uintptr_t number) const
{
    constexpr int digits = 16;
    char value[digits + 1] = {};
    for (int digit = digits; digit-- > 0; number >>= 4U)
        value[digit] = "0123456789abcdef"[number & 0xfU];
    line(key, value);
}

void CrashWriter::contentsOf(const char* path) const
{
    const int file = ::open(path, O_RDONLY | O_CLOEXEC);
    char buffer[4096];
    for (ssize_t count = 0; (count = ::read(file, buffer, sizeof buffer)) > 0;)
        bytes(buffer, static_cast<std::size_t>(count));
    if (file >= 0)
        ::close(file);
}

}
