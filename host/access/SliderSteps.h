#pragma once

namespace platform {
class UISlider;
}

namespace host {

/// One step of a slider: the distance of its even steps where its row says that it rests on such only; else a
/// whole unit, or a hundredth of the range where that is shorter than ten units.
double stepOf(const platform::UISlider&);

}
