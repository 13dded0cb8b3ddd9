#include "hotkeys/hotkey_binding.h"

#include <gtest/gtest.h>
#include <random>

namespace halyard {

namespace {

TEST(HotkeyBinding, StoredBytesThatAreNoBindingGiveNone) {
    const BYTE good[8] = {1, 0, 200, 0, 0x74, 0, 0, 0};
    const HotkeyModifiers binding = DecodeBinding(good, sizeof(good));
    EXPECT_TRUE(IsSameBinding(binding, {1, 0, 1, 0, 0x74}));
    const BYTE wild[8] = {1, 1, 1, 1, 0xFF, 0, 0, 0};
    for (std::size_t size = 0; size <= sizeof(wild); ++size)
        EXPECT_TRUE(IsSameBinding(DecodeBinding(wild, size), {})) << size;
    std::mt19937 random(7);
    for (int round = 0; round < 20000; ++round) {
        BYTE bytes[12];
        for (BYTE& byte : bytes)
            byte = static_cast<BYTE>(random() % 3 ? random() : 0);
        const HotkeyModifiers read = DecodeBinding(bytes, random() % 2 ? 8 : random() % 13);
        ASSERT_LE(read.key, 254u);
        ASSERT_LE(read.alt | read.ctrl | read.shift | read.win, 1);
    }
}

TEST(HotkeyBinding, KeysGoByTheirNames) {
    struct Row {
        DWORD key;
        unsigned id;
    };
    constexpr Row Rows[] = {{13, 2033},  {19, 2034},  {32, 2035}, {36, 2036},  {37, 2037},  {38, 2038},  {39, 2039},
                            {40, 2040},  {45, 2041},  {46, 2042}, {112, 2043}, {121, 2052}, {122, 2053}, {123, 0},
                            {124, 2054}, {135, 2065}, {136, 0},   {65, 0},     {35, 0},     {41, 0},     {0, 0}};
    for (const Row& row : Rows)
        EXPECT_EQ(KeyNameId(row.key), row.id) << row.key;
}

TEST(HotkeyBinding, BackspaceAndDeleteAloneClear) {
    for (int flags = 0; flags < 16; ++flags) {
        const auto flag = [&](int bit) { return static_cast<BYTE>(flags >> bit & 1); };
        for (const DWORD key : {8u, 46u, 65u}) {
            const HotkeyModifiers binding = {flag(0), flag(1), flag(2), flag(3), key};
            EXPECT_EQ(ClearsBinding(binding), key != 65 && (flags & 7) == 0) << flags << " " << key;
            EXPECT_EQ(HasModifier(binding), flags != 0);
            // MOD_ALT 1, MOD_CONTROL 2, MOD_SHIFT 4, MOD_WIN 8 come in the order of the flags.
            EXPECT_EQ(RegistrationModifiers(binding), static_cast<UINT>(flags));
        }
    }
}

}  // namespace

}  // namespace halyard
