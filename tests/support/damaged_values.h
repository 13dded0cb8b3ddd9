// Values of the registry that aren't what they should be.
#pragma once

#include "support/registry_access.h"

#include <gtest/gtest.h>

namespace halyard::test {

struct Damage {
    const char* what;
    DWORD type;
    Bytes bytes;
};

inline const Damage NoNumbers[] = {
    {"text", REG_SZ, Bytes("1", 2)},
    {"unclosed text", REG_SZ, "1234"},
    {"bytes of the right size", REG_BINARY, Bytes("\1\0\0\0", 4)},
    {"the other byte order", REG_DWORD_BIG_ENDIAN, Bytes("\0\0\0\1", 4)},
    {"a long number", REG_QWORD, Bytes("\1\0\0\0\0\0\0\0", 8)},
    {"nothing", REG_DWORD, ""},
    {"half a number", REG_DWORD, Bytes("\1\0", 2)},
    {"more than a number", REG_DWORD, Bytes("\1\0\0\0\0", 5)},
    {"much more than a number", REG_DWORD, Bytes(5000, '\1')},
};

// Calls `check` with the user's value damaged in each way, and leaves a good one behind.
template <typename Check>
void WithEachDamage(const std::string& path, const char* name, DWORD good, Check check) {
    for (const Damage& damage : NoNumbers) {
        SCOPED_TRACE(std::string(name) + ": " + damage.what);
        Store(HKEY_CURRENT_USER, path, name, damage.type, damage.bytes);
        check();
    }
    StoreDword(HKEY_CURRENT_USER, path, name, good);
}

}  // namespace halyard::test
