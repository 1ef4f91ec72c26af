#pragma once

#include <string>
#include <vector>

namespace host {

/// Something wrong with a bundle, or merely worth knowing.
struct Finding {
    enum class Weight { Wrong, Remark };

    std::string file; ///< Relative to the bundle's folder.
    std::string place; ///< A row, as `row 2 "Volume" (PSSliderCell)`; empty for the file itself.
    std::string reason; ///< Without a full stop.
    Weight weight = Weight::Wrong;
};

using Findings = std::vector<Finding>;

}
