// The extension of the system menu: a submenu of ours at the end of the real one. The system menu owns it once
// attached. hook/behaviours.h declares what the hooks call of it, and nobody else calls it.
#include "behaviours/maximise_across.h"
#include "behaviours/window_position.h"
#include "common/wide_text_buffer.h"
#include "common/window_text.h"
#include "desktops/desktop_list.h"
#include "hook/behaviours.h"
#include "hook/tracked_window.h"
#include "process/profile.h"
#include "process/shared_section.h"
#include "process/strings.h"
#include "settings/settings.h"

namespace halyard {

namespace {

enum MenuCommand : UINT {
    ExtensionSeparator = 64765,
    ExtensionItem = 64766,
    WindowMemoryItem = 64767,
    AutodockItem = 64768,
    TopmostItem = 64769,
    NextDisplayItem = 64770,
    DesktopsItem = 64776,
    AllDesktopsItem = 64777,
    FirstDesktopItem = 64778,  // then one for each desktop; those above 64810 can't be chosen
    LastDesktopItem = LastExtensionCommand,
};

constexpr UINT AtTheEnd = 100;  // a position after all that a menu of this kind has

UINT CheckState(bool checked) noexcept {
    return checked ? MFS_CHECKED : 0;
}

UINT GreyState(bool enabled) noexcept {
    return enabled ? 0 : MFS_GRAYED;
}

MENUITEMINFOA ItemInfo(UINT mask) noexcept {
    MENUITEMINFOA info = {};
    info.cbSize = sizeof(info);
    info.fMask = mask;
    return info;
}

UINT AfterLast(HMENU menu) noexcept {
    return static_cast<UINT>(GetMenuItemCount(menu) + 1);
}

void AppendItem(HMENU menu, UINT id, const char* text, bool checked) noexcept {
    MENUITEMINFOA info = ItemInfo(MIIM_STATE | MIIM_ID | MIIM_TYPE);
    info.fType = MFT_STRING;
    info.fState = CheckState(checked);
    info.wID = id;
    info.dwTypeData = const_cast<char*>(text);
    if (!TakesWideText()) {
        InsertMenuItemA(menu, AfterLast(menu), TRUE, &info);
        return;
    }
    // The two forms differ in the text only.
    const WideTextBuffer wide(text);
    info.dwTypeData = reinterpret_cast<char*>(const_cast<wchar_t*>(wide.Text()));
    InsertMenuItemW(menu, AfterLast(menu), TRUE, reinterpret_cast<const MENUITEMINFOW*>(&info));
}

void AppendSeparator(HMENU menu, UINT id) noexcept {
    MENUITEMINFOA info = ItemInfo(id ? MIIM_TYPE | MIIM_ID : MIIM_TYPE);
    info.fType = MFT_SEPARATOR;
    info.wID = id;
    InsertMenuItemA(menu, AfterLast(menu), TRUE, &info);
}

void AttachPopup(HMENU menu, UINT id, HMENU popup, const char* text, bool enabled) noexcept {
    MENUITEMINFOA info = ItemInfo(MIIM_STATE | MIIM_ID | MIIM_SUBMENU | MIIM_TYPE);
    info.fType = MFT_STRING;
    info.fState = GreyState(enabled);
    info.wID = id;
    info.hSubMenu = popup;
    info.dwTypeData = const_cast<char*>(text);
    // A popup that didn't get in has no owner.
    if (!InsertMenuItemA(menu, AtTheEnd, TRUE, &info)) DestroyMenu(popup);
}

// Replaces the whole state of the item.
void SetState(HMENU menu, UINT id, UINT state) noexcept {
    MENUITEMINFOA info = ItemInfo(MIIM_STATE);
    info.fState = state;
    SetMenuItemInfoA(menu, id, FALSE, &info);
}

void DeleteItems(HMENU system) noexcept {
    DeleteMenu(system, ExtensionSeparator, MF_BYCOMMAND);
    DeleteMenu(system, ExtensionItem, MF_BYCOMMAND);
}

// Programs replace and revert their system menus, and our submenu goes with the old one.
bool HangsInSystemMenu(const TrackedWindow& tracked) noexcept {
    MENUITEMINFOA info = ItemInfo(MIIM_SUBMENU);
    HMENU system = tracked.submenu ? GetSystemMenu(tracked.window, FALSE) : nullptr;
    return system && GetMenuItemInfoA(system, ExtensionItem, FALSE, &info) && info.hSubMenu == tracked.submenu;
}

// In that program the extension hangs in the last item of a menu of the program's own.
bool FindInProgramMenu(TrackedWindow& tracked, HMENU menu) noexcept {
    HMENU last = GetSubMenu(menu, GetMenuItemCount(menu) - 1);
    if (!last || GetMenuItemID(last, 0) != WindowMemoryItem) return false;
    tracked.submenu = last;
    return true;
}

HWND CommandTarget(const TrackedWindow& tracked) noexcept {
    return profile.program.qlplay ? GetParent(tracked.window) : tracked.window;
}

void RebuildDesktopPopup(const TrackedWindow& tracked) noexcept {
    DeleteMenu(tracked.submenu, DesktopsItem, MF_BYCOMMAND);
    HMENU popup = CreateMenu();
    if (!popup) return;
    const bool everywhere = tracked.desktopId == AllDesktopsId;
    const unsigned count = desktopList.Count();
    for (unsigned index = 0; index < count; ++index)
        // A window whose menu is open is on the current desktop unless it is on all.
        AppendItem(popup, FirstDesktopItem + index, WithoutMenuMarks(desktopList.NameAt(index).Text()).Text(),
                   !everywhere && desktopList.IdAt(index) == CurrentDesktopId());
    AppendSeparator(popup, 0);
    AppendItem(popup, AllDesktopsItem, LookupText(IDS_MENU_ALL_DESKTOPS).Text(), everywhere);
    AttachPopup(tracked.submenu, DesktopsItem, popup, LookupText(IDS_MENU_MOVE_TO_DESKTOP).Text(),
                settings.MultiDesk());
}

// Without desktops there is no way back from another one; the item may be left from before they were turned off.
void ChooseDesktop(TrackedWindow& tracked, DesktopId id, bool follow) noexcept {
    if (!settings.MultiDesk()) return;
    tracked.desktopId = id;
    tracked.SendDesktopChoice(follow);
}

void OnMoveToDesktop(TrackedWindow& tracked, DesktopId id, bool follow) noexcept {
    if (desktopList.Has(id)) ChooseDesktop(tracked, id, follow);
}

void RunExtensionCommand(TrackedWindow& tracked, WPARAM command, LPARAM lParam) noexcept {
    switch (command) {
    case WindowMemoryItem: settings.SetAppWindowMem(!settings.AppWindowMem()); break;
    case AutodockItem: settings.SetAppAutodock(!settings.EffectiveAutodock()); break;
    case TopmostItem: ToggleTopmost(CommandTarget(tracked)); break;
    case NextDisplayItem: MoveToNextDisplay(CommandTarget(tracked)); break;
    case AllDesktopsItem: ChooseDesktop(tracked, AllDesktopsId, false); break;
    case MoveToDesktopCommand: OnMoveToDesktop(tracked, static_cast<DesktopId>(lParam), false); break;
    case FollowToDesktopCommand: OnMoveToDesktop(tracked, static_cast<DesktopId>(lParam), true); break;
    case MoveToDisplayCommand:
        if (!tracked.maximisedAcross) MoveToNumberedDisplay(tracked.window, static_cast<unsigned>(lParam));
        break;
    default:
        if (command >= FirstDesktopItem && command <= LastDesktopItem)
            ChooseDesktop(tracked, desktopList.IdAt(static_cast<unsigned>(command - FirstDesktopItem)),
                          GetKeyState(VK_SHIFT) < 0);
    }
}

}  // namespace

void AddMenuExtension(TrackedWindow& tracked) noexcept {
    if (!settings.ExtendSysMenu()) return;
    HMENU system = GetSystemMenu(tracked.window, FALSE);
    if (tracked.submenu) {
        if (profile.program.qlplay || HangsInSystemMenu(tracked)) return;
        // What the program has left of the extension.
        DeleteItems(system);
        tracked.submenu = nullptr;
    }
    HMENU submenu = system ? CreateMenu() : nullptr;
    if (!submenu) return;
    AppendItem(submenu, WindowMemoryItem, LookupText(IDS_MENU_WINDOW_MEMORY).Text(), false);
    AppendItem(submenu, AutodockItem, LookupText(IDS_MENU_AUTODOCK).Text(), false);
    AppendItem(submenu, TopmostItem, LookupText(IDS_MENU_ALWAYS_ON_TOP).Text(), false);
    AppendSeparator(submenu, 0);
    AppendItem(submenu, NextDisplayItem, LookupText(IDS_MENU_MOVE_TO_DISPLAY).Text(), false);
    AppendSeparator(system, ExtensionSeparator);
    tracked.submenu = submenu;
    AttachPopup(system, ExtensionItem, submenu,
                LookupText(IsAlternativeBrand() ? IDS_BRAND_ALTERNATIVE : IDS_BRAND).Text(), true);
}

void RemoveMenuExtension(TrackedWindow& tracked) noexcept {
    if (!tracked.submenu) return;
    HMENU system = GetSystemMenu(tracked.window, FALSE);
    DeleteItems(system);
    tracked.submenu = nullptr;
}

void UpdateMenuExtension(TrackedWindow& tracked, HMENU menu, LPARAM lParam) noexcept {
    if (profile.program.acad && HIWORD(lParam) && tracked.maximisedAcross)
        MarkSpanningMenu(GetSystemMenu(tracked.window, FALSE));
    if (profile.program.qlplay) {
        if (!FindInProgramMenu(tracked, menu)) return;
    } else if (menu != tracked.submenu || !HangsInSystemMenu(tracked)) {
        return;
    }
    HMENU submenu = tracked.submenu;
    SetState(submenu, WindowMemoryItem,
             profile.program.xsi ? GreyState(false)
                                 : CheckState(settings.AppWindowMem()) | GreyState(settings.WindowMem()));
    SetState(submenu, AutodockItem, CheckState(settings.EffectiveAutodock()));
    SetState(submenu, TopmostItem, CheckState(IsTopmost(CommandTarget(tracked))));
    SetState(submenu, NextDisplayItem, GreyState(!tracked.maximisedAcross));
    RebuildDesktopPopup(tracked);
}

bool HandleSysCommand(TrackedWindow& tracked, WPARAM command, LPARAM lParam) noexcept {
    if (TakeMaximiseCommand(tracked, command)) return true;
    RunExtensionCommand(tracked, command, lParam);
    return false;
}

}  // namespace halyard
