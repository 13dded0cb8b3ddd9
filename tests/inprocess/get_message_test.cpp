// Posted messages on their way to the program.
#include "hook/hook_procs.h"
#include "hook_fixture.h"

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
    {"on the caption of a spanning window", HTCAPTION, Across, SC_MAXIMIZE, Turned},
    {"on the caption of a spanning window in acad", HTCAPTION, Across | Acad, SC_RESTORE, Turned},
    {"on the caption in acad", HTCAPTION, Acad, SC_MAXIMIZE, Turned},
    {"with a command waiting", HTCAPTION, Queued, 0, Turned},
    {"on the maximise button", HTMAXBUTTON, Plain, 0, 0},
    {"nowhere known", 0, Plain, 0, 0},
    {"without a maximise box", HTCAPTION, NoBox, 0, 0},
    {"on a child", HTCAPTION, Child, 0, 0},
    {"on a dialog", HTCAPTION, Dialog, 0, 0},
};

constexpr MouseCase ButtonUps[] = {
    {"after the maximise button", HTMAXBUTTON, Plain, SC_MAXIMIZE, Turned},
    {"after it, maximised", HTMAXBUTTON, Maximised, SC_RESTORE, Turned},
    {"after it, spanning in acad", HTMAXBUTTON, Across | Acad, SC_RESTORE, Turned},
    {"after it on a child", HTMAXBUTTON, Child, SC_MAXIMIZE, Turned},
    {"after it on a dialog", HTMAXBUTTON, Dialog, SC_MAXIMIZE, Turned},
    {"after it with a command waiting", HTMAXBUTTON, Queued, SC_MAXIMIZE, Turned},
    {"after it without a maximise box", HTMAXBUTTON, NoBox, 0, HitCleared},
    {"after the caption", HTCAPTION, Plain, 0, 0},
    {"after nothing known", 0, Plain, 0, 0},
};

constexpr WPARAM Waiting = 0x1230;

class GetMessageTest : public HookTest {
protected:
    // As the platform would call it; whether the message has been cancelled.
    static bool Take(HWND window, UINT message, WPARAM wParam = 0, LPARAM lParam = 0, WPARAM remove = PM_REMOVE) {
        MSG taken = {window, message, wParam, lParam, 0, {0, 0}};
        const LRESULT answer = GetMessageHookProc(HC_ACTION, remove, reinterpret_cast<LPARAM>(&taken));
        EXPECT_EQ(0, answer);
        EXPECT_EQ(wParam, taken.wParam);
        EXPECT_EQ(lParam, taken.lParam);
        EXPECT_TRUE(taken.message == message || taken.message == WM_NULL) << taken.message;
        return taken.message != message;
    }

    // The system commands that wait for the window, in their order.
    static std::vector<WPARAM> WaitingCommands(HWND window) {
        std::vector<WPARAM> commands;
        MSG message;
        while (PeekMessageA(&message, window, WM_SYSCOMMAND, WM_SYSCOMMAND, PM_REMOVE))
            commands.push_back(message.wParam);
        return commands;
    }

