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

}  // namespace
}  // namespace halyard::test
