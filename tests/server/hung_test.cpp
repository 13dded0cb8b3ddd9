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
    std::vector<HWND> frames;
    while (frames.size() < 5) {
        const Sample hung = OpenSample("Hung");
        OpenPopup(hung, true);
        frames.push_back(hung.window);
    }
    ASSERT_TRUE(WindowsBecome(0, 6));
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
        EXPECT_EQ(SeenWindows().size(), visible ? 10u : 0u) << "they don't hang";
        SetEvent(wake.get());
        for (HWND window : frames)
            ASSERT_TRUE(Eventually([&] { return Ask(window, WM_NULL, 0, 0, 50) == 0; }));
        EXPECT_TRUE(Eventually([] { return SeenWindows().empty(); }));
    }
    Switch(0);
    EXPECT_TRUE(Eventually([] { return SeenWindows().size() == 11; }));
}

}  // namespace

}  // namespace halyard::test
