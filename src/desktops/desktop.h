// One virtual desktop, and the plain rules of desktops.
#pragma once

#include "common/text_buffer.h"
#include "common/win_types.h"
#include "process/protocol.h"

namespace halyard {

struct Desktop {
    Desktop(DesktopId desktopId, const char* desktopName, COLORREF background) noexcept
        : id(desktopId), name(desktopName), colour(background) {}

    DesktopId id;
    TextBuffer name;           // system ANSI code page; need not be unique
    TextBuffer wallpaper;      // full path in the system ANSI code page; empty for none
    DWORD wallpaperStyle = 0;  // WPSTYLE_CENTER 0, WPSTYLE_TILE 1, WPSTYLE_STRETCH 2
    COLORREF colour;
};

}  // namespace halyard
