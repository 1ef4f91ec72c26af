#include "ModuleCheck.h"

#include <cstring>
#include <elf.h>
#include <fstream>
#include <iterator>
#include <link.h>
#include <span>

namespace host {

namespace fs = std::filesystem;

namespace {

using Header = ElfW(Ehdr);
using Section = ElfW(Shdr);
using Symbol = ElfW(Sym);
using Entry = ElfW(Dyn);

std::string bytesOf(const fs::path& file, std::size_t most = std::string::npos)
{
    std::ifstream stream(file, std::ios::binary);
    if (most == std::string::npos)
        return { std::istreambuf_iterator<char>(stream), {} };
    std::string bytes(most, '\0');
    stream.read(bytes.data(), static_cast<std::streamsize>(most));
    bytes.resize(static_cast<std::size_t>(stream.gcount()));
    return bytes;
}

/// A copy of what lies there; zeros when it does not lie wholly in the file.
template <typename T> T at(const std::string& bytes, std::size_t offset)
{
    T result {};
    if (offset <= bytes.size() && sizeof result <= bytes.size() - offset)
        std::memcpy(&result, bytes.data() + offset, sizeof result);
    return result;
}

std::string textAt(const std::string& bytes, const Section& texts, std::size_t offset)
{
    const auto begin = texts.sh_offset + offset;
    if (offset >= texts.sh_size || begin >= bytes.size())
        return {};
    return bytes.substr(begin, ::strnlen(bytes.data() + begin, bytes.size() - begin));
}

/// Calls `see` with each entry of each section of a kind, and the section that holds its texts.
template <typename T, typename See> void forEach(const std::string& bytes, unsigned kind, See see)
{
    const auto header = at<Header>(bytes, 0);
    const auto sectionAt
        = [&](std::size_t index) { return at<Section>(bytes, header.e_shoff + index * sizeof(Section)); };
    for (std::size_t index = 0; index < header.e_shnum; ++index) {
        const auto section = sectionAt(index);
        if (section.sh_type != kind || section.sh_offset > bytes.size()
            || section.sh_size > bytes.size() - section.sh_offset)
            continue;
        const auto texts = sectionAt(section.sh_link);
        for (std::size_t offset = 0; offset + sizeof(T) <= section.sh_size; offset += sizeof(T))
            see(at<T>(bytes, section.sh_offset + offset), texts);
    }
}

}

std::string whyNoModule(const fs::path& file)
{
    std::error_code error;
    if (!fs::exists(file, error))
        return "is not there, though Info.plist names it as CFBundleExecutable";
    if (!fs::is_regular_file(file, error))
        return "is no file";
    const auto bytes = bytesOf(file, sizeof(Header));
    const auto header = at<Header>(bytes, 0);
    const auto own = at<Header>(bytesOf("/proc/self/exe", sizeof(Header)), 0);
    if (std::memcmp(header.e_ident, ELFMAG, SELFMAG) != 0)
        return "is no ELF module";
    if (header.e_ident[EI_CLASS] != own.e_ident[EI_CLASS] || header.e_ident[EI_DATA] != own.e_ident[EI_DATA]
        || header.e_machine != own.e_machine)
        return "is a module of another machine";
    if (header.e_type != ET_DYN)
        return "is no shared module";
    return {};
}

std::vector<std::string> neededSymbols(const fs::path& file)
{
    if (!whyNoModule(file).empty())
        return {};
    std::vector<std::string> names;
    const auto bytes = bytesOf(file);
    forEach<Symbol>(bytes, SHT_DYNSYM, [&](const Symbol& symbol, const Section& texts) {
        // The parts of the name are laid out alike for machines of 32 and of 64 bits.
        const bool isNeeded = symbol.st_shndx == SHN_UNDEF && ELF64_ST_BIND(symbol.st_info) == STB_GLOBAL;
        if (auto name = textAt(bytes, texts, symbol.st_name); isNeeded && !name.empty())
            names.push_back(std::move(name));
    });
    return names;
}

std::vector<std::string> neededLibraries(const fs::path& file)
{
    if (!whyNoModule(file).empty())
        return {};
    std::vector<std::string> names;
    const auto bytes = bytesOf(file);
    forEach<Entry>(bytes, SHT_DYNAMIC, [&](const Entry& entry, const Section& texts) {
        if (entry.d_tag == DT_NEEDED)
            names.push_back(textAt(bytes, texts, entry.d_un.d_val));
    });
    return names;
}

}
