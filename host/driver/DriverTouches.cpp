#include "DriverCommands.h"

#include "Json.h"
#include "platform/PSListController.h"
#include "platform/qt/TextEditor.h"
#include "platform/UIButton.h"
#include "ScriptParser.h"
#include "TapTarget.h"
#include "ViewSearch.h"

namespace host {

using namespace platform;

namespace {

constexpr long usualSteps = 10;
constexpr long mostSteps = 100000;

CGPoint pointFromWords(Words words)
{
    return { pointsFromWord(words[0]), pointsFromWord(words[1]) };
}

QJsonObject at(CGPoint point)
{
    return { { "at", jsonFromPoint(point) } };
}

CGPoint placeOrFail(Driver& driver, UIView& view, const std::string& what)
{
    const auto place = touchablePlace(driver.phone(), view);
    if (!place)
        throw CommandFailure("Something lies over " + what + ", so it can't be touched.");
    return *place;
}

CGPoint placeOfText(Driver& driver, const std::string& text)
{
    if (text.empty())
        throw CommandFailure("An empty text is shown nowhere.");
    auto views = viewsShowing(driver.window(), text);
    if (views.empty()) {
        showRowTitled(driver.phone(), text);
        views = viewsShowing(driver.window(), text);
    }
    if (views.empty())
        throw CommandFailure("Nothing that is shown reads " + quoted(text) + ".");
    bringInSightFirst(views);
    for (auto* view : views) {
        if (isOutOfReach(driver.window(), *view))
            continue;
        if (const auto place = touchablePlace(driver.phone(), meantBy(*view)))
            return *place;
    }
    throw CommandFailure("Something lies over " + quoted(text) + ", so it can't be touched.");
}

QJsonObject tap(Driver& driver, Words words)
{
    const auto place = words.size() == 2 ? pointFromWords(words) : placeOfText(driver, words[0]);
    driver.tap(place);
    return at(place);
}

QJsonObject row(Driver& driver, Words words)
{
    NSIndexPath path;
    for (std::size_t i = 0; i < 2; ++i) {
        if (!readCount(words[i], i ? path.row : path.section))
            throw CommandFailure(quoted(words[i]) + " is not a number of a row or section.");
    }
    auto& page = driver.page();
    auto* cell = page.specifierAtIndexPath(path) ? page.table().cellForRowAtIndexPath(path) : nullptr;
    if (!cell)
        throw CommandFailure("The page has no row " + words[1] + " in section " + words[0] + ".");
    show(driver.phone(), *cell);
    const auto place = placeOrFail(driver, meantBy(*cell), "the row");
    driver.tap(place);
    return at(place);
}

QJsonObject press(Driver& driver, Words words)
{
    const auto point = pointFromWords(words);
    driver.press(point);
    return at(point);
}

QJsonObject again(Driver& driver, Words words)
{
    constexpr double anyTime = 1;
    const auto point = pointFromWords(words);
    // Wherever the touch before it was, and however long ago.
    if (auto* field = dynamic_cast<UITextField*>(driver.window().hitTestWithEvent(point, nullptr)))
        field->editor().rememberPress(field->convertPointFromView(point, nullptr).x, anyTime);
    driver.press(point, anyTime);
    return at(point);
}

QJsonObject wheel(Driver& driver, Words words)
{
    const auto point = pointFromWords(words);
    driver.phone().scrollAt(point, pointsFromWord(words[2]));
    return at(point);
}

QJsonObject move(Driver& driver, Words words)
{
    const auto point = pointFromWords(words);
    driver.move(point);
    return at(point);
}

QJsonObject release(Driver& driver, Words words)
{
    const auto point = pointFromWords(words);
    driver.release(point);
    return at(point);
}

QJsonObject drag(Driver& driver, Words words)
{
    const auto from = pointFromWords(words);
    const auto to = pointFromWords(words.subspan(2));
    long steps = usualSteps;
    if (words.size() == 5 && (!readCount(words[4], steps) || steps < 1 || steps > mostSteps))
        throw CommandFailure("STEPS is a whole number from 1 to " + std::to_string(mostSteps) + ", not "
            + quoted(words[4]) + ".");
    driver.press(from);
    for (long step = 1; step <= steps; ++step) {
        const double part = static_cast<double>(step) / static_cast<double>(steps);
        // The last step must be the end itself, whatever the sums round to.
        driver.move(step == steps
                ? to
                : CGPoint { from.x + (to.x - from.x) * part, from.y + (to.y - from.y) * part });
    }
    driver.release(to);
    return at(to);
}

QJsonObject back(Driver& driver, Words)
{
    auto& navigation = driver.phone().navigation();
    if (navigation.viewControllers().size() < 2)
        throw CommandFailure("The first page is shown; there is no way back.");
    driver.tap(placeOrFail(driver, navigation.backButton(), "the way back"));
    const auto* page = navigation.topViewController();
    return { { "title", jsonFromTextOrNull(page->title()) } };
}

constexpr DriverCommand commands[] = {
    { "tap", 1, 2, "one text, in quotation marks when it has blanks, or X and Y", tap },
    { "row", 2, 2, "SECTION and ROW", row },
    { "press", 2, 2, "X and Y", press },
    { "again", 2, 2, "X and Y", again },
    { "move", 2, 2, "X and Y", move },
    { "release", 2, 2, "X and Y", release },
    { "drag", 4, 5, "X1, Y1, X2, Y2 and perhaps STEPS", drag },
    { "back", 0, 0, "", back },
    { "wheel", 3, 3, "X, Y and DY", wheel },
};

}

std::span<const DriverCommand> touchCommands()
{
    return commands;
}

}
