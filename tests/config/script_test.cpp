// Names and paths in scripts that the ANSI code page doesn't have, from where they are stored to where they are seen.
#include "config/sheet_fixture.h"
#include "shell/record.h"

#include <process.h>
#include <shlwapi.h>

namespace halyard::test {

namespace {

using ScriptTest = SheetTest;

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

TEST_F(ScriptTest, NamesAndPathsKeepTheirLetters) {
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

    // Programs that differ in such letters are kept apart.
    const std::wstring program = Wide(folder + "tvlhload.exe");
    for (const wchar_t* path : {L"C:\\\u041C\u0438\u0440.exe", L"C:\\\u6D77\u6D77\u6D77.exe"})
        EXPECT_EQ(_wspawnl(_P_WAIT, program.c_str(), L"tvlhload", L"--exclude", path, nullptr), 0);
    EXPECT_EQ(Loader("--excluded").out, "C:\\\u041C\u0438\u0440.exe\nC:\\\u6D77\u6D77\u6D77.exe\n");
}

}  // namespace

}  // namespace halyard::test
