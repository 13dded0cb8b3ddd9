// What Halyard does for programs and windows, in words, and why.
#pragma once

#include "hook/class_rules.h"

#include <string>
#include <windows.h>

namespace halyard::programs {

// What is stored for one program, or for all where the program has nothing of its own.
struct Treatment {
    bool remembers = false;  // its windows reopen where they were
    bool docks = false;
    DWORD dialogControl = 0;  // see settings/choices.h
    DWORD dialogDisplay = 0;  // from 1
};

// `path` is the full one of the program's file.
Treatment TreatmentOf(const std::string& path);

struct WindowTreatment {
    std::string kind;   // what the window counts as
    std::string place;  // where it opens
    std::string why;    // the rule that decided
};

// Of a window that the user sees.
WindowTreatment TreatmentOf(HWND window, const Treatment& program);

}  // namespace halyard::programs
