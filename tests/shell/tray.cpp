#include "shell/tray.h"

#include "support/desktop_fixture.h"

#include <algorithm>

namespace halyard::test {

namespace {

HWND AskForWindow(HWND tray, UINT message, WPARAM wParam = 0) {
    return reinterpret_cast<HWND>(static_cast<LONG_PTR>(Ask(tray, message, wParam)));
}

}  // namespace

Tray::Tray() : taskList("{56FDF344-FD6D-11D0-958A-006097C9A090}", BinFolder() + "standin_shell.dll") {}

void Tray::Start(Children& children, const std::string& switches) {
    program = children.Start("\"" + BinFolder() + "standin_tray.exe\" " + switches);
    ASSERT_NE(program, nullptr) << "the stand-in shell can't be started: " << GetLastError();
    const auto isThere = [this] {
        DWORD owner = 0;
        window = FindWindowA(standin::TrayClass, nullptr);
        GetWindowThreadProcessId(window, &owner);
        return owner == program->Id() && IsWindowVisible(window);
    };
    ASSERT_TRUE(Eventually(isThere)) << "the first of its class is " << Describe(window);
}

void Tray::Quit() {
    PostMessageA(window, WM_CLOSE, 0, 0);
    EXPECT_TRUE(program->Ends(WaitLimit)) << "the stand-in shell doesn't end";
}

void Tray::Kill() {
    program->Kill();
    EXPECT_TRUE(Eventually([this] { return !IsWindow(window); })) << Describe(window);
}

std::vector<HWND> Tray::TabWindows() const {
    const LRESULT count = Ask(window, standin::CountTabs);
    EXPECT_GE(count, 0) << "the stand-in shell doesn't answer";
    std::vector<HWND> tabs(static_cast<std::size_t>(std::max<LRESULT>(count, 0)));
    for (std::size_t index = 0; index < tabs.size(); ++index)
        tabs[index] = AskForWindow(window, standin::TabAt, index);
    return tabs;
}

HWND Tray::Marked() const {
    return AskForWindow(window, standin::MarkedTab);
}

testing::AssertionResult Tray::TabsBecome(const std::vector<HWND>& wanted) const {
    if (Eventually([&] { return TabWindows() == wanted; })) return testing::AssertionSuccess();
    testing::AssertionResult failure = testing::AssertionFailure() << "the tray shows\n";
    for (HWND tab : TabWindows())
        failure << "  " << Describe(tab) << "\n";
    failure << "and should show\n";
    for (HWND tab : wanted)
        failure << "  " << Describe(tab) << "\n";
    return failure;
}

void Tray::Move(int display, UINT edge) const {
    Ask(window, standin::MoveTray, display, edge);
}

void Tray::SayShellEvent(WPARAM code, HWND subject) const {
    Ask(window, standin::SayEvent, code, reinterpret_cast<LPARAM>(subject));
}

void Tray::SayThatScreenIsFull(bool full) const {
    Ask(window, standin::SayFullScreen, full);
}

void Tray::Hang(DWORD period) const {
    PostMessageA(window, standin::HangTray, period, 0);
}

}  // namespace halyard::test
