#pragma once

#include "platform/UIColor.h"
#include "platform/UIView.h"

#include <initializer_list>
#include <vector>

namespace vekora {

using platform::UIColor;

/// From which edge of the view to the opposite one a gradient runs: its first colour lies at the first edge.
enum class Run { LeftToRight, RightToLeft, TopToBottom };

/// One gradient over a whole view; its colours are evenly spaced.
struct GradientLayer {
    std::vector<UIColor> colors;
    Run run;
};

/// What every `drawRect` of the gradient views does: paints the layers over one another, the first at the
/// bottom, over the whole of the view. Outside of drawing nothing happens.
void drawLayers(const platform::UIView&, std::initializer_list<GradientLayer>);

/// Red at both ends and every hue between, rising: yellow comes after the first red.
std::vector<UIColor> risingHues();
/// The same from the other end: magenta comes after the first red.
std::vector<UIColor> fallingHues();

UIColor black(double alpha);
UIColor white(double alpha);

}
