// Programs that Halyard keeps out of.
#pragma once

#include <string>
#include <vector>

namespace halyard::loader {

// Full paths, of this user's.
std::vector<std::string> ExcludedPrograms();

// The path may be relative. The program's running instances go on as they are. False when it can't be stored.
bool SetExcludedProgram(const std::string& path, bool excluded);

}  // namespace halyard::loader
