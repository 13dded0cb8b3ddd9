// Posted messages on their way to the program.
#include "hook/hook_fixture.h"

namespace halyard::test {
namespace {

// How the window and the program stand when the message is taken out of the queue.
enum State : unsigned {
    Plain = 0,  // has all boxes
    NoBox = 1,
    Child = 2,
    Dialog = 4,
    Maximised = 8,
    Across = 0x10,
    Acad = 0x20,
    Queued = 0x40,  // a WM_SYSCOMMAND waits already
    Cancelled = 0x100,
    HitCleared = 0x200,
};

struct MouseCase {
    const char* what;
    int hit;
    unsigned before;
    WPARAM posted;  // 0 for none
    unsigned after;
};

constexpr unsigned Turned = Cancelled | HitCleared;

constexpr MouseCase DoubleClicks[] = {
    {"on the caption", HTCAPTION, Plain, SC_MAXIMIZE, Turned},
    {"on the caption of a maximised window", HTCAPTION, Maximised, SC_RESTORE, Turned},
    {"on the caption of a spanning window in acad", HTCAPTION, Across | Acad, SC_RESTORE, Turned},
    {"with a command waiting", HTCAPTION, Queued, 0, Turned},
    {"on the maximise button", HTMAXBUTTON, Plain, 0, 0},
    {"without a maximise box", HTCAPTION, NoBox, 0, 0},
    {"on a child", HTCAPTION, Child, 0, 0},
    {"on a dialog", HTCAPTION, Dialog, 0, 0},
};

constexpr MouseCase ButtonUps[] = {
    {"after the maximise button", HTMAXBUTTON, Plain, SC_MAXIMIZE, Turned},
    {"after it, spanning in acad", HTMAXBUTTON, Across | Acad, SC_RESTORE, Turned},
    {"after it on a child", HTMAXBUTTON, Child, SC_MAXIMIZE, Turned},
    {"after it on a dialog", HTMAXBUTTON, Dialog, SC_MAXIMIZE, Turned},
    {"after it with a command waiting", HTMAXBUTTON, Queued, SC_MAXIMIZE, Turned},
    {"after it without a maximise box", HTMAXBUTTON, NoBox, 0, HitCleared},
    {"after the caption", HTCAPTION, Plain, 0, 0},
};

class GetMessageTest : public HookTest {
protected:
    // The system commands that wait for the window, in their order.
    static std::vector<WPARAM> WaitingCommands(HWND window) {
        std::vector<WPARAM> commands;
        MSG message;
        while (PeekMessageA(&message, window, WM_SYSCOMMAND, WM_SYSCOMMAND, PM_REMOVE))
            commands.push_back(message.wParam);
        return commands;
    }

