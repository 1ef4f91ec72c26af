#include "host/ElfFile.h"

#include "host/crash/SymbolFile.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <set>
#include <string>

using host::ElfFile;
using host::SymbolFile;

namespace {

/// A function of the file, where it lies in it, and by which names it can be called.
struct Function {
    std::uint64_t offset = 0;
    std::uint64_t size = 0;
    std::set<std::string> names;
};

Function firstFunctionOf(const ElfFile& file)
{
    constexpr unsigned typeMask = 0xf;
    ElfFile::Symbol first {};
    Function result;
    file.forEachEntry<ElfFile::Symbol>(SHT_DYNSYM, [&](const auto& symbol, const auto& texts) {
        if ((symbol.st_info & typeMask) != STT_FUNC || symbol.st_size == 0)
            return;
        if (first.st_size == 0)
            first = symbol;
        if (symbol.st_value == first.st_value)
            result.names.insert(file.textAt(texts, symbol.st_name));
    });
    result.size = first.st_size;
    file.forEachSegment([&](const auto& segment) {
        if (segment.p_type == PT_LOAD && first.st_value - segment.p_vaddr < segment.p_filesz)
            result.offset = first.st_value - segment.p_vaddr + segment.p_offset;
    });
    return result;
}

std::size_t countSymbols(const ElfFile& file)
{
    std::size_t count = 0;
    file.forEachEntry<ElfFile::Symbol>(SHT_DYNSYM,
        [&](const auto& symbol, const auto& texts) { count += !file.textAt(texts, symbol.st_name).empty(); });
    return count;
}

TEST(ElfFile, NamesTheFunctionThatHasAByte)
{
    const auto function = firstFunctionOf(ElfFile(LINT_MODULE));
    ASSERT_GT(function.size, 0U);
    const SymbolFile symbols(LINT_MODULE);
    EXPECT_TRUE(function.names.contains(symbols.functionAt(function.offset)));
    EXPECT_TRUE(function.names.contains(symbols.functionAt(function.offset + function.size - 1)));
    EXPECT_FALSE(function.names.contains(symbols.functionAt(function.offset + function.size)));
    EXPECT_EQ(symbols.functionAt(std::uint64_t { 1 } << 62U), "");
}

TEST(ElfFile, ThatIsNoneHasNothing)
{
    const TemporaryFolder folder;
    const auto path = folder.path() / "file";
    EXPECT_EQ(countSymbols(ElfFile(path)), 0U);
    writeTestFile(path, "#!/bin/sh\n");
    EXPECT_EQ(countSymbols(ElfFile(path)), 0U);
    EXPECT_EQ(SymbolFile(path).functionAt(0), "");
    EXPECT_EQ(countSymbols(ElfFile(folder.path())), 0U);
}

// Whatever a broken file says of itself, only its own bytes are read.
TEST(ElfFile, IsNotBelievedWhenItIsBroken)
{
    const TemporaryFolder folder;
    const auto path = folder.path() / "file";
    const auto whole = readTestFile(LINT_MODULE);
    const auto all = countSymbols(ElfFile(LINT_MODULE));
    ASSERT_GT(all, 0U);
    for (std::size_t length = 0; length < whole.size(); length += whole.size() / 64) {
        writeTestFile(path, whole.substr(0, length));
        EXPECT_LE(countSymbols(ElfFile(path)), all) << length;
        SymbolFile(path).functionAt(length / 2);
    }
    for (std::size_t at = EI_NIDENT; at < sizeof(ElfFile::Header); ++at) {
        auto broken = whole;
        broken[at] = static_cast<char>(~broken[at]);
        writeTestFile(path, broken);
        EXPECT_LE(countSymbols(ElfFile(path)), all) << at;
        SymbolFile(path).functionAt(whole.size() / 2);
    }
}

}
