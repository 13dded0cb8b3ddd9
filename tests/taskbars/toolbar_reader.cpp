#include "taskbars/toolbar_reader.h"

#include "support/windows_seen.h"

#include <commctrl.h>

namespace halyard::test {

namespace {

// Memory in the toolbar's process, to which its answers go.
class RemoteRoom {
public:
    explicit RemoteRoom(HWND window) {
        DWORD id = 0;
        GetWindowThreadProcessId(window, &id);
        process = OpenProcess(PROCESS_VM_OPERATION | PROCESS_VM_READ, FALSE, id);
        room = VirtualAllocEx(process, nullptr, Size, MEM_COMMIT | MEM_RESERVE, PAGE_READWRITE);
    }
    RemoteRoom(const RemoteRoom&) = delete;
    RemoteRoom& operator=(const RemoteRoom&) = delete;
    ~RemoteRoom() {
        if (room) VirtualFreeEx(process, room, 0, MEM_RELEASE);
        CloseHandle(process);
    }
    explicit operator bool() const { return room != nullptr; }

    template <typename Value>
    bool Ask(HWND window, UINT message, WPARAM wParam, Value& value) const {
        return test::Ask(window, message, wParam, reinterpret_cast<LPARAM>(room)) >= 0 &&
               ReadProcessMemory(process, room, &value, sizeof(value), nullptr);
    }

private:
    static constexpr SIZE_T Size = 4096;
    HANDLE process = nullptr;
    void* room = nullptr;
};

}  // namespace

std::vector<ToolbarButton> ReadToolbar(HWND toolbar) {
    std::vector<ToolbarButton> buttons;
    const RemoteRoom room(toolbar);
    const LRESULT count = Ask(toolbar, TB_BUTTONCOUNT);
    for (LRESULT index = 0; room && index < count; ++index) {
        ToolbarButton button;
        TBBUTTON entry = {};
        char text[512] = {};
        if (!room.Ask(toolbar, TB_GETBUTTON, static_cast<WPARAM>(index), entry)) return {};
        room.Ask(toolbar, TB_GETITEMRECT, static_cast<WPARAM>(index), button.place);
        button.command = entry.idCommand;
        button.checked = entry.fsState & TBSTATE_CHECKED;
        button.separator = entry.fsStyle & BTNS_SEP;
        if (!button.separator && room.Ask(toolbar, TB_GETBUTTONTEXTA, static_cast<WPARAM>(entry.idCommand), text))
            button.text = text;
        buttons.push_back(button);
    }
    return buttons;
}

}  // namespace halyard::test
