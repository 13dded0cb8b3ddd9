#include "bench/window_host.h"

#include "bench/clock.h"

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <string>

namespace halyard::bench {

namespace {

constexpr char HostClass[] = "HalyardBenchWindow";

// The windows stand side by side: what the platform does for windows that cover each other grows with their square.
constexpr unsigned Columns = 40;
constexpr int Pitch = 24;  // pixels

HANDLE toldAll = nullptr;
unsigned ownCount = 0;
unsigned shownCount = 0;
double* firstKeySeen = nullptr;

void Tell() noexcept {
    ReleaseSemaphore(toldAll, 1, nullptr);
}

void OnPositionChanged(const WINDOWPOS& position) noexcept {
    if (position.flags & SWP_SHOWWINDOW) ++shownCount;
    if (position.flags & SWP_HIDEWINDOW) --shownCount;
    if ((position.flags & SWP_SHOWWINDOW) && shownCount == ownCount) Tell();
    if ((position.flags & SWP_HIDEWINDOW) && shownCount == 0) Tell();
}

BOOL CALLBACK AddHostWindow(HWND window, LPARAM windows) {
    char name[sizeof(HostClass) + 1] = {};
    GetClassNameA(window, name, sizeof(name));
    if (std::strcmp(name, HostClass) == 0) reinterpret_cast<std::vector<HWND>*>(windows)->push_back(window);
    return TRUE;
}

double* MapFirstKey(HANDLE mapping) noexcept {
    return static_cast<double*>(MapViewOfFile(mapping, FILE_MAP_WRITE, 0, 0, sizeof(double)));
}

void OnKey() noexcept {
    if (*firstKeySeen == 0) *firstKeySeen = Now();
}

LRESULT CALLBACK HostWndProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_KEYDOWN) OnKey();
    if (message == WM_WINDOWPOSCHANGED) OnPositionChanged(*reinterpret_cast<const WINDOWPOS*>(lParam));
    return DefWindowProcA(window, message, wParam, lParam);
}

}  // namespace

int RunHost(const char* name, unsigned first, unsigned count, bool hung) noexcept {
    toldAll = OpenSemaphoreA(SEMAPHORE_ALL_ACCESS, FALSE, name);
    firstKeySeen = MapFirstKey(OpenFileMappingA(FILE_MAP_WRITE, FALSE, (std::string(name) + "Key").c_str()));
    if (!toldAll || !firstKeySeen) return 1;
    ownCount = count;
    WNDCLASSA windowClass = {};
    windowClass.lpfnWndProc = HostWndProc;
    windowClass.hInstance = GetModuleHandleA(nullptr);
    windowClass.hbrBackground = GetSysColorBrush(COLOR_WINDOW);
    windowClass.lpszClassName = HostClass;
    RegisterClassA(&windowClass);
    for (unsigned index = 0; index < count; ++index) {
        const unsigned place = first + index;
        HWND window = CreateWindowA(HostClass, "", WS_POPUP | WS_BORDER, static_cast<int>(place % Columns * Pitch),
                                    static_cast<int>(place / Columns * Pitch), Pitch - 4, Pitch - 4, nullptr, nullptr,
                                    windowClass.hInstance, nullptr);
        if (!window) return 1;
        ShowWindow(window, SW_SHOWNOACTIVATE);
    }
    if (hung) Sleep(INFINITE);
    MSG message;
    while (GetMessageA(&message, nullptr, 0, 0) > 0)
        DispatchMessageA(&message);
    return 0;
}

WindowPrograms::WindowPrograms() noexcept {
    std::snprintf(semaphoreName, sizeof(semaphoreName), "HalyardBench%lu", GetCurrentProcessId());
    semaphore = CreateSemaphoreA(nullptr, 0, 100000, semaphoreName);
    mapping = CreateFileMappingA(INVALID_HANDLE_VALUE, nullptr, PAGE_READWRITE, 0, sizeof(double),
                                 (std::string(semaphoreName) + "Key").c_str());
    firstKey = MapFirstKey(mapping);
}

WindowPrograms::~WindowPrograms() {
    for (HANDLE process : processes) {
        TerminateProcess(process, 0);
        WaitForSingleObject(process, HostPatience);
        CloseHandle(process);
    }
    UnmapViewOfFile(firstKey);
    CloseHandle(mapping);
    CloseHandle(semaphore);
}

bool WindowPrograms::Start(unsigned programs, unsigned windowsEach, bool hung) noexcept {
    char path[MAX_PATH] = {};
    GetModuleFileNameA(nullptr, path, MAX_PATH);
    for (unsigned index = 0; index < programs; ++index) {
        char commandLine[MAX_PATH + 128];
        std::snprintf(commandLine, sizeof(commandLine), "\"%s\" %s %s %u %u %u", path, HostSwitch, semaphoreName,
                      windowCount, windowsEach, hung ? 1U : 0U);
        windowCount += windowsEach;
        STARTUPINFOA startup = {};
        startup.cb = sizeof(startup);
        PROCESS_INFORMATION started = {};
        if (!CreateProcessA(nullptr, commandLine, nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup, &started))
            return false;
        CloseHandle(started.hThread);
        processes.push_back(started.hProcess);
    }
    if (!hung) answering += programs;
    return Await(programs);
}

bool WindowPrograms::AwaitAll() noexcept {
    return Await(answering);
}

double WindowPrograms::FirstKey() const noexcept {
    return *firstKey;
}

void WindowPrograms::ForgetKeys() noexcept {
    *firstKey = 0;
}

bool WindowPrograms::Await(unsigned count) noexcept {
    for (; count > 0; --count)
        if (WaitForSingleObject(semaphore, HostPatience) != WAIT_OBJECT_0) return false;
    return true;
}

std::vector<HWND> WindowPrograms::Windows() const {
    std::vector<HWND> windows;
    EnumWindows(AddHostWindow, reinterpret_cast<LPARAM>(&windows));
    std::sort(windows.begin(), windows.end());
    return windows;
}

}  // namespace halyard::bench
