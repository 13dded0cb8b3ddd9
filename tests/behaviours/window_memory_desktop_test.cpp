// Programs that reopen their windows where they were, over several runs.
#include "support/behaviour_fixture.h"

#include <shlwapi.h>

namespace halyard::test {

namespace {

constexpr char Class[] = "HalyardSample";
constexpr char Place[] = "--at 100,100,400,300";
constexpr RECT Start = {100, 100, 500, 400};
constexpr RECT Kept = {1200, 150, 1700, 600};
constexpr RECT BothDisplays = {-4, -4, 2052, 772};
constexpr DWORD RecordSize = 46;

using Record = std::vector<BYTE>;

class WindowMemoryTest : public BehaviourTest {
protected:
    void SetUp() override {
        BehaviourTest::SetUp();
        Set("WindowMem", 1);
        program = BinFolder() + "sample_frame.exe";
        key = ProgramKey(program);
        WriteNumber(key, "WindowMem", 1);
        StartLoader();
    }

    // One run of the program; its windows start at `Start` unless they are brought elsewhere.
    Sample Reopen(const std::string& switches = Place) { return OpenFrame("Remembered", switches); }
    static void MoveTo(HWND window, const RECT& place) {
        SetWindowPos(window, nullptr, place.left, place.top, place.right - place.left, place.bottom - place.top,
                     SWP_NOZORDER | SWP_NOACTIVATE);
        ASSERT_TRUE(BecomesPlaced(window, place));
    }

    Record Stored() const {
        Record record(100);
        DWORD size = 100;
        const LSTATUS result = SHGetValueA(HKEY_CURRENT_USER, key.c_str(), Class, nullptr, record.data(), &size);
        record.resize(result == ERROR_SUCCESS ? size : 0);
        return record;
    }
    void Store(const Record& record) const {
        SHSetValueA(HKEY_CURRENT_USER, key.c_str(), Class, REG_BINARY, record.data(),
                    static_cast<DWORD>(record.size()));
    }
    // A record as a window with that place leaves it.
    static Record RecordOf(const RECT& place) {
        Record record(2);
        for (const LONG number : {44L, 0L, 1L, -1L, -1L, -1L, -1L, place.left, place.top, place.right, place.bottom})
            for (int shift = 0; shift < 32; shift += 8)
                record.push_back(static_cast<BYTE>(number >> shift));
        return record;
    }

