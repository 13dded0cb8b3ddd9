// The extension in the system menus of foreign windows, opened and used as its user does.
#include "support/behaviour_fixture.h"

#include <initializer_list>

namespace halyard::test {

namespace {

constexpr char Place[] = "--at 100,100,400,300";

enum Item : UINT {
    Extension = 64766,
    Memory = 64767,
    Dock = 64768,
    Topmost = 64769,
    OtherDisplay = 64770,
    Desktops = 64776,
    All = 64777,
    First = 64778
};

// The lines of the report, with what stands behind some items.
struct Lines {
    std::string memory = " grey";
    std::string dock = "";
    std::string topmost = "";
    std::string display = "";
    std::string desktops = "";  // null popup: not opened yet
    std::string popup =
        "    64778 \"Default\" checked\n    64779 \"One\"\n    64780 \"Two\"\n    0 ----\n    64777 \"All\"\n";

    std::string Text() const {
        const std::string last =
            popup.empty() ? std::string() : "  64776 \"Move to desktop \"" + desktops + "\n" + popup;
        return "64765 ----\n64766 \"Tevral\"\n  64767 \"Window Memory\"" + memory + "\n  64768 \"Automatic Dock\"" +
               dock + "\n  64769 \"Always on top\"" + topmost + "\n  0 ----\n  64770 \"Move to other display\"" +
               display + "\n" + last;
    }
};

const Lines Unopened = {"", "", "", "", "", ""};

class SystemMenuTest : public BehaviourTest {
protected:
    Sample Open(const std::string& title) {
        StartLoader();
        const Sample frame = OpenFrame(title, Place);
        EXPECT_TRUE(WindowsBecome(0, 1));
        return frame;
    }
    static std::string Menu(const Sample& frame) { return ReportOf(frame, frame::ReportMenu); }
    // The extension's part of it, from its separator on.
    static std::string ExtensionOf(const Sample& frame) {
        const std::string menu = Menu(frame);
        const std::size_t start = menu.find("64765 ");
        return start == std::string::npos ? "none" : menu.substr(start);
    }

