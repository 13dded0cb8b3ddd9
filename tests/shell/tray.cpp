#include "shell/tray.h"

#include "support/desktop_fixture.h"

namespace halyard::test {

namespace {

HWND AskForWindow(HWND tray, UINT message, WPARAM wParam = 0) {
    return static_cast<HWND>(LongToHandle(static_cast<LONG>(Ask(tray, message, wParam))));
}

}  // namespace

Tray::Tray() : taskList("{56FDF344-FD6D-11D0-958A-006097C9A090}", BinFolder() + "standin_shell.dll") {}

void Tray::Start(Children& children, const std::string& switches) {
    program = children.Start("\"" + BinFolder() + "standin_tray.exe\" " + switches);
    ASSERT_NE(program, nullptr);
    const auto isThere = [this] {
        DWORD owner = 0;
        window = FindWindowA(standin::TrayClass, nullptr);
        GetWindowThreadProcessId(window, &owner);
        return owner == program->Id() && IsWindowVisible(window);
    };
    ASSERT_TRUE(Eventually(isThere)) << "the first of its class is " << Describe(window);
}

void Tray::Kill() {
    program->Kill();
    EXPECT_TRUE(Eventually([this] { return !IsWindow(window); })) << Describe(window);
}

std::vector<HWND> Tray::TabWindows() const {
    const LRESULT count = Ask(window, standin::CountTabs);
    EXPECT_GE(count, 0) << "the stand-in shell doesn't answer";
    std::vector<HWND> tabs;
    for (LRESULT index = 0; index < count; ++index)
        tabs.push_back(AskForWindow(window, standin::TabAt, static_cast<WPARAM>(index)));
    return tabs;
}

HWND Tray::Marked() const {
    return AskForWindow(window, standin::MarkedTab);
}

void Tray::Move(int display, UINT edge) const {
    Ask(window, standin::MoveTray, static_cast<WPARAM>(display), static_cast<LPARAM>(edge));
}

void Tray::SayThatScreenIsFull(bool full) const {
    Ask(window, standin::SayFullScreen, full);
}

void Tray::Hang(DWORD period) const {
    PostMessageA(window, standin::HangTray, period, 0);
}

}  // namespace halyard::test
