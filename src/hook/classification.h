// The tests of the class rules on real windows.
#pragma once

#include "common/text_buffer.h"
#include "common/win_types.h"
#include "hook/class_rules.h"

namespace halyard {

struct WindowKind {
    bool isManaged = false;
    bool isDialog = false;
};

// The rule that decides whether a window of any program is managed. Any thread.
ManagedRule RuleFor(HWND window) noexcept;

// A window that has gone has no style and no class, and passes none of the tests. Any thread.
WindowKind KindOf(HWND window) noexcept;
bool QualifiesForWindowMemory(HWND window) noexcept;

// The class name with an "Afx:" name cut at its last colon; empty when it can't be read.
TextBuffer NormalisedClassName(HWND window) noexcept;

}  // namespace halyard
