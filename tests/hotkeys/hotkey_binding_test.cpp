#include "hotkeys/hotkey_binding.h"

#include <gtest/gtest.h>

namespace halyard {

namespace {

TEST(HotkeyBinding, StoredBytesThatAreNoBindingGiveNone) {
    const BYTE stored[9] = {1, 0, 200, 0, 0x74, 0, 0, 0, 0};
    EXPECT_TRUE(IsSameBinding(DecodeBinding(stored, 8), {1, 0, 1, 0, 0x74}));
    EXPECT_FALSE(HasModifier({}));
    EXPECT_EQ(RegistrationModifiers({1, 0, 0, 1, 65}), 9u);
    for (const std::size_t size : {0u, 4u, 7u, 9u})
        EXPECT_TRUE(IsSameBinding(DecodeBinding(stored, size), {})) << size;
    for (const BYTE high : {0, 1}) {
        const BYTE wild[8] = {1, 1, 1, 1, 0xFF, 0, 0, high};
        EXPECT_TRUE(IsSameBinding(DecodeBinding(wild, sizeof(wild)), {}));
    }
}

TEST(HotkeyBinding, BackspaceAndDeleteAloneClear) {
    for (const DWORD key : {8u, 46u}) {
        EXPECT_TRUE(ClearsBinding({0, 0, 0, 1, key}));
        for (const HotkeyModifiers& binding : {HotkeyModifiers{1, 0, 0, 0, key}, {0, 1, 0, 0, key}, {0, 0, 1, 0, key}})
            EXPECT_FALSE(ClearsBinding(binding));
    }
    EXPECT_FALSE(ClearsBinding({0, 0, 0, 0, 65}));
    for (const DWORD nameless : {0, 35, 41, 65, 123, 136})
        EXPECT_EQ(KeyNameId(nameless), 0u) << nameless;
}

}  // namespace

}  // namespace halyard
