// The process-wide objects of the library as a test found them, and the store on an empty registry.
#pragma once

#include "process/profile.h"
#include "process/shared_section.h"
#include "settings/settings.h"
#include "settings/store.h"
#include "support/published.h"
#include "support/registry.h"

#include <cstring>
#include <gtest/gtest.h>

namespace halyard::test {

// Puts profile, settings and shared block back when it goes.
struct KeptState {
    KeptState() { std::memcpy(&keptBlock, Block(), sizeof(keptBlock)); }
    KeptState(const KeptState&) = delete;
    ~KeptState() {
        profile = keptProfile;
        settings = keptSettings;
        std::memcpy(Block(), &keptBlock, sizeof(keptBlock));
    }
    static void* Block() { return const_cast<SharedBlock*>(&sharedBlock); }

    const Profile keptProfile = profile;
    const Settings keptSettings = settings;
    SharedBlock keptBlock;
};

// No product key in either hive, the user's hive chosen, a process of the NT family that isn't the server.
struct StoreTest : testing::Test {
    StoreTest() { Clear(); }
    ~StoreTest() override { Clear(); }

    static void Clear() {
        for (const HKEY hive : {HKEY_CURRENT_USER, HKEY_LOCAL_MACHINE})
            DeleteKey("Software\\Tevral, Inc.", hive);
        settings = Settings();
        profile.moduleInstance = GetModuleHandleA(nullptr);
        profile.isServerProcess = false;
        // Outside the NT family the choice falls back.
        profile.isNtFamily = false;
        ChooseHive();
        profile.isNtFamily = true;
    }
    static void UseMachineHive() {
        MakeKey(published::ProductKey, HKEY_LOCAL_MACHINE);
        ChooseHive();
        ASSERT_EQ(HKEY_LOCAL_MACHINE, ChosenHive());
    }

    KeptState kept;
};

}  // namespace halyard::test
