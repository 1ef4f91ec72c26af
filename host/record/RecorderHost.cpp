#include "host/driver/TapTarget.h"
#include "host/EnvironmentRules.h"
#include "host/ValueText.h"
#include "platform/UIButton.h"
#include "Recorder.h"
#include "ScriptText.h"

#include <algorithm>

// What the host does to the phone on a person's behalf.

namespace host {

using namespace platform;

void Recorder::endingEditing()
{
    writeForPage("done\n");
}

void Recorder::makingPagesAnew()
{
    writeForPage("reopen\n");
}

void Recorder::showingPageAgain()
{
    writeForPage("reappear\n");
}

void Recorder::storingPreference(const std::string& key, const std::optional<PropertyValue>& value)
{
    const auto text = value ? textFromValue(*value) : std::string();
    if (!fitsInScript(key) || !fitsInScript(text))
        return write("# The inspector changed what a script can't hold.\n");
    write(value
            ? "store " + scriptWord(key) + ' ' + std::string(typeName(*value)) + ' ' + scriptWord(text) + '\n'
            : "remove " + scriptWord(key) + '\n');
}

void Recorder::deletingPreferences()
{
    write("reset\n");
}

void Recorder::loadingBundleAnew()
{
    _reloadBegin = _file.size();
    write("# If the bundle had changed, what follows was done to another build.\nreload\n");
}

void Recorder::loadedBundleAnew(const std::optional<std::string>& failure)
{
    if (!failure)
        return;
    auto reason = *failure;
    std::replace_if(
        reason.begin(), reason.end(), [](unsigned char byte) { return byte < ' '; }, ' ');
    _file.replaceFrom(_reloadBegin, "# The bundle was loaded anew, in vain: " + reason + '\n');
    writeOfErrorPage();
}

void Recorder::goingBack()
{
    const bool canBeTapped = unscrolledPlaceOf(_phone.window(), _phone.navigation().backButton()).has_value();
    writeForPage(canBeTapped ? "back\n" : "# The page was left by a key, which no command does here.\n");
}

void Recorder::writeEnvironment()
{
    const auto now = environmentInWords(_phone);
    for (std::size_t index = 0; index < now.size(); ++index) {
        if (now[index] == _environment[index])
            continue;
        write("environment " + std::string(environmentRules()[index].name) + ' ' + scriptWord(now[index])
            + '\n');
    }
    _environment = now;
    _file.append(std::exchange(_releaseLater, {}));
    // What it leads to follows when it is replayed.
    ++_depth;
    _phone.settle();
    --_depth;
}

void Recorder::writeOfErrorPage()
{
    write("# What is done on the error page is not recorded.\n");
}

void Recorder::writeForPage(std::string_view line)
{
    if (!_phone.showsError())
        write(line);
}

}
