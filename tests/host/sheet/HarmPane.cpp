#include "platform/PSListController.h"

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <random>
#include <stdexcept>
#include <unistd.h>

// A pane that does the harm that the variable HARM names, once it is drawn.

namespace harmpane {

using namespace platform;

class HarmView final : public UIView {
public:
    using UIView::UIView;

    void drawRect(CGRect) override
    {
        const char* const harm = std::getenv("HARM");
        if (!harm)
            return;
        const auto is = [&](const char* word) { return std::strcmp(harm, word) == 0; };
        if (is("crash"))
            static_cast<void>(*static_cast<volatile int*>(nowhere()));
        if (is("throw"))
            throw std::runtime_error("the cupboard is bare");
        if (is("throw-number"))
            throw 42;
        if (is("exit"))
            std::exit(0);
        if (is("exit-at-once"))
            ::_exit(0);
        if (is("kill"))
            ::kill(::getpid(), SIGKILL);
        if (is("hang")) {
            for (;;)
                ::pause();
        }
        if (is("print")) {
            std::puts("to standard output");
            std::fputs("to standard error\n", stderr);
        }
    }

private:
    static int* nowhere(); ///< Nothing in sight says that it is null.
};

[[gnu::noinline]] int* HarmView::nowhere()
{
    return nullptr;
}

class HarmPage final : public PSListController {
public:
    using PSListController::PSListController;

    void loadView() override
    {
        PSListController::loadView();
        view().addSubview(std::make_shared<HarmView>(CGRect { 0, 0, 1, 1 }));
        const char* const harm = std::getenv("HARM");
        if (harm && std::strcmp(harm, "noise") == 0)
            addNoise();
    }

private:
    /// Nothing makes a picture of it small.
    void addNoise()
    {
        constexpr CGFloat side = 6;
        std::minstd_rand random;
        std::uniform_real_distribution<CGFloat> component(0, 1);
        for (CGFloat y = 0; y < contentSize().height; y += side) {
            for (CGFloat x = 0; x < contentSize().width; x += side) {
                const auto dot = std::make_shared<UIView>(CGRect { x, y, side, side });
                dot->setBackgroundColor(UIColor::colorWithRedGreenBlueAlpha(
                    component(random), component(random), component(random), 1));
                view().addSubview(dot);
            }
        }
    }
};

namespace {

const auto page = registerClass<HarmPage>("HarmPage").initialiser<CGSize>();
const auto view = registerClass<HarmView>("HarmView");

}

}
