#pragma once

#include "platform/UIColor.h"

#include <ostream>

namespace platform {

inline void PrintTo(const CGPoint& point, std::ostream* out)
{
    *out << "(" << point.x << ", " << point.y << ")";
}

inline void PrintTo(const CGRect& rect, std::ostream* out)
{
    *out << "(" << rect.x << ", " << rect.y << ", " << rect.width << ", " << rect.height << ")";
}

inline void PrintTo(const CGColor& color, std::ostream* out)
{
    *out << (color.space() == CGColorSpaceModel::Gray ? "grey" : "rgb");
    for (const auto component : color.components())
        *out << " " << component;
}

inline void PrintTo(const UIColor& color, std::ostream* out)
{
    PrintTo(color.cgColor(), out);
}

}
