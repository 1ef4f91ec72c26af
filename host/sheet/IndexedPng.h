#pragma once

#include "platform/Bitmap.h"

#include <QByteArray>

namespace host {

/// The picture, which is opaque, as a PNG: with a palette as long as its colours fit into one, which is what
/// most pages do, and made quickly rather than small. The same pixels give the same bytes.
QByteArray indexedPng(const platform::Bitmap&);

}
