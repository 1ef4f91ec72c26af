#pragma once

#include "platform/Bitmap.h"

#include <string>

namespace platform {

/// Null when there is no such file, it holds no image, or one larger than any page could show.
std::shared_ptr<const Bitmap> bitmapFromImageFile(const std::string& devicePath);

}
