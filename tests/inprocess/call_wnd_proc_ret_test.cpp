// Sent messages after the program has answered them.
#include "hook/hook_procs.h"
#include "hook/interest_table.h"
#include "hook_fixture.h"

#include <algorithm>

namespace halyard::test {
namespace {

class CallWndProcRetTest : public HookTest {
protected:
    // As the platform would call it behind the window's procedure.
    static LRESULT Observe(HWND window, UINT message, WPARAM wParam = 0, LPARAM lParam = 0, LRESULT result = 0,
                           int code = HC_ACTION) {
        const CWPRETSTRUCT event = {result, lParam, wParam, message, window};
        return CallWndProcRetHookProc(code, 0, reinterpret_cast<LPARAM>(&event));
    }
};

TEST_F(CallWndProcRetTest, LooksAtElevenMessages) {
    // Those that leave a record or, at a window's end, a call.
    std::vector<UINT> looked;
    SetWindowMemory(true, true);
    const TestWindow window;
    Named(window);
    for (UINT message = 0; message < 0x10000; message += message < 1024 ? 1 : 61) {
        Observe(window.get(), message);
        const bool called = !recording.Take().empty();
        if (RecordCount() > 0 || called) looked.push_back(message);
        threadTable->ForCurrentThread()->Remove(window.get());
    }
    EXPECT_EQ((std::vector<UINT>{1, 2, 6, 26, 71, 125, 126, 132, 133, 279, 561}), looked);
}

TEST_F(CallWndProcRetTest, OnlyPassesOnWhatItMustNotTouch) {
    const TestWindow window;
    Named(window);
    struct {
        const char* what;
        bool slot;
        bool active;
        int code;
    } const ways[] = {
        {"hook being removed", false, true, HC_ACTION},
        {"engine off", true, false, HC_ACTION},
        {"negative code", true, true, -1},
    };
    for (const auto& way : ways) {
        SCOPED_TRACE(way.what);
        SetCallWndProcRetHook(HandleFromBits<HHOOK>(way.slot ? 0x7FFF0001 : 0));
        profile.hookEngineActive = way.active;
        for (const UINT message : InterestingMessages)
            EXPECT_EQ(0, Observe(window.get(), message, 0, 0, 0, way.code));
        EXPECT_EQ(Calls{}, recording.Take());
        EXPECT_EQ(0u, RecordCount());
    }
    threadTable = nullptr;
    SetCallWndProcRetHook(HandleFromBits<HHOOK>(0x7FFF0001));
    profile.hookEngineActive = true;
    EXPECT_EQ(0, Observe(window.get(), WM_CREATE));
    EXPECT_EQ(Calls{}, recording.Take());
}

TEST_F(CallWndProcRetTest, DropsTheRecordThatTheDispatchGivesUp) {
    const TestWindow window;
    Named(window);
    Observe(window.get(), WM_CREATE);
    EXPECT_EQ(1u, RecordCount());
    EXPECT_FALSE(TrackedWindowOf(window.get())->placed);
    Observe(window.get(), WM_DESTROY);
    EXPECT_EQ(0u, RecordCount());
    // A later event begins anew.
    Observe(window.get(), WM_NCHITTEST, 0, 0, HTSYSMENU);
    EXPECT_TRUE(TrackedWindowOf(window.get())->placed);
    EXPECT_EQ(HTSYSMENU, TrackedWindowOf(window.get())->lastHitTest);
}

class DesktopMenuTest : public CallWndProcRetTest {
protected:
    DesktopMenuTest() {
        Named(view);
        Named(other);
        profile.program.explorer = true;
        profile.desktopViewWindow = view.get();
    }
    ~DesktopMenuTest() override {
        Release(view.get());
        Observe(view.get(), WM_EXITMENULOOP);
        DestroyMenu(menu);
    }

    static void Release(HWND window) {
        MSG release = {window, WM_LBUTTONUP, 0, 0, 0, {}};
        GetMessageHookProc(HC_ACTION, PM_REMOVE, reinterpret_cast<LPARAM>(&release));
        EXPECT_EQ(static_cast<UINT>(WM_LBUTTONUP), release.message);
    }
    void Open() { Observe(view.get(), WM_INITMENUPOPUP, reinterpret_cast<WPARAM>(menu), 0); }
    void PointAt(UINT item, HWND window) { Observe(window, WM_MENUSELECT, MAKEWPARAM(item, MF_MOUSESELECT), 0); }

