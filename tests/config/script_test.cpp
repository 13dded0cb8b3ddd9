// Names and paths in scripts that the ANSI code page doesn't have, from where they are stored to where they are seen.
#include "config/sheet_fixture.h"
#include "shell/record.h"

#include <shlwapi.h>

namespace halyard::test {

namespace {

class ScriptTest : public SheetTest {};

constexpr wchar_t Name[] = L"\u041F\u043E\u0447\u0442\u0430 \u03A9 \u6587";
constexpr char NameJson[] = R"("name": "\u041f\u043e\u0447\u0442\u0430 \u03a9 \u6587")";

std::wstring Wide(const std::string& ascii) {
    return std::wstring(ascii.begin(), ascii.end());
}

void WriteWide(const std::string& path, const wchar_t* name, const std::wstring& text) {
    SHSetValueW(HKEY_CURRENT_USER, Wide(path).c_str(), name, REG_SZ, text.c_str(),
                static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t)));
}

std::wstring ReadWide(const std::string& path, const wchar_t* name) {
    wchar_t text[261] = {};
    DWORD size = sizeof(text) - sizeof(wchar_t);
    SHGetValueW(HKEY_CURRENT_USER, Wide(path).c_str(), name, nullptr, text, &size);
    return text;
}

// What the program ends with.
DWORD RunWide(const std::string& program, const std::wstring& switches) {
    std::wstring line = L"\"" + Wide(program) + L"\" " + switches;
    STARTUPINFOW startup = {};
    startup.cb = sizeof(startup);
    PROCESS_INFORMATION started = {};
    DWORD status = 99;
    if (!CreateProcessW(nullptr, line.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup, &started))
        return status;
    WaitForSingleObject(started.hProcess, WaitLimit);
    GetExitCodeProcess(started.hProcess, &status);
    CloseHandle(started.hThread);
    CloseHandle(started.hProcess);
    return status;
}

TEST_F(ScriptTest, NamesAndWallpapersKeepTheirLetters) {
    const ClassRegistration shell("{75048700-EF1F-11D0-9888-006097DEACF9}", BinFolder() + "standin_shell.dll");
    const std::wstring wallpaper = L"C:\\\u041C\u0438\u0440\\\u6D77.bmp";
    WriteWide(DesktopKey(1), L"", Name);
    WriteWide(DesktopKey(1), L"Wallpaper", wallpaper);
    StartLoader();
    EXPECT_NE(Loader("--json").out.find(NameJson), std::string::npos) << Loader("--json").out;
    Switch(1);
    EXPECT_TRUE(Eventually([&] { return ReadWide(standin::StandInKey, L"Wallpaper") == wallpaper; }));
    Switch(0);
    EXPECT_TRUE(Eventually([&] { return ReadWide(DesktopKey(1), L"Wallpaper") == wallpaper; }));

    // Through the sheet and back.
    OpenSheet(DesktopsTab);
    ClickControl(IDC_ADD_DESKTOP);
    TapKey("w Return");
    EXPECT_TRUE(Eventually([&] { return CanApply(); }));
    Press(ApplyButton);
    EXPECT_EQ(ReadWide(DesktopKey(1), L""), Name);
}

TEST_F(ScriptTest, ProgramsThatDifferInSuchLettersAreKeptApart) {
    const Output none = Loader("--excluded");
    ASSERT_EQ(none.out, "");
    for (const wchar_t* path : {L"--exclude C:\\\u041C\u0438\u0440.exe", L"--exclude C:\\\u6D77\u6D77\u6D77.exe"})
        EXPECT_EQ(RunWide(folder + "tvlhload.exe", path), 0u);
    EXPECT_EQ(Loader("--excluded").out, "C:\\\u041C\u0438\u0440.exe\nC:\\\u6D77\u6D77\u6D77.exe\n");
    EXPECT_EQ(RunWide(folder + "tvlhload.exe", L"--include C:\\\u041C\u0438\u0440.exe"), 0u);
    EXPECT_EQ(Loader("--excluded").out, "C:\\\u6D77\u6D77\u6D77.exe\n");
}

}  // namespace

}  // namespace halyard::test
