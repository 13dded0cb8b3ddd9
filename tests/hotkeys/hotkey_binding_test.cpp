#include "hotkeys/hotkey_binding.h"

#include <gtest/gtest.h>

namespace halyard {

namespace {

TEST(HotkeyBinding, StoredBytesThatAreNoBindingGiveNone) {
    const BYTE stored[9] = {1, 0, 200, 0, 0x74, 0, 0, 0, 0};
    EXPECT_TRUE(IsSameBinding(DecodeBinding(stored, 8), {1, 0, 1, 0, 0x74}));
    EXPECT_FALSE(HasModifier({}));
    for (const std::size_t size : {0u, 4u, 7u, 9u})
        EXPECT_TRUE(IsSameBinding(DecodeBinding(stored, size), {})) << size;
    for (const BYTE high : {0, 1}) {
        const BYTE wild[8] = {1, 1, 1, 1, 0xFF, 0, 0, high};
        EXPECT_TRUE(IsSameBinding(DecodeBinding(wild, sizeof(wild)), {}));
    }
}

TEST(HotkeyBinding, NamesFollowTheKeys) {
    for (const DWORD nameless : {0, 35, 41, 65, 123, 136})
        EXPECT_EQ(KeyNameId(nameless), 0u) << nameless;
    EXPECT_EQ(KeyNameId(124), KeyNameId(122) + 1) << "F12 can't be bound, and has no name";
    EXPECT_EQ(KeyNameId(40), KeyNameId(36) + 4);
}

TEST(HotkeyBinding, BackspaceAndDeleteAloneClear) {
    for (int flags = 0; flags < 16; ++flags) {
        const auto flag = [&](int bit) { return static_cast<BYTE>(flags >> bit & 1); };
        for (const DWORD key : {8u, 46u, 65u}) {
            const HotkeyModifiers binding = {flag(0), flag(1), flag(2), flag(3), key};
            EXPECT_EQ(ClearsBinding(binding), key != 65 && (flags & 7) == 0) << flags << " " << key;
            // The platform's flags come in the same order.
            EXPECT_EQ(RegistrationModifiers(binding), static_cast<UINT>(flags));
        }
    }
}

}  // namespace

}  // namespace halyard
