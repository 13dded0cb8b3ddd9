// The shell's object for wallpaper and style.
#pragma once

#include <windows.h>

#include <unknwn.h>

namespace standin {

inline constexpr GUID ActiveDesktopClass = {
    0x75048700, 0xEF1F, 0x11D0, {0x98, 0x88, 0x00, 0x60, 0x97, 0xDE, 0xAC, 0xF9}};

// A new object with one reference; null without memory. What is set on it takes effect with ApplyChanges, as in the
// real one.
IUnknown* MakeActiveDesktop();

}  // namespace standin
