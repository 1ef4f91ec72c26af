#include "PickerStage.h"

#include <iostream>

// Fingers, dialogs and the owner in any order, against the model. A difference is reported with the shortest
// script that could be found to show it.
namespace vekora::test {

namespace {

/// Leaves out whatever the difference does not need: halves, quarters, and so on to single events.
template <typename Picker> Script shrunk(Script script)
{
    for (auto length = script.size() / 2; length > 0; length /= 2) {
        for (std::size_t start = 0; start < script.size();) {
            auto shorter = script;
            const auto first = shorter.begin() + static_cast<std::ptrdiff_t>(start);
            shorter.erase(
                first, first + static_cast<std::ptrdiff_t>(std::min(length, script.size() - start)));
            if (Stage<Picker>().play(shorter).empty())
                start += length;
            else
                script = std::move(shorter);
        }
    }
    return script;
}

}

template <typename Picker> class EveryColorPickerAtRandom : public testing::Test {
};

TYPED_TEST_SUITE(EveryColorPickerAtRandom, Kinds, KindNames);

TYPED_TEST(EveryColorPickerAtRandom, DoesAsItsModel)
{
    constexpr int scripts = 200;
    constexpr std::size_t length = 500;
    std::size_t dialogs = 0;
    std::size_t commits = 0;
    for (const std::uint64_t seed : { 20140105u, 7u }) {
        std::cout << "seed " << seed << ", " << scripts * length << " events\n";
        Scripts source(seed);
        for (int number = 0; number < scripts; ++number) {
            const auto script = source.next(length);
            Stage<TypeParam> stage;
            if (const auto wrong = stage.play(script); !wrong.empty()) {
                const auto shortest = shrunk<TypeParam>(script);
                std::string lines;
                for (const auto& event : shortest)
                    lines += "  " + written(event) + "\n";
                FAIL() << "seed " << seed << ", script " << number << ": " << wrong
                       << "\nshrunk: " << Stage<TypeParam>().play(shortest) << "\n"
                       << lines;
            }
            dialogs += stage.dialogs();
            commits += stage.commits();
        }
    }
    EXPECT_GT(dialogs, 1000u);
    EXPECT_GT(commits, 20000u);
}

}
