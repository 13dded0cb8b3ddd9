// The server in the test's own process, on the test's thread.
#pragma once

#include "desktops/announcer.h"
#include "desktops/desktop_list.h"
#include "desktops/window_desktop_map.h"
#include "hook/thread_table.h"
#include "server/attach.h"
#include "server/lifecycle.h"
#include "store_fixture.h"
#include "test_main.h"
#include "test_windows.h"

namespace halyard::test {

// The library as loaded on an empty registry, with the wizard out of the way; no server yet.
class ServerTest : public StoreTest {
protected:
    ServerTest() : background(GetSysColor(COLOR_BACKGROUND)) {
        std::memset(const_cast<SharedBlock*>(&sharedBlock), 0, sizeof(sharedBlock));
        profile.hookEngineActive = true;
        StoreDword(HKEY_CURRENT_USER, ProductPath(), "RunWizard", 1);
        OnLoad(GetModuleHandleA(nullptr));
        SetUnhandledExceptionFilter(EndAtFault);
        desktopList.Find(DefaultDesktopId)->wallpaper = "";
    }
    ~ServerTest() override {
        StopServer();
        Unload();
        windowDesktopMap.ReleaseAll();
        for (HKEY hive : {HKEY_CURRENT_USER, HKEY_LOCAL_MACHINE})
            DeleteTree(hive, ProductPath("Desktops"));
        desktopList.Load();
        // A colour may still be on its way.
        ColourBecomes(BackgroundColour());
        SetColour(background);
    }

    static void Unload() {
        OnUnload();
        delete std::exchange(threadTable, nullptr);
    }
    // As in a process that is started anew.
    static void Reload() {
        Unload();
        profile.hookEngineActive = true;
        OnLoad(GetModuleHandleA(nullptr));
    }

    // Desktops 1 to `count`, each with a colour of its own.
    static void AddDesktops(unsigned count) {
        for (DesktopId id = 1; id <= count; ++id) {
            desktopList.Add(("Desktop " + std::to_string(id)).c_str(), id);
            desktopList.Find(id)->colour = 0x101010 * id;
        }
    }

    static void SetColour(COLORREF colour) {
        const INT element = COLOR_BACKGROUND;
        SetSysColors(1, &element, &colour);
    }

    static bool ColourBecomes(COLORREF colour) {
        return PumpUntil([colour] { return GetSysColor(COLOR_BACKGROUND) == colour; });
    }

    static LRESULT Send(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) {
        return SendMessageA(ServerWindow(), message, wParam, lParam);
    }

    static std::string StoredDesktop(DesktopId id) { return ProductPath("Desktops\\") + std::to_string(id); }

    const COLORREF background;
};

// Whether the window is visible, or hidden, within the time that an asynchronous change may take.
inline bool Becomes(bool visible, HWND window) {
    return PumpUntil([&] { return (IsWindowVisible(window) != FALSE) == visible; });
}

}  // namespace halyard::test
