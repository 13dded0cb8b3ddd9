// Prints what a Win32 program sees of the session it runs in: each display with its rectangle and its work area as
// "NAME left top right bottom work left top right bottom", then "version PLATFORM MAJOR.MINOR".

#include <windows.h>

#include <cstdio>

namespace {

BOOL CALLBACK ShowDisplay(HMONITOR monitor, HDC, LPRECT, LPARAM) {
    MONITORINFOEXA info{};
    info.cbSize = sizeof(info);
    if (!GetMonitorInfoA(monitor, &info)) {
        return FALSE;
    }
    const RECT& all = info.rcMonitor;
    const RECT& work = info.rcWork;
    std::printf("%s %ld %ld %ld %ld work %ld %ld %ld %ld\n", info.szDevice, all.left, all.top, all.right, all.bottom,
                work.left, work.top, work.right, work.bottom);
    return TRUE;
}

}  // namespace

int main() {
    if (!EnumDisplayMonitors(nullptr, nullptr, ShowDisplay, 0)) {
        std::puts("the displays could not be listed");
        return 1;
    }
    OSVERSIONINFOA version{};
    version.dwOSVersionInfoSize = sizeof(version);
    GetVersionExA(&version);
    std::printf("version %lu %lu.%lu\n", version.dwPlatformId, version.dwMajorVersion, version.dwMinorVersion);
    return 0;
}
