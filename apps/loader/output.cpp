#include "loader/output.h"

#include "common/entry.h"
#include "common/wide_text_buffer.h"

namespace halyard::loader {

namespace {

// The oldest systems lack the call.
bool AttachToParentsConsole() noexcept {
    const auto attach = EntryOf<BOOL(WINAPI*)(DWORD)>(GetModuleHandleA("kernel32.dll"), "AttachConsole");
    return attach && attach(ATTACH_PARENT_PROCESS);
}

void Write(DWORD stream, const std::string& text) {
    if (text.empty()) return;
    HANDLE out = GetStdHandle(stream);
    // A program without a console of its own has no streams unless somebody redirected them.
    if ((!out || out == INVALID_HANDLE_VALUE) && AttachToParentsConsole()) out = GetStdHandle(stream);
    if (!out || out == INVALID_HANDLE_VALUE) return;
    DWORD written = 0;
    DWORD mode = 0;
    if (!TakesWideText() || !GetConsoleMode(out, &mode)) {
        WriteFile(out, text.data(), static_cast<DWORD>(text.size()), &written, nullptr);
        return;
    }
    const WideTextBuffer wide(text.c_str());
    WriteConsoleW(out, wide.Text(), static_cast<DWORD>(lstrlenW(wide.Text())), &written, nullptr);
}

}  // namespace

void Print(const std::string& text) {
    Write(STD_OUTPUT_HANDLE, text);
}

void PrintError(const std::string& text) {
    Write(STD_ERROR_HANDLE, text);
}

}  // namespace halyard::loader
