// Windows that come back to where windows of their class last stood.
#include "behaviour_fixture.h"
#include "behaviours/memory_record.h"
#include "behaviours/window_position.h"
#include "desktops/desktop_list.h"
#include "hook/behaviours.h"
#include "process/registry_key.h"

#include <algorithm>
#include <functional>
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

    static void StoreRecord(const WindowMemory& memory, std::size_t size = MemoryRecordSize, DWORD type = REG_BINARY) {
        BYTE bytes[MemoryRecordSize];
        EncodeWindowMemory(memory, bytes);
        std::string value(bytes, bytes + sizeof(bytes));
        value.resize(size, '\1');
        Store(HKEY_CURRENT_USER, AppPath(), MemoryClass, type, value);
    }

    static std::vector<BYTE> StoredRecord(const char* className = MemoryClass) {
        RegistryKey key;
        std::vector<BYTE> bytes(200);
        auto size = static_cast<DWORD>(bytes.size());
        if (!key.Open(HKEY_CURRENT_USER, AppPath().c_str(), KEY_READ) ||
            key.ReadBytes(className, bytes.data(), size) != ERROR_SUCCESS)
            size = 0;
        bytes.resize(size);
        return bytes;
    }

    static bool HasMemory(const std::string& name) {
        const Names names = ValueNames(HKEY_CURRENT_USER, AppPath());
        return std::find(names.begin(), names.end(), name) != names.end();
    }

    const TestClass remembered{MemoryClass};
    const RECT old = Shifted({0, 0, 320, 240}, displays[1].workArea.left + 90, displays[1].workArea.top + 70);
    const RECT fresh = Shifted({0, 0, 200, 150}, displays[0].workArea.left + 10, displays[0].workArea.top + 10);
};

TEST_F(WindowMemoryTest, WritesTheRecordAndTheDesktop) {
    KnownWindow window(Form(old));
    SetTopmost(window.get(), true);
    window.tracked.desktopId = 30;
    SaveWindowMemory(window.tracked);
    const WINDOWPLACEMENT placement = PlacementOf(window);
    std::vector<BYTE> expected = {0, 1};
    const auto* bytes = reinterpret_cast<const BYTE*>(&placement);
    expected.insert(expected.end(), bytes, bytes + 44);
    EXPECT_EQ(expected, StoredRecord());
    EXPECT_EQ(30u, StoredDword(HKEY_CURRENT_USER, AppPath(), "Desktop"));

    // The one that goes last decides. While it spans, its place is the one that it goes back to.
    KnownWindow spanning(Form(fresh));
    spanning.tracked.desktopId = AllDesktopsId;
    spanning.tracked.maximisedAcross = true;
    spanning.tracked.savedNormalRect = {1, 2, 3, 4};
    SaveWindowMemory(spanning.tracked);
    const std::vector<BYTE> record = StoredRecord();
    ASSERT_EQ(MemoryRecordSize, record.size());
    EXPECT_EQ((std::vector<BYTE>{1, 0}), std::vector<BYTE>(record.begin(), record.begin() + 2));
    EXPECT_EQ((std::vector<BYTE>{1, 0, 0, 0, 2, 0, 0, 0, 3, 0, 0, 0, 4, 0, 0, 0}),
              std::vector<BYTE>(record.begin() + 30, record.end()));
    EXPECT_EQ(0xFFFFFFFE, StoredDword(HKEY_CURRENT_USER, AppPath(), "Desktop"));
}

TEST_F(WindowMemoryTest, CutsAClassNameThatChangesFromRunToRun) {
    const char name[] = "Afx:400000:b:10011:6:1A2B";
    const TestClass made(name);
    KnownWindow window(WindowForm{.className = name});
    SaveWindowMemory(window.tracked);
    EXPECT_TRUE(HasMemory("Afx:400000:b:10011:6")) << testing::PrintToString(ValueNames(HKEY_CURRENT_USER, AppPath()));
    EXPECT_FALSE(HasMemory(name));
}

