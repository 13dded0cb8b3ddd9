#include "behaviours/inprocess_fixture.h"

#include "desktops/desktop_list.h"

#include <utility>

namespace halyard::test {

namespace {

BOOL CALLBACK NoteDisplay(HMONITOR display, HDC, RECT*, LPARAM target) {
    MONITORINFO info = {};
    info.cbSize = sizeof(info);
    GetMonitorInfoA(display, &info);
    reinterpret_cast<std::vector<RealDisplay>*>(target)->push_back({display, info.rcMonitor, info.rcWork});
    return TRUE;
}

unsigned pretended = 0;

BOOL WINAPI EnumerateFirst(HDC, const RECT*, MONITORENUMPROC callback, LPARAM data) {
    unsigned left = pretended;
    for (const RealDisplay& display : RealDisplays())
        if (left-- == 0 || !callback(display.handle, nullptr, nullptr, data)) break;
    return TRUE;
}

}  // namespace

std::vector<RealDisplay> RealDisplays() {
    std::vector<RealDisplay> found;
    EnumDisplayMonitors(nullptr, nullptr, NoteDisplay, reinterpret_cast<LPARAM>(&found));
    return found;
}

RECT NormalPlaceOf(const TestWindow& window) {
    WINDOWPLACEMENT placement = {};
    placement.length = sizeof(placement);
    GetWindowPlacement(window.get(), &placement);
    return placement.rcNormalPosition;
}

WNDPROC KnownWindow::Procedure() const {
    return reinterpret_cast<WNDPROC>(IsWindowUnicode(get()) ? GetWindowLongPtrW(get(), GWLP_WNDPROC)
                                                            : GetWindowLongPtrA(get(), GWLP_WNDPROC));
}

void PretendDisplays(unsigned count) {
    pretended = count;
    profile.enumDisplayMonitors = EnumerateFirst;
}

BehaviourTest::BehaviourTest() : displays(RealDisplays()), bounds(), server(WindowForm{.style = WS_POPUP}) {
    profile.program = {};
    profile.progmanWindow = nullptr;
    server.handler = [this](UINT message, WPARAM wParam, LPARAM lParam) -> std::optional<LRESULT> {
        if (message < WM_USER || message > 0xFFFF) return std::nullopt;
        messages.push_back({message, reinterpret_cast<HWND>(wParam), static_cast<DesktopId>(lParam)});
        return 0;
    };
    SetServerWindow(server.get());
    SetCurrentDesktopId(DefaultDesktopId);
    settings.StoreMultiDesk(true);
    desktopList.Load();
    UnionRect(&bounds, &displays.front().workArea, &displays.back().workArea);
    for (const RealDisplay& display : displays)
        UnionRect(&bounds, &bounds, &display.workArea);
    RefreshDisplays();
}

BehaviourTest::~BehaviourTest() {
    while (desktopList.Count() > 1)
        desktopList.Remove(desktopList.IdAt(1));
    // For the tests that have no fixture of their own.
    profile.enumDisplayMonitors = EnumDisplayMonitors;
    RefreshDisplays();
}

std::vector<ToServer> BehaviourTest::TakeMessages() {
    PumpAll();
    return std::exchange(messages, {});
}

}  // namespace halyard::test
