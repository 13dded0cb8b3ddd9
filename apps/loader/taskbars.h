// Whether the bars are there, as far as another program can tell.
#pragma once

#include "loader/library.h"

namespace halyard::loader {

enum class Taskbars {
    None,  // the user wants none, the system is off, or there is one display only
    Shown,
    Closed  // by the menu of a bar, until the settings are read again
};
// Cheaper than the whole state.
bool AreTaskbarsShown() noexcept;
Taskbars StateOfTaskbars(const Library& library) noexcept;

// True the first time that this user is to be told how closed bars come back.
bool TakeTaskbarsHint() noexcept;

}  // namespace halyard::loader