    // How many menus the program shows.
    static testing::AssertionResult ShowsMenus(const Sample& sample, int wanted) {
        int seen = 0;
        const auto count = [&] {
            seen = 0;
            for (HWND menu = nullptr; (menu = FindWindowExA(nullptr, menu, "#32768", nullptr)) != nullptr;) {
                DWORD process = 0;
                GetWindowThreadProcessId(menu, &process);
                seen += process == sample.program->Id() && IsWindowVisible(menu);
            }
            return seen == wanted;
        };
        if (Eventually(count)) return testing::AssertionSuccess();
        return testing::AssertionFailure() << seen << " menus are open, not " << wanted;
    }
    static void OpenByKey(const Sample& sample) {
        ASSERT_TRUE(OpenSystemMenu(sample.window));
        ASSERT_TRUE(ShowsMenus(sample, 1));
        // The extension is the last item.
        TapKey("Up Right");
        ASSERT_TRUE(ShowsMenus(sample, 2));
    }
    // `keys` lead from the extension's first item to the wanted one.
    static void ChooseByKey(const Sample& sample, const std::string& keys) {
        OpenByKey(sample);
        TapKey(keys + " Return");
        EXPECT_TRUE(LeavesLoop(sample.window, GUI_INMENUMODE));
    }
    static void ChooseByMouse(const Sample& frame, std::initializer_list<UINT> path) {
        ASSERT_TRUE(BringToFront(frame.window));
        const RECT place = PlaceOf(frame.window);
        Click({place.left + 14, CaptionOf(frame.window).y});
        ASSERT_TRUE(EntersLoop(frame.window, GUI_INMENUMODE));
        for (UINT id : path) {
            LRESULT spot = 0;
            ASSERT_TRUE(Eventually([&] { return (spot = Ask(frame.window, frame::ItemPlace, id)) != 0; })) << id;
            Click({static_cast<short>(LOWORD(spot)), static_cast<short>(HIWORD(spot))});
        }
        EXPECT_TRUE(LeavesLoop(frame.window, GUI_INMENUMODE));
    }
    static bool BecomesTopmost(HWND window, bool wanted) {
        return Eventually([&] { return ((GetWindowLongA(window, GWL_EXSTYLE) & WS_EX_TOPMOST) != 0) == wanted; });
    }
    // As it shows when the submenu opens.
    static std::string OpenedExtensionOf(const Sample& frame) {
        OpenByKey(frame);
        const std::string menu = ExtensionOf(frame);
        EXPECT_TRUE(CloseMenus(frame.window));
        return menu;
    }
};

TEST_F(SystemMenuTest, EndsWithTheExtensionWhileTheSystemIsOn) {
    const Sample before = OpenFrame("Before", "--at 100,100,400,300 --count 2");
    const std::string plain = Menu(before);
    ASSERT_EQ(ExtensionOf(before), "none");
    StartLoader();
    EXPECT_TRUE(Eventually([&] { return Menu(before) == plain + Unopened.Text(); })) << Menu(before);
    const Sample after = OpenFrame("After", Place);
    ASSERT_TRUE(WindowsBecome(0, 3));
    EXPECT_EQ(Menu(after), plain + Unopened.Text());
    for (int opening = 1; opening <= 2; ++opening)
        EXPECT_EQ(OpenedExtensionOf(after), Lines().Text()) << "opening " << opening;
    Loader("--disable");
    ASSERT_EQ(Ask(before.window, frame::DropLibrary), 1);
    EXPECT_EQ(Menu(before), plain);
}

TEST_F(SystemMenuTest, ComesAndGoesWithItsSetting) {
    Set("ExtendSysMenu", 0);
    const Sample frame = Open("Extended");
    EXPECT_EQ(ExtensionOf(frame), "none");
    for (const bool on : {true, false, true}) {
        Set("ExtendSysMenu", on);
        TellSettings(frame);
        EXPECT_EQ(ExtensionOf(frame), on ? Unopened.Text() : "none");
    }
}

TEST_F(SystemMenuTest, ShowsWhatIsOn) {
    struct Case {
        const char* name;
        const char* value;
        DWORD number;
        Lines lines;
    };
    const Case cases[] = {{"docking on", "Autodock", 1, {.dock = " checked"}},
                          {"window memory on", "WindowMem", 1, {.memory = "", .dock = " checked"}},
                          {"no desktops", "MultiDesk", 0, {.memory = "", .dock = " checked", .desktops = " grey"}}};
    const Sample frame = Open("Showing");
    for (const auto& [name, value, number, lines] : cases) {
        Set(value, number);
        TellSettings(frame);
        EXPECT_EQ(OpenedExtensionOf(frame), lines.Text()) << name;
    }
    const Sample other = OpenFrameAs("xsi.exe", "Modelling", Place);
    EXPECT_EQ(OpenedExtensionOf(other), (Lines{.dock = " checked", .desktops = " grey"}).Text()) << "without memory";
    Set("CtrlMax", 2);
    TellSettings(frame);
    PostMessageA(frame.window, WM_SYSCOMMAND, SC_MAXIMIZE, 0);
    ASSERT_TRUE(BecomesPlaced(frame.window, {-4, -4, 2052, 772}));
    const Lines spanning = {.memory = "", .dock = " checked", .display = " grey", .desktops = " grey"};
    EXPECT_EQ(OpenedExtensionOf(frame), spanning.Text());
}

TEST_F(SystemMenuTest, ShowsDesktopsAsTheyCome) {
    const Sample frame = Open("Growing");
    ASSERT_EQ(OpenedExtensionOf(frame), Lines().Text());
    WriteText(DesktopKey(3), nullptr, "Three");
    PostMessageA(HWND_BROADCAST, RegisterWindowMessageA(published::SettingBroadcast), 2, 0);
    TellSettings(frame);
    const Lines grown = {.popup = "    64778 \"Default\" checked\n    64779 \"One\"\n    64780 \"Two\"\n"
                                  "    64781 \"Three\"\n    0 ----\n    64777 \"All\"\n"};
    EXPECT_EQ(OpenedExtensionOf(frame), grown.Text());
}

TEST_F(SystemMenuTest, KeepsAWindowOnTop) {
    const Sample frame = Open("Topmost");
    ChooseByKey(frame, "Down Down");
    EXPECT_TRUE(BecomesTopmost(frame.window, true));
    EXPECT_EQ(OpenedExtensionOf(frame), (Lines{.topmost = " checked"}).Text());
    ChooseByMouse(frame, {Extension, Topmost});
    EXPECT_TRUE(BecomesTopmost(frame.window, false));
}

TEST_F(SystemMenuTest, KeepsWhatAProgramIsTold) {
    Set("WindowMem", 1);
    const Sample frame = Open("Told");
    const std::string key = ProgramKey(BinFolder() + "sample_frame.exe");
    ASSERT_EQ(NumberOr(key, "Autodock", 99), 99u);
    // Without a key of the program's the value holds in the process alone.
    ChooseByKey(frame, "Down");
    EXPECT_EQ(OpenedExtensionOf(frame), (Lines{.memory = "", .dock = " checked"}).Text());
    EXPECT_EQ(NumberOr(key, "Autodock", 99), 99u);
    // This makes the key,
    ChooseByMouse(frame, {Extension, Memory});
    EXPECT_TRUE(Eventually([&] { return NumberOr(key, "WindowMem", 99) == 1; })) << key;
    EXPECT_EQ(OpenedExtensionOf(frame), (Lines{.memory = " checked", .dock = " checked"}).Text());
    // and from now on the value is stored.
    for (const DWORD stored : {0u, 1u}) {
        ChooseByMouse(frame, {Extension, Dock});
        EXPECT_TRUE(Eventually([&] { return NumberOr(key, "Autodock", 99) == stored; }));
    }
    const Sample next = OpenFrame("Next", Place);
    ASSERT_TRUE(WindowsBecome(0, 2));
    EXPECT_EQ(OpenedExtensionOf(next), (Lines{.memory = " checked", .dock = " checked"}).Text());
    ChooseByKey(next, "");
    EXPECT_TRUE(Eventually([&] { return NumberOr(key, "WindowMem", 99) == 0; }));
}

TEST_F(SystemMenuTest, MovesAWindowAroundTheDisplays) {
    ASSERT_TRUE(Arrange(ThreeInARow())) << Describe(PresentDisplays());
    const Sample frame = Open("Around");
    for (const LONG left : {-924, 1124, 100}) {
        ChooseByMouse(frame, {Extension, OtherDisplay});
        EXPECT_TRUE(BecomesPlaced(frame.window, {left, 100, left + 400, 400}));
    }
    Ask(frame.window, sample::ShowAs, SW_MAXIMIZE);
    ASSERT_TRUE(BecomesPlaced(frame.window, {-4, -4, 1028, 772}));
    ChooseByKey(frame, "Down Down Down");
    EXPECT_TRUE(BecomesPlaced(frame.window, {-1028, -4, 4, 772}));
    EXPECT_TRUE(IsZoomed(frame.window));
    Ask(frame.window, sample::ShowAs, SW_RESTORE);
    EXPECT_TRUE(BecomesPlaced(frame.window, {-924, 100, -524, 400}));
}

TEST_F(SystemMenuTest, SendsAWindowToADesktop) {
    const Sample frame = Open("Sent");
    ChooseByMouse(frame, {Extension, Desktops, First + 1});
    EXPECT_TRUE(BecomesHidden(frame.window));
    EXPECT_TRUE(WindowsBecome(1, 1));
    EXPECT_EQ(WindowsOn(0), 0u);
    Switch(1);
    ASSERT_TRUE(BecomesVisible(frame.window));
    const Lines onOne = {.popup = "    64778 \"Default\"\n    64779 \"One\" checked\n    64780 \"Two\"\n    0 ----\n"
                                  "    64777 \"All\"\n"};
    EXPECT_EQ(OpenedExtensionOf(frame), onOne.Text());

    // The last item opens the desktops; All stands above their end.
    ChooseByKey(frame, "Up Right Up");
    ASSERT_TRUE(WindowsBecome(published::AllDesktops, 1));
    for (const int desktop : {0, 2, 1}) {
        Switch(desktop);
        EXPECT_TRUE(StaysVisible(frame.window)) << "on desktop " << desktop;
    }
    const Lines everywhere = {.popup = "    64778 \"Default\"\n    64779 \"One\"\n    64780 \"Two\"\n    0 ----\n"
                                       "    64777 \"All\" checked\n"};
    EXPECT_EQ(OpenedExtensionOf(frame), everywhere.Text());
    ChooseByKey(frame, "Up Right");
    EXPECT_TRUE(BecomesHidden(frame.window)) << "back on the default desktop, while One is current";
    EXPECT_TRUE(WindowsBecome(0, 1));
}

}  // namespace

}  // namespace halyard::test
