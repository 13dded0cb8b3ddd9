#include "menu_fixture.h"

#include <functional>

namespace halyard::test {
namespace {

class SystemMenuTest : public MenuTest {
protected:
    // What a command did, in words.
    std::string EffectOf(KnownWindow& acted, WPARAM command, const TestWindow& target) {
        const bool memory = settings.AppWindowMem();
        const bool docking = settings.EffectiveAutodock();
        const LONG style = GetWindowLongA(target.get(), GWL_EXSTYLE);
        const RECT place = target.Place();
        const DesktopId desktop = acted.tracked.desktopId;
        std::string effect = HandleSysCommand(acted.tracked, command, 0) ? "" : "(taken) ";
        if (memory != settings.AppWindowMem()) effect += "memory ";
        if (docking != settings.EffectiveAutodock()) effect += "docking ";
        if ((style ^ GetWindowLongA(target.get(), GWL_EXSTYLE)) & WS_EX_TOPMOST) effect += "topmost ";
        if (!(place == target.Place())) effect += "moved ";
        if (desktop != acted.tracked.desktopId) effect += "desktop ";
        for (const auto& [message, of, id] : TakeMessages())
            effect += "sent " + std::to_string(message) + (of == target.get() ? " " : " of another ") +
                      std::to_string(static_cast<int>(id)) + " ";
        return effect;
    }
};

TEST_F(SystemMenuTest, StandsBehindTheSystemsItemsAndGoesWithoutTrace) {
    HMENU menu = SystemMenuOf(window.get());
    const Lines extended = MenuLines(menu);
    EXPECT_EQ(Joined(standard, added), extended);
    EXPECT_EQ(window.tracked.submenu, GetSubMenu(menu, GetMenuItemCount(menu) - 1));

    AddMenuExtension(window.tracked);
    EXPECT_EQ(extended, MenuLines(menu)) << "added twice";
    Open();
    EXPECT_NE(extended, MenuLines(menu));
    RemoveMenuExtension(window.tracked);
    EXPECT_EQ(standard, MenuLines(menu));
    EXPECT_EQ(nullptr, window.tracked.submenu);
    RemoveMenuExtension(window.tracked);
    EXPECT_EQ(standard, MenuLines(menu));

    settings.SetExtendSysMenu(false);
    AddMenuExtension(window.tracked);
    EXPECT_EQ(standard, MenuLines(menu));
    EXPECT_EQ(nullptr, window.tracked.submenu);
    settings.SetExtendSysMenu(true);
    AddMenuExtension(window.tracked);
    EXPECT_EQ(extended, MenuLines(menu));
}

TEST_F(SystemMenuTest, ShowsTheStateWhenItOpens) {
    struct Case {
        const char* what;
        std::function<void()> prepare;
        Lines lines;  // of items 64767, 64768, 64769, 64770 and 64776
    };
    const char memory[] = "64767 Window Memory";
    const char docking[] = "64768 Automatic Dock [checked]";
    const char topmost[] = "64769 Always on top";
    const char next[] = "64770 Move to other display";
    const char desktops[] = "64776 Move to desktop  >";
    const Case cases[] = {
        {"all off",
         [] { settings.SetAutodock(false), settings.StoreMultiDesk(false), settings.SetWindowMem(false); },
         {"64767 Window Memory [grey]", "64768 Automatic Dock", topmost, next, "64776 Move to desktop  [grey] >"}},
        {"all on, nothing chosen", [] {}, {memory, docking, topmost, next, desktops}},
        {"memory chosen",
         [] { settings.SetAppWindowMem(true); },
         {"64767 Window Memory [checked]", docking, topmost, next, desktops}},
        {"memory chosen but not offered",
         [] { settings.SetAppWindowMem(true), settings.SetWindowMem(false); },
         {"64767 Window Memory [checked] [grey]", docking, topmost, next, desktops}},
        {"memory in xsi",
         [] { settings.SetAppWindowMem(true), profile.program.xsi = true; },
         {"64767 Window Memory [grey]", docking, topmost, next, desktops}},
        {"docking refused by the program",
         [] { settings.SetAppAutodock(false); },
         {memory, "64768 Automatic Dock", topmost, next, desktops}},
        {"docking chosen against the rest",
         [] { settings.SetAppAutodock(true), settings.SetAutodock(false); },
         {memory, docking, topmost, next, desktops}},
        {"topmost",
         [this] { SetWindowPos(window.get(), HWND_TOPMOST, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE); },
         {memory, docking, "64769 Always on top [checked]", next, desktops}},
        {"spanning",
         [this] { window.tracked.maximisedAcross = true; },
         {memory, docking, topmost, "64770 Move to other display [grey]", desktops}},
    };
    for (const Case& test : cases) {
        settings = Settings();
        settings.SetWindowMem(true);
        settings.StoreMultiDesk(true);
        profile.program = {};
        window.tracked.maximisedAcross = false;
        SetWindowPos(window.get(), HWND_NOTOPMOST, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
        test.prepare();
        Lines lines;
        Open();
        for (const UINT id : {64767u, 64768u, 64769u, 64770u, 64776u})
            lines.push_back(MenuLine(window.tracked.submenu, id));
        EXPECT_EQ(test.lines, lines) << test.what;
    }
}

TEST_F(SystemMenuTest, ListsTheDesktopsAnewEachTime) {
    settings.StoreMultiDesk(true);
    const Lines begin = {"64767 Window Memory [grey]",  "64768 Automatic Dock [checked]", "64769 Always on top", "0 -",
                         "64770 Move to other display", "64776 Move to desktop  >"};
    for (const unsigned more : {0u, 2u, 39u})
        for (const unsigned current : {0u, more})
            for (const bool everywhere : {false, true}) {
                SCOPED_TRACE(testing::Message() << more + 1 << " desktops, number " << current << " current"
                                                << (everywhere ? ", window on all" : ""));
                while (desktopList.Count() > 1)
                    desktopList.Remove(desktopList.IdAt(1));
                AddDesktops(more);
                SetCurrentDesktopId(10 * current);
                // Not the one on which the window stood when its record was made.
                window.tracked.desktopId = everywhere ? AllDesktopsId : 77;
                Lines expected = begin;
                for (unsigned index = 0; index <= more; ++index)
                    expected.push_back("  " + std::to_string(64778 + index) + " " +
                                       (index ? "Desktop " + std::to_string(index) : "Default") +
                                       (index == current && !everywhere ? " [checked]" : ""));
                expected.push_back("  0 -");
                expected.push_back(everywhere ? "  64777 All [checked]" : "  64777 All");
                Open();
                EXPECT_EQ(expected, MenuLines(window.tracked.submenu));
                Open();
                EXPECT_EQ(expected, MenuLines(window.tracked.submenu)) << "opened again";
            }
}

TEST_F(SystemMenuTest, LooksAtNoOtherMenu) {
    const Lines before = MenuLines(SystemMenuOf(window.get()));
    UpdateMenuExtension(window.tracked, SystemMenuOf(window.get()), OfSystemMenu);
    UpdateMenuExtension(window.tracked, nullptr, OfSystemMenu);
    UpdateMenuExtension(window.tracked, HandleFromBits<HMENU>(0x7EADBEEF), OfSystemMenu);
    EXPECT_EQ(before, MenuLines(SystemMenuOf(window.get())));
}

TEST_F(SystemMenuTest, CarriesEachCommandOut) {
    AddDesktops(39);
    MakeKey(HKEY_CURRENT_USER, AppPath());
    std::vector<WPARAM> commands = {0, SC_CLOSE, SC_MOVE, 64767 + 0x10000, 64778 + 0x10000, 0xFFFFFFFF};
    for (WPARAM id = 64760; id <= 64820; ++id)
        commands.push_back(id);
    for (const WPARAM command : commands) {
        window.tracked.desktopId = 77;
        std::string expected;
        if (command == 64767) expected = "memory ";
        if (command == 64768) expected = "docking ";
        if (command == 64769) expected = "topmost ";
        if (command == 64770) expected = "moved ";
        if (command == 64777) expected = "desktop sent 1186 -2 ";
        if (command >= 64778 && command <= 64810)
            expected = "desktop sent 1186 " + std::to_string(10 * (command - 64778)) + " ";
        for (int time = 1; time <= 2; ++time) {
            EXPECT_EQ(expected, EffectOf(window, command, window)) << command << ", time " << time;
            window.tracked.desktopId = 77;
        }
    }
    // Each switch was turned twice.
    EXPECT_EQ(0u, StoredDword(HKEY_CURRENT_USER, AppPath(), "WindowMem"));
    EXPECT_EQ(1u, StoredDword(HKEY_CURRENT_USER, AppPath(), "Autodock"));
    HandleSysCommand(window.tracked, 64767, 0);
    HandleSysCommand(window.tracked, 64768, 0);
    EXPECT_EQ(1u, StoredDword(HKEY_CURRENT_USER, AppPath(), "WindowMem"));
    EXPECT_EQ(0u, StoredDword(HKEY_CURRENT_USER, AppPath(), "Autodock"));
}

TEST_F(SystemMenuTest, TakesADesktopBehindTheLastForTheDefaultOne) {
    AddDesktops(1);
    window.tracked.desktopId = 10;
    EXPECT_EQ("desktop sent 1186 0 ", EffectOf(window, 64780, window));
}

TEST_F(SystemMenuTest, FixesTheProgramsDockingWithoutMakingItsKey) {
    EXPECT_EQ("docking ", EffectOf(window, 64768, window));
    EXPECT_FALSE(KeyExists(HKEY_CURRENT_USER, AppPath()));
    settings.SetAutodock(true);
    EXPECT_FALSE(settings.EffectiveAutodock()) << "the program's value holds from now on";
    EXPECT_EQ("memory ", EffectOf(window, 64767, window));
    EXPECT_TRUE(KeyExists(HKEY_CURRENT_USER, AppPath())) << "memory makes the key";
}

// The program has the extension in a menu of its own, on a window whose parent is the one to be acted on.
TEST_F(SystemMenuTest, IsFoundInTheProgramsOwnMenu) {
    profile.program.qlplay = true;
    settings.SetWindowMem(true);
    const TestWindow frame(WindowForm{.exStyle = WS_EX_TOPMOST});
    KnownWindow skin(WindowForm{.style = WS_CHILD, .parent = frame.get()});
    HMENU popup = CreatePopupMenu();
    AppendMenuA(popup, MF_STRING, 5, "Own");
    HMENU last = CreatePopupMenu();
    AppendMenuA(popup, MF_POPUP, reinterpret_cast<UINT_PTR>(last), "Last");
    const Lines before = MenuLines(popup);

    UpdateMenuExtension(skin.tracked, popup, 0);
    UpdateMenuExtension(skin.tracked, last, 0);
    UpdateMenuExtension(skin.tracked, nullptr, 0);
    EXPECT_EQ(before, MenuLines(popup)) << "nothing in it is ours";
    EXPECT_EQ(nullptr, skin.tracked.submenu);

    for (const UINT id : {64767u, 64768u, 64769u, 64770u})
        AppendMenuA(last, MF_STRING, id, "x");
    UpdateMenuExtension(skin.tracked, popup, 0);
    EXPECT_EQ(last, skin.tracked.submenu);
    EXPECT_EQ((Lines{"64767 x", "64768 x [checked]", "64769 x [checked]", "64770 x", "64776 Move to desktop  [grey] >",
                     "  64778 Default [checked]", "  0 -", "  64777 All"}),
              MenuLines(last));
    DestroyMenu(popup);

    EXPECT_EQ("topmost ", EffectOf(skin, 64769, frame));
    EXPECT_EQ("moved ", EffectOf(skin, 64770, frame));
    EXPECT_EQ("desktop sent 1186 -2 ", EffectOf(skin, 64777, frame));
}

TEST_F(SystemMenuTest, MakesASpanningWindowsMenuLookMaximised) {
    struct Case {
        bool acad;
        bool spanning;
        LPARAM lParam;
        bool changed;
    };
    constexpr Case Cases[] = {
        {true, true, OfSystemMenu, true},
        {true, true, MAKELPARAM(7, 0), false},
        {true, false, OfSystemMenu, false},
        {false, true, OfSystemMenu, false},
    };
    const UINT commands[] = {SC_RESTORE, SC_MOVE, SC_SIZE, SC_MAXIMIZE, SC_CLOSE, SC_MINIMIZE};
    for (const Case& test : Cases) {
        KnownWindow shown(WindowForm{.style = WS_OVERLAPPEDWINDOW | WS_VISIBLE});
        HMENU menu = SystemMenuOf(shown.get());
        for (const UINT command : commands)
            EnableMenuItem(menu, command, MF_BYCOMMAND | MF_ENABLED);
        profile.program.acad = test.acad;
        shown.tracked.maximisedAcross = test.spanning;
        Lines states;
        UpdateMenuExtension(shown.tracked, menu, test.lParam);
        for (const UINT command : commands) {
            const std::string line = MenuLine(menu, command);
            const auto state = line.find(" [");
            states.push_back(state == line.npos ? "" : line.substr(state + 1));
        }
        EXPECT_EQ(test.changed ? (Lines{"[default]", "[grey]", "[grey]", "[grey]", "[default]", ""})
                               : (Lines{"", "", "", "", "[default]", ""}),
                  states)
            << test.acad << test.spanning << test.lParam;
    }
}

}  // namespace
}  // namespace halyard::test
