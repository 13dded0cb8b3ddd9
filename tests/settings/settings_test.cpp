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

// All that `Save` writes, as one text.
std::string Saved() {
    const Settings& s = settings;
    std::string text;
    for (const DWORD value :
         {s.CtrlMax(), s.DialogControl(), s.DialogMonitor(), s.DragTransPerCent(), DWORD{s.Autodock()},
          DWORD{s.MultiDesk()}, DWORD{s.ExtendSysMenu()}, DWORD{s.WindowMem()}, DWORD{s.DragTrans()},
          DWORD{s.TaskbarsEnable()}, DWORD{s.TaskbarsShowAllTasks()}, DWORD{s.TaskswitchMirrorEnable()}})
        text += std::to_string(value) + " ";
    return text;
}

using SettingsTest = StoreTest;

TEST_F(SettingsTest, FallToTheirDefaultsAloneWhereTheyAreDamaged) {
    MakeKey(Product);
    ReadAnew();
    EXPECT_EQ(Saved(), "0 0 0 75 0 0 1 0 0 0 0 0 ");
    const struct {
        const char* what;
        DWORD type;
        std::string bytes;
    } damages[] = {
        {"text", REG_SZ, std::string("1", 2)},
        {"bytes of the right size", REG_BINARY, std::string("\1\0\0\0", 4)},
        {"nothing", REG_DWORD, ""},
        {"half a number", REG_DWORD, std::string("\1\0", 2)},
        {"more than a number", REG_DWORD, std::string("\1\0\0\0\0", 5)},
        {"much more than a number", REG_DWORD, std::string(5000, '\1')},
    };
    const struct {
        std::string key;
        const char* value;
        std::function<bool()> isDefault;
    } values[] = {
        {Product, "DragTransPerCent", [] { return settings.DragTransPerCent() == 75; }},
        {Product, "Autodock", [] { return !settings.Autodock() && settings.DragTransPerCent() == 1; }},
        {Product, "Width_2", [] { return ReadIndexedValue(2, "Width", 44) == 44; }},
        {Own(), "Autodock", [] { return !settings.AppAutodockSet(); }},
        {Own(), "Excluded", [] { return !IsExcluded(); }},
    };
    for (const auto& [key, value, isDefault] : values)
        WriteNumber(key, value, 1);
    for (const auto& [what, type, bytes] : damages) {
        for (const auto& [key, value, isDefault] : values) {
            ReadAnew();
            EXPECT_FALSE(isDefault()) << value;
            Store(key, value, type, bytes);
            ReadAnew();
            EXPECT_TRUE(isDefault()) << value << ": " << what;
            WriteNumber(key, value, 1);
        }
        Store(Product, "Admin", type, bytes, HKEY_LOCAL_MACHINE);
        ChooseHive();
        EXPECT_EQ(HKEY_LOCAL_MACHINE, ChosenHive()) << what;
        DeleteKey(Product, HKEY_LOCAL_MACHINE);
        ChooseHive();
        EXPECT_EQ(HKEY_LOCAL_MACHINE, ChosenHive()) << "kept while programs run";
        WriteNumber(Product, "Admin", 0, HKEY_LOCAL_MACHINE);
        ChooseHive();
        EXPECT_EQ(HKEY_CURRENT_USER, ChosenHive());
        DeleteKey(Product, HKEY_LOCAL_MACHINE);
    }
}

TEST_F(SettingsTest, ComeBackAsTheyWereSaved) {
    for (const HKEY hive : {HKEY_CURRENT_USER, HKEY_LOCAL_MACHINE}) {
        MakeKey(Product, hive);
        for (int bit = 0; bit < 4; ++bit) {
            // Over the four rounds each has another row of values than every other.
            int number = 0;
            const auto next = [&] { return (++number >> bit & 1) != 0; };
            settings.Load();
            settings.SetAutodock(next());
            settings.SetCtrlMax(next());
            settings.SetDialogControl(next(), next());
            settings.StoreMultiDesk(next());
            settings.SetExtendSysMenu(next());
            settings.SetWindowMem(next());
            settings.SetDragTrans(next());
            settings.SetDragTransPerCent(next());
            settings.SetTaskbarsEnable(next());
            settings.SetTaskbarsShowAllTasks(next());
            settings.SetTaskswitchMirrorEnable(next());
            const std::string before = Saved();
            settings.Save();
            ReadAnew();
            EXPECT_EQ(Saved(), before);
            EXPECT_EQ(NamesIn(Product, hive).size(), 12u) << "Run, RunWizard and Admin are not of them";
        }
    }
}

TEST_F(SettingsTest, HaveValuesOfTheProgramBesideThemInTheUsersHive) {
    UseMachineHive();
    settings.Load();
    settings.SetAutodock(true);
    settings.SetAppAutodock(false);
    settings.Save();
    EXPECT_FALSE(settings.EffectiveAutodock());
    EXPECT_EQ(Names{}, NamesIn(Product)) << "docking alone makes no key";

    settings.SetAppWindowMem(true);
    EXPECT_EQ(Names{"WindowMem"}, NamesIn(Own()));
    EXPECT_FALSE(settings.RemembersWindows()) << "it isn't offered";
    settings.SetWindowMem(true);
    EXPECT_TRUE(settings.RemembersWindows());
    settings.Save();
    EXPECT_EQ(0u, NumberOr(Own(), "Autodock", 9));
    settings.SetAppAutodock(true);
    EXPECT_EQ(1u, NumberOr(Own(), "Autodock", 9));

    ReadAnew();
    EXPECT_TRUE(settings.AppAutodockSet() && settings.AppAutodock() && settings.AppWindowMem());
    profile.isServerProcess = true;
    ReadAnew();
    EXPECT_FALSE(settings.AppAutodockSet() || settings.AppWindowMem()) << "they aren't the server's";
    profile.isServerProcess = false;
    settings.Load();
    DeleteKey(Own());
    settings.Load();
    EXPECT_FALSE(settings.AppAutodockSet() || settings.AppWindowMem());
}

}  // namespace
}  // namespace halyard::test