    void RunMouse(UINT message, const MouseCase& test) {
        SCOPED_TRACE(testing::Message() << message << " " << test.what);
        const TestWindow parent(WindowForm{.style = WS_POPUP});
        DWORD style = WS_OVERLAPPEDWINDOW;
        if (test.before & NoBox) style &= ~WS_MAXIMIZEBOX;
        if (test.before & Child) style = WS_CHILD | WS_MAXIMIZEBOX | WS_CAPTION;
        // A full popup with an owner that lacks the thick frame is a dialog.
        if (test.before & Dialog) style = WS_POPUP | WS_CAPTION | WS_SYSMENU | WS_MAXIMIZEBOX;
        if (test.before & Maximised) style |= WS_MAXIMIZE;
        const bool owned = (test.before & (Child | Dialog)) != 0;
        const TestWindow window({.style = style, .parent = owned ? parent.get() : nullptr});
        TrackedWindow& tracked = Known(window.get());
        tracked.lastHitTest = test.hit;
        tracked.maximisedAcross = (test.before & Across) != 0;
        profile.program.acad = (test.before & Acad) != 0;
        std::vector<WPARAM> expected;
        if (test.before & Queued) {
            PostMessageA(window.get(), WM_SYSCOMMAND, 0x1230, 0);
            expected.push_back(0x1230);
        }
        if (test.posted) expected.push_back(test.posted);
        SetCapture(window.get());

        EXPECT_EQ((test.after & Cancelled) != 0, Take(window.get(), message, 5, 6));
        EXPECT_EQ(test.after & HitCleared ? 0 : test.hit, tracked.lastHitTest);
        EXPECT_EQ(test.after & Cancelled ? nullptr : window.get(), GetCapture());
        EXPECT_EQ(expected, WaitingCommands(window.get()));
        EXPECT_EQ(Calls{}, recording.Take());
        ReleaseCapture();
    }
};

TEST_F(GetMessageTest, TurnsClicksIntoCommands) {
    for (const MouseCase& test : DoubleClicks)
        RunMouse(WM_NCLBUTTONDBLCLK, test);
    for (const MouseCase& test : ButtonUps)
        RunMouse(WM_LBUTTONUP, test);
}

TEST_F(GetMessageTest, OnlyPassesOnWhatItMustNotTouch) {
    const TestWindow window;
    profile.program.qlplay = true;
    recording.commandTaken = true;
    struct {
        bool window;
        int code;
        WPARAM remove;
        bool active;
        bool table;
    } const ways[] = {
        {false, HC_ACTION, PM_REMOVE, true, true},  {true, -1, PM_REMOVE, true, true},
        {true, HC_ACTION, PM_NOREMOVE, true, true}, {true, HC_ACTION, PM_REMOVE, false, true},
        {true, HC_ACTION, PM_REMOVE, true, false},
    };
    for (const auto& way : ways) {
        for (const UINT message :
             {static_cast<UINT>(WM_NCLBUTTONDBLCLK), static_cast<UINT>(WM_LBUTTONUP), static_cast<UINT>(WM_SYSCOMMAND),
              static_cast<UINT>(WM_COMMAND), profile.restartMessage, profile.settingMessage}) {
            SCOPED_TRACE(testing::Message() << message << " in way " << &way - ways);
            TrackedWindow& tracked = Known(window.get());
            tracked.lastHitTest = HTMAXBUTTON;
            profile.hookEngineActive = way.active;
            threadTable = way.table ? &table : nullptr;
            MSG taken = {way.window ? window.get() : nullptr, message, FirstExtensionCommand, 0, 0, {}};
            GetMessageHookProc(way.code, way.remove, reinterpret_cast<LPARAM>(&taken));
            profile.hookEngineActive = true;
            threadTable = &table;
            EXPECT_EQ(message, taken.message);
            EXPECT_EQ(Calls{}, recording.Take());
            EXPECT_EQ(HTMAXBUTTON, tracked.lastHitTest);
            EXPECT_EQ(1u, RecordCount());
        }
    }
}

TEST_F(GetMessageTest, AsksForCommandsAndCancelsWhatWasCarriedOut) {
    const struct {
        const char* what;
        UINT message;
        WPARAM command;
        LPARAM control;
        bool qlplay;
        bool open;
        const char* asked;  // null: not
    } cases[] = {
        {"system command", WM_SYSCOMMAND, SC_CLOSE, 9, false, false, "HandleSysCommand F060 9 hit 0"},
        {"first of the extension in qlplay2", WM_COMMAND, 64766, 3, true, false, "HandleSysCommand FCFE 3 hit 4"},
        {"last of it", WM_COMMAND, 64810, 0, true, false, "HandleSysCommand FD2A 0 hit 4"},
        {"ahead of it", WM_COMMAND, 64765, 0, true, false, nullptr},
        {"behind it", WM_COMMAND, 64811, 0, true, false, nullptr},
        {"elsewhere", WM_COMMAND, 64780, 0, false, false, nullptr},
        {"chosen in the open extension", WM_COMMAND, 64780, 0, false, true, "HandleSysCommand FD0C 0 hit 0"},
        {"of a control meanwhile", WM_COMMAND, 64780, 5, false, true, nullptr},
        {"outside of its range", WM_COMMAND, 64765, 0, false, true, nullptr},
    };
    const TestWindow window;
    TrackedWindow& tracked = Known(window.get());
    for (const auto& test : cases) {
        for (const bool carriedOut : {false, true}) {
            SCOPED_TRACE(test.what);
            profile.program.qlplay = test.qlplay;
            recording.commandTaken = carriedOut;
            tracked.lastHitTest = 4;
            tracked.extensionOpen = test.open;
            const bool made = test.asked && test.open;
            MSG taken = {window.get(), test.message, test.command, test.control, 0, {}};
            GetMessageHookProc(HC_ACTION, PM_REMOVE, reinterpret_cast<LPARAM>(&taken));
            EXPECT_EQ(test.asked && carriedOut ? WM_NULL : made ? WM_SYSCOMMAND : test.message, taken.message);
            EXPECT_EQ(test.asked ? Calls{test.asked} : Calls{}, recording.Take());
            EXPECT_EQ(test.open && !test.asked, tracked.extensionOpen);
        }
    }
}

TEST_F(GetMessageTest, RunsACommandOfTheExtensionThatWaitsTwiceOnce) {
    struct {
        WPARAM command;
        std::vector<WPARAM> waiting;
        std::vector<WPARAM> left;
    } const cases[] = {
        {64766, {64766}, {}},
        {64810, {64810}, {}},
        {64780, {64780, 64780}, {64780}},
        {64780, {64781, 64780}, {64781, 64780}},
        {64765, {64765}, {64765}},
        {64811, {64811}, {64811}},
    };
    const TestWindow window;
    const TestWindow other;
    Known(window.get());
    for (const auto& test : cases) {
        PostMessageA(other.get(), WM_SYSCOMMAND, test.command, 0);
        for (const WPARAM waiting : test.waiting)
            PostMessageA(window.get(), WM_SYSCOMMAND, waiting, 0);
        Take(window.get(), WM_SYSCOMMAND, test.command);
        EXPECT_EQ(test.left, WaitingCommands(window.get())) << test.command;
        EXPECT_EQ(std::vector<WPARAM>{test.command}, WaitingCommands(other.get()));
    }
}

TEST_F(GetMessageTest, EndsATrackingThatGoesOnWithoutTheMouse) {
    profile.tracksButtonsWithoutCapture = true;
    const TestWindow window;
    Known(window.get()).lastHitTest = HTMAXBUTTON;
    MSG taken = {window.get(), WM_LBUTTONUP, 0, MAKELPARAM(5, 5), 0, {20, 20}};
    GetMessageHookProc(HC_ACTION, PM_REMOVE, reinterpret_cast<LPARAM>(&taken));
    EXPECT_EQ(static_cast<UINT>(WM_MOUSEMOVE), taken.message);
    EXPECT_LT(taken.pt.x, -10000);
    EXPECT_LT(static_cast<short>(LOWORD(taken.lParam)), -10000);
    MSG after = {};
    EXPECT_TRUE(PeekMessageA(&after, window.get(), WM_LBUTTONUP, WM_LBUTTONUP, PM_REMOVE)) << "no second release";
    EXPECT_EQ(taken.lParam, after.lParam);
    EXPECT_EQ(std::vector<WPARAM>{SC_MAXIMIZE}, WaitingCommands(window.get()));
    // The second release is the tracking's.
    EXPECT_FALSE(Take(window.get(), WM_LBUTTONUP, 0, after.lParam));
}

TEST_F(GetMessageTest, FollowsTheHooksAndTheConfiguration) {
    const UINT restart = profile.restartMessage;
    const UINT setting = profile.settingMessage;
    const struct {
        const char* what;
        DWORD style;
        UINT message;
        WPARAM wParam;
        LPARAM lParam;
        Calls calls;
        unsigned records;
    } steps[] = {
        {"hooks in", WS_OVERLAPPEDWINDOW, restart, 0, 1, {"AddMenuExtension", "post 1186 2"}, 1},
        {"settings",
         WS_OVERLAPPEDWINDOW,
         setting,
         1,
         0,
         {"ReloadSettings", "RemoveMenuExtension", "AddMenuExtension"},
         1},
        {"desktops",
         WS_OVERLAPPEDWINDOW,
         setting,
         2,
         0,
         {"ReloadDesktops", "RemoveMenuExtension", "AddMenuExtension"},
         1},
        {"hooks in, the style changed unseen", WS_POPUP, restart, 0, 1, {"RemoveMenuExtension"}, 1},
        {"hooks out", WS_OVERLAPPEDWINDOW, restart, 0, 0, {"RemoveMenuExtension"}, 0},
        {"hooks in again", WS_OVERLAPPEDWINDOW, restart, 0, 1, {"AddMenuExtension", "post 1186 2"}, 1},
    };
    const TestWindow window;
    // The record may be older than the hooks.
    Known(window.get()).desktopId = 9;
    SetCurrentDesktopId(2);
    for (const auto& step : steps) {
        SetWindowLongA(window.get(), GWL_STYLE, static_cast<LONG>(step.style));
        EXPECT_FALSE(Take(window.get(), step.message, step.wParam, step.lParam));
        EXPECT_EQ(step.calls, recording.Take()) << step.what;
        EXPECT_EQ(step.records, RecordCount()) << step.what;
    }
}

}  // namespace
}  // namespace halyard::test
