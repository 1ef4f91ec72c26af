#pragma once

#include <cstdint>
#include <cstring>
#include <filesystem>
#include <link.h>
#include <string>

namespace host {

/// A program's, library's or module's file, as a linker lays it out. Nothing that it says of itself is
/// believed: what does not lie wholly in the file reads as zeros, and a table that does not has no entries.
class ElfFile {
public:
    using Header = ElfW(Ehdr);
    using Section = ElfW(Shdr);
    using Segment = ElfW(Phdr);
    using Symbol = ElfW(Sym);

    /// A file that cannot be read, or is none of this machine's kind, has nothing in it.
    explicit ElfFile(const std::filesystem::path&);

    template <typename See> void forEachSegment(See see) const
    {
        const auto header = at<Header>(0);
        for (std::uint64_t index = 0; index < header.e_phnum; ++index)
            see(at<Segment>(header.e_phoff + index * sizeof(Segment)));
    }

    /// Calls `see` with each entry of each section of a kind, and the section that holds its texts.
    template <typename Entry, typename See> void forEachEntry(unsigned kind, See see) const
    {
        for (std::uint64_t index = 0; index < at<Header>(0).e_shnum; ++index) {
            const auto section = sectionAt(index);
            if (section.sh_type != kind || !isWhole(section.sh_offset, section.sh_size))
                continue;
            const auto texts = sectionAt(section.sh_link);
            for (std::uint64_t offset = 0; offset + sizeof(Entry) <= section.sh_size; offset += sizeof(Entry))
                see(at<Entry>(section.sh_offset + offset), texts);
        }
    }

    /// Empty beyond the section's end.
    std::string textAt(const Section& texts, std::uint64_t offset) const;

private:
    bool isWhole(std::uint64_t offset, std::uint64_t size) const
    {
        return offset <= _bytes.size() && size <= _bytes.size() - offset;
    }
    template <typename T> T at(std::uint64_t offset) const
    {
        T result {};
        if (isWhole(offset, sizeof result))
            std::memcpy(&result, _bytes.data() + offset, sizeof result);
        return result;
    }
    Section sectionAt(std::uint64_t index) const
    {
        return at<Section>(at<Header>(0).e_shoff + index * sizeof(Section));
    }

    std::string _bytes;
};

}
