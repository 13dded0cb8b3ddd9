// The server in the test's own process, on the test's thread.
#pragma once

#include "desktops/desktop_list.h"
#include "desktops/window_desktop_map.h"
#include "desktops/window_switch.h"
#include "hook/thread_table.h"
#include "server/attach.h"
#include "server/lifecycle.h"
#include "support/store_fixture.h"
#include "support/test_windows.h"

#include <utility>

namespace halyard::test {

// The library as loaded on an empty registry, with the wizard out of the way; no server yet.
class ServerTest : public StoreTest {
protected:
    ServerTest() : background(GetSysColor(COLOR_BACKGROUND)) {
        std::memset(const_cast<SharedBlock*>(&sharedBlock), 0, sizeof(sharedBlock));
        profile.hookEngineActive = true;
        StoreDword(HKEY_CURRENT_USER, ProductPath(), "RunWizard", 1);
        OnLoad(GetModuleHandleA(nullptr));
        // The platform tells of a fault; the library's own report would ask the user.
        SetUnhandledExceptionFilter(nullptr);
    }
    ~ServerTest() override {
        StopServer();
        Unload();
        ReleaseAllWindows();
        for (HKEY hive : {HKEY_CURRENT_USER, HKEY_LOCAL_MACHINE})
            DeleteTree(hive, ProductPath("Desktops"));
        desktopList.Load();
        const INT element = COLOR_BACKGROUND;
        SetSysColors(1, &element, &background);
    }

    static void Unload() {
        OnUnload();
        delete std::exchange(threadTable, nullptr);
    }

    static void AddDesktops(unsigned count) {
        for (DesktopId id = 1; id <= count; ++id)
            desktopList.Add(("Desktop " + std::to_string(id)).c_str(), id);
    }

    static LRESULT Send(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) {
        return SendMessageA(ServerWindow(), message, wParam, lParam);
    }

    const COLORREF background;
};

// Whether the window is visible, or hidden, within the time that an asynchronous change may take.
inline bool Becomes(bool visible, HWND window) {
    return PumpUntil([&] { return (IsWindowVisible(window) != FALSE) == visible; });
}

}  // namespace halyard::test
