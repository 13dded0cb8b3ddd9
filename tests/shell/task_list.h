// The shell's object by which programs take windows off its task bar.
#pragma once

#include <windows.h>

#include <unknwn.h>

namespace standin {

inline constexpr GUID TaskListClass = {0x56FDF344, 0xFD6D, 0x11D0, {0x95, 0x8A, 0x00, 0x60, 0x97, 0xC9, 0xA0, 0x90}};

// A new object with one reference; null without memory. It reaches the task bar that runs when it is called.
IUnknown* MakeTaskList();

}  // namespace standin
