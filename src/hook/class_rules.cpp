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

constexpr std::uint32_t ChildWindow = 0x40000000;
constexpr std::uint32_t ClipChildren = 0x02000000;
constexpr std::uint32_t Caption = 0x00C00000;
constexpr std::uint32_t MinimizeBox = 0x00020000;
constexpr std::uint32_t MaximizeBox = 0x00010000;
constexpr std::uint32_t OverlappedWindow = 0x00CF0000;
constexpr std::uint32_t BoxedCaption = Caption | MinimizeBox | MaximizeBox;
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

ManagedRule RuleFor(const WindowTraits& window) noexcept {
    using enum ManagedRule;
    const std::uint32_t style = window.style;
    if (style & ChildWindow) return Child;
    if (window.classAtom == DialogAtom) return style & (MinimizeBox | MaximizeBox) ? DialogWithBox : DialogWithoutBox;
    if (window.classAtom >= FirstSystemAtom && window.classAtom <= LastSystemAtom) return SystemClass;
    if (IsExcludedClass(window.className)) return ExcludedClass;
    if (window.hasParent && !HasAll(style, FullPopup))
        return window.parentStyle & ClipChildren ? OwnedByFrame : OwnedBySimple;
    if (window.exStyle & ExAppWindow) return AsksForButton;
    if (HasAll(style, OverlappedWindow)) return FullFrame;
    if (HasAll(style, BoxedCaption)) return CaptionWithBoxes;
    if (window.hasOwner) return Owned;
    if (!(window.exStyle & ExWindowEdge)) return NoEdge;
    return HasAll(style, Caption) ? CaptionWithEdge : NoCaption;
}

bool IsManaged(const WindowTraits& window) noexcept {
    return IsManagedBy(RuleFor(window));
}

bool IsDialog(const WindowTraits& window) noexcept {
    const std::uint32_t style = window.style;
    if (style & ChildWindow) return false;
    if (HasAll(style, OverlappedWindow)) return false;
    if (IsExcludedClass(window.className)) return false;
    if (window.classAtom == DialogAtom) return !HasAll(style, MinimizeBox | MaximizeBox);
    if (!window.hasParent) return false;
    return HasAll(style, FullPopup);
}

bool Qualifies(const WindowTraits& window) noexcept {
    return HasAll(window.style, BoxedCaption) && !(window.exStyle & ExToolWindow) &&
           !IsMemoryExcludedClass(window.className);
}

}  // namespace halyard
