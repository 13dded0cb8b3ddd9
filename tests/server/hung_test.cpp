// Programs that don't answer hold nothing up.
#include "support/desktop_fixture.h"

#include <vector>

namespace halyard::test {

namespace {

class HungTest : public DesktopTest {
protected:
    void SetUp() override {
        DesktopTest::SetUp();
        wake = CreateEventA(nullptr, TRUE, FALSE, sample::WakeEvent);
    }
    void TearDown() override {
        SetEvent(wake);
        DesktopTest::TearDown();
        CloseHandle(wake);
    }
    HANDLE wake = nullptr;
};

TEST_F(HungTest, ProgramsDontHoldASwitchUp) {
    constexpr int Count = 5;
    WriteNumber(DesktopKey(1), "Colour", RGB(0x10, 0x50, 0x10));
    StartLoader();
    const Sample alive = OpenSample("Alive");
    const Sample hung = OpenSample("Hung", "--threads --count " + std::to_string(Count));
    ASSERT_TRUE(WindowsBecome(0, 1 + Count));
    std::vector<HWND> stuck;
    for (int number = 1; number <= Count; ++number) {
        const std::string title = number == 1 ? "Hung" : "Hung " + std::to_string(number);
        const Sample one = {hung.program, WindowOf(hung.program->Id(), title)};
        ASSERT_TRUE(BecomesVisible(one.window)) << title;
        const HWND popup = OpenPopup(one, true);
        ASSERT_TRUE(BecomesVisible(popup));
        stuck.push_back(one.window);
        stuck.push_back(popup);
        PostMessageA(one.window, sample::Hang, 60000, 0);
    }
    ASSERT_TRUE(Eventually([&] { return Ask(stuck.front(), WM_NULL, 0, 0, 50) == -1; })) << "the sample should hang";
    // Desktop 1 has another colour, which the platform announces to every window.
    for (int id : {1, 0, 2, 1, 0, 1}) {
        const DWORD start = GetTickCount();
        Switch(id);
        ASSERT_TRUE(id == 0 ? BecomesVisible(alive.window) : BecomesHidden(alive.window)) << "on desktop " << id;
        EXPECT_LT(GetTickCount() - start, 1000u) << "to desktop " << id;
    }
    for (HWND window : stuck)
        EXPECT_TRUE(IsWindowVisible(window)) << "doesn't hang: " << Describe(window);

    SetEvent(wake);
    for (HWND window : stuck)
        EXPECT_TRUE(BecomesHidden(window));
    Switch(0);
    EXPECT_TRUE(BecomesVisible(alive.window));
    for (HWND window : stuck)
        EXPECT_TRUE(BecomesVisible(window));
}

}  // namespace

}  // namespace halyard::test
