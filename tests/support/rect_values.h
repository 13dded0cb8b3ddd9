// Comparison and printing of rectangles and points in the tests.
#pragma once

#include "behaviours/geometry.h"

#include <ostream>

inline bool operator==(const RECT& a, const RECT& b) {
    return halyard::SameRect(a, b);
}
inline bool operator==(const POINT& a, const POINT& b) {
    return a.x == b.x && a.y == b.y;
}

inline std::ostream& operator<<(std::ostream& out, const RECT& rect) {
    return out << "(" << rect.left << ", " << rect.top << ", " << rect.right << ", " << rect.bottom << ")";
}
inline std::ostream& operator<<(std::ostream& out, const POINT& point) {
    return out << "(" << point.x << ", " << point.y << ")";
}
