#include "Phone.h"

#include "Installation.h"
#include "Instant.h"
#include "PhoneObserver.h"
#include "platform/Device.h"
#include "platform/qt/NotifyCenter.h"
#include "platform/UIScrollView.h"
#include "platform/UITextField.h"
#include "PreferenceFile.h"
#include "PreferenceState.h"

#include <stdexcept>

namespace host {

using namespace platform;

namespace {

void setUpDevice(const PhoneOptions& options)
{
    auto& device = Device::current();
    device.root = options.root;
    device.screenSize = options.size;
    device.scale = options.scale;
    device.locale = options.locale;
    device.timeZone = options.timeZone;
    device.standingClock = std::nullopt;
    if (options.now) {
        device.standingClock = instantFromText(*options.now, options.timeZone);
        if (!device.standingClock)
            throw std::runtime_error("\"" + *options.now + "\" is no instant in ISO 8601.");
    }
}

}

Phone::Phone(const PhoneOptions& options)
    : _options(options)
{
    const Installation installation(options.root);
    const auto sources = InstallationSources::ofThisBuild();
    if (options.toggle)
        installation.installToggle(sources);
    else
        installation.removeToggle();
    if (options.statusBar)
        installation.installStatusBarLibrary();
    else
        installation.removeStatusBarLibrary();

    setUpDevice(options);
    setPreferenceDomain(options.defaults);
    applyDirection();
    loadPlugIn(toggleLibraryPath);
    _window = std::make_shared<UIWindow>(options.size);
    _window->makeKey();
    _navigation = std::make_unique<UINavigationController>(options.size);
    _window->addSubview(_navigation->viewRef());
}

Phone::~Phone()
{
    // Pages go before the module that holds their code.
    _navigation->setRoot(nullptr);
    _navigation.reset();
    _window.reset();
    // Pages store what is being edited when they go. That must be told before the process may end, as what
    // the bus needs goes with it.
    flushNotifications();
}

void Phone::settle()
{
    // Layout may end the editing of a text, say, whose observer settles the phone.
    if (_settling)
        return;
    _settling = true;
    const auto damage = _window->display();
    _settling = false;
    if (_damageHandler && !damage.empty())
        _damageHandler(damage);
    if (_observer)
        _observer->phoneSettled();
}

void Phone::setDamageHandler(std::function<void(const std::vector<PixelRect>&)> handler)
{
    _damageHandler = std::move(handler);
}

void Phone::setObserver(PhoneObserver* observer)
{
    _observer = observer;
    _window->setInputObserver(observer);
}

bool Phone::goBack()
{
    if (_navigation->viewControllers().size() < 2)
        return false;
    const InputSpan input(_observer);
    if (_observer)
        _observer->goingBack();
    return _navigation->popViewController();
}

bool Phone::endEditing()
{
    auto* const field = _window->firstResponder();
    if (!field)
        return false;
    const InputSpan input(_observer);
    if (_observer)
        _observer->endingEditing();
    field->resignFirstResponder();
    return true;
}

std::string Phone::storePreference(const std::string& key, const std::optional<PropertyValue>& value)
{
    const InputSpan input(_observer);
    if (_observer)
        _observer->storingPreference(key, value);
    return host::storePreference(preferenceFile(), key, value);
}

std::string Phone::deletePreferences()
{
    const InputSpan input(_observer);
    if (_observer)
        _observer->deletingPreferences();
    return host::deletePreferences(preferenceFile());
}

void Phone::setScreen(CGSize size, int scale)
{
    const InputSpan input(_observer);
    auto& device = Device::current();
    if (device.screenSize == size && device.scale == scale)
        return;
    device.screenSize = _options.size = size;
    device.scale = _options.scale = scale;
    _window->setFrame({ 0, 0, size.width, size.height });
    _window->setScale(scale);
    _navigation->setSize(size);
    environmentDidChange();
}

void Phone::scrollAt(CGPoint point, CGFloat dy)
{
    for (auto* view = _window->hitTestWithEvent(point, nullptr); view; view = view->superview()) {
        if (auto* scroll = dynamic_cast<UIScrollView*>(view)) {
            scroll->setContentOffset({ scroll->contentOffset().x, scroll->contentOffset().y + dy });
            return;
        }
    }
}

}
