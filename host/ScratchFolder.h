#pragma once

#include <filesystem>
#include <string>

namespace host {

/// A folder of this run's own below the temporary one, with all that is in it for as long as it lives.
class ScratchFolder {
public:
    /// The command is part of its name. Throws one sentence when it can't be made.
    explicit ScratchFolder(const std::string& command);
    ~ScratchFolder();
    ScratchFolder(const ScratchFolder&) = delete;
    ScratchFolder& operator=(const ScratchFolder&) = delete;

    const std::filesystem::path& path() const { return _path; }

private:
    std::filesystem::path _path;
};

}
