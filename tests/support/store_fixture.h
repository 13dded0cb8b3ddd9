// The store on an empty registry.
#pragma once

#include "settings/store.h"
#include "support/kept_state.h"
#include "support/registry_access.h"

#include <gtest/gtest.h>

namespace halyard::test {

// No product key in either hive, the user's hive chosen, a process of the NT family that isn't the server.
class StoreTest : public testing::Test {
protected:
    StoreTest() { Clear(); }
    ~StoreTest() override { Clear(); }

    static void UseMachineHive() {
        MakeKey(HKEY_LOCAL_MACHINE, ProductPath());
        ChooseHive();
        ASSERT_EQ(HKEY_LOCAL_MACHINE, ChosenHive());
    }

    KeptState kept;

private:
    static void Clear() {
        DeleteTree(HKEY_CURRENT_USER, "Software\\Tevral, Inc.");
        DeleteTree(HKEY_LOCAL_MACHINE, "Software\\Tevral, Inc.");
        settings = Settings();
        profile.moduleInstance = GetModuleHandleA(nullptr);
        profile.isServerProcess = false;
        // Outside the NT family the choice falls back.
        profile.isNtFamily = false;
        ChooseHive();
        profile.isNtFamily = true;
    }
};

}  // namespace halyard::test