    void RunMouse(UINT message, const MouseCase& test) {
        const TestWindow parent(WindowForm{.style = WS_POPUP});
        DWORD style = WS_OVERLAPPEDWINDOW;
        if (test.before & NoBox) style &= ~WS_MAXIMIZEBOX;
        if (test.before & Child) style = WS_CHILD | WS_MAXIMIZEBOX | WS_CAPTION;
        // A full popup with an owner that lacks the thick frame is a dialog.
        if (test.before & Dialog) style = WS_POPUP | WS_CAPTION | WS_SYSMENU | WS_MAXIMIZEBOX;
        if (test.before & Maximised) style |= WS_MAXIMIZE;
        const bool owned = (test.before & (Child | Dialog)) != 0;
        const TestWindow window({.style = style, .parent = owned ? parent.get() : nullptr});
        Named(window);
        TrackedWindow& tracked = Known(window.get());
        tracked.lastHitTest = test.hit;
        tracked.maximisedAcross = (test.before & Across) != 0;
        profile.program.acad = (test.before & Acad) != 0;
        std::vector<WPARAM> expected;
        if (test.before & Queued) {
            PostMessageA(window.get(), WM_SYSCOMMAND, Waiting, 0);
            expected.push_back(Waiting);
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

TEST_F(GetMessageTest, TurnsDoubleClicksOnCaptionsIntoCommands) {
    for (const MouseCase& test : DoubleClicks) {
        SCOPED_TRACE(test.what);
        RunMouse(WM_NCLBUTTONDBLCLK, test);
    }
}

TEST_F(GetMessageTest, TurnsReleasesOfTheMaximiseButtonIntoCommands) {
    for (const MouseCase& test : ButtonUps) {
        SCOPED_TRACE(test.what);
        RunMouse(WM_LBUTTONUP, test);
    }
}

TEST_F(GetMessageTest, OnlyPassesOnWhatItMustNotTouch) {
    const TestWindow window;
    Named(window);
    SetWindowMemory(true, true);
    profile.program.qlplay = true;
    recording.commandAnswer = false;
    const MSG messages[] = {
        {window.get(), WM_NCLBUTTONDBLCLK, HTCAPTION, 0, 0, {}},
        {window.get(), WM_SYSCOMMAND, FirstExtensionCommand, 0, 0, {}},
        {window.get(), WM_COMMAND, FirstExtensionCommand, 0, 0, {}},
        {window.get(), profile.restartMessage, 0, 0, 0, {}},
        {window.get(), profile.settingMessage, 1, 0, 0, {}},
    };
    struct {
        const char* what;
        int code;
        WPARAM remove;
        bool active;
        bool table;
    } const ways[] = {
        {"negative code", -1, PM_REMOVE, true, true},
        {"only looked at", HC_ACTION, PM_NOREMOVE, true, true},
        {"engine off", HC_ACTION, PM_REMOVE, false, true},
        {"no thread table", HC_ACTION, PM_REMOVE, true, false},
    };
    for (const auto& way : ways) {
        for (const MSG& message : messages) {
            SCOPED_TRACE(std::string(way.what) + ", message " + std::to_string(message.message));
            Known(window.get()).lastHitTest = HTCAPTION;
            profile.hookEngineActive = way.active;
            threadTable = way.table ? &table : nullptr;
            MSG taken = message;
            GetMessageHookProc(way.code, way.remove, reinterpret_cast<LPARAM>(&taken));
            profile.hookEngineActive = true;
            threadTable = &table;
            EXPECT_EQ(message.message, taken.message);
            EXPECT_EQ(Calls{}, recording.Take());
            EXPECT_EQ(HTCAPTION, Known(window.get()).lastHitTest);
            EXPECT_EQ(1u, RecordCount());
        }
    }
}

TEST_F(GetMessageTest, AsksForEachSystemCommandAndCancelsWhatWasCarriedOut) {
    const TestWindow window;
    Named(window);
    TrackedWindow& tracked = Known(window.get());
    for (const bool answer : {true, false}) {
        recording.commandAnswer = answer;
        tracked.lastHitTest = HTCAPTION;
        EXPECT_EQ(!answer, Take(window.get(), WM_SYSCOMMAND, SC_CLOSE, 9));
        // The hit test has been consumed by the time that the command is looked at.
        EXPECT_EQ(Calls{"HandleSysCommand F060 9 hit 0"}, recording.Take());
        EXPECT_EQ(0, tracked.lastHitTest);
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
        {SC_CLOSE, {SC_CLOSE}, {SC_CLOSE}},
    };
    const TestWindow window;
    const TestWindow other;
    Named(window);
    for (const auto& test : cases) {
        SCOPED_TRACE(test.command);
        Known(window.get());
        PostMessageA(other.get(), WM_SYSCOMMAND, test.command, 0);
        for (const WPARAM waiting : test.waiting)
            PostMessageA(window.get(), WM_SYSCOMMAND, waiting, 0);
        Take(window.get(), WM_SYSCOMMAND, test.command);
        EXPECT_EQ(1u, recording.Take().size());
        EXPECT_EQ(test.left, WaitingCommands(window.get()));
        EXPECT_EQ(std::vector<WPARAM>{test.command}, WaitingCommands(other.get()));
    }
}

TEST_F(GetMessageTest, TakesMenuCommandsOnlyInQlplay) {
    struct {
        bool qlplay;
        WPARAM command;
        bool asked;
    } const cases[] = {
        {true, 64766, true}, {true, 64810, true}, {true, 64765, false}, {true, 64811, false}, {false, 64780, false},
    };
    const TestWindow window;
    Named(window);
    TrackedWindow& tracked = Known(window.get());
    for (const auto& test : cases) {
        for (const bool answer : {true, false}) {
            SCOPED_TRACE(std::to_string(test.command) + (test.qlplay ? " in qlplay2" : " elsewhere"));
            profile.program.qlplay = test.qlplay;
            recording.commandAnswer = answer;
            tracked.lastHitTest = 4;
            EXPECT_EQ(test.asked && !answer, Take(window.get(), WM_COMMAND, test.command, 3));
            EXPECT_EQ(test.asked ? 1u : 0u, recording.Take().size());
            EXPECT_EQ(4, tracked.lastHitTest);
        }
    }
}

TEST_F(GetMessageTest, MakesASystemCommandOfWhatIsChosenInTheOpenExtension) {
    const struct {
        const char* what;
        bool open;
        WPARAM command;
        LPARAM control;
        bool ours;
    } cases[] = {
        {"chosen in it", true, 64780, 0, true},
        {"of a control", true, 64780, 5, false},
        {"outside of its range", true, 64765, 0, false},
        {"with it closed", false, 64780, 0, false},
    };
    const TestWindow window;
    Named(window);
    TrackedWindow& tracked = Known(window.get());
    recording.commandAnswer = false;
    for (const auto& test : cases) {
        SCOPED_TRACE(test.what);
        tracked.extensionOpen = test.open;
        PostMessageA(window.get(), WM_SYSCOMMAND, test.command, 0);
        EXPECT_EQ(test.ours, Take(window.get(), WM_COMMAND, test.command, test.control));
        EXPECT_EQ(test.ours ? Calls{"HandleSysCommand FD0C 0 hit 0"} : Calls{}, recording.Take());
        EXPECT_EQ(test.ours ? 0u : 1u, WaitingCommands(window.get()).size()) << "a duplicate goes with it";
        EXPECT_EQ(test.open && !test.ours, tracked.extensionOpen);
    }
}

TEST_F(GetMessageTest, EndsATrackingThatGoesOnWithoutTheMouse) {
    profile.tracksButtonsWithoutCapture = true;
    const TestWindow window;
    Known(window.get()).lastHitTest = HTMAXBUTTON;
    MSG taken = {window.get(), WM_LBUTTONUP, 0, MAKELPARAM(5, 5), 0, {20, 20}};
    EXPECT_EQ(0, GetMessageHookProc(HC_ACTION, PM_REMOVE, reinterpret_cast<LPARAM>(&taken)));
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

TEST_F(GetMessageTest, ClassifiesAndReportsEachWindowWhenTheHooksHaveComeIn) {
    const TestWindow managed;
    const TestWindow bare(WindowForm{.style = WS_POPUP});
    Named(managed);
    Named(bare);
    // The record may be older than the hooks.
    Known(managed.get()).desktopId = 9;
    SetCurrentDesktopId(2);
    EXPECT_FALSE(Take(managed.get(), profile.restartMessage, 0, 1));
    EXPECT_EQ((Calls{"AddMenuExtension", "post ATTACH 2"}), recording.Take());
    EXPECT_TRUE(TrackedWindowOf(managed.get())->placed);
    EXPECT_FALSE(Take(bare.get(), profile.restartMessage, 0, 1));
    EXPECT_EQ(Calls{"RemoveMenuExtension"}, recording.Take());
    // The style has changed unseen.
    SetWindowLongA(managed.get(), GWL_STYLE, static_cast<LONG>(WS_POPUP));
    EXPECT_FALSE(Take(managed.get(), profile.restartMessage, 0, 1));
    EXPECT_EQ(Calls{"RemoveMenuExtension"}, recording.Take());
}

TEST_F(GetMessageTest, DropsEachWindowWhenTheHooksHaveGoneAndMakesItsRecordAnew) {
    const TestWindow window;
    Named(window);
    TrackedWindow& tracked = Known(window.get());
    tracked.placed = false;
    tracked.desktopId = 9;
    SetCurrentDesktopId(3);
    EXPECT_FALSE(Take(window.get(), profile.restartMessage, 0, 0));
    EXPECT_EQ(Calls{"RemoveMenuExtension"}, recording.Take());
    EXPECT_EQ(0u, RecordCount());
    EXPECT_FALSE(Take(window.get(), profile.restartMessage, 0, 1));
    EXPECT_EQ((Calls{"AddMenuExtension", "post ATTACH 3"}), recording.Take());
    EXPECT_TRUE(TrackedWindowOf(window.get())->placed);
}

TEST_F(GetMessageTest, ReadsAgainAndRebuildsTheMenuWhenTheConfigurationHasChanged) {
    const TestWindow managed;
    const TestWindow bare(WindowForm{.style = WS_POPUP});
    for (const TestWindow* window : {&managed, &bare}) {
        Named(*window);
        for (const auto& [kind, reload] : {std::pair(1u, "ReloadSettings"), std::pair(2u, "ReloadDesktops")}) {
            Known(window->get());
            EXPECT_FALSE(Take(window->get(), profile.settingMessage, kind, 0));
            EXPECT_EQ((Calls{reload, "RemoveMenuExtension", "AddMenuExtension"}), recording.Take());
        }
    }
}

TEST_F(GetMessageTest, LeavesMessagesWithoutAWindowAlone) {
    profile.program.qlplay = true;
    recording.commandAnswer = false;
    for (const UINT message :
         {static_cast<UINT>(WM_NCLBUTTONDBLCLK), static_cast<UINT>(WM_LBUTTONUP), static_cast<UINT>(WM_SYSCOMMAND),
          static_cast<UINT>(WM_COMMAND), profile.restartMessage, profile.settingMessage})
        EXPECT_FALSE(Take(nullptr, message, FirstExtensionCommand, 1)) << message;
    EXPECT_EQ(Calls{}, recording.Take());
    EXPECT_EQ(0u, RecordCount());
}

}  // namespace
}  // namespace halyard::test
