#pragma once

#include "platform/Bitmap.h"

#include <QByteArray>

namespace host {

/// The picture, which is opaque, as a PNG, in the form that suits it: with a palette where its colours fit
/// into one, and otherwise for texts or for gradients. The same pixels give the same bytes.
QByteArray indexedPng(const platform::Bitmap&);

}
