#include "desktops/hidden_mark.h"

namespace halyard {

namespace {

constexpr UINT InPlace =
    SWP_NOMOVE | SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE | SWP_NOOWNERZORDER | SWP_ASYNCWINDOWPOS;

// A property that is named by its atom costs one call of the platform where a text costs two. The atom is never given
// back: it must outlive this process as the properties do.
LPCSTR MarkAtom() noexcept {
    static const ATOM atom = GlobalAddAtomA(HiddenMark);
    return MAKEINTATOM(atom);
}

// A property can't be 0, an id can.
HANDLE ValueOf(DesktopId desktop) noexcept {
    return reinterpret_cast<HANDLE>(static_cast<ULONG_PTR>(desktop) + 1);
}

BOOL CALLBACK ShowIfMarked(HWND window, LPARAM) noexcept {
    if (IsMarkedHidden(window)) ShowAndUnmark(window);
    return TRUE;
}

}  // namespace

bool HideWithMark(HWND window, DesktopId desktop) noexcept {
    if (!SetPropA(window, MarkAtom(), ValueOf(desktop))) return false;
    SetWindowPos(window, nullptr, 0, 0, 0, 0, SWP_HIDEWINDOW | InPlace);
    return true;
}

void ShowAndUnmark(HWND window) noexcept {
    // In this order: a process that ends between the two leaves a mark too many, not a window too few.
    SetWindowPos(window, nullptr, 0, 0, 0, 0, SWP_SHOWWINDOW | InPlace);
    RemovePropA(window, MarkAtom());
}

bool IsMarkedHidden(HWND window) noexcept {
    return GetPropA(window, MarkAtom()) != nullptr;
}

void ShowMarkedWindows() noexcept {
    EnumWindows(ShowIfMarked, 0);
}

}  // namespace halyard
