#include "taskbars/taskbar_fixture.h"

#include "process/protocol.h"
#include "taskbars/toolbar_reader.h"

#include <algorithm>

namespace halyard::test {

namespace {

constexpr char BarClass[] = "TevralHalyardTaskbar";

std::string Joined(const Titles& titles) {
    std::string text;
    for (const std::string& title : titles)
        text += "[" + title + "]";
    return text.empty() ? "nothing" : text;
}

std::string TitleOf(HWND window) {
    char title[256] = {};
    GetWindowTextA(window, title, sizeof(title));
    return title;
}

template <typename See>
testing::AssertionResult BecomesTitles(const Titles& wanted, See see) {
    Titles seen;
    const bool good = Eventually([&] { return (seen = see()) == wanted; });
    if (good) return testing::AssertionSuccess();
    return testing::AssertionFailure() << "seen " << Joined(seen) << ", wanted " << Joined(wanted);
}

HWND ToolbarOf(HWND bar) {
    return FindWindowExA(bar, nullptr, "ToolbarWindow32", nullptr);
}

}  // namespace

void TaskbarTest::SetUp() {
    DesktopTest::SetUp();
    ASSERT_TRUE(Arrange(SideBySide())) << Describe(PresentDisplays());
    MoveMouse({500, 300});
    Set("TaskbarsEnable", 1);
}

void TaskbarTest::TearDown() {
    DesktopTest::TearDown();
    EXPECT_TRUE(Arrange(SideBySide()));
}

void TaskbarTest::StartAll(const std::string& traySwitches) {
    tray.Start(children, traySwitches);
    StartLoader();
}

void TaskbarTest::Apply(const char* value, DWORD number) {
    Set(value, number);
    AskServer(published::Restart, 1);
}

Sample TaskbarTest::OpenAt(const std::string& title, POINT place, const std::string& switches) {
    const Sample sample =
        OpenSample(title, "--at " + std::to_string(place.x) + "," + std::to_string(place.y) + ",300,200 " + switches);
    EXPECT_TRUE(BringToFront(sample.window));
    return sample;
}

RECT TaskbarTest::DisplayRect(unsigned display) {
    const std::vector<Display> displays = PresentDisplays();
    return display <= displays.size() ? displays[display - 1].whole : RECT{};
}

HWND TaskbarTest::BarOn(unsigned display) {
    const RECT area = DisplayRect(display);
    MONITORINFO info = {};
    info.cbSize = sizeof(info);
    for (HWND bar = nullptr; (bar = FindWindowExA(nullptr, bar, BarClass, nullptr)) != nullptr;)
        if (GetMonitorInfoA(MonitorFromWindow(bar, MONITOR_DEFAULTTONEAREST), &info) &&
            EqualRect(&info.rcMonitor, &area))
            return bar;
    return nullptr;
}

testing::AssertionResult TaskbarTest::GetsBar(unsigned display) {
    if (Eventually([&] { return BarOn(display) != nullptr; })) return testing::AssertionSuccess();
    return testing::AssertionFailure() << "no bar comes on display " << display;
}

testing::AssertionResult TaskbarTest::LosesBar(unsigned display) {
    if (Eventually([&] { return BarOn(display) == nullptr; })) return testing::AssertionSuccess();
    return testing::AssertionFailure() << "the bar stays: " << Describe(BarOn(display));
}

Titles TaskbarTest::ButtonsOn(unsigned display) {
    Titles titles;
    for (const ToolbarButton& button : ReadToolbar(ToolbarOf(BarOn(display))))
        if (!button.separator) titles.push_back((button.checked ? "*" : "") + button.text);
    return titles;
}

testing::AssertionResult TaskbarTest::Shows(unsigned display, const Titles& wanted) {
    return BecomesTitles(wanted, [display] { return ButtonsOn(display); });
}

testing::AssertionResult TaskbarTest::PrimaryShows(const Titles& wanted) const {
    return BecomesTitles(wanted, [this] {
        Titles titles;
        for (HWND window : tray.TabWindows())
            titles.push_back(TitleOf(window));
        return titles;
    });
}

POINT TaskbarTest::ButtonPlace(unsigned display, const std::string& text) {
    HWND toolbar = ToolbarOf(BarOn(display));
    for (const ToolbarButton& button : ReadToolbar(toolbar)) {
        if (button.text != text) continue;
        POINT middle = {(button.place.left + button.place.right) / 2, (button.place.top + button.place.bottom) / 2};
        ClientToScreen(toolbar, &middle);
        return middle;
    }
    ADD_FAILURE() << "no button \"" << text << "\" among " << Joined(ButtonsOn(display));
    return {};
}

POINT TaskbarTest::EmptyPlace(unsigned display) {
    const RECT bar = PlaceOf(BarOn(display));
    const RECT area = DisplayRect(display);
    // Two presses at one place, soon after each other, would be a double-click.
    static int aside = 5;
    aside = -aside;
    return {std::min(bar.right, area.right) - 30 + aside, std::min(bar.bottom, area.bottom) - 12};
}

testing::AssertionResult TaskbarTest::BarBecomes(unsigned display, const RECT& place) {
    // It may be made anew meanwhile.
    const bool good = Eventually([&] {
        const RECT seen = PlaceOf(BarOn(display));
        return EqualRect(&seen, &place) != FALSE;
    });
    return good ? testing::AssertionSuccess() : BecomesPlaced(BarOn(display), place);
}

void TaskbarTest::Choose(unsigned display, int downs) {
    const POINT place = EmptyPlace(display);
    HWND bar = BarOn(display);
    RightClick(place);
    ASSERT_TRUE(EntersLoop(bar, GUI_INMENUMODE));
    for (int count = 0; count < downs; ++count)
        TapKey("Down");
    TapKey("Return");
    ASSERT_TRUE(LeavesLoop(bar, GUI_INMENUMODE));
}

}  // namespace halyard::test