    std::string program;
    std::string key;
};

TEST_F(WindowMemoryTest, OverThreeRuns) {
    Sample run = Reopen();
    EXPECT_TRUE(BecomesPlaced(run.window, Start)) << "nothing is remembered yet";
    MoveTo(run.window, Kept);
    Close(run);
    EXPECT_EQ(Stored().size(), RecordSize);
    EXPECT_EQ(NumberOr(key, "Desktop", 99), 0u);

    run = Reopen();
    EXPECT_TRUE(BecomesPlaced(run.window, Kept));
    EXPECT_FALSE(GetWindowLongA(run.window, GWL_EXSTYLE) & WS_EX_TOPMOST);
    SetWindowPos(run.window, HWND_TOPMOST, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
    MoveTo(run.window, Start);
    Close(run);

    run = Reopen("--at 500,300,300,300");
    EXPECT_TRUE(BecomesPlaced(run.window, Start));
    EXPECT_TRUE(Eventually([&] { return (GetWindowLongA(run.window, GWL_EXSTYLE) & WS_EX_TOPMOST) != 0; }));
}

TEST_F(WindowMemoryTest, OfEachState) {
    const struct {
        void (*change)(HWND window);
        RECT place;
    } cases[] = {
        {[](HWND window) { Ask(window, sample::ShowAs, SW_MAXIMIZE); }, {1020, -4, 2052, 772}},
        {[](HWND window) { Ask(window, sample::ShowAs, SW_MINIMIZE); }, Kept},
        {[](HWND window) { PostMessageA(window, WM_SYSCOMMAND, SC_MAXIMIZE, 0); }, BothDisplays},
    };
    for (int number = 0; const auto& [change, place] : cases) {
        SCOPED_TRACE(number);
        Set("CtrlMax", number++ == 2 ? 2 : 0);
        Sample run = Reopen();
        TellSettings(run);
        MoveTo(run.window, Kept);
        change(run.window);
        ASSERT_TRUE(number != 3 || BecomesPlaced(run.window, BothDisplays));
        Close(run);
        run = Reopen();
        EXPECT_TRUE(BecomesPlaced(run.window, place));
        EXPECT_FALSE(IsIconic(run.window));
        EXPECT_TRUE(Eventually([&] { return (number != 2) == (IsZoomed(run.window) != FALSE); }));
        PostMessageA(run.window, WM_SYSCOMMAND, SC_RESTORE, 0);
        EXPECT_TRUE(BecomesPlaced(run.window, Kept));
        Close(run);
    }
}

TEST_F(WindowMemoryTest, ComesBackWithinReach) {
    struct Case {
        RECT stored;
        RECT wanted;
    };
    const Case cases[] = {{{5000, 200, 5400, 500}, {1648, 200, 2048, 500}},
                          {{-3000, -3000, -2600, -2700}, {0, 0, 400, 300}},
                          {{300, 2000, 700, 2300}, {300, 468, 700, 768}},
                          {{-300, 100, 100, 400}, {-300, 100, 100, 400}}};
    for (const auto& [stored, wanted] : cases) {
        Store(RecordOf(stored));
        const Sample run = Reopen();
        EXPECT_TRUE(BecomesPlaced(run.window, wanted));
        Close(run);
    }
}

TEST_F(WindowMemoryTest, BringsTheDesktopWithTheWindow) {
    const Sample witness = OpenSample("Witness", "--at 20,500,200,150");
    Sample run = Reopen();
    ASSERT_TRUE(WindowsBecome(0, 2));
    MoveTo(run.window, Kept);
    // The extension, its last item, and the second one from the end of the desktops.
    ASSERT_TRUE(OpenSystemMenu(run.window));
    TapKey("Up Right Up Right Up Up Return");
    EXPECT_TRUE(BecomesHidden(run.window));
    EXPECT_EQ(Ask(run.window, frame::CountHides), 1);
    Close(run);
    EXPECT_EQ(NumberOr(key, "Desktop", 99), 2u);

    run = Reopen();
    EXPECT_TRUE(Eventually([&] { return WindowsOn(2) == 1; })) << "desktop 2 has " << WindowsOn(2);
    EXPECT_TRUE(BecomesHidden(witness.window)) << "desktop 2 is current";
    EXPECT_TRUE(BecomesPlaced(run.window, Kept));
    EXPECT_TRUE(StaysVisible(run.window));
    EXPECT_EQ(Ask(run.window, frame::CountHides), 0) << "it never went away";
    EXPECT_EQ(Status("current desktop"), "2");
    Switch(0);
    EXPECT_TRUE(BecomesHidden(run.window));
    EXPECT_EQ(WindowsOn(0), 1u);
}

TEST_F(WindowMemoryTest, OfAWindowOnAllDesktops) {
    Store(RecordOf(Kept));
    WriteNumber(key, "Desktop", static_cast<DWORD>(published::AllDesktops));
    Switch(1);
    const Sample run = Reopen();
    EXPECT_TRUE(WindowsBecome(published::AllDesktops, 1));
    EXPECT_TRUE(BecomesPlaced(run.window, Kept));
    for (const int desktop : {2, 0, 1}) {
        Switch(desktop);
        EXPECT_TRUE(StaysVisible(run.window)) << "on desktop " << desktop;
    }
    EXPECT_EQ(Ask(run.window, frame::CountHides), 0);
}

}  // namespace

}  // namespace halyard::test
