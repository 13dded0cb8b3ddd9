// The hook code of one process with recording behaviours, on windows of the test's thread.
#pragma once

#include "hook/hook_procs.h"
#include "hook/recording_behaviours.h"
#include "hook/thread_table.h"
#include "support/kept_state.h"
#include "support/test_windows.h"

#include <gtest/gtest.h>

namespace halyard::test {

// As in a hooked process that isn't the server's: an empty thread table, the engine on, a window of the test in the
// place of the server's.
class HookTest : public testing::Test {
protected:
    HookTest() : server(WindowForm{.style = WS_POPUP}) {
        profile.isServerProcess = false;
        profile.hookEngineActive = true;
        profile.program = {};
        threadTable = &table;
        recording = {};
        recording.server = server.get();
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
        recording = {};
    }

    // The record of the window that the test looks at from now on, classified, with nothing of that in the recording.
    static TrackedWindow& Known(HWND window) {
        recording.subject = window;
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

    // A sent message, as the platform calls the hook behind the window's procedure.
    static void Observe(HWND window, UINT message, WPARAM wParam = 0, LPARAM lParam = 0, LRESULT result = 0) {
        const CWPRETSTRUCT event = {result, lParam, wParam, message, window};
        EXPECT_EQ(0, CallWndProcRetHookProc(HC_ACTION, 0, reinterpret_cast<LPARAM>(&event)));
    }

    // A posted message as the platform would have it taken; whether it has been cancelled.
    static bool Take(HWND window, UINT message, WPARAM wParam = 0, LPARAM lParam = 0) {
        MSG taken = {window, message, wParam, lParam, 0, {0, 0}};
        EXPECT_EQ(0, GetMessageHookProc(HC_ACTION, PM_REMOVE, reinterpret_cast<LPARAM>(&taken)));
        EXPECT_TRUE(taken.message == message || taken.message == WM_NULL) << taken.message;
        return taken.message != message;
    }

    KeptState kept;
    ThreadTable table;
    TestWindow server;
};

}  // namespace halyard::test