    // Whether a release of the button now asks for the dialog.
    bool ReleaseAsks() {
        recording.Take();
        Release(view.get());
        const Calls calls = recording.Take();
        return std::find(calls.begin(), calls.end(), "send OPEN_CONFIG 0") != calls.end();
    }

    TestWindow view{WindowForm{.style = WS_POPUP}};
    TestWindow other{WindowForm{.style = WS_POPUP}};
    HMENU menu = CreatePopupMenu();
};

TEST_F(DesktopMenuTest, AddsItsItemOnce) {
    AppendMenuA(menu, MF_STRING, 5, "Arrange");
    Observe(other.get(), WM_INITMENUPOPUP, reinterpret_cast<WPARAM>(menu), 0);
    EXPECT_EQ(1, GetMenuItemCount(menu));
    for (int opening = 0; opening < 2; ++opening) {
        Open();
        ASSERT_EQ(3, GetMenuItemCount(menu));
        EXPECT_TRUE(GetMenuState(menu, 1, MF_BYPOSITION) & MF_SEPARATOR);
        char text[64] = {};
        GetMenuStringA(menu, 64771, text, sizeof(text), MF_BYCOMMAND);
        EXPECT_STREQ("Tevral Properties", text);
        EXPECT_EQ(64771u, GetMenuItemID(menu, 2));
    }
}

TEST_F(DesktopMenuTest, AsksForTheDialogWhenTheButtonComesUpOnItsItem) {
    Open();
    EXPECT_FALSE(ReleaseAsks()) << "nothing pointed at";
    PointAt(64771, view.get());
    EXPECT_TRUE(ReleaseAsks());
    EXPECT_FALSE(ReleaseAsks()) << "a second time";

    PointAt(64771, view.get());
    PointAt(64772, view.get());
    EXPECT_FALSE(ReleaseAsks()) << "pointed at another item last";

    PointAt(64771, view.get());
    PointAt(64772, other.get());
    EXPECT_TRUE(ReleaseAsks()) << "another window's menu";

    PointAt(64771, view.get());
    Open();
    EXPECT_FALSE(ReleaseAsks()) << "the menu opened again";

    // Some platforms give the mouse to a window of the open menu's own.
    Open();
    PointAt(64771, view.get());
    Release(other.get());
    EXPECT_EQ(Calls{"send OPEN_CONFIG 0"}, recording.Take());

    PointAt(64771, view.get());
    Observe(view.get(), WM_EXITMENULOOP);
    PointAt(5, view.get());
    recording.Take();
    Release(other.get());
    EXPECT_EQ(Calls{}, recording.Take()) << "elsewhere, with the menu closed";
    EXPECT_TRUE(ReleaseAsks()) << "pointing after the menu's end counts for nothing";
    PointAt(64771, view.get());
    EXPECT_FALSE(ReleaseAsks()) << "pointing after the menu's end counts for nothing";
}

TEST_F(DesktopMenuTest, DoesNothingWhereThereIsNoDesktopWindow) {
    profile.desktopViewWindow = nullptr;
    Open();
    EXPECT_EQ(0, GetMenuItemCount(menu));
    PointAt(64771, view.get());
    profile.desktopViewWindow = view.get();
    EXPECT_FALSE(ReleaseAsks());
}

// What a window of the drawing program sees when its frame is to be painted.
struct Paint {
    WPARAM region;
    DWORD style;
    RECT box;
};

class SpanningFrameTest : public CallWndProcRetTest, public testing::WithParamInterface<bool> {
protected:
    SpanningFrameTest() {
        profile.program.acad = true;
        Named(window);
        tracked = &Known(window.get());
        tracked->maximisedAcross = true;
        window.handler = [this](UINT message, WPARAM wParam, LPARAM) -> std::optional<LRESULT> {
            if (message != WM_NCPAINT) return std::nullopt;
            Paint paint = {wParam, window.Style(), {}};
            GetRgnBox(reinterpret_cast<HRGN>(wParam), &paint.box);
            paints.push_back(paint);
            // The program's own painting goes through the hook once more.
            if (paints.size() > 5) return 0;
            const DWORD shown = window.Style();
            if (dropsStyle) SetWindowLongA(window.get(), GWL_STYLE, static_cast<LONG>(shown & ~WS_MAXIMIZE));
            Observe(window.get(), WM_NCPAINT, wParam);
            SetWindowLongA(window.get(), GWL_STYLE, static_cast<LONG>(shown));
            return 0;
        };
    }

