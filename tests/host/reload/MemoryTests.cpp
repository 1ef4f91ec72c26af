#include "PaneFolder.h"
#include "tests/host/PhoneFixture.h"

#include <QCoreApplication>

#include <cstdio>
#include <malloc.h>
#include <set>
#include <unistd.h>

#if defined(__SANITIZE_ADDRESS__)
// Not every compiler brings the header along.
extern "C" std::size_t __sanitizer_get_current_allocated_bytes(); // NOLINT(bugprone-reserved-identifier)
#endif

using namespace platform;

// Nothing may grow with the pages that are opened or the builds that are loaded, from the tenth on: neither
// the objects, nor the memory that is in use, nor what the process takes of the machine's.

namespace {

constexpr int warmUp = 10;
constexpr int openings = 220;
/// A hash table or a list that happens to grow in between is none that always does.
constexpr std::size_t noise = 16UL * 1024;
/// What the system's allocator holds in its own pages moves up and down.
constexpr std::size_t residentNoise = 2UL * 1024 * 1024;

/// The address sanitizer enters a function of its own into the list of what to do at exit, for good, with
/// each static object that a module enters there and takes back.
#if defined(__SANITIZE_ADDRESS__)
constexpr std::size_t keptForEachLoad = 512;
#else
constexpr std::size_t keptForEachLoad = 0;
#endif

std::size_t bytesInUse()
{
#if defined(__SANITIZE_ADDRESS__)
    return __sanitizer_get_current_allocated_bytes();
#else
    const auto info = ::mallinfo2();
    return info.uordblks + info.hblkhd;
#endif
}

/// 0 where it says nothing: freed memory is held back there.
std::size_t residentBytes()
{
#if defined(__SANITIZE_ADDRESS__)
    return 0;
#else
    long pages = 0;
    long resident = 0;
    std::ifstream("/proc/self/statm") >> pages >> resident;
    return static_cast<std::size_t>(resident) * static_cast<std::size_t>(::sysconf(_SC_PAGESIZE));
#endif
}

std::size_t objects()
{
    std::size_t count = 0;
    NSObject::_visitAll([&](const NSObject&) { ++count; });
    return count;
}

class Memory : public PhoneTest {
protected:
    /// Goes through it once after the other, and compares the last time with the tenth.
    template <typename Round>
    void expectNoGrowth(int rounds, const Round& round, std::size_t keptForEachRound = 0)
    {
        std::size_t objectsBefore = 0;
        std::size_t bytesBefore = 0;
        std::size_t residentBefore = 0;
        for (int count = 1; count <= rounds; ++count) {
            round();
            phone->settle();
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
            QCoreApplication::processEvents();
            if (count == warmUp) {
                objectsBefore = objects();
                bytesBefore = bytesInUse();
                residentBefore = residentBytes();
            }
        }
        EXPECT_EQ(objects(), objectsBefore);
        EXPECT_LE(
            bytesInUse(), bytesBefore + noise + keptForEachRound * static_cast<std::size_t>(rounds - warmUp));
        EXPECT_LE(residentBytes(), residentBefore + residentNoise);
    }

    /// Opens every page that a row leads to, down to the last, and comes back.
    void openEveryPage(int depth = 0) // NOLINT(misc-no-recursion)
    {
        auto* const list = dynamic_cast<PSListController*>(phone->navigation().topViewController());
        if (!list || depth > 3)
            return;
        std::vector<NSIndexPath> links;
        for (const auto& row : list->specifiers()) {
            if (row->cellType() == PSCellType::Link || row->cellType() == PSCellType::LinkList)
                links.push_back(*list->indexPathForSpecifier(row.get()));
        }
        for (const auto& place : links) {
            list->table().scrollToRowAtIndexPath(place);
            phone->settle();
            const auto row
                = list->table().convertRectToView(list->table().rectForRowAtIndexPath(place), nullptr);
            tap({ row.midX(), row.midY() });
            if (phone->navigation().topViewController() == list)
                continue;
            opened.insert(phone->navigation().topViewController()->className());
            openEveryPage(depth + 1);
            phone->navigation().popViewController();
            phone->settle();
        }
    }

    std::set<std::string> opened;
};

}

TEST_F(Memory, DoesNotGrowWithThePagesOfThePane)
{
    open(options());
    expectNoGrowth(openings, [&] { openEveryPage(); });
    EXPECT_EQ(opened, (std::set<std::string> { "PSListItemsController", "VekoraColorSelectorController" }));
}

TEST_F(Memory, DoesNotGrowWithPagesThatAreMadeAnew)
{
    auto chosen = options();
    chosen.bundle = GALLERY_BUNDLE;
    open(chosen);
    expectNoGrowth(openings, [&] { phone->makePagesAnew(); });
}

TEST_F(Memory, DoesNotGrowWithScreensAndScales)
{
    open(options());
    int round = 0;
    expectNoGrowth(openings, [&] {
        ++round;
        phone->setScreen({ round % 2 ? 320.0 : 414.0, round % 2 ? 480.0 : 736.0 }, 1 + round % 2);
        openEveryPage();
    });
}

TEST_F(Memory, DoesNotGrowWithBuilds)
{
    PaneFolder pane { folder.path() / "Pane.bundle" };
    pane.build("good1");
    auto chosen = options();
    chosen.bundle = pane.path().string();
    open(chosen);
    tapRow("More");
    int round = 0;
    const auto swap = [&] {
        pane.link(++round % 2 ? "good2" : "good1");
        EXPECT_EQ(phone->reloadBundle().value_or(""), "");
    };
    // Compared between builds of the same kind.
    expectNoGrowth(
        openings / 2,
        [&] {
            swap();
            swap();
        },
        2 * keptForEachLoad);
    EXPECT_EQ(page().title(), "More");
}

TEST_F(Memory, DoesNotGrowWithErrorPages)
{
    PaneFolder pane { folder.path() / "Pane.bundle" };
    pane.build("good1");
    auto chosen = options();
    chosen.bundle = pane.path().string();
    open(chosen);
    expectNoGrowth(
        openings / 4,
        [&] {
            pane.link("missing_symbol");
            EXPECT_NE(phone->reloadBundle().value_or(""), "");
            phone->settle();
            pane.link("good1");
            EXPECT_EQ(phone->reloadBundle().value_or(""), "");
        },
        keptForEachLoad);
}
