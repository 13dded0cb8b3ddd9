#include "menu_lines.h"

namespace halyard::test {

namespace {

struct Item {
    Item(HMENU menu, UINT item, bool byPosition) {
        info.cbSize = sizeof(info);
        info.fMask = MIIM_TYPE | MIIM_STATE | MIIM_ID | MIIM_SUBMENU;
        info.dwTypeData = text;
        info.cch = sizeof(text);
        found = GetMenuItemInfoA(menu, item, byPosition, &info) != FALSE;
    }

    std::string Line() const {
        if (!found) return "none";
        std::string line = std::to_string(info.wID) + " " + (info.fType & MFT_SEPARATOR ? "-" : text);
        if (info.fState & MFS_CHECKED) line += " [checked]";
        if ((info.fState & MFS_GRAYED) == MFS_GRAYED) line += " [grey]";
        if (info.fState & MFS_DEFAULT) line += " [default]";
        const UINT rest = info.fState & ~UINT{MFS_CHECKED | MFS_GRAYED | MFS_DEFAULT};
        if (rest) line += " [state " + std::to_string(rest) + "]";
        const UINT type = info.fType & ~UINT{MFT_SEPARATOR};
        if (type) line += " [type " + std::to_string(type) + "]";
        return info.hSubMenu ? line + " >" : line;
    }

    MENUITEMINFOA info = {};
    char text[100] = {};
    bool found;
};

}  // namespace

Lines MenuLines(HMENU menu, const std::string& indent) {
    Lines lines;
    for (int index = 0; index < GetMenuItemCount(menu); ++index) {
        const Item item(menu, static_cast<UINT>(index), true);
        lines.push_back(indent + item.Line());
        if (!item.info.hSubMenu) continue;
        const Lines below = MenuLines(item.info.hSubMenu, indent + "  ");
        lines.insert(lines.end(), below.begin(), below.end());
    }
    return lines;
}

std::string MenuLine(HMENU menu, UINT id) {
    return Item(menu, id, false).Line();
}

}  // namespace halyard::test
