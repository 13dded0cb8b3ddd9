// Both hooks in place on the test's thread, called by the platform.
#include "hook/hook_procs.h"
#include "hook_fixture.h"
#include "release_watch.h"

#include <algorithm>

namespace halyard::test {
namespace {

// What the next hook behind ours still sees.
std::vector<UINT> passedOn;

LRESULT CALLBACK NextGetMessageHook(int code, WPARAM remove, LPARAM message) {
    if (code >= 0 && remove == PM_REMOVE) passedOn.push_back(reinterpret_cast<const MSG*>(message)->message);
    return CallNextHookEx(nullptr, code, remove, message);
}

bool PassedOn(UINT message) {
    return std::find(passedOn.begin(), passedOn.end(), message) != passedOn.end();
}

class EndToEndTest : public HookTest {
protected:
    EndToEndTest() {
        const DWORD thread = GetCurrentThreadId();
        next = SetWindowsHookExA(WH_GETMESSAGE, NextGetMessageHook, nullptr, thread);
        SetGetMessageHook(SetWindowsHookExA(WH_GETMESSAGE, GetMessageHookProc, nullptr, thread));
        SetCallWndProcRetHook(SetWindowsHookExA(WH_CALLWNDPROCRET, CallWndProcRetHookProc, nullptr, thread));
        passedOn.clear();
    }
    ~EndToEndTest() override {
        UnhookWindowsHookEx(CallWndProcRetHook());
        UnhookWindowsHookEx(GetMessageHook());
        UnhookWindowsHookEx(next);
    }

    static bool Has(const Calls& calls, const std::string& call) {
        return std::find(calls.begin(), calls.end(), call) != calls.end();
    }

    HHOOK next;
};

// Presses and releases the left button at a place of the screen.
void Click(POINT place) {
    SetCursorPos(place.x, place.y);
    INPUT input[2] = {};
    input[0].type = input[1].type = INPUT_MOUSE;
    input[0].mi.dwFlags = MOUSEEVENTF_LEFTDOWN;
    input[1].mi.dwFlags = MOUSEEVENTF_LEFTUP;
    SendInput(2, input, sizeof(INPUT));
}

TEST_F(EndToEndTest, FollowsAWindowFromItsCreationToItsEnd) {
    const TestWindow window(WindowForm{.style = WS_OVERLAPPEDWINDOW});
    EXPECT_TRUE(Has(recording.Take(), "post ATTACH 0 ?"));
    Named(window);
    EXPECT_FALSE(TrackedWindowOf(window.get())->placed);

    ShowWindow(window.get(), SW_SHOW);
    MoveWindow(window.get(), 150, 150, 300, 200, TRUE);
    EXPECT_TRUE(Has(recording.Take(), "post CHANGED 1"));
    TrackedWindowOf(window.get())->desktopId = 77;
    SetWindowLongA(window.get(), GWL_STYLE, static_cast<LONG>(WS_CHILD | WS_CAPTION));
    EXPECT_TRUE(Has(recording.Take(), "RemoveMenuExtension"));
    EXPECT_EQ(0u, TrackedWindowOf(window.get())->desktopId) << "the record is a new one";
    WatchRelease(TrackedWindowOf(window.get()));
    DestroyWindow(window.get());
    EXPECT_EQ(1, Releases());
    WatchRelease(nullptr);
}

TEST_F(EndToEndTest, MakesACommandOfADoubleClickOnTheCaption) {
    for (const bool answer : {false, true}) {
        const TestWindow window(WindowForm{.style = WS_OVERLAPPEDWINDOW | WS_VISIBLE});
        Named(window);
        SetForegroundWindow(window.get());
        PumpAll();
        recording.Take();
        recording.commandAnswer = answer;
        passedOn.clear();
        Calls calls;
        const RECT place = window.Place();
        const POINT caption = {place.left + 120, place.top + GetSystemMetrics(SM_CYFRAME) + 8};
        Click(caption);
        PumpUntil([&] { return PassedOn(WM_NCLBUTTONDOWN); });
        Click(caption);
        const bool came = PumpUntil([&] {
            const Calls fresh = recording.Take();
            calls.insert(calls.end(), fresh.begin(), fresh.end());
            return Has(calls, "HandleSysCommand F030 0 hit 0") && (!answer || IsZoomed(window.get()));
        });
        EXPECT_TRUE(came) << testing::PrintToString(calls) << testing::PrintToString(passedOn);
        EXPECT_FALSE(PassedOn(WM_NCLBUTTONDBLCLK));
        EXPECT_EQ(answer, PassedOn(WM_SYSCOMMAND));
        EXPECT_EQ(answer, IsZoomed(window.get()) != FALSE);
    }
}

TEST_F(EndToEndTest, MakesACommandOfAClickOnTheMaximiseButton) {
    ReadSystemVersion(profile);
    for (const bool answer : {false, true}) {
        const TestWindow window(WindowForm{.style = WS_OVERLAPPEDWINDOW | WS_VISIBLE});
        Named(window);
        SetForegroundWindow(window.get());
        PumpAll();
        POINT button = {window.Place().right, window.Place().top + GetSystemMetrics(SM_CYFRAME) + 8};
        const auto hit = [&] { return SendMessageA(window.get(), WM_NCHITTEST, 0, MAKELPARAM(button.x, button.y)); };
        while (button.x > window.Place().left && hit() != HTMAXBUTTON)
            --button.x;
        recording.Take();
        recording.commandAnswer = answer;
        Click({button.x - 4, button.y});
        Calls calls;
        EXPECT_TRUE(PumpUntil([&] {
            const Calls fresh = recording.Take();
            calls.insert(calls.end(), fresh.begin(), fresh.end());
            return Has(calls, "HandleSysCommand F030 0 hit 0") && (!answer || IsZoomed(window.get()));
        })) << testing::PrintToString(calls);
        EXPECT_EQ(answer, IsZoomed(window.get()) != FALSE);
        EXPECT_EQ(nullptr, GetCapture());
    }
}

}  // namespace
}  // namespace halyard::test
