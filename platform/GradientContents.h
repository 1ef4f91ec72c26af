#pragma once

#include "CGContextImpl.h"
#include "GradientRecording.h"

namespace platform {

/// Contents that keep what was recorded, and work out exact pixels wherever they are read.
std::shared_ptr<const LayerContents> contentsFromRecording(GradientRecording);

}
