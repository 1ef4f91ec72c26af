#pragma once

#include "platform/Bitmap.h"
#include "platform/UIFont.h"

#include <QFont>
#include <QImage>

namespace platform {

/// The system font's stand-in at `scale` pixels a point: the same shapes at every scale, without hinting.
QFont fontFor(const UIFont&, double scale);

/// A look at a bitmap's pixels, to draw into; it must not outlive the bitmap.
QImage imageFor(Bitmap&);

}
