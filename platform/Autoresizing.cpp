#include "Autoresizing.h"
#include "UIView.h"

#include <algorithm>

namespace platform {

namespace {

struct Span {
    CGFloat position;
    CGFloat length;
};

enum Flexible : unsigned { Near = 1, Length = 2, Far = 4 };

Span resized(Span span, unsigned flexible, CGFloat oldTotal, CGFloat newTotal)
{
    const auto difference = newTotal - oldTotal;
    const auto far = oldTotal - span.position - span.length;
    const auto near = span.position;
    const auto stretch = ((flexible & Near) ? near : 0) + ((flexible & Length) ? span.length : 0)
        + ((flexible & Far) ? far : 0);
    const auto parts = !!(flexible & Near) + !!(flexible & Length) + !!(flexible & Far);
    if (!parts || difference == 0)
        return span;
    const auto share = [&](Flexible part, CGFloat length) {
        if (!(flexible & part))
            return 0.0;
        return stretch != 0 ? difference * length / stretch : difference / parts;
    };
    return { near + share(Near, near), std::max(0.0, span.length + share(Length, span.length)) };
}

}

CGRect autoresizedFrame(CGRect frame, unsigned mask, CGSize oldSize, CGSize newSize)
{
    // The vertical bits follow the horizontal ones in the same order.
    const auto horizontal = resized({ frame.x, frame.width }, mask & 7U, oldSize.width, newSize.width);
    const auto vertical = resized({ frame.y, frame.height }, mask >> 3U & 7U, oldSize.height, newSize.height);
    return { horizontal.position, vertical.position, horizontal.length, vertical.length };
}

}
