// The extension in real system menus, of programs that do with their menus what they like.
#include "behaviours/inprocess_fixture.h"
#include "desktops/desktop_list.h"
#include "hook/behaviours.h"

#include <algorithm>
#include <functional>

namespace halyard::test {
namespace {

constexpr LPARAM OfSystemMenu = MAKELPARAM(0, 1);
constexpr char Added[] = "64765 64766{64767 64768 64769 0 64770 }";
constexpr char Opened[] = "64765 64766{64767 64768 64769 0 64770 64776{64778 0 64777 }}";

HMENU SystemMenuOf(HWND window) {
    return GetSystemMenu(window, FALSE);
}

// The ids of its items, those of a submenu in braces behind its own.
std::string IdsOf(HMENU menu) {
    std::string ids;
    for (int index = 0; index < GetMenuItemCount(menu); ++index) {
        MENUITEMINFOA info = {};
        info.cbSize = sizeof(info);
        info.fMask = MIIM_ID | MIIM_SUBMENU;
        GetMenuItemInfoA(menu, static_cast<UINT>(index), TRUE, &info);
        ids += std::to_string(info.wID) + (info.hSubMenu ? "{" + IdsOf(info.hSubMenu) + "}" : " ");
    }
    return ids;
}

class SystemMenuTest : public BehaviourTest {
protected:
    SystemMenuTest() { AddMenuExtension(window.tracked); }

    static std::string Menu(const KnownWindow& of) { return IdsOf(SystemMenuOf(of.get())); }
    void Open() { UpdateMenuExtension(window.tracked, window.tracked.submenu, OfSystemMenu); }

    // What a command did, in words.
    std::string EffectOf(KnownWindow& acted, WPARAM command, const TestWindow& target) {
        const bool memory = settings.AppWindowMem();
        const bool docking = settings.EffectiveAutodock();
        const LONG style = GetWindowLongA(target.get(), GWL_EXSTYLE);
        const RECT place = target.Place();
        std::string effect = HandleSysCommand(acted.tracked, command, 0) ? "(taken) " : "";
        if (memory != settings.AppWindowMem()) effect += "memory ";
        if (docking != settings.EffectiveAutodock()) effect += "docking ";
        if ((style ^ GetWindowLongA(target.get(), GWL_EXSTYLE)) & WS_EX_TOPMOST) effect += "topmost ";
        if (!(place == target.Place())) effect += "moved ";
        for (const auto& [message, of, id] : TakeMessages())
            effect += "sent " + std::to_string(message) + (of == target.get() ? " " : " of another ") +
                      std::to_string(static_cast<int>(id)) + " ";
        return effect;
    }

