// The settings and where they lie, whatever stands there.
#include "common/administrator.h"
#include "settings/registry_key.h"
#include "settings/settings.h"
#include "support/damaged_values.h"
#include "support/store_fixture.h"

#include <algorithm>

namespace halyard::test {
namespace {

using S = Settings;

struct Field {
    const char* name;
    bool isSwitch;  // anything but 0 reads as 1
    DWORD built;    // before the first read
    DWORD missing;  // the key opens, the value isn't there
    DWORD (*get)();
    void (*set)(DWORD);  // null for those that are stored at once

    DWORD AsRead(DWORD stored) const { return isSwitch && stored ? 1 : stored; }
};

template <auto Getter>
DWORD Get() {
    return static_cast<DWORD>((settings.*Getter)());
}
template <auto Setter>
void Set(DWORD value) {
    (settings.*Setter)(value);
}
template <auto Setter>
void Turn(DWORD value) {
    (settings.*Setter)(value != 0);
}

const Field Fields[] = {
    {"Autodock", true, 1, 0, Get<&S::Autodock>, Turn<&S::SetAutodock>},
    {"Run", true, 0, 0, Get<&S::Run>, nullptr},
    {"CtrlMax", false, 0, 0, Get<&S::CtrlMax>, Set<&S::SetCtrlMax>},
    {"DialogControl", false, 0, 0, Get<&S::DialogControl>,
     [](DWORD mode) { settings.SetDialogControl(mode, settings.DialogMonitor()); }},
    {"DialogMonitor", false, 1, 0, Get<&S::DialogMonitor>,
     [](DWORD display) { settings.SetDialogControl(settings.DialogControl(), display); }},
    {"MultiDesk", true, 0, 0, Get<&S::MultiDesk>, Turn<&S::StoreMultiDesk>},
    {"ExtendSysMenu", true, 1, 1, Get<&S::ExtendSysMenu>, Turn<&S::SetExtendSysMenu>},
    {"RunWizard", true, 0, 0, Get<&S::RunWizard>, nullptr},
    {"WindowMem", true, 0, 0, Get<&S::WindowMem>, Turn<&S::SetWindowMem>},
    {"DragTrans", true, 0, 0, Get<&S::DragTrans>, Turn<&S::SetDragTrans>},
    {"DragTransPerCent", false, 0, 75, Get<&S::DragTransPerCent>, Set<&S::SetDragTransPerCent>},
    {"TaskbarsEnable", true, 0, 0, Get<&S::TaskbarsEnable>, Turn<&S::SetTaskbarsEnable>},
    {"TaskbarsShowAllTasks", true, 0, 0, Get<&S::TaskbarsShowAllTasks>, Turn<&S::SetTaskbarsShowAllTasks>},
    {"TaskswitchMirrorEnable", true, 0, 0, Get<&S::TaskswitchMirrorEnable>, Turn<&S::SetTaskswitchMirrorEnable>},
};

void ReadAnew() {
    settings = Settings();
    settings.Load();
}

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
    {"machine key says 2", true, true, 2, HKEY_CURRENT_USER, HKEY_LOCAL_MACHINE},
    {"machine key says no", true, true, 0, HKEY_CURRENT_USER, HKEY_CURRENT_USER},
    {"machine key says no later", true, true, 0, HKEY_LOCAL_MACHINE, HKEY_CURRENT_USER},
    {"machine key gone later", true, false, {}, HKEY_LOCAL_MACHINE, HKEY_LOCAL_MACHINE},
    {"off the NT family later", false, true, 1, HKEY_LOCAL_MACHINE, HKEY_CURRENT_USER},
};

class SettingsTest : public StoreTest {};

TEST_F(SettingsTest, FallToTheirDefaultsAloneWhereTheyAreDamaged) {
    for (const Field& field : Fields)
        StoreDword(HKEY_CURRENT_USER, ProductPath(), field.name, 7);
    for (const Field& damaged : Fields) {
        WithEachDamage(ProductPath(), damaged.name, 7, [&] {
            ReadAnew();
            for (const Field& field : Fields)
                EXPECT_EQ(&field == &damaged ? field.missing : field.AsRead(7), field.get()) << field.name;
        });
    }
    WithEachDamage(ProductPath(), "Width_2", 5, [] { EXPECT_EQ(44u, ReadIndexedValue(2, "Width", 44)); });
    for (const char* name : {"Autodock", "WindowMem", "Excluded"})
        StoreDword(HKEY_CURRENT_USER, AppPath(), name, 1);
    WithEachDamage(AppPath(), "Autodock", 1, [] {
        ReadAnew();
        EXPECT_TRUE(!settings.AppAutodockSet() && settings.AppWindowMem() && IsExcluded());
    });
    WithEachDamage(AppPath(), "WindowMem", 1, [] {
        ReadAnew();
        EXPECT_TRUE(settings.AppAutodockSet() && settings.AppAutodock() && !settings.AppWindowMem());
    });
    WithEachDamage(AppPath(), "Excluded", 1, [] { EXPECT_FALSE(IsExcluded()); });
    for (const Damage& damage : NoNumbers) {
        Store(HKEY_LOCAL_MACHINE, ProductPath(), "Admin", damage.type, damage.bytes);
        ChooseHive();
        EXPECT_EQ(HKEY_LOCAL_MACHINE, ChosenHive()) << damage.what;
    }
}

TEST_F(SettingsTest, ComeBackAsTheyWereSaved) {
    for (const HKEY hive : {HKEY_CURRENT_USER, HKEY_LOCAL_MACHINE}) {
        MakeKey(hive, ProductPath());
        for (const DWORD value : {1u, 0u}) {
            settings.Load();
            Names saved;
            for (const Field& field : Fields) {
                if (!field.set) continue;
                field.set(value);
                saved.push_back(field.name);
            }
            std::sort(saved.begin(), saved.end());
            settings.Save();
            EXPECT_EQ(saved, ValueNames(hive, ProductPath())) << "Run, RunWizard and Admin are not of them";
            ReadAnew();
            for (const Field& field : Fields) {
                if (!field.set) continue;
                EXPECT_EQ(value, field.get()) << field.name;
                EXPECT_EQ(value, StoredDword(hive, ProductPath(), field.name)) << field.name;
            }
        }
    }
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
        EXPECT_EQ(test.expected, CanChangeSettings()) << test.ntFamily << test.machine << test.administrator;
    }
}

