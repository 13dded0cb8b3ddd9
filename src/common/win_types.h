// The platform's plain value types, on the platform and off it: pure units include this and nothing else of Win32,
// so that they build natively for the sanitizers.
#pragma once

#ifdef _WIN32
#include <windows.h>
#else
#include <cstdint>

using BYTE = std::uint8_t;
using WORD = std::uint16_t;
using DWORD = std::uint32_t;
using LONG = std::int32_t;
using UINT = std::uint32_t;
using COLORREF = DWORD;

struct POINT {
    LONG x;
    LONG y;
};

struct RECT {
    LONG left;
    LONG top;
    LONG right;
    LONG bottom;
};
#endif

namespace halyard {

// A window handle as a number. Handles carry 32 significant bits in programs of both bitnesses, so that this is what
// crosses processes and what the tables are keyed by.
using WindowId = unsigned int;

}  // namespace halyard
