#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace host {

/// A script while it is written: what is in it is on disk at once, and its end may still be replaced.
class RecordFile {
public:
    /// Makes the file, with this at its beginning. Throws std::runtime_error with one sentence when it cannot
    /// be written, or is there already: a recording replaces nothing.
    RecordFile(std::string path, std::string_view header);
    ~RecordFile();
    RecordFile(const RecordFile&) = delete;
    RecordFile& operator=(const RecordFile&) = delete;

    /// Bytes so far.
    std::size_t size() const { return _size; }
    void append(std::string_view text) { replaceFrom(_size, text); }
    /// What follows that many bytes becomes the text. When the disk is full or gone, the file is left as it
    /// was, one sentence goes to standard error, and nothing more is written.
    void replaceFrom(std::size_t place, std::string_view text);
    /// Whether all of it is in a file of that name. When it is not, standard error has been told why.
    bool finish();

private:
    /// False with the reason in errno.
    bool writeAt(std::size_t place, std::string_view text);
    void fail(const std::string& why);

    std::string _path;
    int _file = -1;
    std::size_t _size = 0;
};

}
