// One test of the secondary taskbars: the stand-in shell beside the built system, on displays side by side.
#pragma once

#include "shell/tray.h"
#include "support/arrangement.h"
#include "support/desktop_fixture.h"
#include "support/input.h"

namespace halyard::test {

using Titles = std::vector<std::string>;

// Presets beside those of `DesktopTest`: taskbars on, each with the windows of its display.
class TaskbarTest : public DesktopTest {
protected:
    void SetUp() override;

    static void Set(const char* value, DWORD number) { WriteNumber(published::ProductKey, value, number); }
    static DWORD Stored(const char* value) { return NumberOr(published::ProductKey, value, 0xDEAD); }

    // Shell first, then the loader.
    void StartAll();
    // A sample with the place of its window; waits for it to have the foreground.
    Sample OpenAt(const std::string& title, POINT place, const std::string& switches = {});

    // Displays are counted from 1 as the platform enumerates them. Null without a bar; one that is slid away or
    // collapsed is on its display as well.
    static HWND BarOn(unsigned display);
    static std::vector<unsigned> DisplaysWithBars();
    // The buttons' texts from left to right; the checked one with a "*" before it, one that flashes with a "!"; a
    // separator as "|".
    static Titles ButtonsOn(unsigned display);
    static testing::AssertionResult Shows(unsigned display, const Titles& wanted);
    // The same of the primary bar, without marks.
    testing::AssertionResult PrimaryShows(const Titles& wanted) const;

    // What the shell was told last of any bar, but for questions.
    static std::string Told();
    // Waits for it to begin like this.
    static testing::AssertionResult IsTold(const char* wanted);

    static POINT ButtonPlace(unsigned display, const std::string& text);
    // How many of a thousand pixels beside the button's icon have that colour.
    static int Share(unsigned display, const std::string& text, COLORREF colour);
    // A place on the bar without a button.
    static POINT EmptyPlace(unsigned display);
    static testing::AssertionResult BarBecomes(unsigned display, const RECT& place);
    // Opens the bar's menu with the mouse, and chooses the item that so many presses of the down key lead to.
    static void Choose(unsigned display, int downs);

    Tray tray;
};

}  // namespace halyard::test
