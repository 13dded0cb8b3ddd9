// The settings and where they lie.
#include "process/registry_key.h"
#include "settings_fields.h"
#include "store_fixture.h"

namespace halyard::test {
namespace {

struct HiveCase {
    const char* what;
    bool ntFamily;
    bool machineKey;
    std::optional<DWORD> admin;
    HKEY before;
    HKEY expected;
};

const HiveCase HiveCases[] = {
    {"no machine key", true, false, {}, HKEY_CURRENT_USER, HKEY_CURRENT_USER},
    {"machine key alone", true, true, {}, HKEY_CURRENT_USER, HKEY_LOCAL_MACHINE},
    {"machine key says yes", true, true, 1, HKEY_CURRENT_USER, HKEY_LOCAL_MACHINE},
    {"machine key says 2", true, true, 2, HKEY_CURRENT_USER, HKEY_LOCAL_MACHINE},
    {"machine key says no", true, true, 0, HKEY_CURRENT_USER, HKEY_CURRENT_USER},
    {"machine key says no later", true, true, 0, HKEY_LOCAL_MACHINE, HKEY_CURRENT_USER},
    {"machine key gone later", true, false, {}, HKEY_LOCAL_MACHINE, HKEY_LOCAL_MACHINE},
    {"off the NT family", false, true, 1, HKEY_CURRENT_USER, HKEY_CURRENT_USER},
    {"off the NT family later", false, true, 1, HKEY_LOCAL_MACHINE, HKEY_CURRENT_USER},
};

class SettingsTest : public StoreTest {};

TEST_F(SettingsTest, TheHiveIsChosenByTheMachinesKey) {
    for (const HiveCase& test : HiveCases) {
        SCOPED_TRACE(test.what);
        profile.isNtFamily = test.before == HKEY_LOCAL_MACHINE;
        MakeKey(HKEY_LOCAL_MACHINE, ProductPath());
        ChooseHive();
        ASSERT_EQ(test.before, ChosenHive());
        if (!test.machineKey) DeleteTree(HKEY_LOCAL_MACHINE, "Software\\Tevral, Inc.");
        if (test.admin) StoreDword(HKEY_LOCAL_MACHINE, ProductPath(), "Admin", *test.admin);
        profile.isNtFamily = test.ntFamily;
        // Reading the settings makes the choice anew.
        settings.Load();
        EXPECT_EQ(test.expected, ChosenHive());
        DeleteTree(HKEY_LOCAL_MACHINE, "Software\\Tevral, Inc.");
    }
}

TEST_F(SettingsTest, HaveTheValuesThatTheyWereBuiltWithWhileThereIsNoKey) {
    // Reading the program's own values would make the key.
    profile.isServerProcess = true;
    for (int load = 0; load < 2; ++load) {
        for (const Field& field : Fields)
            EXPECT_EQ(field.built, field.get(settings)) << field.name << " after " << load << " reads";
        EXPECT_FALSE(settings.AppAutodock() || settings.AppAutodockSet() || settings.AppWindowMem());
        settings.Load();
    }
}

TEST_F(SettingsTest, TakeEachValueAloneAndTheDefaultsOfTheOthers) {
    for (const HKEY hive : {HKEY_CURRENT_USER, HKEY_LOCAL_MACHINE}) {
        MakeKey(hive, ProductPath());
        for (const Field& field : Fields) {
            for (const DWORD stored : {0u, 1u, 2u, 3000000000u}) {
                StoreDword(hive, ProductPath(), field.name, stored);
                settings = Settings();
                settings.Load();
                for (const Field& other : Fields)
                    EXPECT_EQ(&other == &field ? field.AsRead(stored) : other.missing, other.get(settings))
                        << other.name << " with " << field.name << " = " << stored;
            }
            RegistryKey key;
            key.Open(hive, ProductPath().c_str(), KEY_ALL_ACCESS);
            RegDeleteValueA(key.get(), field.name);
        }
    }
}

TEST_F(SettingsTest, KeepWhatWasReadWhenTheKeyIsGone) {
    profile.isServerProcess = true;
    for (const Field& field : Fields)
        StoreDword(HKEY_CURRENT_USER, ProductPath(), field.name, 2);
    settings.Load();
    DeleteTree(HKEY_CURRENT_USER, "Software\\Tevral, Inc.");
    settings.Load();
    for (const Field& field : Fields)
        EXPECT_EQ(field.AsRead(2), field.get(settings)) << field.name;
}

TEST_F(SettingsTest, ComeBackAsTheyWereSaved) {
    for (const HKEY hive : {HKEY_CURRENT_USER, HKEY_LOCAL_MACHINE}) {
        MakeKey(hive, ProductPath());
        for (const DWORD value : {1u, 0u}) {
            settings.Load();
            Names saved;
            for (const Field& field : Fields) {
                if (!field.set) continue;
                field.set(settings, value);
                saved.push_back(field.name);
            }
            std::sort(saved.begin(), saved.end());
            settings.Save();
            EXPECT_EQ(saved, ValueNames(hive, ProductPath())) << "Run, RunWizard and Admin are not of them";
            settings = Settings();
            settings.Load();
            for (const Field& field : Fields) {
                if (!field.set) continue;
                EXPECT_EQ(value, field.get(settings)) << field.name;
                EXPECT_EQ(value, StoredDword(hive, ProductPath(), field.name)) << field.name;
            }
        }
    }
}

TEST_F(SettingsTest, StoreTheSwitchesOfTheirOwnAtOnce) {
    MakeKey(HKEY_CURRENT_USER, ProductPath());
    const auto stored = [](const char* name) { return StoredDword(HKEY_CURRENT_USER, ProductPath(), name); };
    for (const bool on : {true, false}) {
        settings.SetRun(on);
        settings.SetRunWizard(on);
        settings.StoreMultiDesk(on);
        settings.SaveMultiDesk(nullptr);
        for (const char* name : {"Run", "RunWizard", "MultiDesk"})
            EXPECT_EQ(on ? 1u : 0u, stored(name)) << name;
        EXPECT_EQ(on, settings.Run() && settings.RunWizard() && settings.MultiDesk());
    }
    EXPECT_EQ((Names{"MultiDesk", "Run", "RunWizard"}), ValueNames(HKEY_CURRENT_USER, ProductPath()));
    RegistryKey other;
    other.Create(HKEY_CURRENT_USER, ProductPath("Other").c_str());
    settings.StoreMultiDesk(true);
    settings.SaveMultiDesk(&other);
    EXPECT_EQ(1u, StoredDword(HKEY_CURRENT_USER, ProductPath("Other"), "MultiDesk"));
    EXPECT_EQ(0u, stored("MultiDesk"));
}

TEST_F(SettingsTest, HaveNoTransparencyOutsideTheNtFamily) {
    StoreDword(HKEY_CURRENT_USER, ProductPath(), "DragTrans", 1);
    profile.isNtFamily = false;
    settings.Load();
    EXPECT_FALSE(settings.DragTrans());
    settings.Save();
    EXPECT_EQ(0u, StoredDword(HKEY_CURRENT_USER, ProductPath(), "DragTrans"));
}

TEST_F(SettingsTest, ChangeInMemoryOnlyWhereTheMachinesKeyCannotBeWritten) {
    UseMachineHive();
    StoreDword(HKEY_LOCAL_MACHINE, ProductPath(), "CtrlMax", 2);
    StoreDword(HKEY_LOCAL_MACHINE, ProductPath(), "Task_1", 5);
    const Names before = ValueNames(HKEY_LOCAL_MACHINE, ProductPath());
    Restrict(HKEY_LOCAL_MACHINE, ProductPath(), KEY_READ);
    settings.Load();
    EXPECT_EQ(2u, settings.CtrlMax());
    settings.SetCtrlMax(1);
    settings.SetRun(true);
    settings.SetRunWizard(true);
    settings.SaveMultiDesk(nullptr);
    settings.Save();
    WriteIndexedValue(2, "Task", 7);
    EXPECT_TRUE(settings.Run() && settings.RunWizard());
    EXPECT_EQ(1u, settings.CtrlMax());
    EXPECT_EQ(2u, StoredDword(HKEY_LOCAL_MACHINE, ProductPath(), "CtrlMax"));
    EXPECT_EQ(before, ValueNames(HKEY_LOCAL_MACHINE, ProductPath()));
    EXPECT_EQ(9u, ReadIndexedValue(1, "Task", 9)) << "opened for writing too";
    // A key that can't be had leaves the object as it was.
    RegistryKey key;
    key.Create(HKEY_CURRENT_USER, ProductPath("Mine").c_str());
    HKEY mine = key.get();
    OpenDesktopsKey(key);
    OpenHotkeysKey(key);
    EXPECT_EQ(mine, key.get());
}

TEST_F(SettingsTest, OnlyAdministratorsChangeThoseOfTheMachine) {
    struct {
        bool ntFamily;
        bool machine;
        bool administrator;
        bool expected;
    } const cases[] = {
        {true, false, true, true},  {true, false, false, true}, {true, true, true, true},
        {true, true, false, false}, {false, true, false, true},
    };
    for (const auto& test : cases) {
        profile.isNtFamily = true;
        if (test.machine) UseMachineHive();
        profile.isNtFamily = test.ntFamily;
        std::optional<AsOrdinaryUser> lesser;
        if (!test.administrator) lesser.emplace();
        EXPECT_EQ(test.administrator, IsUserAdministrator());
        EXPECT_EQ(test.expected, CanChangeSettings())
            << test.ntFamily << test.machine << test.administrator << " (NT family, machine-wide, administrator)";
    }
}

TEST_F(SettingsTest, HaveValuesOfTheProgramBesideThem) {
    MakeKey(HKEY_CURRENT_USER, ProductPath());
    settings.Load();
    settings.SetAutodock(true);
    EXPECT_TRUE(settings.EffectiveAutodock());
    settings.SetAppAutodock(false);
    EXPECT_FALSE(settings.EffectiveAutodock());
    EXPECT_FALSE(KeyExists(HKEY_CURRENT_USER, AppPath())) << "docking alone makes no key";
    settings.Save();
    EXPECT_FALSE(KeyExists(HKEY_CURRENT_USER, AppPath())) << "nor does saving";

    settings.SetAppWindowMem(true);
    EXPECT_EQ(1u, StoredDword(HKEY_CURRENT_USER, AppPath(), "WindowMem"));
    EXPECT_FALSE(settings.RemembersWindows()) << "it isn't offered";
    settings.SetWindowMem(true);
    EXPECT_TRUE(settings.RemembersWindows());
    settings.Save();
    EXPECT_EQ(0u, StoredDword(HKEY_CURRENT_USER, AppPath(), "Autodock"));
    settings.SetAppAutodock(true);
    EXPECT_EQ(1u, StoredDword(HKEY_CURRENT_USER, AppPath(), "Autodock"));

    settings = Settings();
    settings.Load();
    EXPECT_TRUE(settings.AppAutodockSet() && settings.AppAutodock() && settings.AppWindowMem());
    DeleteTree(HKEY_CURRENT_USER, AppPath());
    settings.Load();
    EXPECT_FALSE(settings.AppAutodockSet() || settings.AppWindowMem());
    EXPECT_TRUE(settings.AppAutodock()) << "it stays as it was";
}

TEST_F(SettingsTest, OfTheServerTakeNoValuesOfTheProgram) {
    MakeKey(HKEY_CURRENT_USER, ProductPath());
    settings.SetAppWindowMem(true);
    settings.SetAppAutodock(true);
    StoreDword(HKEY_CURRENT_USER, AppPath(), "Autodock", 0);
    StoreDword(HKEY_CURRENT_USER, AppPath(), "WindowMem", 0);
    StoreDword(HKEY_CURRENT_USER, ProductPath(), "Autodock", 0);
    profile.isServerProcess = true;
    settings.Load();
    EXPECT_FALSE(settings.AppAutodockSet() || settings.EffectiveAutodock());
    EXPECT_TRUE(settings.AppAutodock() && settings.AppWindowMem());
    settings.Save();
    EXPECT_EQ(0u, StoredDword(HKEY_CURRENT_USER, AppPath(), "WindowMem"));
}

TEST_F(SettingsTest, OfTheProgramLieInTheUsersHiveAlways) {
    UseMachineHive();
    settings.SetAppWindowMem(true);
    SetExcluded();
    EXPECT_EQ(1u, StoredDword(HKEY_CURRENT_USER, AppPath(), "WindowMem"));
    EXPECT_EQ(Names{}, Subkeys(HKEY_LOCAL_MACHINE, ProductPath()));
    EXPECT_EQ(std::string::npos, std::string(AppKeyName()).find('\\'));
    EXPECT_NE(std::string::npos, std::string(AppKeyName()).find("/store_test.exe")) << AppKeyName();
}

TEST_F(SettingsTest, AProgramIsExcludedByAValueThatIsNotZero) {
    EXPECT_FALSE(IsExcluded());
    EXPECT_FALSE(KeyExists(HKEY_CURRENT_USER, AppPath()));
    SetExcluded();
    EXPECT_EQ(1u, StoredDword(HKEY_CURRENT_USER, AppPath(), "Excluded"));
    EXPECT_TRUE(IsExcluded());
    for (const auto& [value, expected] : {std::pair(0u, false), std::pair(7u, true)}) {
        StoreDword(HKEY_CURRENT_USER, AppPath(), "Excluded", value);
        EXPECT_EQ(expected, IsExcluded()) << value;
    }
}

TEST_F(SettingsTest, ValuesOfADisplayCarryItsNumberInHexadecimal) {
    EXPECT_EQ(33u, ReadIndexedValue(1, "Width", 33)) << "no key";
    WriteIndexedValue(1, "Width", 5);
    EXPECT_FALSE(KeyExists(HKEY_CURRENT_USER, ProductPath()));
    MakeKey(HKEY_CURRENT_USER, ProductPath());
    for (const auto& [index, name] :
         {std::pair(0u, "Width_0"), {10u, "Width_A"}, {255u, "Width_FF"}, {0xFFFFFFFFu, "Width_FFFFFFFF"}}) {
        EXPECT_EQ(33u, ReadIndexedValue(index, "Width", 33)) << name;
        WriteIndexedValue(index, "Width", index + 3);
        EXPECT_EQ(index + 3, StoredDword(HKEY_CURRENT_USER, ProductPath(), name)) << name;
        EXPECT_EQ(index + 3, ReadIndexedValue(index, "Width", 33)) << name;
    }
}

}  // namespace
}  // namespace halyard::test
