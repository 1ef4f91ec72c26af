#include "ElfFile.h"

#include <fstream>
#include <system_error>

namespace host {

ElfFile::ElfFile(const std::filesystem::path& path)
{
    std::error_code error;
    if (!std::filesystem::is_regular_file(path, error))
        return;
    const auto size = std::filesystem::file_size(path, error);
    std::ifstream file(path, std::ios::binary);
    if (error || !file)
        return;
    _bytes.resize(size);
    file.read(_bytes.data(), static_cast<std::streamsize>(size));
    _bytes.resize(static_cast<std::size_t>(file.gcount()));
    if (_bytes.size() < sizeof(Header) || !_bytes.starts_with(ELFMAG)
        || _bytes[EI_CLASS] != (sizeof(void*) == 8 ? ELFCLASS64 : ELFCLASS32))
        _bytes.clear();
}

std::string ElfFile::textAt(const Section& texts, std::uint64_t offset) const
{
    if (offset >= texts.sh_size || !isWhole(texts.sh_offset, texts.sh_size))
        return {};
    const auto* const begin = _bytes.data() + texts.sh_offset + offset;
    return { begin, ::strnlen(begin, texts.sh_size - offset) };
}

}
