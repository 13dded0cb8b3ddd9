#include "hook/tracked_window.h"

#include "hook/behaviours.h"
#include "hook/classification.h"
#include "process/profile.h"
#include "process/shared_section.h"
#include "process/trace.h"

namespace halyard {

namespace {

DesktopId DesktopAtFirstSight() noexcept {
    return profile.isServerProcess ? AllDesktopsId : CurrentDesktopId();
}

}  // namespace

TrackedWindow::TrackedWindow(HWND trackedWindow) noexcept : window(trackedWindow), desktopId(DesktopAtFirstSight()) {}

void TrackedWindow::ForgetDesktop() noexcept {
    desktopId = DesktopAtFirstSight();
}

void TrackedWindow::Classify() noexcept {
    classified = true;
    const WindowKind kind = KindOf(window);
    isManaged = kind.isManaged;
    isDialog = kind.isDialog;
    Trace("Classify", "window %x managed %d dialog %d", HandleBits(window), isManaged, isDialog);
    if (isManaged)
        AddMenuExtension(*this);
    else
        RemoveMenuExtension(*this);
}

bool TrackedWindow::IsManaged() noexcept {
    if (!classified) Classify();
    return isManaged;
}

bool TrackedWindow::IsDialog() noexcept {
    if (!classified) Classify();
    return isDialog;
}

void TrackedWindow::NotifyServer(bool attach) noexcept {
    // A message that is posted to no window would go to this thread's own queue.
    if (!ServerWindow() || !IsManaged()) return;
    PostMessageA(ServerWindow(), attach ? HM_WINDOW_ATTACH : HM_WINDOW_DETACH, reinterpret_cast<WPARAM>(window),
                 static_cast<LPARAM>(static_cast<int>(desktopId)));
}

void TrackedWindow::SendDesktopChoice(bool follow) noexcept {
    HWND reported = profile.program.qlplay ? GetParent(window) : window;
    SendMessageA(ServerWindow(), follow ? HM_WINDOW_FOLLOW : HM_WINDOW_ATTACH, reinterpret_cast<WPARAM>(reported),
                 static_cast<LPARAM>(static_cast<int>(desktopId)));
}

}  // namespace halyard
