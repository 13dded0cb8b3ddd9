#include "config/page_rules.h"

#include "process/protocol.h"

#include <gtest/gtest.h>

namespace halyard {

namespace {

// Every combination of what a rule depends on, against the rule as a user would put it.
template <typename Check>
void ForAllStates(Check check) {
    for (int bits = 0; bits < 32; ++bits) {
        SCOPED_TRACE(testing::Message() << "edit " << (bits & 1) << " hooks " << (bits >> 1 & 1) << " boxes "
                                        << (bits >> 2 & 1) << (bits >> 3 & 1) << (bits >> 4 & 1));
        check(PageState{(bits & 1) != 0, (bits & 2) != 0}, (bits & 4) != 0, (bits & 8) != 0, (bits & 16) != 0);
    }
}

TEST(PageRules, ControlsAreLiveOnlyForWhoMayEditWithTheHooksIn) {
    ForAllStates([](PageState state, bool first, bool second, bool third) {
        const bool live = state.canEdit && state.hooksInstalled;
        for (const bool nt : {false, true}) {
            const auto windows = EnablesOfWindowsPage(state, first, second, nt, third);
            EXPECT_EQ(windows.choices, live);
            EXPECT_EQ(windows.withControl, live && first);
            EXPECT_EQ(windows.dialogWhere, live && second);
            EXPECT_EQ(windows.transparency, live && nt);
            EXPECT_EQ(windows.opacity, live && nt && third);
        }
        const auto taskbars = EnablesOfTaskbarsPage(state, first);
        EXPECT_EQ(taskbars.choices, live);
        EXPECT_EQ(taskbars.whichTasks, live && first);
        const auto desktops = EnablesOfDesktopsPage(state, first);
        EXPECT_EQ(desktops.multiDesk, live);
        EXPECT_EQ(desktops.list, state.hooksInstalled && first) << "who can't edit may look and activate";
        EXPECT_EQ(desktops.add, live && first);
    });
}

TEST(PageRules, ButtonsFollowTheSelectedDesktop) {
    constexpr unsigned Current = 2;
    struct Row {
        const char* what;
        unsigned id;
        bool remove, activate, wallpaper;
    };
    constexpr Row Rows[] = {
        {"the default desktop", 0, false, true, true},
        {"another desktop", 1, true, true, true},
        {"the current desktop", Current, true, false, true},
        {"one not yet applied", UnsavedDesktopId, true, false, false},
    };
    ForAllStates([&](PageState state, bool box, bool selected, bool) {
        for (const Row& row : Rows) {
            const bool on = state.hooksInstalled && box && selected;
            const auto buttons = ButtonsOfDesktop(state, box, selected, row.id, Current);
            EXPECT_EQ(buttons.remove, on && row.remove && state.canEdit) << row.what;
            EXPECT_EQ(buttons.activate, on && row.activate) << row.what;
            EXPECT_EQ(buttons.wallpaper, on && row.wallpaper) << row.what;
        }
    });
}

TEST(PageRules, DialogRowsAndSettingsStandForEachOther) {
    struct Row {
        DialogChoice stored;
        int row;
        DialogChoice applied;  // with two displays listed
    };
    constexpr Row Rows[] = {
        {{0, 0}, 2, {1, 0}},   {{1, 0}, 2, {1, 0}},           {{2, 0}, 1, {2, 0}}, {{3, 1}, 3, {3, 1}},
        {{3, 2}, 4, {3, 2}},   {{3, 0}, 3, {3, 1}},           {{4, 0}, 0, {4, 0}}, {{9, 0}, 2, {1, 0}},
        {{3, 99}, 13, {0, 0}}, {{3, 0xFFFFFFFF}, 13, {0, 0}},
    };
    for (const Row& row : Rows) {
        SCOPED_TRACE(testing::Message() << row.stored.control << ", " << row.stored.display);
        EXPECT_EQ(RowOfDialogChoice(row.stored), row.row);
        const DialogChoice applied = DialogChoiceOfRow(row.row, 2);
        EXPECT_EQ(applied.control, row.applied.control);
        EXPECT_EQ(applied.display, row.applied.display);
    }
    EXPECT_EQ(DialogChoiceOfRow(-1, 2).control, 0u);
    EXPECT_EQ(DisplayRows(2, {0, 0}), 2);
    EXPECT_EQ(DisplayRows(1, {3, 4}), 4) << "a display that is away for a while isn't forgotten";
    EXPECT_EQ(DisplayRows(2, {3, 11}), 2);
    EXPECT_EQ(DisplayRows(0, {0, 0}), 1);
    EXPECT_EQ(DisplayRows(16, {0, 0}), 10);
}

TEST(PageRules, MaximiseModesSurviveTheirCheckBoxes) {
    for (const DWORD mode : {0u, 1u, 2u})
        EXPECT_EQ(MaximiseOfChecks(ChecksOfMaximise(mode)), mode);
    EXPECT_EQ(MaximiseOfChecks({false, true}), 0u) << "the indented box counts only with the one above it";
    EXPECT_EQ(ActionColumnWidth(200, 1033), 132);
    EXPECT_EQ(ActionColumnWidth(200, 1031), 110);
    EXPECT_EQ(ActionColumnWidth(200, 1040), 110);
}

}  // namespace

}  // namespace halyard
