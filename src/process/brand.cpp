#include "common/handles.h"
#include "process/strings.h"
#include "settings/registry_key.h"

#include <cstring>

namespace halyard {

namespace {

// Driver escapes, and the identifier by which a driver names the other brand.
constexpr int CustomValueEscape = 6015;
constexpr int RegistryPathEscape = 10007;
constexpr DWORD AlternativeBrandId = 8;

bool brandKnown = false;
bool brandIsAlternative = false;

bool IsNtPlatform() noexcept {
    OSVERSIONINFOA version = {};
    version.dwOSVersionInfoSize = sizeof(version);
    GetVersionExA(&version);
    return version.dwPlatformId == VER_PLATFORM_WIN32_NT;
}

DWORD AskNtDriver(HDC screen) noexcept {
    const int escape = CustomValueEscape;
    if (!ExtEscape(screen, QUERYESCSUPPORT, sizeof(escape), reinterpret_cast<const char*>(&escape), 0, nullptr))
        return 0;
    // The driver's interface is five machine words, the first of them a pointer.
    const ULONG_PTR request[5] = {reinterpret_cast<ULONG_PTR>(L"CustomID"), 0, 0, 0, 0};
    DWORD identifier = 0;
    ExtEscape(screen, CustomValueEscape, sizeof(request), reinterpret_cast<const char*>(request), sizeof(identifier),
              reinterpret_cast<char*>(&identifier));
    return identifier;
}

DWORD Ask9xDriver(HDC screen) noexcept {
    char buffer[512] = {};
    const DWORD request[2] = {sizeof(buffer), 1};
    std::memcpy(buffer, request, sizeof(request));
    if (!ExtEscape(screen, RegistryPathEscape, sizeof(request), buffer, sizeof(buffer), buffer)) return 0;
    buffer[sizeof(buffer) - 1] = 0;
    RegistryKey key;
    return key.Open(HKEY_LOCAL_MACHINE, buffer, KEY_READ) ? key.ReadDwordOr("CustomID", 0) : 0;
}

}  // namespace

bool IsAlternativeBrand() noexcept {
    if (brandKnown) return brandIsAlternative;
    brandKnown = true;
    const ScreenDc screen;
    const DWORD identifier = IsNtPlatform() ? AskNtDriver(screen.get()) : Ask9xDriver(screen.get());
    brandIsAlternative = identifier == AlternativeBrandId;
    return brandIsAlternative;
}

}  // namespace halyard
