#include "DeviceFiles.h"

#include "../Device.h"

#include <climits>
#include <fcntl.h>
#include <vector>

namespace platform {

namespace {

constexpr int mostLinks = 40; // As the system's own limit.
constexpr std::size_t largestFile = 512U << 20;

std::nullopt_t failure(int reason)
{
    errno = reason;
    return std::nullopt;
}

/// A path on its way from the root to the place it names.
class Walk {
public:
    std::optional<DevicePlace> run(std::string_view devicePath, FinalLink);

private:
    bool returnToRoot();
    bool ascend();
    bool follow(const FileDescriptor& link);
    bool takeStep(const std::string& name);
    std::optional<DevicePlace> place(std::string name);

    FileDescriptor _folder;
    std::vector<std::string> _names; ///< From the root to the folder.
    std::string _pending; ///< What is still to be walked.
    int _links = 0;
};

bool Walk::returnToRoot()
{
    const auto& root = Device::current().root;
    if (root.empty()) {
        errno = ENOENT;
        return false;
    }
    _names.clear();
    // The one path that is the machine's own, links and all.
    _folder = FileDescriptor(uninterrupted(
        FileCalls::current().openAt, AT_FDCWD, root.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC, mode_t { 0 }));
    return bool(_folder);
}

bool Walk::ascend()
{
    // Not by way of "..", which a folder that is being moved elsewhere would lead out of the root.
    auto names = std::move(_names);
    if (!returnToRoot())
        return false;
    if (!names.empty())
        names.pop_back();
    for (auto& name : names) {
        _folder = openIn(_folder, name.c_str(), O_PATH | O_DIRECTORY);
        if (!_folder)
            return false;
    }
    _names = std::move(names);
    return true;
}

bool Walk::follow(const FileDescriptor& link)
{
    char target[PATH_MAX];
    const auto length = uninterrupted(
        FileCalls::current().readLinkAt, link.number(), "", static_cast<char*>(target), sizeof target);
    if (length < 0)
        return false;
    if (++_links > mostLinks) {
        errno = ELOOP;
        return false;
    }
    _pending.insert(0, target, static_cast<std::size_t>(length));
    if (_pending.size() >= PATH_MAX) {
        errno = ENAMETOOLONG;
        return false;
    }
    return !_pending.starts_with('/') || returnToRoot();
}

/// Into a folder, or to where a link leads.
bool Walk::takeStep(const std::string& name)
{
    if (name == ".")
        return true;
    if (name == "..")
        return ascend();
    auto entry = openIn(_folder, name.c_str(), O_PATH);
    struct stat status { };
    if (!entry || !statusOf(entry, status))
        return false;
    if (S_ISLNK(status.st_mode))
        return follow(entry);
    if (!S_ISDIR(status.st_mode)) {
        errno = ENOTDIR;
        return false;
    }
    _folder = std::move(entry);
    _names.push_back(name);
    return true;
}

std::optional<DevicePlace> Walk::place(std::string name)
{
    std::string path;
    for (const auto& folder : _names)
        path += "/" + folder;
    if (name != "." || path.empty())
        path += name == "." ? "/" : "/" + name;
    return DevicePlace { std::move(_folder), std::move(name), std::move(path) };
}

std::optional<DevicePlace> Walk::run(std::string_view devicePath, FinalLink finalLink)
{
    if (devicePath.size() >= PATH_MAX)
        return failure(ENAMETOOLONG);
    if (devicePath.empty() || devicePath.find('\0') != devicePath.npos)
        return failure(ENOENT);
    _pending = devicePath;
    if (!returnToRoot())
        return std::nullopt;
    for (;;) {
        _pending.erase(0, _pending.find_first_not_of('/'));
        if (_pending.empty())
            return place(".");
        const auto name = _pending.substr(0, _pending.find('/'));
        _pending.erase(0, name.size());
        const bool isLast = _pending.empty() && name != "." && name != "..";
        if (isLast) {
            struct stat status { };
            const bool isLink = finalLink == FinalLink::Follow && statusIn(_folder, name.c_str(), status)
                && S_ISLNK(status.st_mode);
            if (!isLink)
                return place(name);
        }
        if (!takeStep(name))
            return std::nullopt;
    }
}

}

std::optional<DevicePlace> findPlace(std::string_view devicePath, FinalLink finalLink)
{
    return Walk().run(devicePath, finalLink);
}

bool fileExists(std::string_view devicePath)
{
    const auto place = findPlace(devicePath, FinalLink::Follow);
    struct stat status { };
    return place && statusIn(place->folder, place->name.c_str(), status);
}

std::optional<std::string> contentsOfFile(std::string_view devicePath)
{
    const auto place = findPlace(devicePath, FinalLink::Follow);
    if (!place)
        return std::nullopt;
    // Without waiting for the other end of what may be a pipe.
    const auto file = openIn(place->folder, place->name.c_str(), O_RDONLY | O_NONBLOCK | O_NOCTTY);
    struct stat status { };
    if (!file || !statusOf(file, status))
        return std::nullopt;
    if (!S_ISREG(status.st_mode))
        return failure(S_ISDIR(status.st_mode) ? EISDIR : EINVAL);

    std::string contents;
    std::size_t length = 0;
    for (std::size_t room = static_cast<std::size_t>(status.st_size);; room = length) {
        if (length + room > largestFile)
            return failure(EFBIG);
        // A byte more than there should be, so that the end shows without another round.
        contents.resize(length + room + 1);
        while (length < contents.size()) {
            const auto count = uninterrupted(FileCalls::current().read, file.number(),
                static_cast<void*>(&contents[length]), contents.size() - length);
            if (count < 0)
                return std::nullopt;
            if (count == 0) {
                contents.resize(length);
                return contents;
            }
            length += static_cast<std::size_t>(count);
        }
    }
}

std::optional<std::string> hostPath(std::string_view devicePath)
{
    const auto place = findPlace(devicePath, FinalLink::Follow);
    struct stat status { };
    if (!place || !statusIn(place->folder, place->name.c_str(), status))
        return std::nullopt;
    return Device::current().root + place->devicePath;
}

std::string reportedPath(std::string_view devicePath)
{
    if (auto place = findPlace(devicePath, FinalLink::Keep))
        return std::move(place->devicePath);
    return (devicePath.starts_with("/var/") ? "/private" : "") + std::string(devicePath);
}

}
