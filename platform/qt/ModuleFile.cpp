#include "ModuleFile.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <dlfcn.h>
#include <elf.h>
#include <fcntl.h>
#include <filesystem>
#include <link.h>
#include <sys/file.h>
#include <unistd.h>
#include <vector>

namespace platform {

namespace {

using Header = ElfW(Ehdr);
using Segment = ElfW(Phdr);
using Section = ElfW(Shdr);
using Symbol = ElfW(Sym);

constexpr std::uint64_t largestModule = 1U << 30U; // Bytes.

#if defined(__x86_64__)
constexpr unsigned ownMachine = EM_X86_64;
#elif defined(__aarch64__)
constexpr unsigned ownMachine = EM_AARCH64;
#elif defined(__riscv)
constexpr unsigned ownMachine = EM_RISCV;
#elif defined(__i386__)
constexpr unsigned ownMachine = EM_386;
#else
constexpr unsigned ownMachine = EM_NONE; // Then the loader itself has to tell.
#endif
constexpr unsigned ownClass = sizeof(void*) == 8 ? ELFCLASS64 : ELFCLASS32;

// The same bits in both kinds of symbol tables.
constexpr unsigned bindingOf(unsigned char info)
{
    return info >> 4U;
}
constexpr unsigned char withBinding(unsigned binding, unsigned char info)
{
    return static_cast<unsigned char>((binding << 4U) | (info & 0xfU));
}

bool writeAll(int file, std::string_view bytes)
{
    while (!bytes.empty()) {
        const auto count = uninterrupted(::write, file, bytes.data(), bytes.size());
        if (count <= 0)
            return false;
        bytes.remove_prefix(static_cast<std::size_t>(count));
    }
    return true;
}

bool isNamed(const FileDescriptor& file, const std::string& name)
{
    struct stat own { };
    struct stat named { };
    return ::fstat(file.number(), &own) == 0 && ::lstat(name.c_str(), &named) == 0
        && own.st_dev == named.st_dev && own.st_ino == named.st_ino;
}

/// Beside the module, since it may look for its own libraries from where it lies. Its maker holds its lock,
/// so that a copy whose lock nobody holds is one that a crash has left.
class Copy {
public:
    Copy(const std::string& path, std::string_view bytes)
    {
        const auto slash = path.rfind('/') + 1;
        const auto folder = path.substr(0, slash);
        const auto beginning = "." + path.substr(slash) + ".";
        removeLeftOver(folder, beginning);
        for (int attempt = 0; attempt < mostAttempts && !make(folder + beginning); ++attempt) { }
        if (!_name.empty() && !writeAll(_file.number(), bytes))
            remove();
    }
    ~Copy() { remove(); }
    Copy(const Copy&) = delete;
    Copy& operator=(const Copy&) = delete;

    /// Empty when it could not be made.
    const std::string& name() const { return _name; }

private:
    static constexpr int mostAttempts = 16;
    static constexpr std::string_view ending = "XXXXXX";