    const KnownWindow plain;  // never gets the extension
    const std::string standard = Menu(plain);
    KnownWindow window;
};

// What the program does, and what its menu is like once the extension is put on anew, and once it is off again.
TEST_F(SystemMenuTest, LeavesEachProgramItsMenu) {
    const auto deleteOurs = [](HWND target) { DeleteMenu(SystemMenuOf(target), 64766, MF_BYCOMMAND); };
    const auto revert = [](HWND target) { GetSystemMenu(target, TRUE); };
    const auto addBehind = [](HWND target) { AppendMenuA(SystemMenuOf(target), MF_STRING, 288, "About"); };
    struct Case {
        const char* what;
        std::function<void(HWND)> harm;
        std::string extended;
        std::string off;
    };
    const Case cases[] = {
        {"nothing", [](HWND) {}, standard + Added, standard},
        {"reverts it", revert, standard + Added, standard},
        {"adds an item behind ours", addBehind, standard + Added + "288 ", standard + "288 "},
        {"reverts it and adds an item", [&](HWND target) { revert(target), addBehind(target); },
         standard + "288 " + Added, standard + "288 "},
        {"deletes our item", deleteOurs, standard + Added, standard},
        {"deletes our item and separator",
         [&](HWND target) { deleteOurs(target), DeleteMenu(SystemMenuOf(target), 64765, MF_BYCOMMAND); },
         standard + Added, standard},
        {"removes our item and keeps the submenu",
         [](HWND target) { RemoveMenu(SystemMenuOf(target), 64766, MF_BYCOMMAND); }, standard + Added, standard},
        {"hangs a menu of its own there",
         [](HWND target) {
             MENUITEMINFOA info = {};
             info.cbSize = sizeof(info);
             info.fMask = MIIM_SUBMENU;
             info.hSubMenu = CreatePopupMenu();
             SetMenuItemInfoA(SystemMenuOf(target), 64766, FALSE, &info);
         },
         standard + Added, standard},
        {"deletes an item of the submenu", [](HWND target) { DeleteMenu(SystemMenuOf(target), 64769, MF_BYCOMMAND); },
         standard + "64765 64766{64767 64768 0 64770 }", standard},
        {"deletes all",
         [](HWND target) {
             while (DeleteMenu(SystemMenuOf(target), 0, MF_BYPOSITION)) {
             }
         },
         Added, ""},
    };
    for (const Case& test : cases)
        for (const bool anew : {true, false}) {
            SCOPED_TRACE(testing::Message() << test.what << (anew ? ", put on anew" : ", taken off at once"));
            KnownWindow victim;
            AddMenuExtension(victim.tracked);
            test.harm(victim.get());
            if (anew) {
                UpdateMenuExtension(victim.tracked, victim.tracked.submenu, 0);
                AddMenuExtension(victim.tracked);
                DeleteMenu(victim.tracked.submenu, 64776, MF_BYCOMMAND);
                EXPECT_EQ(test.extended, Menu(victim));
            }
            RemoveMenuExtension(victim.tracked);
            EXPECT_EQ(test.off, Menu(victim));
            EXPECT_EQ(nullptr, victim.tracked.submenu);
        }
}

TEST_F(SystemMenuTest, OutlivesADestroyedSubmenuAndItsWindow) {
    DestroyMenu(window.tracked.submenu);
    Open();
    AddMenuExtension(window.tracked);
    Open();
    RemoveMenuExtension(window.tracked);
    EXPECT_EQ(standard, Menu(window));
    AddMenuExtension(window.tracked);
    EXPECT_EQ(standard + Added, Menu(window));
    TrackedWindow orphan = window.tracked;
    DestroyWindow(window.get());
    UpdateMenuExtension(orphan, orphan.submenu, OfSystemMenu);
    AddMenuExtension(orphan);
    EXPECT_EQ(nullptr, orphan.submenu);
    RemoveMenuExtension(orphan);
    for (const WPARAM command : {64767, 64769, 64770, 64777, 64778})
        EXPECT_FALSE(HandleSysCommand(orphan, command, 0));
}

TEST_F(SystemMenuTest, KeepsNoMenus) {
    std::vector<HMENU> made;
    for (int turn = 0; turn < 20; ++turn) {
        AddMenuExtension(window.tracked);
        made.push_back(window.tracked.submenu);
        for (int opening = 0; opening < 2; ++opening) {
            Open();
            EXPECT_EQ(standard + Opened, Menu(window));
            made.push_back(GetSubMenu(window.tracked.submenu, GetMenuItemCount(window.tracked.submenu) - 1));
            ASSERT_TRUE(IsMenu(made.back()));
        }
        RemoveMenuExtension(window.tracked);
    }
    EXPECT_EQ(0, std::count_if(made.begin(), made.end(), IsMenu));
}

TEST_F(SystemMenuTest, CarriesEachCommandOut) {
    for (DesktopId id = 1; id < 40; ++id)
        desktopList.Add("", 10 * id);
    std::vector<WPARAM> commands = {0, SC_CLOSE, 64767 + 0x10000, 64778 + 0x10000, 0xFFFFFFFF};
    for (WPARAM id = 64760; id <= 64820; ++id)
        commands.push_back(id);
    for (const WPARAM command : commands) {
        std::string expected;
        if (command == 64767) expected = "memory ";
        if (command == 64768) expected = "docking ";
        if (command == 64769) expected = "topmost ";
        if (command == 64770) expected = "moved ";
        if (command == 64777) expected = "sent 1186 -2 ";
        if (command >= 64778 && command <= 64810)
            expected = "sent 1186 " + std::to_string(10 * (command - 64778)) + " ";
        EXPECT_EQ(expected, EffectOf(window, command, window)) << command;
    }
    Open();
    EXPECT_EQ(40 + 2, GetMenuItemCount(GetSubMenu(window.tracked.submenu, 5)));
    while (desktopList.Count() > 2)
        desktopList.Remove(desktopList.IdAt(1));
    EXPECT_EQ("sent 1186 0 ", EffectOf(window, 64780, window)) << "behind the last desktop";
}

// The program has the extension in a menu of its own, on a window whose parent is the one to be acted on.
TEST_F(SystemMenuTest, IsFoundInTheProgramsOwnMenu) {
    profile.program.qlplay = true;
    const TestWindow frame(WindowForm{.exStyle = WS_EX_TOPMOST});
    KnownWindow skin(WindowForm{.style = WS_CHILD, .parent = frame.get()});
    HMENU popup = CreatePopupMenu();
    AppendMenuA(popup, MF_STRING, 5, "Own");
    HMENU last = CreatePopupMenu();
    AppendMenuA(popup, MF_POPUP, reinterpret_cast<UINT_PTR>(last), "Last");
    for (HMENU menu : {popup, last, HMENU(nullptr)})
        UpdateMenuExtension(skin.tracked, menu, 0);
    EXPECT_EQ("", IdsOf(last)) << "nothing in it is ours";
    EXPECT_EQ(nullptr, skin.tracked.submenu);

    for (const UINT id : {64767u, 64768u, 64769u, 64770u})
        AppendMenuA(last, MF_STRING, id, "x");
    UpdateMenuExtension(skin.tracked, popup, 0);
    EXPECT_EQ(last, skin.tracked.submenu);
    EXPECT_EQ("64767 64768 64769 64770 64776{64778 0 64777 }", IdsOf(last));
    EXPECT_TRUE(GetMenuState(last, 64769, MF_BYCOMMAND) & MF_CHECKED);
    // The record names a menu of the program's own; the extension isn't put on twice for it.
    UpdateMenuExtension(window.tracked, popup, 0);
    AddMenuExtension(window.tracked);
    EXPECT_EQ(last, window.tracked.submenu);
    EXPECT_EQ(Menu(window).find("64766{"), Menu(window).rfind("64766{"));
    DestroyMenu(popup);
    RemoveMenuExtension(window.tracked);
    EXPECT_EQ(standard, Menu(window));

    EXPECT_EQ("topmost ", EffectOf(skin, 64769, frame));
    EXPECT_EQ("moved ", EffectOf(skin, 64770, frame));
    EXPECT_EQ("sent 1186 -2 ", EffectOf(skin, 64777, frame));
}

}  // namespace
}  // namespace halyard::test
