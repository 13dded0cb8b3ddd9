#include "config/page_rules.h"

#include "process/protocol.h"

#include <gtest/gtest.h>

namespace halyard {

namespace {

TEST(PageRules, ADisplayThatIsAwayForAWhileIsNotForgotten) {
    constexpr struct {
        DialogChoice stored;
        int displays, listed;
    } Rows[] = {{{0, 0}, 2, 2}, {{3, 4}, 1, 4}, {{3, 11}, 2, 2}, {{3, 0}, 0, 1}, {{0, 9}, 16, 10}};
    for (const auto& [stored, displays, listed] : Rows)
        EXPECT_EQ(DisplayRows(displays, stored), listed) << stored.display;
    for (const DialogChoice choice : {DialogChoice{1, 0}, {2, 0}, {3, 1}, {3, 2}, {4, 0}}) {
        const DialogChoice applied = DialogChoiceOfRow(RowOfDialogChoice(choice), 2);
        EXPECT_EQ(applied.control, choice.control);
        EXPECT_EQ(applied.display, choice.display);
    }
    for (const int row : {-1, 5, RowOfDialogChoice({3, 0xFFFFFFFF})})
        EXPECT_EQ(DialogChoiceOfRow(row, 2).control, 0u) << row;
}

TEST(PageRules, TheHooksAndTheUserDecideWhatIsLive) {
    const DesktopsPageEnables out = EnablesOfDesktopsPage({true, false}, true);
    EXPECT_TRUE(!out.multiDesk && !out.list && !out.add);
    const DesktopsPageEnables off = EnablesOfDesktopsPage({true, true}, false);
    EXPECT_TRUE(off.multiDesk && !off.list && !off.add);
    const DesktopButtons unsaved = ButtonsOfDesktop({true, true}, true, true, UnsavedDesktopId, 0);
    EXPECT_TRUE(unsaved.remove && !unsaved.activate && !unsaved.wallpaper);
    EXPECT_EQ(ActionColumnWidth(300, 1033), 198);
    EXPECT_EQ(ActionColumnWidth(300, 1040), 165) << "Italian";
}

}  // namespace

}  // namespace halyard
