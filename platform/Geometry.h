#pragma once

#include <vector>

namespace platform {

/// A length or coordinate in points, y downwards.
using CGFloat = double;

struct CGPoint {
    CGFloat x = 0;
    CGFloat y = 0;

    bool operator==(const CGPoint&) const = default;
};

struct CGSize {
    CGFloat width = 0;
    CGFloat height = 0;

    bool operator==(const CGSize&) const = default;
};

/// Members are named `x`, `y`, `width` and `height`, so that `{ 10, 20, 30, 40 }` reads as the platform's
/// CGRectMake.
struct CGRect {
    CGFloat x = 0;
    CGFloat y = 0;
    CGFloat width = 0;
    CGFloat height = 0;

    CGFloat minX() const { return x; }
    CGFloat minY() const { return y; }
    CGFloat maxX() const { return x + width; }
    CGFloat maxY() const { return y + height; }
    CGFloat midX() const { return x + width / 2; }
    CGFloat midY() const { return y + height / 2; }
    CGPoint origin() const { return { x, y }; }
    CGSize size() const { return { width, height }; }
    bool isEmpty() const { return !(width > 0 && height > 0); }

    bool operator==(const CGRect&) const = default;
};

/// Half-open: the left and top edges are inside, the right and bottom edges outside. An empty rectangle holds
/// no point.
bool CGRectContainsPoint(CGRect, CGPoint);

/// The rectangle made smaller on every side; negative lengths make it larger.
CGRect CGRectInset(CGRect, CGFloat dx, CGFloat dy);

CGRect CGRectOffset(CGRect, CGFloat dx, CGFloat dy);

/// What both cover; an empty rectangle when they do not meet.
CGRect CGRectIntersection(CGRect, CGRect);

/// The smallest rectangle around both; an empty one adds nothing.
CGRect CGRectUnion(CGRect, CGRect);

/// A place in a table: its section and the row in it, both counted from 0.
struct NSIndexPath {
    long section = 0;
    long row = 0;

    bool operator==(const NSIndexPath&) const = default;
};

}
