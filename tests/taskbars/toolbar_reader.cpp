#include "taskbars/toolbar_reader.h"

#include "support/windows_seen.h"

#include <commctrl.h>

namespace halyard::test {

std::vector<ToolbarButton> ReadToolbar(HWND toolbar) {
    constexpr SIZE_T Room = 4096;
    DWORD id = 0;
    GetWindowThreadProcessId(toolbar, &id);
    HANDLE process = OpenProcess(PROCESS_VM_OPERATION | PROCESS_VM_READ, FALSE, id);
    // Memory in the toolbar's process, to which its answers go.
    void* room = VirtualAllocEx(process, nullptr, Room, MEM_COMMIT | MEM_RESERVE, PAGE_READWRITE);
    const auto ask = [&](UINT message, LRESULT which, auto& answer) {
        return Ask(toolbar, message, static_cast<WPARAM>(which), reinterpret_cast<LPARAM>(room)) >= 0 &&
               ReadProcessMemory(process, room, &answer, sizeof(answer), nullptr);
    };
    std::vector<ToolbarButton> buttons;
    const LRESULT count = room ? Ask(toolbar, TB_BUTTONCOUNT) : 0;
    for (LRESULT index = 0; index < count; ++index) {
        ToolbarButton button;
        TBBUTTON entry = {};
        wchar_t text[512] = {};
        if (!ask(TB_GETBUTTON, index, entry)) break;
        ask(TB_GETITEMRECT, index, button.place);
        button.command = entry.idCommand;
        button.checked = entry.fsState & TBSTATE_CHECKED;
        button.separator = entry.fsStyle & BTNS_SEP;
        if (!button.separator && ask(TB_GETBUTTONTEXTW, entry.idCommand, text)) {
            char utf8[2048] = {};
            WideCharToMultiByte(CP_UTF8, 0, text, -1, utf8, sizeof(utf8) - 1, nullptr, nullptr);
            button.text = utf8;
        }
        buttons.push_back(button);
    }
    if (room) VirtualFreeEx(process, room, 0, MEM_RELEASE);
    CloseHandle(process);
    return buttons;
}

}  // namespace halyard::test
