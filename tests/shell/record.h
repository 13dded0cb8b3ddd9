// What the stand-ins keep, in the user's registry below `StandInKey`: every process can preset and read it.
#pragma once

#include "support/registry.h"

namespace standin {

using halyard::test::NumberOr;
using halyard::test::WriteNumber;
using halyard::test::WriteText;

inline constexpr char StandInKey[] = "Software\\HalyardStandIn";

// Values of the key.
inline constexpr char BarValue[] = "Bar";  // what a docked bar last told the shell
inline constexpr char WallpaperStyleValue[] = "WallpaperStyle";
inline constexpr char WizardRunsValue[] = "WizardRuns";  // how often the stand-in wizard ran, and with what
inline constexpr char WizardCommandLineValue[] = "WizardCommandLine";

}  // namespace standin
