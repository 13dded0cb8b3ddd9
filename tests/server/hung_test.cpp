// Programs that don't answer hold nothing up.
#include "common/handles.h"
#include "support/desktop_fixture.h"

namespace halyard::test {

namespace {

using HungTest = DesktopTest;

TEST_F(HungTest, ProgramsDontHoldASwitchUpAndFollowTheLast) {
    const KernelHandle wake(CreateEventA(nullptr, TRUE, FALSE, sample::WakeEvent));
    WriteNumber(DesktopKey(1), "Colour", RGB(0x10, 0x50, 0x10));
    StartLoader();
    const Sample alive = OpenSample("Alive");
    std::vector<HWND> frames, stuck;
    for (unsigned number = 1; number <= 5; ++number) {
        const Sample hung = OpenSample("Hung");
        ASSERT_TRUE(WindowsBecome(0, 1 + number));
        frames.push_back(hung.window);
        for (const HWND window : {hung.window, OpenPopup(hung, true)})
            stuck.push_back(window);
    }
    for (const bool visible : {true, false}) {
        ResetEvent(wake.get());
        for (const HWND frame : frames)
            PostMessageA(frame, sample::Hang, 60000, 0);
        ASSERT_TRUE(Eventually([&] { return Ask(frames.back(), WM_NULL, 0, 0, 50) == -1; }))
            << "the sample should hang";
        // Desktop 1 has another colour, which the platform announces to every window.
        for (int id : {1, 0, 2, 1, 0, 1}) {
            const DWORD start = GetTickCount();
            Switch(id);
            ASSERT_TRUE(id == 0 ? BecomesVisible(alive.window) : BecomesHidden(alive.window)) << "on desktop " << id;
            EXPECT_LT(GetTickCount() - start, 1000u) << "to desktop " << id;
        }
        for (HWND window : stuck)
            EXPECT_EQ(IsWindowVisible(window) != FALSE, visible) << "doesn't hang: " << Describe(window);
        SetEvent(wake.get());
        for (HWND window : frames)
            ASSERT_TRUE(Eventually([&] { return Ask(window, WM_NULL, 0, 0, 50) == 0; }));
        for (HWND window : stuck)
            EXPECT_TRUE(BecomesHidden(window));
    }
    Switch(0);
    for (HWND window : stuck)
        EXPECT_TRUE(BecomesVisible(window));
}

}  // namespace

}  // namespace halyard::test
