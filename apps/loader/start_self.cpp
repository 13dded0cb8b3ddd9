#include "loader/start_self.h"

#include "process/profile.h"
#include "process/program_start.h"

#include <string>

namespace halyard::loader {

KernelHandle StartSelf(const char* switches, DWORD& id) noexcept {
    const ModulePath own(nullptr);
    return StartProgram(own.text, ('"' + std::string(own.text) + '"' + switches).c_str(), Inherit::Nothing, &id);
}

}  // namespace halyard::loader
