#include "loader/arguments.h"

#include "common/wide_text_buffer.h"

#include <windows.h>

// The runtime's own splitting of the command line.
extern "C" int __wgetmainargs(int* count, wchar_t*** arguments, wchar_t*** environment, int expandWildcards,
                              int* newMode);

namespace halyard::loader {

std::vector<std::string> Arguments(int count, char** narrow) {
    if (!TakesWideText()) return std::vector<std::string>(narrow + 1, narrow + count);
    wchar_t** wide = nullptr;
    wchar_t** environment = nullptr;
    int newMode = 0;
    __wgetmainargs(&count, &wide, &environment, 0, &newMode);
    std::vector<std::string> arguments;
    for (int index = 1; index < count; ++index)
        arguments.emplace_back(Narrow(wide[index]).Text());
    return arguments;
}

}  // namespace halyard::loader
