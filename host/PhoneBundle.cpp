#include "Installation.h"
#include "LoaderEntry.h"
#include "Phone.h"
#include "PhoneObserver.h"
#include "platform/PSListController.h"
#include "platform/UIAlertView.h"
#include "platform/UITextField.h"
#include "PreferenceFile.h"

#include <algorithm>
#include <cstdio>
#include <stdexcept>

namespace host {

using namespace platform;

namespace {

constexpr std::string_view ownName = "Vekora";

void layOutAnew(UIView& view)
{
    view.setNeedsLayout();
    view.setNeedsDisplay();
    for (const auto& subview : view.subviews())
        layOutAnew(*subview);
}

}

std::string Phone::bundleFolder() const
{
    return _options.bundle.empty() ? InstallationSources::ofThisBuild().bundle.string() : _options.bundle;
}

std::string Phone::installBundle()
{
    const Installation installation(_options.root);
    if (!_options.bundle.empty())
        return installation.installBundle(_options.bundle);
    const auto path = installation.installPane(InstallationSources::ofThisBuild());
    const auto entry = loaderEntryNamed(ownName);
    _title = entry ? entry->label : std::string();
    return entry ? entry->bundlePath : path;
}

std::optional<std::string> Phone::openBundle()
{
    std::string path;
    try {
        path = installBundle();
    } catch (const std::runtime_error& failure) {
        dropBundle();
        return showErrorPage({ .reason = failure.what() });
    }
    if (_bundle && !_bundle->isUpToDate())
        dropBundle();
    // What the bundle's own code throws is not caught: where it came from could not be told any more.
    std::string error;
    _bundle = NSBundle::loadBundleAtPath(path, error);
    return _bundle ? showFirstPage() : showErrorPage({ .reason = error });
}

std::optional<std::string> Phone::showFirstPage()
{
    const auto* const principal = _bundle->principalClass();
    const auto page = principal->make<UIViewController>(_navigation->contentSize());
    if (!page)
        return showErrorPage({ .reason
            = "The principal class " + principal->name() + " of " + _bundle->path() + " is no page." });
    _showsError = false;
    _navigation->setRoot(page);
    if (!_options.bundle.empty() && _options.defaults.empty())
        setPreferenceDomain(preferenceDomainOf(*_bundle, dynamic_cast<PSListController*>(page.get())));
    if (page->title().empty())
        page->setTitle(_title);
    return std::nullopt;
}

std::string Phone::showErrorPage(ErrorPage::Content content)
{
    _showsError = true;
    content.tryAgain = _tryAgain;
    const auto page = std::make_shared<ErrorPage>(std::move(content));
    _navigation->setRoot(page);
    return page->content().reason;
}

PagePath Phone::pagePath() const
{
    return _showsError ? _path : pagePathOf(*_navigation);
}

std::optional<std::string> Phone::reloadBundle()
{
    const InputSpan input(_observer);
    if (_observer)
        _observer->loadingBundleAnew();
    _path = pagePath();
    closePages();
    auto error = openBundle();
    if (!error)
        static_cast<void>(followPagePath(*_navigation, _path)); // As far as the pages are still there.
    if (_observer)
        _observer->loadedBundleAnew(error);
    return error;
}

void Phone::showError(ErrorPage::Content content)
{
    _path = pagePath();
    closePages();
    showErrorPage(std::move(content));
}

void Phone::makePagesAnew()
{
    const InputSpan input(_observer);
    if (_observer)
        _observer->makingPagesAnew();
    replacePages();
}

void Phone::showPageAgain()
{
    const InputSpan input(_observer);
    if (_observer)
        _observer->showingPageAgain();
    if (auto* const page = _navigation->topViewController())
        page->viewWillAppear(false);
}

void Phone::replacePages()
{
    if (_bundle && !_showsError) {
        _path = pagePath();
        // The old pages have gone before the new ones come: what they share is the new ones' then.
        closePages();
        if (!showFirstPage())
            static_cast<void>(followPagePath(*_navigation, _path));
    }
    layOutAnew(*_window);
}

void Phone::closePages()
{
    _window->touchCancelled();
    while (auto* const topmost = UIAlertView::topmost()) {
        // Whoever is told of the end of the editing may take the alert away.
        const auto alert = std::static_pointer_cast<UIAlertView>(topmost->shared_from_this());
        if (auto* const field = _window->firstResponder())
            field->resignFirstResponder();
        alert->removeFromSuperview();
    }
    if (auto* const field = _window->firstResponder())
        field->resignFirstResponder();
    const auto callbacks = _whenPagesGo;
    for (const auto& [number, callback] : callbacks)
        callback();
    _navigation->setRoot(nullptr);
    // With the layout the pages really go.
    _navigation->view().layoutIfNeeded();
}

void Phone::dropBundle()
{
    if (!_bundle)
        return;
    auto classes = _bundle->classesOfLiveObjects();
    if (const auto count = classes.size()) {
        std::sort(classes.begin(), classes.end());
        classes.erase(std::unique(classes.begin(), classes.end()), classes.end());
        std::string names;
        for (const auto& name : classes)
            names += (names.empty() ? "" : ", ") + name;
        std::fprintf(stderr, "Objects of the former build are still alive (%zu: %s), so its code stays.\n",
            count, names.c_str());
    }
    _bundle.reset();
}

int Phone::whenPagesGo(std::function<void()> callback)
{
    _whenPagesGo.emplace_back(_nextWhenPagesGo, std::move(callback));
    return _nextWhenPagesGo++;
}

void Phone::stopTellingWhenPagesGo(int number)
{
    std::erase_if(_whenPagesGo, [&](const auto& known) { return known.first == number; });
}

}
