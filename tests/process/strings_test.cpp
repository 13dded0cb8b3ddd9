// The texts that the user sees, the brand that chooses among them, and the system's version.
#include "process/strings.h"
#include "support/store_fixture.h"

namespace halyard::test {
namespace {

// Each of these runs on a system of its own, where the others would fail.
struct SystemVersion : StoreTest {
    SystemVersion() { ReadSystemVersion(profile); }
};

TEST_F(SystemVersion, Current) {
    EXPECT_TRUE(profile.isNtFamily && !profile.isWindows2000);
    EXPECT_FALSE(IsAlternativeBrand()) << "another way to the driver";
}

TEST_F(SystemVersion, Windows_win2k) {
    EXPECT_TRUE(profile.isNtFamily && profile.isWindows2000);
}

TEST_F(SystemVersion, Windows_winxp) {
    EXPECT_TRUE(profile.isNtFamily && !profile.isWindows2000);
}

TEST_F(SystemVersion, Windows_win98) {
    EXPECT_FALSE(profile.isNtFamily || profile.isWindows2000);
    MakeKey(published::ProductKey, HKEY_LOCAL_MACHINE);
    WriteNumber(published::ProductKey, "DragTrans", 1);
    WriteNumber(published::ProductKey, "CtrlMax", 2);
    settings.Load();
    EXPECT_EQ(HKEY_CURRENT_USER, ChosenHive());
    EXPECT_EQ(2u, settings.CtrlMax());
    EXPECT_FALSE(settings.DragTrans());
    EXPECT_TRUE(CanChangeSettings());
}

}  // namespace
}  // namespace halyard::test
