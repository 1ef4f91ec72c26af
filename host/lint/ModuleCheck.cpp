#include "ModuleCheck.h"

#include "host/ElfFile.h"
#include "platform/qt/ModuleFile.h"

#include <utility>

namespace host {

namespace fs = std::filesystem;

std::string whyNoModule(const fs::path& file)
{
    std::error_code error;
    if (!fs::exists(file, error))
        return "is not there, though Info.plist names it as CFBundleExecutable";
    if (!fs::is_regular_file(file, error))
        return "is no file";
    const auto problem = platform::ModuleFile(file.string()).problem();
    return problem.empty() ? std::string() : "is not a loadable module (it " + problem + ")";
}

std::vector<std::string> neededSymbols(const fs::path& path)
{
    if (!whyNoModule(path).empty())
        return {};
    std::vector<std::string> names;
    const ElfFile file(path);
    file.forEachEntry<ElfFile::Symbol>(
        SHT_DYNSYM, [&](const ElfFile::Symbol& symbol, const ElfFile::Section& texts) {
            // The parts of the name are laid out alike for machines of 32 and of 64 bits.
            const bool isNeeded = symbol.st_shndx == SHN_UNDEF && ELF64_ST_BIND(symbol.st_info) == STB_GLOBAL;
            if (auto name = file.textAt(texts, symbol.st_name); isNeeded && !name.empty())
                names.push_back(std::move(name));
        });
    return names;
}

std::vector<std::string> neededLibraries(const fs::path& path)
{
    if (!whyNoModule(path).empty())
        return {};
    std::vector<std::string> names;
    const ElfFile file(path);
    file.forEachEntry<ElfW(Dyn)>(SHT_DYNAMIC, [&](const ElfW(Dyn) & entry, const ElfFile::Section& texts) {
        if (entry.d_tag == DT_NEEDED)
            names.push_back(file.textAt(texts, entry.d_un.d_val));
    });
    return names;
}

}
