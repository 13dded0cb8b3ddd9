#include "config/page_rules.h"

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

}  // namespace

}  // namespace halyard
