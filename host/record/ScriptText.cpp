#include "ScriptText.h"

#include "host/driver/ScriptParser.h"
#include "host/PhoneValues.h"

#include <algorithm>
#include <charconv>
#include <filesystem>

namespace host {

namespace {

/// What a line can't hold, byte by byte, for the shells that read such words.
std::string escapedShellWord(const std::string& text)
{
    std::string word = "$'";
    for (const char character : text) {
        const auto byte = static_cast<unsigned char>(character);
        if (byte >= ' ' && byte < 0x7F && character != '\'' && character != '\\') {
            word += character;
            continue;
        }
        word += '\\';
        for (const int shift : { 6, 3, 0 })
            word += static_cast<char>('0' + (byte >> shift & 7));
    }
    return word + "'";
}

/// For a shell; what needs no quotation marks gets none.
std::string shellWord(const std::string& text)
{
    constexpr std::string_view harmless
        = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789_-+=./:,@%";
    if (!text.empty() && text.find_first_not_of(harmless) == std::string::npos)
        return text;
    if (!fitsInScript(text))
        return escapedShellWord(text);
    std::string quoted = "'";
    for (const char character : text)
        quoted += character == '\'' ? std::string("'\\''") : std::string(1, character);
    return quoted + "'";
}

bool holdsFiles(const std::filesystem::path& folder)
{
    std::error_code error;
    const std::filesystem::directory_iterator entries(folder, error);
    return !error && entries != std::filesystem::directory_iterator();
}

}

bool fitsInScript(std::string_view text)
{
    std::vector<char32_t> characters;
    return readCharacters(text, characters)
        && std::none_of(characters.begin(), characters.end(),
            [](char32_t character) { return character < 0x20 || character == 0x7F; });
}

std::string scriptWord(std::string_view text)
{
    std::string word = "\"";
    for (const char character : text) {
        if (std::string_view("\"\\$`").find(character) != std::string_view::npos)
            word += '\\';
        word += character;
    }
    return word + '"';
}

std::string scriptNumber(double number)
{
    char text[32];
    const auto end = std::to_chars(text, text + sizeof text, number).ptr;
    return { text, end };
}

std::string scriptLine(std::string_view command, platform::CGPoint point)
{
    return std::string(command) + ' ' + scriptNumber(point.x) + ' ' + scriptNumber(point.y) + '\n';
}

std::string recordingHeader(const PhoneOptions& options, const std::string& file)
{
    const auto preferences = std::filesystem::path(options.root) / "private/var/mobile/Library/Preferences";
    const auto hadPreferences = holdsFiles(preferences);
    // What it began without must not be there again.
    std::string line = "# ./run drive --root "
        + (hadPreferences ? shellWord(options.root) : "\"$(mktemp -d)\"") + " --size "
        + scriptNumber(options.size.width) + "x" + scriptNumber(options.size.height) + " --scale "
        + std::to_string(options.scale) + " --locale " + shellWord(options.locale) + " --timezone "
        + shellWord(options.timeZone);
    if (options.now)
        line += " --now " + shellWord(*options.now);
    if (options.toggle)
        line += " --toggle";
    if (options.statusBar)
        line += " --statusbar";
    if (!options.bundle.empty())
        line += " --bundle " + shellWord(options.bundle);
    if (!options.defaults.empty())
        line += " --defaults " + shellWord(options.defaults);
    if (options.direction != TextDirection::OfTheLocale)
        line += " --direction " + std::string(wordFor(options.direction));
    // Else it would be an option, or standard input.
    const auto name = file.starts_with('-') ? "./" + file : file;
    std::string text = "# Recorded in the window. This replays it:\n" + line + ' ' + shellWord(name) + '\n';
    text += hadPreferences
        ? "# There were preferences when it began; they must be there again, or another root hold them.\n"
        : "# There were no preferences when it began, so the root is a new one.\n";
    if (!options.now)
        text += "# The clock ran. With --now it stands still, and what it shows is the same each time.\n";
    return text;
}

}