TEST_F(WindowMemoryTest, LeavesWindowsThatDoNotQualifyAlone) {
    const TestClass mail("rctrl_renwnd32");
    struct Case {
        const char* what;
        const char* className;
        DWORD style;
        DWORD exStyle;
    };
    constexpr DWORD Boxes = WS_MINIMIZEBOX | WS_MAXIMIZEBOX;
    constexpr Case Cases[] = {
        {"no caption", MemoryClass, WS_POPUP | WS_THICKFRAME | Boxes, 0},
        {"no minimise box", MemoryClass, WS_OVERLAPPEDWINDOW & ~WS_MINIMIZEBOX, 0},
        {"no maximise box", MemoryClass, WS_OVERLAPPEDWINDOW & ~WS_MAXIMIZEBOX, 0},
        {"tool window", MemoryClass, WS_OVERLAPPEDWINDOW, WS_EX_TOOLWINDOW},
        {"mail editor", "rctrl_renwnd32", WS_OVERLAPPEDWINDOW, 0},
    };
    for (const Case& test : Cases) {
        SCOPED_TRACE(test.what);
        DeleteTree(HKEY_CURRENT_USER, AppPath());
        KnownWindow window(
            WindowForm{.className = test.className, .style = test.style, .exStyle = test.exStyle, .place = fresh});
        SaveWindowMemory(window.tracked);
        EXPECT_FALSE(KeyExists(HKEY_CURRENT_USER, AppPath()));
        WindowMemory memory;
        memory.normalRect = old;
        StoreRecord(memory);
        RestoreWindowMemory(window.tracked);
        EXPECT_EQ(fresh, window.Place());
        EXPECT_EQ(std::vector<ToServer>(), TakeMessages());
    }
}

// What is stored, and how a window of the class then opens.
TEST_F(WindowMemoryTest, BringsAWindowBack) {
    const RECT distant = {20000, 15000, 20400, 15300};
    struct Case {
        const char* what;
        WindowMemory memory;
        RECT place;  // the normal one; of a spanning window the one that it goes back to
        bool zoomed;
        bool topmost;
        bool spanning;
    };
    const RECT brought = BroughtInto(distant, displays.back().workArea);
    const auto stored = [](const RECT& rect, DWORD show, bool topmost, bool spanning) {
        WindowMemory memory;
        memory.normalRect = rect;
        memory.showCommand = show;
        memory.topmost = topmost;
        memory.maximisedAcross = spanning;
        return memory;
    };
    const Case cases[] = {
        {"normal", stored(old, SW_SHOWNORMAL, false, false), old, false, false, false},
        {"on top", stored(old, SW_SHOWNORMAL, true, false), old, false, true, false},
        {"maximised", stored(old, SW_SHOWMAXIMIZED, false, false), old, true, false, false},
        {"minimised", stored(old, SW_SHOWMINIMIZED, false, false), old, false, false, false},
        {"minimised the other way", stored(old, SW_MINIMIZE, true, false), old, false, true, false},
        {"spanning", stored(old, SW_SHOWMAXIMIZED, false, true), old, true, false, true},
        {"spanning, stored minimised", stored(old, SW_SHOWMINIMIZED, true, true), old, true, true, true},
        {"beside all displays", stored(distant, SW_SHOWNORMAL, false, false), brought, false, false, false},
        {"maximised beside all displays", stored(distant, SW_SHOWMAXIMIZED, false, false), brought, true, false, false},
        {"spanning from beside all displays", stored(distant, SW_SHOWNORMAL, false, true), brought, true, false, true},
    };
    for (const Case& test : cases)
        for (const bool wasTopmost : {false, true}) {
            SCOPED_TRACE(testing::Message() << test.what << (wasTopmost ? ", was topmost" : ""));
            StoreRecord(test.memory);
            KnownWindow window(Form(fresh));
            if (wasTopmost) SetTopmost(window.get(), true);
            RestoreWindowMemory(window.tracked);
            EXPECT_EQ(test.place, test.spanning ? window.tracked.savedNormalRect : NormalPlaceOf(window));
            EXPECT_EQ(test.zoomed, IsZoomed(window.get()) != FALSE);
            EXPECT_FALSE(IsIconic(window.get()));
            EXPECT_EQ(test.topmost, IsTopmost(window.get()));
            EXPECT_EQ(test.spanning, window.tracked.maximisedAcross);
            if (test.spanning) {
                EXPECT_EQ(SpanningRect(bounds), window.Place());
            } else if (!test.zoomed) {
                EXPECT_EQ(test.place, window.Place());
            }
        }
}

TEST_F(WindowMemoryTest, GoesRoundForAWindowInEachState) {
    for (const int show : {SW_SHOWNORMAL, SW_SHOWMAXIMIZED, SW_SHOWMINIMIZED}) {
        {
            KnownWindow window(Form(old));
            ShowWindow(window.get(), show);
            SaveWindowMemory(window.tracked);
        }
        KnownWindow window(Form(fresh));
        RestoreWindowMemory(window.tracked);
        EXPECT_EQ(old, NormalPlaceOf(window)) << show;
        EXPECT_EQ(show == SW_SHOWMAXIMIZED, IsZoomed(window.get()) != FALSE) << show;
        EXPECT_FALSE(IsIconic(window.get())) << show;
        EXPECT_TRUE(IsWindowVisible(window.get())) << show;
    }
}

