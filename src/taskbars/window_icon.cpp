#include "taskbars/window_icon.h"

#include "common/handles.h"
#include "common/row.h"
#include "process/profile.h"
#include "process/protocol.h"
#include "process/shared_section.h"

#include <new>
#include <shellapi.h>

namespace halyard {

namespace {

constexpr WPARAM OwnIcons[] = {ICON_SMALL2, ICON_SMALL, ICON_BIG};  // in this order
constexpr ULONG_PTR OwnIconCount = sizeof(OwnIcons) / sizeof(OwnIcons[0]);

struct Questions {
    IconReceiver receive = nullptr;  // one for all
    unsigned open = 0;               // that programs haven't answered yet
    bool libraryKept = false;
};

Questions questions;

// A program's file that is read for a window. While it is being read the record belongs to the reading thread.
struct FileReading {
    explicit FileReading(HWND iconWindow) noexcept : window(iconWindow) {}

    const HWND window;
    bool isWanted = true;       // the window hasn't given an icon of its own; the server's thread alone uses this
    HMODULE library = nullptr;  // the thread's hold on the code that it runs
    Icon icon;
    volatile LONG done = 0;  // the record is back with the server's thread
};

Row<FileReading*> readings;  // owned; the first is being read, the others wait

bool GiveClassIcon(HWND window, int which) noexcept {
    const auto icon = reinterpret_cast<HICON>(static_cast<ULONG_PTR>(GetClassLongPtrA(window, which)));
    return icon && questions.receive(window, icon);
}

// The first icon in the file of the window's program: any thread.
Icon IconOfProgram(HWND window) noexcept {
    constexpr DWORD QueryLimited = 0x1000;
    using QueryImageNameFn = BOOL(WINAPI*)(HANDLE, DWORD, wchar_t*, DWORD*);
    const auto queryImageName =
        EntryOf<QueryImageNameFn>(GetModuleHandleA("kernel32.dll"), "QueryFullProcessImageNameW");
    DWORD processId = 0;
    GetWindowThreadProcessId(window, &processId);
    const KernelHandle process(OpenProcess(QueryLimited, FALSE, processId));
    wchar_t path[PathRoom] = {};
    DWORD room = PathRoom;
    HICON icon = nullptr;
    if (queryImageName && process && queryImageName(process.get(), 0, path, &room))
        ExtractIconExW(path, 0, nullptr, &icon, 1);
    return Icon(icon);
}

void ReportDone(FileReading& reading) noexcept {
    InterlockedExchange(&reading.done, 1);
    PostMessageA(ServerWindow(), HM_ICON_READ, 0, 0);
}

DWORD WINAPI ReadFile(void* context) {
    auto& reading = *static_cast<FileReading*>(context);
    const HMODULE library = reading.library;
    reading.icon = IconOfProgram(reading.window);
    ReportDone(reading);
    FreeLibraryAndExitThread(library, 0);
}

void StartFirstReading() noexcept {
    if (readings.Count() == 0) return;
    FileReading& reading = *readings.At(0);
    Library library(HoldLibrary());
    reading.library = library.get();
    const KernelHandle thread(library ? CreateThread(nullptr, 0, ReadFile, &reading, 0, nullptr) : nullptr);
    if (thread)
        library.Release();  // now the thread's
    else
        ReportDone(reading);
}

FileReading* ReadingFor(HWND window) noexcept {
    for (FileReading* reading : readings)
        if (reading->window == window && reading->isWanted) return reading;
    return nullptr;
}

// Where an icon's handle is good in its own program only, as on Wine, that program's file has one for everybody.
void ReadProgramIcon(HWND window) noexcept {
    if (ReadingFor(window)) return;
    auto* reading = new (std::nothrow) FileReading(window);
    if (!reading) return;
    const unsigned waiting = readings.Count();
    readings.Add(reading);
    if (readings.Count() == waiting)
        delete reading;
    else if (waiting == 0)
        StartFirstReading();
}

void GiveOutsideIcon(HWND window) noexcept {
    if (GiveClassIcon(window, GCLP_HICONSM) || GiveClassIcon(window, GCLP_HICON)) return;
    const bool isDialog = (GetWindowLongA(window, GWL_STYLE) & static_cast<LONG>(WS_POPUP)) ||
                          (GetWindowLongA(window, GWL_EXSTYLE) & WS_EX_DLGMODALFRAME);
    if (!isDialog) ReadProgramIcon(window);
}

void Ask(HWND window, ULONG_PTR index) noexcept;

void CALLBACK OnAnswer(HWND window, UINT, ULONG_PTR index, LRESULT icon) noexcept {
    --questions.open;
    if (!icon || !questions.receive(window, reinterpret_cast<HICON>(icon)))
        Ask(window, index + 1);
    else if (FileReading* reading = ReadingFor(window))
        reading->isWanted = false;
}

void Ask(HWND window, ULONG_PTR index) noexcept {
    if (index < OwnIconCount && SendMessageCallbackA(window, WM_GETICON, OwnIcons[index], 0, OnAnswer, index))
        ++questions.open;
}

}  // namespace

void FindIcon(HWND window, IconReceiver receive) noexcept {
    questions.receive = receive;
    GiveReadIcons();
    GiveOutsideIcon(window);
    Ask(window, 0);
}

void GiveReadIcons() noexcept {
    while (readings.Count() > 0 && readings.At(0)->done) {
        FileReading* reading = readings.At(0);
        readings.RemoveAt(0);
        StartFirstReading();
        const HICON icon = reading->icon.get();
        if (reading->isWanted && !(icon && questions.receive(reading->window, icon)))
            questions.receive(reading->window, LoadIconA(nullptr, IDI_WINLOGO));
        delete reading;
    }
}

void OutliveIconAnswers() noexcept {
    if (questions.open == 0 || questions.libraryKept) return;
    questions.libraryKept = HoldLibrary() != nullptr;
}

}  // namespace halyard