    TestWindow window{WindowForm{.place = {100, 120, 500, 400}, .wide = GetParam()}};
    TrackedWindow* tracked;
    bool dropsStyle = false;  // takes WS_MAXIMIZE out while it paints
    std::vector<Paint> paints;
};

INSTANTIATE_TEST_SUITE_P(Interfaces, SpanningFrameTest, testing::Bool(),
                         [](const auto& wide) { return wide.param ? "Wide" : "Narrow"; });

TEST_P(SpanningFrameTest, IsPaintedOnceMoreAsMaximised) {
    const DWORD style = window.Style();
    // Neither is the message dispatched, which would place the window, nor is the answer to it asked for again.
    profile.program.corelpp = true;
    tracked->placed = false;
    tracked->isDialog = true;
    dropsStyle = true;
    Observe(window.get(), WM_NCPAINT, 1);
    ASSERT_EQ(1u, paints.size());
    EXPECT_EQ(1u, paints[0].region);
    EXPECT_EQ(style | WS_MAXIMIZE, paints[0].style);
    EXPECT_EQ(style, window.Style());
    EXPECT_EQ(Calls{}, recording.Take());
    Observe(window.get(), WM_NCPAINT, 1);
    EXPECT_EQ(2u, paints.size()) << "the guard stays closed";
}

TEST_P(SpanningFrameTest, IsLeftAloneWhenItNeedsNoMore) {
    tracked->maximisedAcross = false;
    Observe(window.get(), WM_NCPAINT, 1);
    EXPECT_EQ(0u, paints.size()) << "not spanning";
    tracked->maximisedAcross = true;
    profile.program.acad = false;
    Observe(window.get(), WM_NCPAINT, 1);
    EXPECT_EQ(0u, paints.size()) << "another program";
    profile.program.acad = true;
    SetWindowLongA(window.get(), GWL_STYLE, static_cast<LONG>(window.Style() | WS_MAXIMIZE));
    Observe(window.get(), WM_NCPAINT, 1);
    EXPECT_EQ(0u, paints.size()) << "maximised in truth";
}

TEST_P(SpanningFrameTest, PaintsItsCaptionButtonsWhenThePointerIsTested) {
    const DWORD style = window.Style();
    Observe(window.get(), WM_NCHITTEST, 0, 0, HTMAXBUTTON);
    ASSERT_EQ(1u, paints.size());
    EXPECT_EQ(HTMAXBUTTON, tracked->lastHitTest);
    const LONG top = 120 + GetSystemMetrics(SM_CYFRAME);
    const LONG right = 500 - GetSystemMetrics(SM_CXFRAME) - GetSystemMetrics(SM_CXSIZE);
    EXPECT_EQ(right - GetSystemMetrics(SM_CXSIZE) - 8, paints[0].box.left);
    EXPECT_EQ(top, paints[0].box.top);
    EXPECT_EQ(right, paints[0].box.right);
    EXPECT_EQ(top + GetSystemMetrics(SM_CYSIZE), paints[0].box.bottom);
    EXPECT_EQ(style | WS_MAXIMIZE, paints[0].style);
    EXPECT_EQ(style, window.Style());
    EXPECT_EQ(0u, GetObjectType(reinterpret_cast<HGDIOBJ>(paints[0].region))) << "the region is left behind";

    tracked->maximisedAcross = false;
    Observe(window.get(), WM_NCHITTEST, 0, 0, HTCLIENT);
    EXPECT_EQ(1u, paints.size());
}

}  // namespace
}  // namespace halyard::test
