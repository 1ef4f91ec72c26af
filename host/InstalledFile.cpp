#include "InstalledFile.h"

#include <algorithm>
#include <cstdlib>
#include <fcntl.h>
#include <fstream>
#include <stdexcept>
#include <string>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

namespace host {

namespace fs = std::filesystem;

namespace {

[[noreturn]] void fail(const fs::path& path, const char* what, const std::error_code& error)
{
    throw std::runtime_error(path.string() + " cannot be " + what + ": " + error.message() + ".");
}

std::error_code lastError()
{
    return { errno, std::generic_category() };
}

/// The place on this machine. Its folder must exist and lie below the root, whatever links lead to it.
fs::path checkedPlace(const fs::path& root, const fs::path& place)
{
    const auto path = root / place;
    std::error_code error;
    const auto top = fs::canonical(root, error);
    if (error)
        fail(root, "found", error);
    const auto folder = fs::canonical(path.parent_path(), error);
    if (error)
        fail(path.parent_path(), "found", error);
    const auto [end, ignored] = std::mismatch(top.begin(), top.end(), folder.begin(), folder.end());
    if (end != top.end())
        throw std::runtime_error(path.string() + " lies outside the device's root.");
    return folder / path.filename();
}

bool isUpToDate(const fs::path& source, const fs::path& target)
{
    std::error_code error;
    if (fs::symlink_status(target, error).type() != fs::file_type::regular)
        return false;
    const auto isSame = fs::file_size(source, error) == fs::file_size(target, error)
        && fs::last_write_time(source, error) == fs::last_write_time(target, error);
    return isSame && !error;
}

/// A new file beside the one that it is to replace; removed unless it has been moved there.
class TemporaryFile {
public:
    explicit TemporaryFile(const fs::path& target)
        : _target(target)
        , _name((target.parent_path() / ("." + target.filename().string() + ".XXXXXX")).string())
    {
        const int file = ::mkstemp(_name.data());
        if (file < 0)
            fail(target, "written", lastError());
        ::fchmod(file, 0644);
        ::close(file);
    }

    ~TemporaryFile()
    {
        if (!_moved)
            ::unlink(_name.c_str());
    }

    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;

    const std::string& name() const { return _name; }

    void moveIntoPlace()
    {
        if (::rename(_name.c_str(), _target.c_str()) != 0)
            fail(_target, "written", lastError());
        _moved = true;
    }

private:
    fs::path _target;
    std::string _name;
    bool _moved = false;
};

}

void makeFolder(const fs::path& root, const fs::path& place)
{
    fs::path made;
    for (const auto& part : place) {
        made /= part;
        const auto path = checkedPlace(root, made);
        std::error_code error;
        // Nothing is made where a folder, or a link to one, already is.
        if (!fs::is_directory(path, error) && !fs::create_directory(path, error)
            && !fs::is_directory(path, error)) {
            fail(path, "made", error ? error : std::make_error_code(std::errc::not_a_directory));
        }
    }
}

void installFile(const fs::path& source, const fs::path& root, const fs::path& place)
{
    const auto target = checkedPlace(root, place);
    if (isUpToDate(source, target))
        return;
    std::error_code error;
    const auto time = fs::last_write_time(source, error);
    if (error)
        fail(source, "read", error);
    TemporaryFile temporary(target);
    // The mode comes with the content.
    fs::copy_file(source, temporary.name(), fs::copy_options::overwrite_existing, error);
    if (!error)
        fs::last_write_time(temporary.name(), time, error);
    if (error)
        fail(target, "written", error);
    temporary.moveIntoPlace();
}

void writeFile(std::string_view content, const fs::path& root, const fs::path& place)
{
    const auto target = checkedPlace(root, place);
    TemporaryFile temporary(target);
    std::ofstream file(temporary.name(), std::ios::binary);
    file << content;
    file.close();
    if (!file)
        fail(target, "written", std::make_error_code(std::errc::io_error));
    temporary.moveIntoPlace();
}

void installEmptyFile(const fs::path& root, const fs::path& place)
{
    const auto target = checkedPlace(root, place);
    constexpr mode_t mode = 0644;
    const int file = ::open(target.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, mode);
    if (file >= 0)
        ::close(file);
    else if (errno != EEXIST)
        fail(target, "written", lastError());
}

void removeTree(const fs::path& root, const fs::path& place)
{
    std::error_code error;
    const auto target = checkedPlace(root, place);
    fs::remove_all(target, error);
    if (error)
        fail(target, "removed", error);
}

void removeFile(const fs::path& root, const fs::path& place)
{
    std::error_code error;
    if (!fs::exists(root / place.parent_path(), error))
        return;
    const auto target = checkedPlace(root, place);
    if (!fs::remove(target, error) && error)
        fail(target, "removed", error);
}

}
