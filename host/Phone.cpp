#include "Phone.h"

#include "ErrorPage.h"
#include "Installation.h"
#include "Instant.h"
#include "LoaderEntry.h"
#include "PhoneObserver.h"
#include "platform/Device.h"
#include "platform/UIScrollView.h"
#include "platform/UITextField.h"

#include <filesystem>
#include <stdexcept>

namespace host {

using namespace platform;

namespace {

constexpr std::string_view ownName = "Vekora";

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
}

std::optional<std::string> Phone::openBundle()
{
    std::string error;
    try {
        const Installation installation(_options.root);
        std::string path;
        if (_options.bundle.empty()) {
            path = installation.installPane(InstallationSources::ofThisBuild());
            if (const auto entry = loaderEntryNamed(ownName)) {
                path = entry->bundlePath;
                _title = entry->label;
            }
        } else {
            path = installation.installBundle(_options.bundle);
        }
        _bundle = NSBundle::loadBundleAtPath(path, error);
    } catch (const std::runtime_error& failure) {
        error = failure.what();
    }
    if (_bundle)
        return showFirstPage();
    _navigation->setRoot(std::make_shared<ErrorPage>(error));
    return error;
}

std::optional<std::string> Phone::showFirstPage()
{
    const auto* const principal = _bundle->principalClass();
    const auto page = principal->make<UIViewController>(_navigation->contentSize());
    if (!page) {
        const auto error
            = "The principal class " + principal->name() + " of " + _bundle->path() + " is no page.";
        _navigation->setRoot(std::make_shared<ErrorPage>(error));
        return error;
    }
    _navigation->setRoot(page);
    if (page->title().empty())
        page->setTitle(_title);
    return std::nullopt;
}

void Phone::settle()
{
    const auto damage = _window->display();
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

void Phone::setScreen(CGSize size, int scale)
{
    const InputSpan input(_observer);
    if (_observer)
        _observer->screenChanges(size, scale);
    auto& device = Device::current();
    if (device.screenSize == size && device.scale == scale)
        return;
    device.screenSize = size;
    device.scale = scale;
    _window->setFrame({ 0, 0, size.width, size.height });
    _window->setScale(scale);
    _navigation->setSize(size);
    environmentDidChange();
}

void Phone::scrollAt(CGPoint point, CGFloat dy)
{
    const InputSpan input(_observer);
    for (auto* view = _window->hitTestWithEvent(point, nullptr); view; view = view->superview()) {
        if (auto* scroll = dynamic_cast<UIScrollView*>(view)) {
            scroll->setContentOffset({ scroll->contentOffset().x, scroll->contentOffset().y + dy });
            return;
        }
    }
}

}