TEST_F(SettingsTest, HaveValuesOfTheProgramBesideThemInTheUsersHive) {
    UseMachineHive();
    settings.Load();
    settings.SetAutodock(true);
    EXPECT_TRUE(settings.EffectiveAutodock());
    settings.SetAppAutodock(false);
    settings.Save();
    EXPECT_FALSE(settings.EffectiveAutodock());
    EXPECT_FALSE(KeyExists(HKEY_CURRENT_USER, AppPath())) << "docking alone makes no key";

    settings.SetAppWindowMem(true);
    EXPECT_EQ(1u, StoredDword(HKEY_CURRENT_USER, AppPath(), "WindowMem"));
    EXPECT_EQ(Names{}, Subkeys(HKEY_LOCAL_MACHINE, ProductPath()));
    EXPECT_FALSE(settings.RemembersWindows()) << "it isn't offered";
    settings.SetWindowMem(true);
    EXPECT_TRUE(settings.RemembersWindows());
    settings.Save();
    EXPECT_EQ(0u, StoredDword(HKEY_CURRENT_USER, AppPath(), "Autodock"));
    settings.SetAppAutodock(true);
    EXPECT_EQ(1u, StoredDword(HKEY_CURRENT_USER, AppPath(), "Autodock"));

    ReadAnew();
    EXPECT_TRUE(settings.AppAutodockSet() && settings.AppAutodock() && settings.AppWindowMem());
    profile.isServerProcess = true;
    ReadAnew();
    EXPECT_FALSE(settings.AppAutodockSet() || settings.AppWindowMem()) << "they aren't the server's";
    profile.isServerProcess = false;
    settings.Load();
    DeleteTree(HKEY_CURRENT_USER, AppPath());
    settings.Load();
    EXPECT_FALSE(settings.AppAutodockSet() || settings.AppWindowMem());
}

}  // namespace
}  // namespace halyard::test