    static void removeLeftOver(const std::string& folder, const std::string& beginning)
    {
        std::error_code error;
        auto entries = std::filesystem::directory_iterator(folder, error);
        for (const std::filesystem::directory_iterator end; !error && entries != end;
             entries.increment(error)) {
            const auto name = entries->path().filename().string();
            if (name.size() != beginning.size() + ending.size() || !name.starts_with(beginning)
                || !entries->is_regular_file(error))
                continue;
            const auto path = folder + name;
            const FileDescriptor file(::open(path.c_str(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC));
            if (file && ::flock(file.number(), LOCK_EX | LOCK_NB) == 0 && isNamed(file, path))
                ::unlink(path.c_str());
        }
    }

    /// False when another process saw the file before its lock and takes it away.
    bool make(const std::string& beginning)
    {
        _name = beginning + std::string(ending);
        _file = FileDescriptor(::mkostemp(_name.data(), O_CLOEXEC));
        const bool isTaken = _file && ::flock(_file.number(), LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK;
        if (_file && !isTaken && isNamed(_file, _name))
            return true;
        _name.clear();
        return !_file; // Then another attempt makes none either.
    }

    void remove()
    {
        if (!_name.empty())
            ::unlink(_name.c_str());
        _name.clear();
    }

    std::string _name;
    FileDescriptor _file;
};

}

FileState stateOfFile(const std::string& path)
{
    struct stat status { };
    if (::stat(path.c_str(), &status) != 0)
        return {};
    constexpr std::int64_t second = 1'000'000'000;
    return { status.st_dev, status.st_ino, status.st_size,
        status.st_mtim.tv_sec * second + status.st_mtim.tv_nsec };
}

ModuleFile::ModuleFile(const std::string& path)
    : _path(path)
    , _file(uninterrupted(::open, path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK, 0))
{
    struct stat status { };
    if (_file && statusOf(_file, status) && S_ISREG(status.st_mode))
        _size = static_cast<std::uint64_t>(status.st_size);
    else
        _file = {};
}

bool ModuleFile::isWhole(Part part) const
{
    return part.offset <= _size && part.size <= _size - part.offset;
}

bool ModuleFile::read(void* target, Part part) const
{
    if (!isWhole(part))
        return false;
    auto* to = static_cast<char*>(target);
    while (part.size > 0) {
        const auto count
            = uninterrupted(::pread, _file.number(), to, part.size, static_cast<off_t>(part.offset));
        if (count <= 0)
            return false;
        to += count;
        part.offset += static_cast<std::uint64_t>(count);
        part.size -= static_cast<std::uint64_t>(count);
    }
    return true;
}

bool ModuleFile::isModule() const
{
    char beginning[SELFMAG] = {};
    const auto size = std::min<std::uint64_t>(_size, SELFMAG);
    return size > 0 && read(beginning, { 0, size }) && std::memcmp(beginning, ELFMAG, size) == 0;
}

bool ModuleFile::isUnwritten() const
{
    char beginning[SELFMAG] = {};
    const char zeros[SELFMAG] = {};
    const auto size = std::min<std::uint64_t>(_size, SELFMAG);
    return read(beginning, { 0, size }) && std::memcmp(beginning, zeros, size) == 0;
}

std::string ModuleFile::problem() const
{
    if (!_file)
        return "cannot be read";
    Header header {};
    if (_size == 0)
        return "is empty";
    if (_size > largestModule)
        return "is larger than any module";
    if (!isModule())
        return "is no module at all";
    const auto cutOff = "ends after " + std::to_string(_size) + " bytes, in the middle";
    if (!read(&header, { 0, sizeof header }))
        return cutOff;
    if (header.e_ident[EI_CLASS] != ownClass || header.e_ident[EI_DATA] != ELFDATA2LSB
        || (ownMachine != EM_NONE && header.e_machine != ownMachine))
        return "was built for another kind of processor";
    if (header.e_type != ET_DYN || header.e_phentsize != sizeof(Segment))
        return "is a file of another kind than a module";

    std::vector<Segment> segments(header.e_phnum);
    if (!read(segments.data(), { header.e_phoff, segments.size() * sizeof(Segment) }))
        return cutOff;
    bool canBeLinked = false;
    for (const auto& segment : segments) {
        if (segment.p_type == PT_LOAD && !isWhole({ segment.p_offset, segment.p_filesz }))
            return cutOff;
        ElfW(Dyn) first {};
        if (segment.p_type == PT_DYNAMIC && read(&first, { segment.p_offset, sizeof first }))
            canBeLinked = first.d_tag != DT_NULL;
    }
    // The table of sections lies last, and is what a linker writes last.
    const Part sections { header.e_shoff, std::uint64_t { header.e_shnum } * sizeof(Section) };
    if (header.e_shoff != 0 && !isWhole(sections))
        return cutOff;
    return canBeLinked ? "" : "is not written to its end";
}

ModuleFile::Part ModuleFile::symbols() const
{
    Header header {};
    if (!read(&header, { 0, sizeof header }) || header.e_shentsize != sizeof(Section))
        return {};
    std::vector<Section> sections(header.e_shnum);
    if (!read(sections.data(), { header.e_shoff, sections.size() * sizeof(Section) }))
        return {};
    for (const auto& section : sections) {
        if (section.sh_type == SHT_DYNSYM && isWhole({ section.sh_offset, section.sh_size }))
            return { section.sh_offset, section.sh_size / sizeof(Symbol) * sizeof(Symbol) };
    }
    return {};
}

std::string ModuleFile::whole() const
{
    std::string bytes(_size, '\0');
    return read(bytes.data(), { 0, _size }) ? bytes : std::string();
}

void* ModuleFile::load() const
{
    constexpr int mode = RTLD_NOW | RTLD_LOCAL;
    const auto table = symbols();
    std::vector<Symbol> names(table.size / sizeof(Symbol));
    bool hasUnique = false;
    if (read(names.data(), table)) {
        for (auto& name : names) {
            if (bindingOf(name.st_info) != STB_GNU_UNIQUE)
                continue;
            name.st_info = withBinding(STB_WEAK, name.st_info);
            hasUnique = true;
        }
    }
    auto* const loaded = ::dlopen(_path.c_str(), mode | RTLD_NOLOAD);
    if (loaded)
        ::dlclose(loaded);
    if (!hasUnique && !loaded)
        return ::dlopen(_path.c_str(), mode);

    auto bytes = whole();
    if (hasUnique && !bytes.empty())
        std::memcpy(bytes.data() + table.offset, names.data(), table.size);
    const Copy copy(_path, bytes);
    // Where no copy can be made, a first build loads as well without.
    return ::dlopen(copy.name().empty() ? _path.c_str() : copy.name().c_str(), mode);
}

}
