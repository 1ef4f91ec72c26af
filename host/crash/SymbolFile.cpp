#include "SymbolFile.h"

#include <cstring>
#include <fstream>
#include <iterator>
#include <link.h>
#include <string_view>

namespace host {

namespace {

using Header = ElfW(Ehdr);
using Segment = ElfW(Phdr);
using Section = ElfW(Shdr);
using Symbol = ElfW(Sym);

constexpr unsigned typeMask = 0xf; // The same bits in every kind of file.

}

SymbolFile::SymbolFile(const std::string& path)
{
    std::ifstream file(path, std::ios::binary);
    _bytes.assign(std::istreambuf_iterator<char>(file), {});
    if (_bytes.size() < sizeof(Header) || !_bytes.starts_with(ELFMAG)
        || _bytes[EI_CLASS] != (sizeof(void*) == 8 ? ELFCLASS64 : ELFCLASS32))
        _bytes.clear();
}

template <typename T> bool SymbolFile::read(T& target, std::uint64_t offset) const
{
    if (_bytes.size() < sizeof(T) || offset > _bytes.size() - sizeof(T))
        return false;
    std::memcpy(&target, _bytes.data() + offset, sizeof(T));
    return true;
}

std::uint64_t SymbolFile::addressOf(std::uint64_t offset) const
{
    Header header {};
    if (!read(header, 0))
        return 0;
    for (unsigned index = 0; index < header.e_phnum; ++index) {
        Segment segment {};
        if (read(segment, header.e_phoff + std::uint64_t { index } * sizeof(Segment))
            && segment.p_type == PT_LOAD && offset >= segment.p_offset
            && offset - segment.p_offset < segment.p_filesz)
            return segment.p_vaddr + (offset - segment.p_offset);
    }
    return 0;
}

std::string SymbolFile::functionAt(std::uint64_t offset) const
{
    Header header {};
    const auto address = addressOf(offset);
    if (address == 0 || !read(header, 0))
        return {};
    const auto sectionAt = [&](std::uint64_t index, Section& section) {
        return read(section, header.e_shoff + index * sizeof(Section));
    };
    for (unsigned index = 0; index < header.e_shnum; ++index) {
        Section table {};
        Section names {};
        if (!sectionAt(index, table) || (table.sh_type != SHT_SYMTAB && table.sh_type != SHT_DYNSYM)
            || !sectionAt(table.sh_link, names))
            continue;
        for (std::uint64_t at = 0; at + sizeof(Symbol) <= table.sh_size; at += sizeof(Symbol)) {
            Symbol symbol {};
            if (!read(symbol, table.sh_offset + at))
                break;
            if ((symbol.st_info & typeMask) != STT_FUNC || address < symbol.st_value
                || address - symbol.st_value >= symbol.st_size)
                continue;
            const auto name = names.sh_offset + symbol.st_name;
            if (name < _bytes.size())
                return { _bytes.data() + name, ::strnlen(_bytes.data() + name, _bytes.size() - name) };
        }
    }
    return {};
}

}
