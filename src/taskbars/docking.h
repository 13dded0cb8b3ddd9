// Keeps a bar in its place: reserves the space as an application bar, slides an auto-hide bar away and back, follows
// the user's drags, and gives way to full-screen programs. On the server's thread.
#pragma once

#include "taskbars/secondary_taskbar.h"

namespace halyard {

inline constexpr UINT_PTR HideTimer = 121;  // of the bar's window: looks whether the cursor has left an auto-hide bar
inline constexpr UINT HidePeriod = 500;     // ms

// Where the bar stands when shown.
RECT ComputeTaskbarRect(const SecondaryTaskbar& bar) noexcept;

// Brings the bar to where it should stand, with `force` even if it stands there. `reserve`: the space that
// the shell keeps free goes with it.
void ApplyTaskbarRect(SecondaryTaskbar& bar, bool reserve, bool force) noexcept;

// Turns a bar with reserved space into an auto-hide one and back; nothing for a bar that is in that state.
void SetAutohide(SecondaryTaskbar& bar, bool on) noexcept;

// Slides an auto-hide bar away or back. Nothing for a bar that is there already, or doesn't hide.
void SlideTaskbar(SecondaryTaskbar& bar, bool hide) noexcept;
// Slides the bar away unless it is being used. True: it need not be watched any more.
bool TryHideTaskbar(SecondaryTaskbar& bar) noexcept;

// The bar's place among the windows, around a full-screen program.
void SetRaised(SecondaryTaskbar& bar, bool fullScreen) noexcept;
// On top of all windows or among them, as the user wants it.
void ApplyOnTop(const SecondaryTaskbar& bar) noexcept;

// A drag to another edge, from the bar's empty part. One bar at a time is dragged.
void StartDrag(SecondaryTaskbar& bar) noexcept;
void ContinueDrag(HWND window, LPARAM where) noexcept;  // `where` in client coordinates of `window`
void EndDrag() noexcept;
// The bar goes away, whether it is being dragged or sized or not.
void ForgetDrag(const SecondaryTaskbar& bar) noexcept;

// WM_NCHITTEST, in screen coordinates. The answer is a hit-test code; asking brings a bar back that is slid away.
LRESULT HitTestBar(SecondaryTaskbar& bar, LPARAM where) noexcept;

// WM_ENTERSIZEMOVE and WM_EXITSIZEMOVE.
void StartSizing(SecondaryTaskbar& bar) noexcept;
void EndSizing(SecondaryTaskbar& bar) noexcept;
// WM_SIZING: `proposed` becomes what the bar can have.
void ConstrainSizing(SecondaryTaskbar& bar, RECT& proposed) noexcept;

// The shell's notice to an application bar.
void OnAppBarNotice(SecondaryTaskbar& bar, WPARAM notice, LPARAM lParam) noexcept;

}  // namespace halyard
