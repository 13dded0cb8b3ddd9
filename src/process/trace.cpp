#include "process/trace.h"

#ifndef NDEBUG

#include "process/profile.h"
#include "settings/registry_key.h"

#include <cstdarg>
#include <cstring>

namespace halyard {

namespace {

// Asked once: a change is seen by programs that start after it.
bool IsTracing() noexcept {
    static const bool tracing = [] {
        RegistryKey key;
        return key.Open(HKEY_CURRENT_USER, ProductKey, KEY_READ) && key.ReadBool("Trace", false);
    }();
    return tracing;
}

}  // namespace

void Trace(const char* function, const char* format, ...) noexcept {
    if (!IsTracing()) return;
    const ModulePath path(nullptr);
    // The platform's formatting writes 1024 characters at most.
    char line[2048];
    int length = wsprintfA(line, "halyard: %.64s thread %u %.64s: ", path.FileName(),
                           static_cast<unsigned>(GetCurrentThreadId()), function);
    va_list arguments;
    va_start(arguments, format);
    length += wvsprintfA(line + length, format, arguments);
    va_end(arguments);
    std::strcpy(line + length, "\n");
    OutputDebugStringA(line);
}

}  // namespace halyard

#endif
