// The process-wide objects of the library, as a test found them.
#pragma once

#include "process/profile.h"
#include "process/shared_section.h"
#include "settings/settings.h"

#include <cstring>

namespace halyard::test {

// Puts profile, settings and shared block back when it goes.
class KeptState {
public:
    KeptState() : keptProfile(profile), keptSettings(settings) { std::memcpy(&keptBlock, Block(), sizeof(keptBlock)); }
    KeptState(const KeptState&) = delete;
    KeptState& operator=(const KeptState&) = delete;
    ~KeptState() {
        profile = keptProfile;
        settings = keptSettings;
        std::memcpy(Block(), &keptBlock, sizeof(keptBlock));
    }

private:
    static void* Block() { return const_cast<SharedBlock*>(&sharedBlock); }

    Profile keptProfile;
    Settings keptSettings;
    SharedBlock keptBlock;
};

}  // namespace halyard::test
