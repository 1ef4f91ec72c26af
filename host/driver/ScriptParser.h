#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace host {

/// A line of a script as words. When it cannot be split, `error` is one sentence that says why, and `words`
/// holds the whole words before the place.
struct ScriptLine {
    std::vector<std::string> words;
    std::string error;

    bool isPassedOver() const { return words.empty() && error.empty(); }
};

/// Splits as a shell does. Blanks separate words; 'single quotes' keep everything as it is; "double quotes"
/// keep everything but \" \\ \$ and \`; outside quotes a backslash keeps the next character; pieces that
/// touch are one word, and empty quotes are an empty word. Nothing is expanded, and "#" is special only as a
/// line's first character that is no blank: such a line has no words, as a blank one. A line that holds a NUL
/// byte or is not UTF-8 cannot be split.
ScriptLine splitScriptLine(std::string_view line);

/// The whole word as a number in C's decimal notation, its sign included. False for any other word, for the
/// words "inf" and "nan", and for a number that is too large to be finite.
[[nodiscard]] bool readNumber(std::string_view word, double& number);

/// Digits alone, and no more than a `long` holds.
[[nodiscard]] bool readCount(std::string_view word, long& count);

/// One character after another of a UTF-8 text. False when the text is not UTF-8 (overlong forms, surrogates
/// and numbers beyond U+10FFFF are not).
[[nodiscard]] bool readCharacters(std::string_view utf8, std::vector<char32_t>& characters);

}
