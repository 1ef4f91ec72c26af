#pragma once

#include "ErrorPage.h"
#include "PagePath.h"
#include "platform/Bitmap.h"
#include "platform/Geometry.h"
#include "platform/NSBundle.h"
#include "platform/NSDate.h"
#include "platform/PropertyValue.h"
#include "platform/UINavigationController.h"
#include "platform/UIWindow.h"

#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace host {

class PhoneObserver;

enum class TextDirection { OfTheLocale, LeftToRight, RightToLeft };

/// How a phone is set up for a run. Checked and filled in by `parseOptions` (Options.h).
struct PhoneOptions {
    std::string root; ///< Of the device's file system; empty for the user's data folder.
    platform::CGSize size { 375, 667 };
    int scale = 2;
    std::string locale; ///< Empty for the environment's.
    std::string timeZone; ///< Empty for the system's.
    std::optional<std::string> now; ///< ISO 8601; the clock then stands still.
    TextDirection direction = TextDirection::OfTheLocale;
    bool toggle = false;
    bool statusBar = false;
    std::string bundle; ///< A bundle's folder on this machine; empty for the project's own, as installed
                        ///< below the root.
    std::string defaults; ///< The domain of the preference file to look at; empty for the bundle's.
};

/// The Settings application without a window system: the device's root, the loaded bundle, and a window of
/// pages that is laid out, painted and touched in memory. The desktop window and the script driver both show
/// and drive one.
class Phone {
public:
    /// Makes the root with what a device always has, installs bundle, loader entry, toggle and status-bar
    /// library as the options say, and sets up `platform::Device`. Throws std::runtime_error with one
    /// sentence when it cannot.
    explicit Phone(const PhoneOptions&);
    ~Phone();

    /// Loads the bundle and shows its first page. On failure an error page is shown, and the true reason
    /// returned.
    std::optional<std::string> openBundle();
    /// Makes the pages anew, from the bundle as it is on disk now, and comes back to the pages that were
    /// open, scrolled as they were; after an error page, to those before it. A module that has not changed
    /// stays loaded. Returns as `openBundle` does. Must not be called from within anything of a page.
    std::optional<std::string> reloadBundle();
    /// Takes the pages away for an error page, and remembers them for the next `reloadBundle`.
    void showError(ErrorPage::Content);
    /// What the button on error pages does; without it they have none.
    void setTryAgain(std::function<void()> tryAgain) { _tryAgain = std::move(tryAgain); }

    /// The pages that are open, or that the next `reloadBundle` comes back to.
    PagePath pagePath() const;
    void setPagePath(PagePath path) { _path = std::move(path); }
    /// Where the bundle comes from on this machine.
    std::string bundleFolder() const;
    /// Whether an error page stands in for the bundle's.
    bool showsError() const { return _showsError; }
    /// Null while none is loaded.
    const platform::NSBundle* bundle() const { return _bundle.get(); }
    /// As they are now, the environment's changes among them.
    const PhoneOptions& options() const { return _options; }

    /// Called before pages go together with the code of their classes: whoever keeps a view or a page, if
    /// only weakly, lets go of it then. Returns a number to stop it with.
    int whenPagesGo(std::function<void()>);
    void stopTellingWhenPagesGo(int number);

    platform::UIWindow& window() { return *_window; }
    platform::UINavigationController& navigation() { return *_navigation; }

    /// Finishes pending layout and painting; the window's picture is then up to date, and whoever shows it is
    /// told what changed.
    void settle();
    /// Called with the picture's changed rectangles in device pixels, after each `settle` that changed any.
    void setDamageHandler(std::function<void(const std::vector<platform::PixelRect>&)>);

    /// For a host that records what is done to the phone; null for none. It must be taken away before it
    /// goes.
    void setObserver(PhoneObserver*);

    /// Leaves the page, as the way back in the bar does. False on the first page.
    bool goBack();
    /// Ends the editing of a text, as a tap beside it does. False when none is edited.
    bool endEditing();

    /// Scrolls whatever scrolls at this point of the window down by `dy` points.
    void scrollAt(platform::CGPoint, platform::CGFloat dy);

    /// Takes the screen to another size and scale while the pages stay, as turning a device does.
    void setScreen(platform::CGSize, int scale);

    // The environment, while pages are shown. Each change is immediate. What makes the pages anew comes back
    // to the same path of pages and scroll positions; a text that is being edited is stored first, and alerts
    // go, unanswered. docs/environment.md says what a pane sees of each, and when.

    /// Installs or removes the companion toggle: its files and its classes. The pages stay. Throws
    /// std::runtime_error with one sentence, as does the next.
    void setToggleInstalled(bool);
    bool toggleIsInstalled() const { return _options.toggle; }
    /// The status-bar library's file. The pages stay.
    void setStatusBarLibraryInstalled(bool);
    bool statusBarLibraryIsInstalled() const { return _options.statusBar; }
    /// An ICU name that is known. Makes the pages anew, as do the next three.
    void setLocale(const std::string&);
    /// An Olson name that is known.
    void setTimeZone(const std::string&);
    void setDirection(TextDirection);
    TextDirection direction() const { return _options.direction; }
    void setScale(int); ///< Pixels a point: 1, 2 or 3.
    /// The clock stands still from now on. The pages stay, as time passes on them too.
    void setStandingClock(platform::NSDate);
    void setRunningClock(); ///< The real one.
    /// Moves a standing clock on; back by a negative number. False when it is the real one.
    [[nodiscard]] bool moveClock(double seconds);

    /// Makes every page anew, as if Settings had been closed and opened again.
    void makePagesAnew();
    /// Lets the page on top appear again, as if one came back to it: most read their files then.
    void showPageAgain();

    // The preference file that is looked at (PreferenceFile.h), changed past the pane, as PreferenceState.h
    // has it. The answers are those of its functions.

    /// Changes one key; nothing removes it.
    std::string storePreference(const std::string& key, const std::optional<platform::PropertyValue>&);
    std::string deletePreferences();

    /// Called after each change of the environment, whoever made it. Returns a number to stop listening with.
    int listenToEnvironment(std::function<void()>);
    void stopListening(int listener);

private:
    std::string installBundle(); ///< Returns its device path.
    std::optional<std::string> showFirstPage();
    std::string showErrorPage(ErrorPage::Content);
    void replacePages(); ///< As `makePagesAnew`, as part of something else.
    void closePages();
    void dropBundle();
    void applyDirection() const;
    void environmentDidChange() const;

    PhoneOptions _options;
    std::string _title; ///< Of the bundle's entry in the list of settings; empty without one.
    platform::Ref<platform::UIWindow> _window;
    std::unique_ptr<platform::UINavigationController> _navigation;
    std::shared_ptr<platform::NSBundle> _bundle;
    bool _showsError = false;
    PagePath _path; ///< To come back to while an error is shown.
    std::function<void()> _tryAgain;
    std::vector<std::pair<int, std::function<void()>>> _whenPagesGo;
    int _nextWhenPagesGo = 1;
    std::function<void(const std::vector<platform::PixelRect>&)> _damageHandler;
    PhoneObserver* _observer = nullptr;
    std::vector<std::pair<int, std::function<void()>>> _listeners;
    int _nextListener = 1;
    bool _settling = false;
};

}
