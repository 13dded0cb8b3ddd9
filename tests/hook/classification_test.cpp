// Which windows count as application windows, as dialogs, as worth remembering.
#include "hook/classification.h"
#include "hook/hook_fixture.h"

#include <commctrl.h>

namespace halyard::test {
namespace {

constexpr DWORD FullPopup = WS_POPUP | WS_CAPTION | WS_SYSMENU;
constexpr DWORD Boxes = WS_MINIMIZEBOX | WS_MAXIMIZEBOX;
constexpr char Template[] = "dialog template";

enum Owner { None, Clipping, Open };  // an owner or parent with WS_CLIPCHILDREN, or without

struct Case {
    const char* what;
    const char* className;  // null: the tests' class; `Template`
    DWORD style;
    DWORD exStyle;
    Owner owner;
    const char* expected;  // M managed, D dialog, R worth remembering
};

const Case Cases[] = {
    {"application window", nullptr, WS_OVERLAPPEDWINDOW, 0, None, "MR"},
    {"without maximise box", nullptr, WS_CAPTION | WS_SYSMENU | WS_MINIMIZEBOX, 0, None, "M"},
    {"caption only, with an owner", nullptr, WS_CAPTION, 0, Open, ""},
    {"tool window with all boxes", nullptr, WS_OVERLAPPEDWINDOW, WS_EX_TOOLWINDOW, None, "M"},
    {"popup without a frame", nullptr, WS_POPUP, 0, None, ""},
    {"popup that wants a taskbar button", nullptr, WS_POPUP, WS_EX_APPWINDOW, None, "M"},
    {"child", nullptr, WS_CHILD | WS_OVERLAPPEDWINDOW, 0, Open, "R"},

    {"plain popup of a clipping owner", nullptr, WS_POPUP, 0, Clipping, ""},
    {"plain popup of another owner", nullptr, WS_POPUP, 0, Open, "M"},
    {"popup with caption of another owner", nullptr, WS_POPUP | WS_CAPTION, 0, Open, "M"},
    {"full popup of a clipping owner", nullptr, FullPopup, 0, Clipping, "D"},
    {"full popup with a taskbar button", nullptr, FullPopup, WS_EX_APPWINDOW, Clipping, "MD"},
    {"full popup with both boxes", nullptr, FullPopup | Boxes, 0, Clipping, "MDR"},
    {"full popup without an owner", nullptr, FullPopup, 0, None, "M"},

    {"dialog box", Template, FullPopup, 0, Open, "D"},
    {"dialog box with a minimise box", Template, FullPopup | WS_MINIMIZEBOX, 0, Open, "MD"},
    {"dialog box with both boxes", Template, FullPopup | Boxes, 0, None, "MR"},
    {"dialog box as a child", Template, WS_CHILD | WS_CAPTION | Boxes, 0, Open, "R"},

    {"text field in other letters", "EDIT", WS_OVERLAPPEDWINDOW, WS_EX_APPWINDOW, None, ""},
    {"tooltip", "tooltips_class32", WS_POPUP, WS_EX_APPWINDOW, None, ""},
    {"list view", "SysListView32", WS_OVERLAPPEDWINDOW, 0, None, "R"},
    {"excluded class of a program", "MSOBALLOON", WS_OVERLAPPEDWINDOW, WS_EX_APPWINDOW, None, "R"},
    {"excluded name with more behind it", "MSOBALLOON2", WS_OVERLAPPEDWINDOW, 0, None, "MR"},
    {"class with the name in other letters", "gLut", WS_OVERLAPPEDWINDOW, 0, None, "MR"},
    {"excluded only from the memory", "rctrl_renwnd32", WS_OVERLAPPEDWINDOW, 0, None, "M"},
    {"excluded name once it is cut", "Afx:GLUT", WS_OVERLAPPEDWINDOW, 0, None, "MR"},
};

std::string Classified(HWND window) {
    return std::string(IsManagedWindow(window) ? "M" : "") + (IsDialogWindow(window) ? "D" : "") +
           (QualifiesForWindowMemory(window) ? "R" : "");
}

TEST(Classification, TellsWindowsApart) {
    InitCommonControls();
    const TestClass own[] = {TestClass("MSOBALLOON"), TestClass("MSOBALLOON2"), TestClass("gLut"),
                             TestClass("rctrl_renwnd32"), TestClass("Afx:GLUT")};
    const TestWindow clipping(WindowForm{.style = WS_POPUP | WS_CLIPCHILDREN});
    const TestWindow open(WindowForm{.style = WS_POPUP});
    for (const Case& test : Cases) {
        SCOPED_TRACE(test.what);
        HWND owner = test.owner == None ? nullptr : test.owner == Open ? open.get() : clipping.get();
        const bool dialog = test.className == Template;
        const TestWindow window =
            dialog ? TestWindow(MakeDialog(test.style, owner))
                   : TestWindow(
                         {.className = test.className, .style = test.style, .exStyle = test.exStyle, .parent = owner});
        ASSERT_TRUE(IsWindow(window.get())) << GetLastError();
        EXPECT_EQ(test.expected, Classified(window.get())) << std::hex << "style " << window.Style();
        if (test.className) continue;
        const TestWindow wide({.style = test.style, .exStyle = test.exStyle, .parent = owner, .wide = true});
        EXPECT_EQ(test.expected, Classified(wide.get())) << "the wide one";
    }
}

TEST(Classification, AWindowThatIsGoneOrThePlatformsOwnIsNothing) {
    for (HWND window : {TestWindow().get(), HWND(nullptr), GetDesktopWindow()})
        EXPECT_EQ("", Classified(window));
}

TEST(Classification, CutsClassNamesOfTheClassLibraryAtTheLastColon) {
    const std::string cases[][2] = {
        {"Afx:1:2:3", "Afx:1:2"}, {"Afx:", "Afx"}, {"Afx", "Afx"}, {"afx:1:2", "afx:1:2"}, {"MyAfx:1:2", "MyAfx:1:2"},
    };
    for (const auto& [name, expected] : cases) {
        const TestClass own(name.c_str());
        const TestWindow window({.className = name.c_str()});
        EXPECT_EQ(expected, NormalisedClassName(window.get()).Text()) << name;
    }
}

}  // namespace
}  // namespace halyard::test
