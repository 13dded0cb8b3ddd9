// What the stand-ins keep, in the user's registry below `StandInKey`: every process can preset and read it.
#pragma once

#include <string>
#include <windows.h>

namespace standin {

inline constexpr char StandInKey[] = "Software\\HalyardStandIn";

// Values of the key.
inline constexpr char BarValue[] = "Bar";              // what a docked bar last told the shell
inline constexpr char WallpaperValue[] = "Wallpaper";  // full path, empty for none
inline constexpr char WallpaperStyleValue[] = "WallpaperStyle";
inline constexpr char WizardRunsValue[] = "WizardRuns";  // how often the stand-in wizard ran, and with what
inline constexpr char WizardCommandLineValue[] = "WizardCommandLine";

// Empty, or 0, where there is no such value.
std::string ReadText(const char* name);
DWORD ReadNumber(const char* name);

void WriteText(const char* name, const std::string& text);
void WriteNumber(const char* name, DWORD number);

}  // namespace standin
