// The program that a user starts: it runs the newest loader of the system's bitness, hands its arguments over, and
// removes the folders of older versions, which couldn't go while programs still had their library mapped.
//
// Beside it stand folders named by a version, as in "0.2.0", with "x64" and "x86" in each.
#include "common/wide_text_buffer.h"
#include "files/files.h"
#include "process/program_start.h"

#include <algorithm>
#include <cstdio>
#include <string>

namespace halyard::launcher {

namespace {

constexpr DWORD EndTimeout = 30000;  // ms that a loader with switches may take

// What stands after the program's own name in the command line, as it stands there.
std::string Arguments(const char* narrow) {
    if (!TakesWideText()) return narrow;
    const wchar_t* at = GetCommandLineW();
    for (bool isQuoted = false; *at && (isQuoted || *at != L' '); ++at)
        isQuoted ^= *at == L'"';
    while (*at == L' ')
        ++at;
    return Narrow(at).Text();
}

// The launcher is a 32-bit program. Systems that know no other kind lack the question.
bool IsSystem64Bit() {
    const auto ask = reinterpret_cast<BOOL(WINAPI*)(HANDLE, BOOL*)>(
        reinterpret_cast<void*>(GetProcAddress(GetModuleHandleA("kernel32.dll"), "IsWow64Process")));
    BOOL emulated = FALSE;
    return ask && ask(GetCurrentProcess(), &emulated) && emulated;
}

struct Version {
    explicit Version(const char* name) {
        int end = 0;
        isOne = std::sscanf(name, "%u.%u.%u%n", &part[0], &part[1], &part[2], &end) == 3 && !name[end];
    }
    bool operator<(const Version& other) const {
        return std::lexicographical_compare(part, part + 3, other.part, other.part + 3);
    }
    unsigned part[3] = {};
    bool isOne = false;
};

// What is in use stays, and goes at a later start.
void RemoveFolder(const std::string& folder, int depth) {
    ForEachEntry(folder, [&](const char* name, bool isFolder) {
        if (!isFolder)
            RemoveFile(folder + name);
        else if (depth > 0)
            RemoveFolder(folder + name + "\\", depth - 1);
    });
    RemoveEmptyFolder(folder);
}

// The name of the newest version's folder; empty without any.
std::string NewestVersion(const std::string& root) {
    std::string newest;
    ForEachEntry(root, [&](const char* name, bool isFolder) {
        const Version found(name);
        if (isFolder && found.isOne && (newest.empty() || Version(newest.c_str()) < found)) newest = name;
    });
    return newest;
}

void RemoveOtherVersions(const std::string& root, const std::string& kept) {
    constexpr int FoldersBelow = 2;  // that a version has below it at most
    ForEachEntry(root, [&](const char* name, bool isFolder) {
        if (isFolder && Version(name).isOne && kept != name) RemoveFolder(root + name + "\\", FoldersBelow);
    });
}

int Run(const std::string& arguments) {
    const std::string root = OwnFolder();
    const std::string version = NewestVersion(root);
    const std::string loader = root + version + "\\" + (IsSystem64Bit() ? "x64" : "x86") + "\\tvlhload.exe";
    const std::string line = "\"" + loader + "\" " + arguments;
    const KernelHandle process = StartProgram(loader.c_str(), line.c_str(), Inherit::Handles);
    if (!process) {
        MessageBoxA(nullptr, ("Halyard can't be started: " + loader + " is missing or damaged.").c_str(), "Halyard",
                    MB_ICONERROR);
        return 1;
    }
    RemoveOtherVersions(root, version);
    // A loader with switches ends by itself, unless it is the first and stays.
    DWORD status = 0;
    if (!arguments.empty() && WaitForSingleObject(process.get(), EndTimeout) == WAIT_OBJECT_0)
        GetExitCodeProcess(process.get(), &status);
    return static_cast<int>(status);
}

}  // namespace

}  // namespace halyard::launcher

int WINAPI WinMain(HINSTANCE, HINSTANCE, char* arguments, int) {
    return halyard::launcher::Run(halyard::launcher::Arguments(arguments));
}
