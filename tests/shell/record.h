// What the stand-in shell keeps, in the user's registry below `StandInKey`: every process can preset and read it.
#pragma once

#include <string>
#include <windows.h>

namespace standin {

inline constexpr char StandInKey[] = "Software\\HalyardStandIn";

// Values of the key.
inline constexpr char LogValue[] = "Log";                  // the calls in order, one a line
inline constexpr wchar_t WallpaperValue[] = L"Wallpaper";  // full path, empty for none
inline constexpr char WallpaperStyleValue[] = "WallpaperStyle";
inline constexpr char WizardRunsValue[] = "WizardRuns";  // how often the stand-in wizard ran, and with what
inline constexpr char WizardCommandLineValue[] = "WizardCommandLine";

// Appends a line to the log.
void Log(const std::string& line);

std::string ReadText(const char* name);
std::wstring ReadWideText(const wchar_t* name);
DWORD ReadNumber(const char* name);

void WriteText(const char* name, const std::string& text);
void WriteWideText(const wchar_t* name, const std::wstring& text);
void WriteNumber(const char* name, DWORD number);

}  // namespace standin
