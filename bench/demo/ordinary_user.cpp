// Starts a program without the rights of an administrator.
#include "common/handles.h"

#include <cstdio>
#include <string>
#include <windows.h>

namespace {

using halyard::KernelHandle;

KernelHandle LesserToken() noexcept {
    BYTE administrators[SECURITY_MAX_SID_SIZE];
    DWORD size = sizeof(administrators);
    CreateWellKnownSid(WinBuiltinAdministratorsSid, nullptr, administrators, &size);
    SID_AND_ATTRIBUTES disabled = {administrators, 0};
    HANDLE own = nullptr;
    HANDLE lesser = nullptr;
    OpenProcessToken(GetCurrentProcess(), TOKEN_ALL_ACCESS, &own);
    CreateRestrictedToken(own, 0, 1, &disabled, 0, nullptr, 0, nullptr, &lesser);
    CloseHandle(own);
    return KernelHandle(lesser);
}

}  // namespace

int main(int count, char** arguments) {
    if (count < 2) {
        std::fputs("usage: ordinary_user PROGRAM [ARGUMENT...]\n", stderr);
        return 2;
    }
    std::string line;
    for (int index = 1; index < count; ++index)
        line += "\"" + std::string(arguments[index]) + "\" ";
    STARTUPINFOA startup = {};
    startup.cb = sizeof(startup);
    PROCESS_INFORMATION started = {};
    if (!CreateProcessAsUserA(LesserToken().get(), nullptr, line.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr,
                              &startup, &started)) {
        std::fprintf(stderr, "ordinary_user: %s can't be started: error %lu\n", arguments[1], GetLastError());
        return 1;
    }
    CloseHandle(started.hThread);
    CloseHandle(started.hProcess);
    return 0;
}
