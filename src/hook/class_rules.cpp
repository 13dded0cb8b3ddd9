#include "hook/class_rules.h"

#include <cstring>

namespace halyard {

namespace {

constexpr const char* MemoryExcludedClasses[] = {"rctrl_renwnd32", nullptr};

constexpr const char* ExcludedClasses[] = {"SysShadow",
                                           "tooltips_class32",
                                           "ToolbarWindow32",
                                           "OleMainThreadWndClass",
                                           "OleDdeWndClass",
                                           "NOTES",
                                           "Lotus_Drawers",
                                           "RunDLL",
                                           "Shell_TrayWnd",
                                           "MSOBALLOON",
                                           "MSOASSISTANT",
                                           "CLIPBRDWNDCLASS",
                                           "BaseBar",
                                           "WindowsScreenSaverClass",
                                           "MsiDialogCloseClass",
                                           "rctrl_notewnd32",
                                           "_WwB",
                                           "ShockwaveFlash",
                                           "FreeWClass",
                                           "GLUT",
                                           "OMain",
                                           "CicMarshalWndClass",
                                           "XWMSAPIsv",
                                           "WinDVDClass",
                                           "PccNTMonClas",
                                           "MMSpeedyWClass",
                                           "CicMarshalWndClass",
                                           "Button",
                                           "Edit",
                                           "ListBox",
                                           "msctls_hotkey32",
                                           "msctls_statusbar32",
                                           "msctls_trackbar32",
                                           "msctls_updown32",
                                           "Static",
                                           "SysAnimate32",
                                           "SysHeader32",
                                           "SysListView32",
                                           "SysTreeView32",
                                           nullptr};

constexpr std::uint32_t Child = 0x40000000;
constexpr std::uint32_t ClipChildren = 0x02000000;
constexpr std::uint32_t Caption = 0x00C00000;
constexpr std::uint32_t MinimizeBox = 0x00020000;
constexpr std::uint32_t MaximizeBox = 0x00010000;
constexpr std::uint32_t OverlappedWindow = 0x00CF0000;
constexpr std::uint32_t CaptionWithBoxes = Caption | MinimizeBox | MaximizeBox;
constexpr std::uint32_t FullPopup = 0x80C80000;  // WS_POPUP, WS_CAPTION, WS_SYSMENU
constexpr std::uint32_t ExAppWindow = 0x00040000;
constexpr std::uint32_t ExWindowEdge = 0x00000100;
constexpr std::uint32_t ExToolWindow = 0x00000080;

// Atoms of the system's own classes: menu, desktop, dialog box, task switch, icon title.
constexpr std::uint32_t FirstSystemAtom = 32768;
constexpr std::uint32_t DialogAtom = 32770;
constexpr std::uint32_t LastSystemAtom = 32772;

constexpr bool HasAll(std::uint32_t style, std::uint32_t mask) noexcept {
    return (style & mask) == mask;
}

bool InList(const char* name, const char* const* list) noexcept {
    for (; *list; ++list)
        if (std::strcmp(name, *list) == 0) return true;
    return false;
}

}  // namespace

void NormaliseClassName(char* name) noexcept {
    if (std::strncmp(name, "Afx:", 4) == 0) *std::strrchr(name, ':') = 0;
}

bool IsExcludedClass(const char* name) noexcept {
    return InList(name, ExcludedClasses);
}

bool IsMemoryExcludedClass(const char* name) noexcept {
    return InList(name, MemoryExcludedClasses);
}

bool IsManaged(const WindowTraits& window) noexcept {
    const std::uint32_t style = window.style;
    if (style & Child) return false;
    if (window.classAtom == DialogAtom) return (style & (MinimizeBox | MaximizeBox)) != 0;
    if (window.classAtom >= FirstSystemAtom && window.classAtom <= LastSystemAtom) return false;
    if (IsExcludedClass(window.className)) return false;
    if (window.hasParent && !HasAll(style, FullPopup)) return (window.parentStyle & ClipChildren) == 0;
    if (window.exStyle & ExAppWindow) return true;
    if (HasAll(style, OverlappedWindow)) return true;
    if (HasAll(style, CaptionWithBoxes)) return true;
    if (window.hasOwner) return false;
    if (!(window.exStyle & ExWindowEdge)) return false;
    return HasAll(style, Caption);
}

bool IsDialog(const WindowTraits& window) noexcept {
    const std::uint32_t style = window.style;
    if (style & Child) return false;
    if (HasAll(style, OverlappedWindow)) return false;
    if (IsExcludedClass(window.className)) return false;
    if (window.classAtom == DialogAtom) return !HasAll(style, MinimizeBox | MaximizeBox);
    if (!window.hasParent) return false;
    return HasAll(style, FullPopup);
}

bool Qualifies(const WindowTraits& window) noexcept {
    return HasAll(window.style, CaptionWithBoxes) && !(window.exStyle & ExToolWindow) &&
           !IsMemoryExcludedClass(window.className);
}

}  // namespace halyard
