#pragma once

#include "host/ViewFacts.h"

#include <QString>

/// Facts of views in words.
namespace host {

/// "10, 20, 300 × 40": the origin and the size in points, with two decimals at most.
QString rectWords(platform::CGRect);
QString numberWords(double);
/// Which parts stretch, as "width, right margin"; "nothing" for none.
QString maskWords(unsigned mask);
/// "#RRGGBB", and with its alpha in percent when it is not opaque; "clear" when nothing is seen
/// of it; empty for none.
QString colorWords(const std::optional<platform::CGColor>&);
/// What the view shows, as a text, a value or a state; empty when it has none of them.
QString contentWords(const ViewFacts&);
/// Whether and how far it can be seen: "hidden", or its alpha when that is not 1.
QString visibilityWords(const ViewFacts&);

}
