#pragma once

#include "platform/Bitmap.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

/// Compares a picture with tests/snapshots/NAME.png. Inside the rectangles named `exact` every channel must
/// be the same; elsewhere (text, rounded corners) it may differ by 2 of 255. A failure leaves NAME.actual.png
/// and NAME.difference.png in the build's snapshots folder; scripts/accept-snapshots.sh is the only way to
/// replace what is expected.
testing::AssertionResult matchesSnapshot(const platform::Bitmap& picture, const std::string& name,
    const std::vector<platform::PixelRect>& exact = {});
