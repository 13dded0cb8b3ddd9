#include "taskbars/toolbar_guard.h"

#include <commctrl.h>

namespace halyard {

namespace {

constexpr UINT FirstRegisteredMessage = 0xC000;

struct ReadingMessage {
    UINT message;
    bool fills;  // lParam is the address of the answer
};
constexpr ReadingMessage ReadingMessages[] = {
    {TB_BUTTONCOUNT, false},     {TB_COMMANDTOINDEX, false},  {TB_GETSTATE, false},       {TB_ISBUTTONENABLED, false},
    {TB_ISBUTTONCHECKED, false}, {TB_ISBUTTONPRESSED, false}, {TB_ISBUTTONHIDDEN, false}, {TB_GETROWS, false},
    {TB_GETBUTTONSIZE, false},   {TB_GETHOTITEM, false},      {TB_GETTOOLTIPS, false},    {TB_GETBUTTON, true},
    {TB_GETITEMRECT, true},      {TB_GETRECT, true},          {TB_GETBUTTONTEXTA, true},  {TB_GETBUTTONTEXTW, true},
};

WNDPROC controlProcedure = nullptr;  // of all toolbars
unsigned ownCalls = 0;               // of `AskToolbar` that are under way
unsigned handled = 0;                // messages that toolbars are handling

// Whether the address is the start of memory that another program has allocated in this process, as screen readers do
// for their answers. Of the memory that this process uses itself, only a heap starts like that.
bool IsForeignRoom(LPARAM address) noexcept {
    constexpr SIZE_T LeastRoom = 1024;  // for the longest text that a button has
    constexpr DWORD MostHeaps = 256;
    auto* room = reinterpret_cast<void*>(address);
    MEMORY_BASIC_INFORMATION info = {};
    if (!room || !VirtualQuery(room, &info, sizeof(info)) || info.AllocationBase != room) return false;
    if (info.State != MEM_COMMIT || info.Type != MEM_PRIVATE || info.Protect != PAGE_READWRITE ||
        info.RegionSize < LeastRoom)
        return false;
    HANDLE heaps[MostHeaps] = {};
    const DWORD count = GetProcessHeaps(MostHeaps, heaps);
    for (DWORD index = 0; index < count && index < MostHeaps; ++index)
        if (heaps[index] == room) return false;
    return count <= MostHeaps;
}

bool IsReading(UINT message, LPARAM lParam) noexcept {
    for (const ReadingMessage& reading : ReadingMessages)
        if (reading.message == message) return !reading.fills || IsForeignRoom(lParam);
    return false;
}

// Whether the bar is being destroyed: it unbinds its window first.
bool IsEnding(HWND toolbar) noexcept {
    return GetWindowLongPtrA(GetParent(toolbar), GWLP_USERDATA) == 0;
}

bool IsBelieved(HWND toolbar, UINT message, LPARAM lParam) noexcept {
    if (ownCalls > 0 || message >= FirstRegisteredMessage) return true;
    // A control may send itself messages while it handles one.
    if (handled > 0 && !InSendMessage()) return true;
    switch (message) {
    case WM_NOTIFY: return IsOnOwnStack(lParam, sizeof(NMHDR));
    case WM_NCCREATE:
    case WM_CREATE:
    case WM_CLOSE: return false;
    case WM_DESTROY:
    case WM_NCDESTROY: return IsEnding(toolbar);
    }
    return message < WM_USER || IsReading(message, lParam);
}

LRESULT CALLBACK GuardProcedure(HWND toolbar, UINT message, WPARAM wParam, LPARAM lParam) {
    if (!IsBelieved(toolbar, message, lParam)) return 0;
    ++handled;
    const LRESULT result = IsWindowUnicode(toolbar)
                               ? CallWindowProcW(controlProcedure, toolbar, message, wParam, lParam)
                               : CallWindowProcA(controlProcedure, toolbar, message, wParam, lParam);
    --handled;
    return result;
}

}  // namespace

void GuardToolbar(HWND toolbar) noexcept {
    const auto procedure = reinterpret_cast<LONG_PTR>(GuardProcedure);
    const LONG_PTR before = IsWindowUnicode(toolbar) ? SetWindowLongPtrW(toolbar, GWLP_WNDPROC, procedure)
                                                     : SetWindowLongPtrA(toolbar, GWLP_WNDPROC, procedure);
    if (before && before != procedure) controlProcedure = reinterpret_cast<WNDPROC>(before);
}

LRESULT AskToolbar(HWND toolbar, UINT message, WPARAM wParam, LPARAM lParam) noexcept {
    ++ownCalls;
    const LRESULT answer = SendMessageA(toolbar, message, wParam, lParam);
    --ownCalls;
    return answer;
}

bool IsOnOwnStack(LPARAM address, SIZE_T size) noexcept {
    const char here = 0;
    MEMORY_BASIC_INFORMATION stack = {};
    if (!VirtualQuery(&here, &stack, sizeof(stack))) return false;
    const auto first = static_cast<ULONG_PTR>(address);
    const ULONG_PTR end = reinterpret_cast<ULONG_PTR>(stack.BaseAddress) + stack.RegionSize;
    return first > reinterpret_cast<ULONG_PTR>(&here) && first < end && end - first >= size;
}

}  // namespace halyard
