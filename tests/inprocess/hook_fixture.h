// The hook code of one process with recording behaviours, on windows of the test's thread.
#pragma once

#include "hook/thread_table.h"
#include "kept_state.h"
#include "recording_behaviours.h"
#include "test_windows.h"

#include <gtest/gtest.h>

namespace halyard::test {

// As in a hooked process that isn't the server's: an empty thread table, the engine on, a window of the test in the
// place of the server's.
class HookTest : public testing::Test {
protected:
    HookTest() : server(WindowForm{.style = WS_POPUP}) {
        profile.isServerProcess = false;
        profile.hookEngineActive = true;
        profile.moduleInstance = GetModuleHandleA(nullptr);
        profile.program = {};
        threadTable = &table;
        recording.Reset();
        recording.server = server.get();
        recording.names[server.get()] = "";
        server.handler = [](UINT message, WPARAM wParam, LPARAM lParam) -> std::optional<LRESULT> {
            if (message < WM_USER || message > 0xFFFF) return std::nullopt;
            recording.AddMessage("send", message, wParam, lParam);
            return 0;
        };
        SetServerWindow(server.get());
        // Any value but 0: the procedure is called by the test and not by the platform.
        SetCallWndProcRetHook(HandleFromBits<HHOOK>(0x7FFF0001));
        SetGetMessageHook(nullptr);
        SetCurrentDesktopId(DefaultDesktopId);
    }
    ~HookTest() override {
        threadTable = nullptr;
        recording.Reset();
    }

    // Gives the window a name in the recording, "" for none in its lines.
    static HWND Named(const TestWindow& window, const char* name = "") {
        recording.names[window.get()] = name;
        return window.get();
    }

    // The record of a window of this thread, classified, with nothing of that left in the recording.
    static TrackedWindow& Known(HWND window) {
        TrackedWindow& tracked = *TrackedWindowOf(window);
        tracked.Classify();
        recording.Take();
        return tracked;
    }

    static unsigned RecordCount() { return threadTable->ForCurrentThread()->Count(); }

    static void SetWindowMemory(bool offered, bool forProgram) {
        settings = Settings();
        settings.SetWindowMem(offered);
        // The program's own value has no setter in memory alone; it is made through the registry and left there.
        settings.SetAppWindowMem(forProgram);
    }

    KeptState kept;
    ThreadTable table;
    TestWindow server;
};

}  // namespace halyard::test
