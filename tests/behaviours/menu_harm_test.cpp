// Programs that do with their system menus what they like.
#include "menu_fixture.h"

#include <algorithm>
#include <functional>

namespace halyard::test {
namespace {

constexpr UINT OwnItem = 0x0120;

void DeleteOurs(HWND window) {
    DeleteMenu(SystemMenuOf(window), 64766, MF_BYCOMMAND);
}

void Revert(HWND window) {
    GetSystemMenu(window, TRUE);
}

void AddBehind(HWND window) {
    AppendMenuA(SystemMenuOf(window), MF_STRING, OwnItem, "About");
}

// Neither grey nor checked items, whether the extension was opened or not.
class MenuHarmTest : public MenuTest {
protected:
    MenuHarmTest() {
        settings.SetWindowMem(true);
        settings.SetAutodock(false);
    }
};

// What the program does, and what its menu is like once the extension is put on anew, and once it is off again.
TEST_F(MenuHarmTest, LeavesEachProgramItsMenu) {
    const Lines about = {"288 About"};
    struct Case {
        const char* what;
        std::function<void(HWND)> harm;
        Lines extended;
        Lines plain;
    };
    const Case cases[] = {
        {"reverts it", Revert, Joined(standard, added), standard},
        {"reverts it twice", [](HWND target) { Revert(target), Revert(target); }, Joined(standard, added), standard},
        {"adds an item behind ours", AddBehind, Joined(Joined(standard, added), about), Joined(standard, about)},
        {"reverts it and adds an item", [](HWND target) { Revert(target), AddBehind(target); },
         Joined(Joined(standard, about), added), Joined(standard, about)},
        {"deletes our item", DeleteOurs, Joined(standard, added), standard},
        {"deletes our item and separator",
         [](HWND target) { DeleteOurs(target), DeleteMenu(SystemMenuOf(target), 64765, MF_BYCOMMAND); },
         Joined(standard, added), standard},
        {"removes our item and keeps the submenu",
         [](HWND target) { RemoveMenu(SystemMenuOf(target), 64766, MF_BYCOMMAND); }, Joined(standard, added), standard},
        {"hangs a menu of its own there",
         [](HWND target) {
             MENUITEMINFOA info = {};
             info.cbSize = sizeof(info);
             info.fMask = MIIM_SUBMENU;
             info.hSubMenu = CreatePopupMenu();
             SetMenuItemInfoA(SystemMenuOf(target), 64766, FALSE, &info);
         },
         Joined(standard, added), standard},
        {"deletes an item of the submenu", [](HWND target) { DeleteMenu(SystemMenuOf(target), 64769, MF_BYCOMMAND); },
         Joined(standard, {added[0], added[1], added[2], added[3], added[5], added[6]}), standard},
        {"deletes all",
         [](HWND target) {
             while (DeleteMenu(SystemMenuOf(target), 0, MF_BYPOSITION)) {
             }
         },
         added,
         {}},
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
                EXPECT_EQ(test.extended, MenuLines(SystemMenuOf(victim.get())));
            }
            RemoveMenuExtension(victim.tracked);
            EXPECT_EQ(test.plain, MenuLines(SystemMenuOf(victim.get())));
            EXPECT_EQ(nullptr, victim.tracked.submenu);
        }
}

TEST_F(MenuHarmTest, OutlivesADestroyedSubmenu) {
    DestroyMenu(window.tracked.submenu);
    Open();
    AddMenuExtension(window.tracked);
    Open();
    RemoveMenuExtension(window.tracked);
    EXPECT_EQ(standard, MenuLines(SystemMenuOf(window.get())));
    AddMenuExtension(window.tracked);
    EXPECT_EQ(Joined(standard, added), MenuLines(SystemMenuOf(window.get())));
}

TEST_F(MenuHarmTest, KeepsNoMenus) {
    std::vector<HMENU> made;
    for (int turn = 0; turn < 20; ++turn) {
        AddMenuExtension(window.tracked);
        made.push_back(window.tracked.submenu);
        for (int opening = 0; opening < 2; ++opening) {
            Open();
            made.push_back(GetSubMenu(window.tracked.submenu, GetMenuItemCount(window.tracked.submenu) - 1));
            ASSERT_TRUE(IsMenu(made.back()));
        }
        RemoveMenuExtension(window.tracked);
    }
    EXPECT_EQ(0, std::count_if(made.begin(), made.end(), IsMenu));
}

TEST_F(MenuHarmTest, LeavesWindowsWithoutASystemMenuAlone) {
    const TestWindow parent;
    struct Case {
        const char* what;
        WindowForm form;
    };
    const Case cases[] = {
        {"popup", {.style = WS_POPUP}},
        {"caption without a menu", {.style = WS_OVERLAPPED | WS_CAPTION | WS_THICKFRAME}},
        {"child", {.style = WS_CHILD, .parent = parent.get()}},
    };
    for (const Case& test : cases) {
        KnownWindow bare(test.form);
        AddMenuExtension(bare.tracked);
        EXPECT_EQ(nullptr, bare.tracked.submenu) << test.what;
        UpdateMenuExtension(bare.tracked, nullptr, OfSystemMenu);
        RemoveMenuExtension(bare.tracked);
        // It gets its menu later: the next try puts the extension on.
        SetWindowLongA(bare.get(), GWL_STYLE, static_cast<LONG>(bare.Style() | WS_SYSMENU | WS_CAPTION));
        AddMenuExtension(bare.tracked);
        EXPECT_NE(nullptr, bare.tracked.submenu) << test.what;
        RemoveMenuExtension(bare.tracked);
    }
}

TEST_F(MenuHarmTest, OutlivesItsWindow) {
    TrackedWindow orphan = window.tracked;
    DestroyWindow(window.get());
    UpdateMenuExtension(orphan, orphan.submenu, OfSystemMenu);
    AddMenuExtension(orphan);
    EXPECT_EQ(nullptr, orphan.submenu);
    RemoveMenuExtension(orphan);
    for (const WPARAM command : {64767, 64769, 64770, 64777, 64778})
        EXPECT_TRUE(HandleSysCommand(orphan, command, 0));
}

// In that program the record may come to name a menu of the program's own.
TEST_F(MenuHarmTest, IsNotPutOnTwiceInQlplay) {
    profile.program.qlplay = true;
    HMENU popup = CreatePopupMenu();
    HMENU last = CreatePopupMenu();
    AppendMenuA(last, MF_STRING, 64767, "x");
    AppendMenuA(popup, MF_POPUP, reinterpret_cast<UINT_PTR>(last), "Last");
    UpdateMenuExtension(window.tracked, popup, 0);
    AddMenuExtension(window.tracked);
    EXPECT_EQ(last, window.tracked.submenu) << "it stays known";
    DestroyMenu(popup);
    Lines ours;
    for (const std::string& line : MenuLines(SystemMenuOf(window.get())))
        if (line.rfind("64766", 0) == 0) ours.push_back(line);
    EXPECT_EQ(Lines{"64766 Tevral >"}, ours);
    RemoveMenuExtension(window.tracked);
    EXPECT_EQ(standard, MenuLines(SystemMenuOf(window.get())));
}

}  // namespace
}  // namespace halyard::test
