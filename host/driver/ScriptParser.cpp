#include "ScriptParser.h"

#include <charconv>
#include <cmath>
#include <cstdint>
#include <optional>

namespace host {

namespace {

constexpr std::string_view blanks = " \t\r\v\f\n";
/// What a backslash between double quotes takes its meaning from; before anything else it stands for itself.
constexpr std::string_view escapedInDoubleQuotes = "\"\\$`";

bool isBlank(char character)
{
    return blanks.find(character) != std::string_view::npos;
}

class Splitter {
public:
    explicit Splitter(std::string_view line)
        : _line(line)
    {
    }

    ScriptLine split()
    {
        while (_place < _line.size() && _result.error.empty())
            takePiece();
        if (_result.error.empty())
            endWord();
        return std::move(_result);
    }

private:
    void takePiece()
    {
        const char character = _line[_place++];
        if (isBlank(character))
            endWord();
        else if (character == '\'')
            takeSingleQuotes();
        else if (character == '"')
            takeDoubleQuotes();
        else if (character != '\\')
            add(character);
        else if (_place < _line.size())
            add(_line[_place++]);
        else
            _result.error = "The backslash at the end of the line has nothing to stand before.";
    }

    void takeSingleQuotes()
    {
        const auto opened = _place;
        const auto end = _line.find('\'', opened);
        if (end == std::string_view::npos)
            return failOpenQuote(opened);
        _place = end + 1;
        _word = _word.value_or("").append(_line.substr(opened, end - opened));
    }

    void takeDoubleQuotes()
    {
        const auto opened = _place;
        _word = _word.value_or("");
        while (_place < _line.size()) {
            const char character = _line[_place++];
            if (character == '"')
                return;
            const bool escapes = character == '\\' && _place < _line.size()
                && escapedInDoubleQuotes.find(_line[_place]) != std::string_view::npos;
            add(escapes ? _line[_place++] : character);
        }
        failOpenQuote(opened);
    }

    void failOpenQuote(std::size_t columnFromOne)
    {
        _result.error = "The quotation mark in column " + std::to_string(columnFromOne) + " is never closed.";
    }

    void add(char character)
    {
        if (!_word)
            _word.emplace();
        _word->push_back(character);
    }

    void endWord()
    {
        if (_word)
            _result.words.push_back(std::move(*_word));
        _word.reset();
    }

    std::string_view _line;
    std::size_t _place = 0;
    std::optional<std::string> _word; ///< The one being read; empty quotes make a word, blanks none.
    ScriptLine _result;
};

/// How a UTF-8 sequence begins: its length by the first byte, and the smallest character it may stand for.
struct SequenceForm {
    unsigned char mask, lead;
    int following;
    char32_t least;
};

constexpr SequenceForm sequenceForms[] = {
    { 0x80, 0x00, 0, 0 },
    { 0xE0, 0xC0, 1, 0x80 },
    { 0xF0, 0xE0, 2, 0x800 },
    { 0xF8, 0xF0, 3, 0x10000 },
};

bool isCharacter(char32_t character)
{
    return character <= 0x10FFFF && (character < 0xD800 || character > 0xDFFF);
}

/// The character that begins at `place`, which moves behind it.
std::optional<char32_t> takeCharacter(std::string_view utf8, std::size_t& place)
{
    const auto first = static_cast<unsigned char>(utf8[place++]);
    for (const auto& form : sequenceForms) {
        if ((first & form.mask) != form.lead)
            continue;
        char32_t character = first & static_cast<unsigned char>(~form.mask);
        for (int i = 0; i < form.following; ++i) {
            if (place == utf8.size() || (static_cast<unsigned char>(utf8[place]) & 0xC0) != 0x80)
                return std::nullopt;
            character = character << 6 | (static_cast<unsigned char>(utf8[place++]) & 0x3F);
        }
        if (character < form.least || !isCharacter(character))
            return std::nullopt;
        return character;
    }
    return std::nullopt;
}

/// The words of the part of a line that can be read; one that may go on behind it is no whole word.
std::vector<std::string> wholeWords(std::string_view beginning)
{
    auto split = Splitter(beginning).split();
    if (split.error.empty() && !split.words.empty() && !isBlank(beginning.back()))
        split.words.pop_back();
    return std::move(split.words);
}

}

ScriptLine splitScriptLine(std::string_view line)
{
    const auto begin = line.find_first_not_of(blanks);
    if (begin == std::string_view::npos || line[begin] == '#')
        return {};
    for (std::size_t place = 0; place < line.size();) {
        const auto before = place;
        const auto character = takeCharacter(line, place);
        if (!character)
            return { wholeWords(line.substr(0, before)), "The line is not UTF-8." };
        if (*character == 0)
            return { wholeWords(line.substr(0, before)), "The line holds a NUL byte." };
    }
    return Splitter(line).split();
}

bool readNumber(std::string_view word, double& number)
{
    // C's notation allows a plus, which from_chars does not, and from_chars reads "inf" and "nan".
    if (word.starts_with('+') && !word.starts_with("+-"))
        word.remove_prefix(1);
    if (word.find_first_not_of("+-.0123456789eE") != std::string_view::npos)
        return false;
    double read = 0;
    const auto [end, error] = std::from_chars(word.data(), word.data() + word.size(), read);
    if (error != std::errc() || end != word.data() + word.size() || !std::isfinite(read))
        return false;
    number = read;
    return true;
}

bool readCount(std::string_view word, long& count)
{
    if (word.empty() || word.find_first_not_of("0123456789") != std::string_view::npos)
        return false;
    long read = 0;
    const auto [end, error] = std::from_chars(word.data(), word.data() + word.size(), read);
    if (error != std::errc() || end != word.data() + word.size())
        return false;
    count = read;
    return true;
}

bool readCharacters(std::string_view utf8, std::vector<char32_t>& characters)
{
    characters.clear();
    for (std::size_t place = 0; place < utf8.size();) {
        const auto character = takeCharacter(utf8, place);
        if (!character)
            return false;
        characters.push_back(*character);
    }
    return true;
}

}
