// How a test asks the sample program `sample_modeler`.
#pragma once

#include <cstdlib>
#include <windows.h>

namespace modeler {

inline constexpr char Title[] = "Modeler";
inline constexpr ULONG_PTR WidthAddress = 0x59E5A0;
inline constexpr ULONG_PTR HeightAddress = 0x59E5A4;

// Sent; the answer is the number that stands there.
enum Message : UINT { AskWidth = WM_APP + 64, AskHeight };

}  // namespace modeler
