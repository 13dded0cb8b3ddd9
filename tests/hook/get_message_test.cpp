// Posted messages on their way to the program.
#include "hook/hook_fixture.h"

namespace halyard::test {
namespace {

using GetMessageTest = HookTest;

TEST_F(GetMessageTest, OnlyPassesOnWhatItMustNotTouch) {
    const TestWindow window;
    profile.program.qlplay = true;
    recording.commandTaken = true;
    struct {
        bool window;
        int code;
        WPARAM remove;
        bool active;
        bool table;
    } const ways[] = {
        {false, HC_ACTION, PM_REMOVE, true, true},  {true, -1, PM_REMOVE, true, true},
        {true, HC_ACTION, PM_NOREMOVE, true, true}, {true, HC_ACTION, PM_REMOVE, false, true},
        {true, HC_ACTION, PM_REMOVE, true, false},
    };
    for (const auto& way : ways) {
        for (const UINT message :
             {static_cast<UINT>(WM_NCLBUTTONDBLCLK), static_cast<UINT>(WM_LBUTTONUP), static_cast<UINT>(WM_SYSCOMMAND),
              static_cast<UINT>(WM_COMMAND), profile.restartMessage, profile.settingMessage}) {
            SCOPED_TRACE(testing::Message() << message << " in way " << &way - ways);
            TrackedWindow& tracked = Known(window.get());
            tracked.lastHitTest = HTMAXBUTTON;
            profile.hookEngineActive = way.active;
            threadTable = way.table ? &table : nullptr;
            MSG taken = {way.window ? window.get() : nullptr, message, FirstExtensionCommand, 0, 0, {}};
            GetMessageHookProc(way.code, way.remove, reinterpret_cast<LPARAM>(&taken));
            profile.hookEngineActive = true;
            threadTable = &table;
            EXPECT_EQ(message, taken.message);
            EXPECT_EQ(Calls{}, recording.Take());
            EXPECT_EQ(HTMAXBUTTON, tracked.lastHitTest);
            EXPECT_EQ(1u, RecordCount());
        }
    }
}

}  // namespace
}  // namespace halyard::test
