#include "platform/NSMutableDictionary.h"
#include "platform/PSListController.h"

#include <csignal>
#include <cstdlib>
#include <stdexcept>
#include <thread>

// A pane that is built in several ways, as its author goes on with it: BUILD is the build's number, and
// TROUBLE what that build does wrong.

namespace pane {

using namespace platform;

namespace trouble {
constexpr int none = 0;
constexpr int onLoading = 1;
constexpr int onOpening = 2;
constexpr int whilePainting = 3;
constexpr int missingSymbol = 4;
constexpr int throwsOnOpening = 6;
constexpr int endlessOnLoading = 7;
constexpr int exitsOnOpening = 8;
constexpr int crashInThread = 9;
}

/// Does harm, and would end the report of it where it is written down.
constexpr const char* forgingSelector = "readNothing\nframe 1\nnote\nall is well\x7f\t";

int* nowhere(); ///< Nothing in sight says that it is null.
[[gnu::noinline]] int* nowhere()
{
    return nullptr;
}

#if TROUBLE == 4
int functionThatNobodyWrote(int);
#endif

/// Each function that goes wrong has a name of its own to be found by.
struct Wrongdoer {
    [[gnu::noinline]] static void readNothing() { static_cast<void>(*static_cast<volatile int*>(nowhere())); }
    [[gnu::noinline]] static void callNothing() { reinterpret_cast<void (*)()>(nowhere())(); }
    [[gnu::noinline]] static void divideByZero()
    {
        volatile int zero = 0;
        volatile int quotient = 7 / zero;
        static_cast<void>(quotient);
    }
    [[gnu::noinline]] static void beImpossible() { __builtin_trap(); }
    [[gnu::noinline]] static void giveUp() { std::abort(); }
    [[gnu::noinline]] static void readBeyondAFile() { std::raise(SIGBUS); }
    [[gnu::noinline]] static void complain() { throw std::runtime_error("the cupboard is bare"); }
    [[gnu::noinline]] static void complainOddly() { throw 42; }
    [[gnu::noinline]] static void leave()
    {
        constexpr int status = 7;
        std::exit(status);
    }
    [[gnu::noinline]] static void goOnForEver()
    {
        volatile unsigned long round = 0;
        for (;;)
            static_cast<void>(round);
    }
    // A frame of some size, so that its end is reached before long.
    [[gnu::noinline]] static int neverReturn(int depth) // NOLINT(misc-no-recursion)
    {
        volatile char frame[4096] = {};
        frame[depth % 4096] = 1;
        return nowhere() ? 0 : neverReturn(depth + 1) + frame[depth % 7];
    }
};

class PaneView final : public UIView {
public:
    using UIView::UIView;

    void drawRect(CGRect) override
    {
        if (TROUBLE == trouble::whilePainting)
            Wrongdoer::readNothing();
    }
};

class PanePage final : public PSListController {
public:
    [[gnu::noinline]] explicit PanePage(CGSize size)
        : PSListController(size)
    {
        if (TROUBLE == trouble::onOpening)
            Wrongdoer::readNothing();
        if (TROUBLE == trouble::throwsOnOpening)
            Wrongdoer::complain();
        if (TROUBLE == trouble::exitsOnOpening)
            Wrongdoer::leave();
        if (TROUBLE == trouble::crashInThread)
            std::thread(Wrongdoer::readNothing).join();
#if TROUBLE == 4
        functionThatNobodyWrote(BUILD);
#endif
    }

    const Specifiers& specifiers() override
    {
        if (!_specifiers)
            _specifiers = loadSpecifiersFromPlistNameTarget("Pane", this);
        return *_specifiers;
    }

    void loadView() override
    {
        PSListController::loadView();
        view().addSubview(std::make_shared<PaneView>(CGRect { 0, 0, 1, 1 }));
    }

    void bump()
    {
        setTitle("Bumped by build " + std::to_string(BUILD));
    }
};

/// Long, so that it scrolls; in the second build a row longer at its top. Its rows do harm by name.
class PaneMorePage final : public PSListController {
public:
    using PSListController::PSListController;

    const Specifiers& specifiers() override
    {
        if (_specifiers)
            return *_specifiers;
        _specifiers.emplace();
        if (BUILD > 1)
            add("New in build " + std::to_string(BUILD), "bump:");
        add("First", "bump:");
        for (const char* harm : { "readNothing", "callNothing", "divideByZero", "beImpossible", "giveUp",
                 "readBeyondAFile", "complain", "complainOddly", "neverReturn" })
            add(harm, harm);
        constexpr int rows = 40;
        for (int row = 0; row < rows; ++row)
            add("Row " + std::to_string(row), "bump:");
        add("forge", forgingSelector);
        add("leave", "leave");
        return *_specifiers;
    }

    /// For whoever sees the files of the device alone.
    void bump(PSSpecifier* row)
    {
        const NSMutableDictionary tapped(PropertyList { { "row", row->name() }, { "build", BUILD } });
        static_cast<void>(tapped.writeToFileAtomically(
            "/private/var/mobile/Library/Preferences/net.morvane.pane.plist", true));
    }
    void readNothing() { Wrongdoer::readNothing(); }
    void callNothing() { Wrongdoer::callNothing(); }
    void divideByZero() { Wrongdoer::divideByZero(); }
    void beImpossible() { Wrongdoer::beImpossible(); }
    void giveUp() { Wrongdoer::giveUp(); }
    void readBeyondAFile() { Wrongdoer::readBeyondAFile(); }
    void complain() { Wrongdoer::complain(); }
    void complainOddly() { Wrongdoer::complainOddly(); }
    void leave() { Wrongdoer::leave(); }
    void neverReturn() { setTitle(std::to_string(Wrongdoer::neverReturn(1))); }

private:
    void add(const std::string& name, const char* action)
    {
        auto row = PSSpecifier::preferenceSpecifierNamedTargetSetGetDetailCellEdit(
            name, this, {}, {}, nullptr, PSCellType::Button, nullptr);
        row->setButtonAction(action);
        _specifiers->push_back(row);
    }
};

class PaneNoPage final : public NSObject {
public:
    explicit PaneNoPage(CGSize) { }
};

namespace {

const auto page = registerClass<PanePage>("PanePage").initialiser<CGSize>().method("bump", &PanePage::bump);
const auto morePage = registerClass<PaneMorePage>("PaneMorePage")
                          .initialiser<CGSize>()
                          .method("bump:", &PaneMorePage::bump)
                          .method("readNothing", &PaneMorePage::readNothing)
                          .method(forgingSelector, &PaneMorePage::readNothing)
                          .method("callNothing", &PaneMorePage::callNothing)
                          .method("divideByZero", &PaneMorePage::divideByZero)
                          .method("beImpossible", &PaneMorePage::beImpossible)
                          .method("giveUp", &PaneMorePage::giveUp)
                          .method("readBeyondAFile", &PaneMorePage::readBeyondAFile)
                          .method("complain", &PaneMorePage::complain)
                          .method("complainOddly", &PaneMorePage::complainOddly)
                          .method("leave", &PaneMorePage::leave)
                          .method("neverReturn", &PaneMorePage::neverReturn);
const auto view = registerClass<PaneView>("PaneView");
const auto noPage = registerClass<PaneNoPage>("PaneNoPage").initialiser<CGSize>();

struct OnLoading {
    OnLoading()
    {
        if (TROUBLE == trouble::onLoading)
            Wrongdoer::readNothing();
        if (TROUBLE == trouble::endlessOnLoading)
            Wrongdoer::goOnForEver();
    }
} const onLoading;

}

}