TEST_F(WindowMemoryTest, SetsWindowsOfAClassBesideEachOther) {
    WindowMemory memory;
    memory.normalRect = fresh;
    StoreRecord(memory);
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
    memory.showCommand = SW_SHOWMAXIMIZED;
    StoreRecord(memory);
    KnownWindow large(Form({0, 0, 123, 87}));
    RestoreWindowMemory(large.tracked);
    EXPECT_EQ(fresh, NormalPlaceOf(large));
}

TEST_F(WindowMemoryTest, TakesNothingElseForARecord) {
    WindowMemory good;
    good.normalRect = old;
    good.topmost = true;
    WindowMemory hollow = good;
    hollow.normalRect.right = hollow.normalRect.left;
    WindowMemory wild = good;
    wild.normalRect = {-0x7FFFFFFF, 0, 0x7FFFFFFF, 100};
    struct Case {
        const char* what;
        std::function<void()> store;
    };
    const Case cases[] = {
        {"no value", [] { MakeKey(HKEY_CURRENT_USER, AppPath()); }},
        {"a byte short", [&] { StoreRecord(good, 45); }},
        {"a byte long", [&] { StoreRecord(good, 47); }},
        {"empty", [&] { StoreRecord(good, 0); }},
        {"very long", [&] { StoreRecord(good, 5000); }},
        {"a text", [&] { StoreRecord(good, 46, REG_SZ); }},
        {"without a width", [&] { StoreRecord(hollow); }},
        {"wild numbers", [&] { StoreRecord(wild); }},
    };
    for (const Case& test : cases) {
        SCOPED_TRACE(test.what);
        DeleteTree(HKEY_CURRENT_USER, AppPath());
        test.store();
        KnownWindow window(Form(fresh));
        RestoreWindowMemory(window.tracked);
        EXPECT_EQ(fresh, window.Place());
        EXPECT_FALSE(IsTopmost(window.get()));
        // The desktop is a matter of the program and not of the class.
        EXPECT_EQ((std::vector<ToServer>{{Returns, window.get(), 0}, {Switch, nullptr, 0}}), TakeMessages());
    }
}

TEST_F(WindowMemoryTest, GoesToTheRememberedDesktop) {
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
        {"the default one", 0, 0, true},
        {"the current one", 20, 20, true},
        {"nothing stored", std::nullopt, 20, true},
        {"one that was removed", 30, 20, true},
        {"an absurd one", 0xFFFFFFFF, 20, true},
        {"all", 0xFFFFFFFE, AllDesktopsId, false},
    };
    for (const Case& test : Cases) {
        SCOPED_TRACE(test.what);
        DeleteTree(HKEY_CURRENT_USER, AppPath());
        MakeKey(HKEY_CURRENT_USER, AppPath());
        if (test.stored) StoreDword(HKEY_CURRENT_USER, AppPath(), "Desktop", *test.stored);
        KnownWindow window(Form(fresh));
        RestoreWindowMemory(window.tracked);
        EXPECT_EQ(test.id, window.tracked.desktopId);
        EXPECT_FALSE(HasMessages()) << "the program doesn't wait for the server";
        std::vector<ToServer> expected = {{Returns, window.get(), test.id}};
        if (test.switches) expected.push_back({Switch, nullptr, test.id});
        EXPECT_EQ(expected, TakeMessages());
        EXPECT_EQ(fresh, window.Place());
    }
}

TEST_F(WindowMemoryTest, DoesNothingForAProgramWithoutAKey) {
    KnownWindow window(Form(fresh));
    window.tracked.desktopId = 5;
    RestoreWindowMemory(window.tracked);
    EXPECT_EQ(std::vector<ToServer>(), TakeMessages());
    EXPECT_EQ(5u, window.tracked.desktopId);
    EXPECT_FALSE(KeyExists(HKEY_CURRENT_USER, AppPath()));
}

TEST_F(WindowMemoryTest, OutlivesItsWindow) {
    KnownWindow window(Form(old));
    SaveWindowMemory(window.tracked);
    TrackedWindow orphan = window.tracked;
    DestroyWindow(window.get());
    const std::vector<BYTE> before = StoredRecord();
    SaveWindowMemory(orphan);
    RestoreWindowMemory(orphan);
    EXPECT_EQ(before, StoredRecord()) << "a window that has gone has no place to store";
    EXPECT_EQ(std::vector<ToServer>(), TakeMessages());
}

}  // namespace
}  // namespace halyard::test
