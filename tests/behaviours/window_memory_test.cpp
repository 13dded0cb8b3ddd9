// Windows that come back to where windows of their class last stood.
#include "behaviours/inprocess_fixture.h"
#include "behaviours/memory_record.h"
#include "behaviours/window_position.h"
#include "desktops/desktop_list.h"
#include "hook/behaviours.h"
#include "settings/registry_key.h"

#include <algorithm>
#include <memory>

namespace halyard::test {
namespace {

constexpr char MemoryClass[] = "HalyardRemembered";
constexpr UINT Returns = HM_WINDOW_RETURNS;
constexpr UINT Switch = HM_SWITCH_DESKTOP;

class WindowMemoryTest : public BehaviourTest {
protected:
    static WindowForm Form(const RECT& place) {
        return {.className = MemoryClass, .style = WS_OVERLAPPEDWINDOW, .place = place};
    }

    static void StoreRecord(const RECT& place, DWORD show = SW_SHOWNORMAL, DWORD type = REG_BINARY) {
        WindowMemory memory;
        memory.normalRect = place;
        memory.showCommand = show;
        memory.topmost = true;
        BYTE bytes[MemoryRecordSize];
        EncodeWindowMemory(memory, bytes);
        Store(HKEY_CURRENT_USER, AppPath(), MemoryClass, type, std::string(bytes, bytes + sizeof(bytes)));
    }

    const TestClass remembered{MemoryClass};
    const RECT old = Shifted({0, 0, 320, 240}, displays[1].workArea.left + 90, displays[1].workArea.top + 70);
    const RECT fresh = Shifted({0, 0, 200, 150}, displays[0].workArea.left + 10, displays[0].workArea.top + 10);
};

TEST_F(WindowMemoryTest, WritesTheRecordAndTheDesktop) {
    const char name[] = "Afx:400000:b:10011:6:1A2B";
    const TestClass made(name);
    KnownWindow window(WindowForm{.className = name, .place = fresh});
    SetTopmost(window.get(), true);
    // While it spans, its place is the one that it goes back to.
    window.tracked.maximisedAcross = true;
    window.tracked.savedNormalRect = {1, 2, 3, 4};
    window.tracked.desktopId = AllDesktopsId;
    SaveWindowMemory(window.tracked);
    // The part of the name that changes from run to run is cut.
    EXPECT_EQ((Names{"Afx:400000:b:10011:6", "Desktop"}), ValueNames(HKEY_CURRENT_USER, AppPath()));
    EXPECT_EQ(0xFFFFFFFE, StoredDword(HKEY_CURRENT_USER, AppPath(), "Desktop"));
    RegistryKey key;
    BYTE bytes[MemoryRecordSize] = {};
    DWORD size = sizeof(bytes);
    ASSERT_TRUE(key.Open(HKEY_CURRENT_USER, AppPath().c_str(), KEY_READ));
    ASSERT_EQ(ERROR_SUCCESS, key.ReadBytes("Afx:400000:b:10011:6", bytes, size));
    EXPECT_EQ(46u, size);
    EXPECT_EQ((std::vector<BYTE>{1, 1, 44, 0, 0, 0}), std::vector<BYTE>(bytes, bytes + 6));
    EXPECT_EQ((std::vector<BYTE>{1, 0, 0, 0, 2, 0, 0, 0, 3, 0, 0, 0, 4, 0, 0, 0}),
              std::vector<BYTE>(bytes + 30, bytes + 46));

    TrackedWindow orphan = window.tracked;
    DestroyWindow(window.get());
    DeleteTree(HKEY_CURRENT_USER, AppPath());
    SaveWindowMemory(orphan);
    RestoreWindowMemory(orphan);
    EXPECT_EQ(Names{}, ValueNames(HKEY_CURRENT_USER, AppPath())) << "a window that has gone has no place to store";
}

TEST_F(WindowMemoryTest, SetsWindowsOfAClassBesideEachOther) {
    StoreRecord(fresh);
    const int step = CascadeStep();
    std::vector<std::unique_ptr<KnownWindow>> open;
    // The twenty-first shift isn't made, though its place is taken.
    for (int number = 0; number <= 22; ++number) {
        open.push_back(std::make_unique<KnownWindow>(Form({0, 0, 123, 87})));
        RestoreWindowMemory(open.back()->tracked);
        const int shifts = std::min(number, 20);
        EXPECT_EQ(Shifted(fresh, shifts * step, shifts * step), open.back()->Place()) << "window " << number;
    }
    // A place that has become free is taken, and a maximised window goes by the stored place.
    open.erase(open.begin() + 3);
    KnownWindow next(Form({0, 0, 123, 87}));
    RestoreWindowMemory(next.tracked);
    EXPECT_EQ(Shifted(fresh, 3 * step, 3 * step), next.Place());
    StoreRecord(fresh, SW_SHOWMAXIMIZED);
    KnownWindow large(Form({0, 0, 123, 87}));
    RestoreWindowMemory(large.tracked);
    EXPECT_EQ(fresh, NormalPlaceOf(large));
}

TEST_F(WindowMemoryTest, GoesToTheRememberedDesktopWhateverStandsInTheRecord) {
    desktopList.Add("ten", 10);
    desktopList.Add("twenty", 20);
    SetCurrentDesktopId(20);
    struct Case {
        const char* what;
        std::optional<DWORD> stored;
        DesktopId id;
        bool switches;
    };
    constexpr Case Cases[] = {
        {"another one", 10, 10, true},
        {"the current one", 20, 20, true},
        {"nothing stored", std::nullopt, 20, true},
        {"one that was removed", 30, 20, true},
        {"an absurd one", 0xFFFFFFFF, 20, true},
        {"all", 0xFFFFFFFE, AllDesktopsId, false},
    };
    for (const Case& test : Cases) {
        SCOPED_TRACE(test.what);
        DeleteTree(HKEY_CURRENT_USER, AppPath());
        StoreRecord(old, SW_SHOWNORMAL, REG_SZ);
        if (test.stored) StoreDword(HKEY_CURRENT_USER, AppPath(), "Desktop", *test.stored);
        KnownWindow window(Form(fresh));
        RestoreWindowMemory(window.tracked);
        EXPECT_EQ(test.id, window.tracked.desktopId);
        std::vector<ToServer> expected = {{Returns, window.get(), test.id}};
        if (test.switches) expected.push_back({Switch, nullptr, test.id});
        EXPECT_EQ(expected, TakeMessages());
        EXPECT_EQ(fresh, window.Place());
        EXPECT_FALSE(IsTopmost(window.get()));
    }
}

}  // namespace
}  // namespace halyard::test
