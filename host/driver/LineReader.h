#pragma once

#include <string>

namespace host {

/// Reads a file line by line as its bytes arrive: a line is handed out before the next one is there.
class LineReader {
public:
    /// Bytes of the longest line; a longer one would have to be kept whole to be split.
    static constexpr std::size_t longestLine = std::size_t { 1 } << 20;

    /// A file's name, or "-" for standard input. Throws std::runtime_error with one sentence when it cannot
    /// be read.
    explicit LineReader(const std::string& file);
    ~LineReader();
    LineReader(const LineReader&) = delete;
    LineReader& operator=(const LineReader&) = delete;

    enum class Result { Line, TooLong, End };
    /// The next line, without its end; the last needs none. Of one that is too long only the beginning is
    /// kept. Throws std::runtime_error with one sentence when reading fails.
    Result next(std::string& line);

private:
    bool fill();
    [[noreturn]] void fail(int error) const;

    std::string _name; ///< For a sentence.
    int _file = -1;
    std::string _buffer; ///< What was read and not handed out yet.
    std::size_t _place = 0; ///< Where it begins.
};

}
