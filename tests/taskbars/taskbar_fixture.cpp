#include "taskbars/taskbar_fixture.h"

#include "shell/record.h"
#include "support/picture.h"

#include <algorithm>
#include <functional>

#include <commctrl.h>

namespace halyard::test {

namespace {

struct Button {
    std::string text;
    RECT place;  // on the screen
};

std::string Utf8(const wchar_t* text) {
    char utf8[2048] = {};
    WideCharToMultiByte(CP_UTF8, 0, text, -1, utf8, sizeof(utf8) - 1, nullptr, nullptr);
    return utf8;
}

// Reads the toolbar through memory in its process, to which its answers go, as screen readers do.
std::vector<Button> ReadButtons(HWND bar) {
    constexpr SIZE_T Room = 4096;
    HWND toolbar = FindWindowExA(bar, nullptr, "ToolbarWindow32", nullptr);
    DWORD id = 0;
    GetWindowThreadProcessId(toolbar, &id);
    const KernelHandle process(OpenProcess(PROCESS_VM_OPERATION | PROCESS_VM_READ, FALSE, id));
    void* room = VirtualAllocEx(process.get(), nullptr, Room, MEM_COMMIT | MEM_RESERVE, PAGE_READWRITE);
    const auto read = [&](UINT message, int which, auto& answer) {
        Ask(toolbar, message, static_cast<WPARAM>(which), reinterpret_cast<LPARAM>(room));
        ReadProcessMemory(process.get(), room, &answer, sizeof(answer), nullptr);
    };
    std::vector<Button> buttons;
    const int count = bar && room ? static_cast<int>(Ask(toolbar, TB_BUTTONCOUNT)) : 0;
    for (int index = 0; index < count; ++index) {
        TBBUTTON entry = {};
        wchar_t text[512] = {};
        Button button = {"|", {}};
        read(TB_GETBUTTON, index, entry);
        read(TB_GETITEMRECT, index, button.place);
        MapWindowPoints(toolbar, nullptr, reinterpret_cast<POINT*>(&button.place), 2);
        if (!(entry.fsStyle & BTNS_SEP)) {
            read(TB_GETBUTTONTEXTW, entry.idCommand, text);
            button.text = entry.fsState & TBSTATE_MARKED ? "!" : entry.fsState & TBSTATE_CHECKED ? "*" : "";
            button.text += Utf8(text);
        }
        buttons.push_back(button);
    }
    if (room) VirtualFreeEx(process.get(), room, 0, MEM_RELEASE);
    return buttons;
}

RECT ButtonRect(HWND bar, const std::string& text) {
    for (const auto& [shown, place] : ReadButtons(bar))
        if (shown.substr(shown.find_first_not_of("*!")) == text) return place;
    ADD_FAILURE() << "no button \"" << text << "\"";
    return {};
}

testing::AssertionResult BecomesTitles(const Titles& wanted, const std::function<Titles()>& see) {
    return Comes([&] { return see() == wanted; }, [&] { return "seen: " + testing::PrintToString(see()); });
}

}  // namespace

void TaskbarTest::SetUp() {
    DesktopTest::SetUp();
    ASSERT_TRUE(Arrange(SideBySide())) << Describe(PresentDisplays());
    MoveMouse({500, 300});
    Set("TaskbarsEnable", 1);
}

void TaskbarTest::StartAll() {
    tray.Start(children);
    StartLoader();
}

Sample TaskbarTest::OpenAt(const std::string& title, POINT place, const std::string& switches) {
    const Sample sample = OpenSample(title, Format("--at %ld,%ld,300,200 ", place.x, place.y) + switches);
    EXPECT_TRUE(BringToFront(sample.window));
    return sample;
}

HWND TaskbarTest::BarOn(unsigned display) {
    const std::vector<Display> displays = PresentDisplays();
    if (display > displays.size()) return nullptr;
    const HMONITOR monitor = MonitorFromRect(&displays[display - 1].whole, MONITOR_DEFAULTTONEAREST);
    HWND bar = nullptr;
    do
        bar = FindWindowExA(nullptr, bar, "TevralHalyardTaskbar", nullptr);
    while (bar && MonitorFromWindow(bar, MONITOR_DEFAULTTONEAREST) != monitor);
    return bar;
}

std::vector<unsigned> TaskbarTest::DisplaysWithBars() {
    std::vector<unsigned> displays;
    for (unsigned display = 1; display <= PresentDisplays().size(); ++display)
        if (BarOn(display)) displays.push_back(display);
    return displays;
}

Titles TaskbarTest::ButtonsOn(unsigned display) {
    Titles titles;
    for (const Button& button : ReadButtons(BarOn(display)))
        titles.push_back(button.text);
    return titles;
}

testing::AssertionResult TaskbarTest::Shows(unsigned display, const Titles& wanted) {
    return BecomesTitles(wanted, [display] { return ButtonsOn(display); });
}

testing::AssertionResult TaskbarTest::PrimaryShows(const Titles& wanted) const {
    return BecomesTitles(wanted, [this] {
        Titles titles;
        for (HWND window : tray.TabWindows()) {
            char title[256] = {};
            GetWindowTextA(window, title, sizeof(title));
            titles.push_back(title);
        }
        return titles;
    });
}

std::string TaskbarTest::Told() {
    return TextOf(standin::StandInKey, standin::BarValue);
}

testing::AssertionResult TaskbarTest::IsTold(const char* wanted) {
    return Comes([=] { return Told().starts_with(wanted); }, [] { return "told last: " + Told(); });
}

POINT TaskbarTest::ButtonPlace(unsigned display, const std::string& text) {
    const RECT place = ButtonRect(BarOn(display), text);
    return {(place.left + place.right) / 2, (place.top + place.bottom) / 2};
}

int TaskbarTest::Share(unsigned display, const std::string& text, COLORREF colour) {
    const RECT place = ButtonRect(BarOn(display), text);
    const std::vector<COLORREF> pixels = PixelsOf({place.left + 24, place.top + 3, place.right - 3, place.bottom - 3});
    const auto count = std::count(pixels.begin(), pixels.end(), colour);
    return static_cast<int>(count * 1000 / static_cast<int>(pixels.size()));
}

POINT TaskbarTest::EmptyPlace(unsigned display) {
    const RECT bar = PlaceOf(BarOn(display));
    // Two presses at one place, soon after each other, would be a double-click.
    static int aside = 5;
    aside = -aside;
    return {bar.right - 30 + aside, bar.bottom - 14};
}

testing::AssertionResult TaskbarTest::BarBecomes(unsigned display, const RECT& place) {
    // It may be made anew meanwhile.
    const auto stands = [&] {
        const RECT seen = PlaceOf(BarOn(display));
        return EqualRect(&seen, &place) != FALSE;
    };
    return Comes(stands, [&] { return Describe(BarOn(display)); });
}

void TaskbarTest::Choose(unsigned display, int downs) {
    HWND bar = BarOn(display);
    RightClick(EmptyPlace(display));
    ASSERT_TRUE(EntersLoop(bar, GUI_INMENUMODE));
    for (int count = 0; count < downs; ++count)
        TapKey("Down");
    TapKey("Return");
    ASSERT_TRUE(LeavesLoop(bar, GUI_INMENUMODE));
}

}  // namespace halyard::test
