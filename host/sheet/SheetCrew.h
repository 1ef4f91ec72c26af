#pragma once

#include "SheetPicture.h"
#include "SheetPlan.h"

#include <chrono>
#include <functional>

namespace host {

class Interruption;

/// How a plan's jobs are rendered, and who is told.
struct SheetCrew {
    unsigned workers = 2; ///< Processes.
    std::chrono::seconds patience { 60 }; ///< The longest that a page may take.
    std::function<void(SheetPicture)> take; ///< Gets each picture, in no order.
    std::function<void(std::size_t done, std::size_t all)> tick; ///< At the beginning, and after each job.
    std::function<void(const std::string& line)> say; ///< What bundles print, each line once.
};

/// Has the jobs rendered by several processes at once, as there is one device in each. The process must have
/// one thread, and no toolkit of its own. Throws std::runtime_error with one sentence when something fails,
/// crashes or takes too long, and `Interrupted`; no process and no file is left behind then either.
void renderWithCrew(const SheetPlan&, const SheetCrew&, const Interruption&);

}
