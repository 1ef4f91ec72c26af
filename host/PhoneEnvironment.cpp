#include "Phone.h"

#include "Installation.h"
#include "Instant.h"
#include "PhoneObserver.h"
#include "platform/Device.h"

#include <QLocale>

#include <algorithm>

namespace host {

using namespace platform;

void Phone::setToggleInstalled(bool isInstalled)
{
    const InputSpan input(_observer);
    if (isInstalled == _options.toggle)
        return;
    const Installation installation(_options.root);
    if (isInstalled)
        installation.installToggle(InstallationSources::ofThisBuild());
    else
        installation.removeToggle();
    _options.toggle = isInstalled;
    // Without a file this takes the classes away.
    loadPlugIn(toggleLibraryPath);
    environmentDidChange();
}

void Phone::setStatusBarLibraryInstalled(bool isInstalled)
{
    const InputSpan input(_observer);
    if (isInstalled == _options.statusBar)
        return;
    const Installation installation(_options.root);
    if (isInstalled)
        installation.installStatusBarLibrary();
    else
        installation.removeStatusBarLibrary();
    _options.statusBar = isInstalled;
    environmentDidChange();
}

void Phone::setLocale(const std::string& locale)
{
    const InputSpan input(_observer);
    auto& device = Device::current();
    if (locale == device.locale)
        return;
    device.locale = _options.locale = locale;
    applyDirection();
    replacePages();
    environmentDidChange();
}

void Phone::setTimeZone(const std::string& timeZone)
{
    const InputSpan input(_observer);
    auto& device = Device::current();
    if (timeZone == device.timeZone)
        return;
    device.timeZone = _options.timeZone = timeZone;
    replacePages();
    environmentDidChange();
}

void Phone::setDirection(TextDirection direction)
{
    const InputSpan input(_observer);
    if (direction == _options.direction)
        return;
    _options.direction = direction;
    applyDirection();
    replacePages();
    environmentDidChange();
}

void Phone::applyDirection() const
{
    const QLocale locale(QString::fromStdString(_options.locale));
    Device::current().rightToLeft = _options.direction == TextDirection::OfTheLocale
        ? locale.textDirection() == Qt::RightToLeft
        : _options.direction == TextDirection::RightToLeft;
}

void Phone::setScale(int scale)
{
    const InputSpan input(_observer);
    auto& device = Device::current();
    if (device.scale == scale)
        return;
    device.scale = _options.scale = scale;
    _window->setScale(scale);
    replacePages(); // Images are loaded, and texts measured, for a scale.
    environmentDidChange();
}

void Phone::setStandingClock(NSDate date)
{
    const InputSpan input(_observer);
    Device::current().standingClock = date;
    _options.now = textFromInstant(date); // To the microsecond.
    environmentDidChange();
}

void Phone::setRunningClock()
{
    const InputSpan input(_observer);
    Device::current().standingClock = std::nullopt;
    _options.now = std::nullopt;
    environmentDidChange();
}

bool Phone::moveClock(double seconds)
{
    const auto& standing = Device::current().standingClock;
    if (!standing)
        return false;
    setStandingClock(standing->dateByAddingTimeInterval(seconds));
    return true;
}

int Phone::listenToEnvironment(std::function<void()> listener)
{
    _listeners.emplace_back(_nextListener, std::move(listener));
    return _nextListener++;
}

void Phone::stopListening(int listener)
{
    std::erase_if(_listeners, [&](const auto& known) { return known.first == listener; });
}

void Phone::environmentDidChange() const
{
    // A listener may come or go meanwhile.
    const auto listeners = _listeners;
    for (const auto& told : listeners) {
        const auto isThere = std::any_of(_listeners.begin(), _listeners.end(),
            [&](const auto& known) { return known.first == told.first; });
        if (isThere)
            told.second();
    }
}

}
