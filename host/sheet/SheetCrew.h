#pragma once

#include "SheetPicture.h"
#include "SheetPlan.h"

#include <functional>

namespace host {

/// Has a plan's jobs rendered by several processes at once, as there is one device in each. Called before the
/// process has threads or a toolkit of its own. `take` gets each picture, in no order; `tick` is called when
/// a job is done. Throws std::runtime_error with one sentence when one fails, crashes or the run is
/// interrupted; nothing is left behind then either.
void renderWithCrew(const SheetPlan&, unsigned workers, const std::function<void(SheetPicture)>& take,
    const std::function<void(std::size_t done, std::size_t all)>& tick);

}
