#include "desktops/desktop_rules.h"

namespace halyard {

unsigned DesktopIdOfKey(const char* name) noexcept {
    constexpr unsigned Limit = 0x40000000;
    unsigned id = 0;
    if (*name == '0') return 0;
    for (; *name; ++name) {
        if (*name < '0' || *name > '9') return 0;
        const auto digit = static_cast<unsigned>(*name - '0');
        if (id > (Limit - 1 - digit) / 10) return 0;
        id = id * 10 + digit;
    }
    return id;
}

}  // namespace halyard
