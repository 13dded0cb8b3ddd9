#include "config/page_rules.h"

#include "process/protocol.h"

#include <gtest/gtest.h>

namespace halyard {

namespace {

TEST(PageRules, ADisplayThatIsAwayForAWhileIsNotForgotten) {
    struct Row {
        DialogChoice stored;
        int displays, listed;
    };
    constexpr Row Rows[] = {{{0, 0}, 2, 2}, {{3, 4}, 1, 4}, {{3, 11}, 2, 2}, {{3, 0}, 0, 1}, {{0, 9}, 16, 10}};
    for (const Row& row : Rows)
        EXPECT_EQ(DisplayRows(row.displays, row.stored), row.listed) << row.stored.display;
    for (const DialogChoice choice : {DialogChoice{1, 0}, {2, 0}, {3, 1}, {3, 2}, {4, 0}}) {
        const DialogChoice applied = DialogChoiceOfRow(RowOfDialogChoice(choice), 2);
        EXPECT_EQ(applied.control, choice.control);
        EXPECT_EQ(applied.display, choice.display);
    }
    for (const int row : {-1, 5, RowOfDialogChoice({3, 0xFFFFFFFF})})
        EXPECT_EQ(DialogChoiceOfRow(row, 2).control, 0u) << row;
}

TEST(PageRules, ARowThatIsNotAppliedYetCanOnlyBeRemoved) {
    const DesktopButtons unsaved = ButtonsOfDesktop({true, true}, true, true, UnsavedDesktopId, 0);
    EXPECT_TRUE(unsaved.remove && !unsaved.activate && !unsaved.wallpaper);
    const DesktopButtons looking = ButtonsOfDesktop({false, true}, true, true, 1, 0);
    EXPECT_TRUE(!looking.remove && looking.activate && looking.wallpaper) << "who may not edit may still switch";
}

TEST(PageRules, TheHooksAndTheUserDecideWhatIsLive) {
    const DesktopsPageEnables out = EnablesOfDesktopsPage({true, false}, true);
    EXPECT_TRUE(!out.multiDesk && !out.list && !out.add);
    const DesktopsPageEnables off = EnablesOfDesktopsPage({true, true}, false);
    EXPECT_TRUE(off.multiDesk && !off.list && !off.add);
    EXPECT_EQ(MaximiseOfChecks({false, true}), 0u) << "as it is stored";
    EXPECT_FALSE(ChecksOfMaximise(0).across);
    EXPECT_EQ(ActionColumnWidth(300, 1033), 198);
    EXPECT_EQ(ActionColumnWidth(300, 1040), 165) << "Italian";
}

}  // namespace

}  // namespace halyard
