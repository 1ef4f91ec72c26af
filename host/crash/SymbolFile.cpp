#include "SymbolFile.h"

namespace host {

namespace {

constexpr unsigned typeMask = 0xf; // The same bits in every kind of file.

}

SymbolFile::SymbolFile(const std::string& path)
    : _file(path)
{
}

std::uint64_t SymbolFile::addressOf(std::uint64_t offset) const
{
    std::uint64_t address = 0;
    _file.forEachSegment([&](const ElfFile::Segment& segment) {
        if (segment.p_type == PT_LOAD && offset >= segment.p_offset
            && offset - segment.p_offset < segment.p_filesz)
            address = segment.p_vaddr + (offset - segment.p_offset);
    });
    return address;
}

std::string SymbolFile::functionAt(std::uint64_t offset) const
{
    const auto address = addressOf(offset);
    std::string name;
    if (address == 0)
        return name;
    for (const unsigned kind : { SHT_SYMTAB, SHT_DYNSYM }) {
        _file.forEachEntry<ElfFile::Symbol>(
            kind, [&](const ElfFile::Symbol& symbol, const ElfFile::Section& texts) {
                if (name.empty() && (symbol.st_info & typeMask) == STT_FUNC && address >= symbol.st_value
                    && address - symbol.st_value < symbol.st_size)
                    name = _file.textAt(texts, symbol.st_name);
            });
    }
    return name;
}

}
