#include "ScratchFolder.h"

#include <cerrno>
#include <cstdlib>
#include <stdexcept>
#include <system_error>

namespace host {

namespace fs = std::filesystem;

ScratchFolder::ScratchFolder(const std::string& command)
{
    std::error_code error;
    const auto parent = fs::temp_directory_path(error);
    if (error)
        throw std::runtime_error(
            "The folder for what is temporary (TMPDIR) can't be used: " + error.message() + ".");
    auto name = (parent / ("vekora-" + command + "-XXXXXX")).string();
    if (!::mkdtemp(name.data()))
        throw std::runtime_error("A folder can't be made in " + parent.string() + ": "
            + std::generic_category().message(errno) + ".");
    _path = name;
}

ScratchFolder::~ScratchFolder()
{
    std::error_code ignored;
    fs::remove_all(_path, ignored);
}

}
