// The settings and where they lie, whatever stands there.
#include "settings/settings.h"

#include "support/store_fixture.h"

#include <functional>

namespace halyard::test {
namespace {

const std::string Product = published::ProductKey;

std::string Own() {
    return Product + "\\AppMem\\" + AppKeyName();
}

void ReadAnew() {
    settings = Settings();
    settings.Load();
}

using SettingsTest = StoreTest;

TEST_F(SettingsTest, FallToTheirDefaultsAloneWhereTheyAreDamaged) {
    MakeKey(Product);
    ReadAnew();
    EXPECT_TRUE(settings.ExtendSysMenu() && settings.DragTransPerCent() == 75);
    EXPECT_FALSE(settings.CtrlMax() || settings.DialogControl() || settings.Autodock() || settings.MultiDesk() ||
                 settings.WindowMem() || settings.DragTrans() || settings.TaskbarsEnable());
    const std::pair<DWORD, std::string> damages[] = {{REG_SZ, std::string("1", 2)},
                                                     {REG_BINARY, std::string("\1\0\0\0", 4)},
                                                     {REG_DWORD, std::string("\1\0", 2)},
                                                     {REG_DWORD, std::string("\1\0\0\0\0", 5)},
                                                     {REG_DWORD, std::string(5000, '\1')}};
    const struct {
        std::string key;
        const char* value;
        std::function<bool()> isDefault;
    } values[] = {
        {Product, "DragTransPerCent", [] { return settings.DragTransPerCent() == 75; }},
        {Product, "Autodock", [] { return !settings.Autodock() && settings.DragTransPerCent() == 1; }},
        {Product, "Width_2", [] { return ReadIndexedValue(2, "Width", 44) == 44; }},
        {Own(), "Excluded", [] { return !IsExcluded(); }},
    };
    for (const auto& [key, value, isDefault] : values)
        WriteNumber(key, value, 1);
    for (const auto& [type, bytes] : damages) {
        for (const auto& [key, value, isDefault] : values) {
            ReadAnew();
            EXPECT_FALSE(isDefault()) << value;
            Store(key, value, type, bytes);
            ReadAnew();
            EXPECT_TRUE(isDefault()) << value << " of " << bytes.size() << " bytes";
            WriteNumber(key, value, 1);
        }
        Store(Product, "Admin", type, bytes, HKEY_LOCAL_MACHINE);
        ChooseHive();
        DeleteKey(Product, HKEY_LOCAL_MACHINE);
        ChooseHive();
        EXPECT_EQ(HKEY_LOCAL_MACHINE, ChosenHive()) << "kept while programs run";
        WriteNumber(Product, "Admin", 0, HKEY_LOCAL_MACHINE);
        ChooseHive();
        EXPECT_EQ(HKEY_CURRENT_USER, ChosenHive());
        DeleteKey(Product, HKEY_LOCAL_MACHINE);
    }
}

TEST_F(SettingsTest, HaveValuesOfTheProgramBesideThemInTheUsersHive) {
    UseMachineHive();
    settings.Load();
    settings.SetAutodock(true);
    settings.SetCtrlMax(2);
    settings.SetAppAutodock(false);
    settings.Save();
    EXPECT_EQ(12u, NamesIn(Product, HKEY_LOCAL_MACHINE).size()) << "Run, RunWizard and Admin are not of them";
    EXPECT_EQ(2u, NumberOr(Product, "CtrlMax", 9, HKEY_LOCAL_MACHINE));
    EXPECT_FALSE(settings.EffectiveAutodock());
    EXPECT_EQ(Names{}, NamesIn(Product)) << "docking alone makes no key";

    settings.SetAppWindowMem(true);
    EXPECT_FALSE(settings.RemembersWindows()) << "it isn't offered";
    settings.SetWindowMem(true);
    EXPECT_TRUE(settings.RemembersWindows());
    settings.Save();
    EXPECT_EQ(0u, NumberOr(Own(), "Autodock", 9));
    settings.SetAppAutodock(true);
    EXPECT_EQ(1u, NumberOr(Own(), "Autodock", 9));
    for (const bool server : {false, true}) {
        profile.isServerProcess = server;
        ReadAnew();
        EXPECT_EQ(!server, settings.AppAutodockSet() && settings.AppAutodock() && settings.AppWindowMem());
    }
}

}  // namespace
}  // namespace halyard::test
