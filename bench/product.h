// The product as a user runs it: the loader that lies beside the benchmark's own program.
#pragma once

#include <string>
#include <windows.h>

namespace halyard::bench {

constexpr DWORD ProductPatience = 400000;  // ms for whatever is waited for

// Starts `line`, and waits for its end where it is asked to; the exit code of a program that was waited for goes into
// `code`. False when it can't be started or doesn't end.
bool RunProgram(std::string line, bool wait, DWORD* code = nullptr);

// The path of a file beside this program.
std::string Beside(const char* file);

// Runs the loader with `switches` until it ends.
bool CommandProduct(const char* switches);

// The system on, with two desktops and no wizard, in this user's registry. False when it doesn't come up.
bool StartProduct();
void EndProduct();

}  // namespace halyard::bench
