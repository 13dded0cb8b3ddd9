#include "hook/class_rules.h"
#include "hook/event_geometry.h"
#include "support/rect_values.h"

#include <gtest/gtest.h>

#include <span>
#include <string>

namespace halyard {
namespace {

constexpr std::uint32_t Popup = 0x80000000, Child = 0x40000000, Border = 0x00800000, DlgFrame = 0x00400000,
                        SysMenu = 0x00080000, ThickFrame = 0x00040000, MinBox = 0x00020000, MaxBox = 0x00010000;
constexpr std::uint32_t Caption = Border | DlgFrame, Boxes = MinBox | MaxBox, FullPopup = Popup | Caption | SysMenu,
                        Overlapped = Caption | SysMenu | ThickFrame | Boxes;
constexpr std::uint32_t ExApp = 0x00040000, ExEdge = 0x00000100, ExTool = 0x00000080, Strong = ExApp | ExEdge;
constexpr std::uint32_t Menu = 32768, Dialog = 32770, TaskSwitch = 32771, IconTitle = 32772;
constexpr std::uint32_t Clips = 0x02000000, Plain = ~Clips;

void ExpectAll(bool (*rule)(const WindowTraits&) noexcept, bool expected, std::span<const WindowTraits> windows) {
    for (const WindowTraits& window : windows)
        EXPECT_EQ(rule(window), expected) << "row " << &window - windows.data();
}

// clang-format off
// Most rows are windows of which a later rule, were it asked first, would say the opposite.
TEST(ClassRules, Managed) {
    constexpr WindowTraits Managed[] = {
        {MinBox, 0, Dialog}, {MaxBox, 0, Dialog}, {Boxes, 0, Dialog, "Static"}, {Boxes, 0, Dialog, "", true, Clips},
        {Overlapped, Strong, Menu - 1}, {Overlapped, Strong, IconTitle + 1}, {Caption, ExEdge},
        // With a parent, then owned.
        {0, 0, 0, "", true, Plain, true}, {Popup | Caption, 0, 0, "", true}, {FullPopup, Strong, 0, "", true, Clips},
        {0, ExApp, 0, "", false, 0, true}, {Caption | Boxes, 0, 0, "", false, 0, true},
        {Overlapped, 0, 0, "", false, 0, true}, {FullPopup | Boxes, 0, 0, "", true, Clips, true}};
    constexpr WindowTraits Others[] = {
        {}, {Child | Overlapped, Strong}, {Child | Caption | Boxes, 0, Dialog}, {Overlapped & ~Boxes, Strong, Dialog},
        {Caption, 0, Dialog, "", true}, {Overlapped, Strong, Menu}, {Overlapped, Strong, TaskSwitch},
        {Overlapped, Strong, IconTitle}, {0, 0, Menu, "", true}, {Overlapped, Strong, 0, "NOTES"},
        {0, 0, 0, "NOTES", true}, {Caption, ~Strong}, {Border, ExEdge}, {DlgFrame, ExEdge},
        // With a parent, then owned with something missing.
        {Overlapped, Strong, 0, "", true, Clips}, {FullPopup & ~DlgFrame, Strong, 0, "", true, Clips},
        {FullPopup, ExEdge, 0, "", true, Plain, true}, {Overlapped & ~MaxBox, ExEdge, 0, "", false, 0, true},
        {Overlapped & ~MinBox, ExEdge, 0, "", false, 0, true}, {Overlapped & ~Border, ExEdge, 0, "", false, 0, true}};
    ExpectAll(IsManaged, true, Managed);
    ExpectAll(IsManaged, false, Others);
}

TEST(ClassRules, Dialogs) {
    constexpr WindowTraits Dialogs[] = {
        {0, 0, Dialog}, {MinBox, 0, Dialog}, {MaxBox, 0, Dialog}, {Overlapped & ~(ThickFrame | MinBox), 0, Dialog},
        {FullPopup, 0, 0, "", true, Clips}, {FullPopup | Boxes, 0, 0, "", true}, {FullPopup, 0, TaskSwitch, "", true}};
    constexpr WindowTraits Others[] = {
        {}, {Child | Caption, 0, Dialog}, {Child | FullPopup, 0, 0, "", true}, {Popup | Overlapped, 0, 0, "", true},
        {FullPopup, 0, Dialog, "RunDLL"}, {FullPopup, 0, 0, "OMain", true}, {FullPopup | Boxes, 0, Dialog, "", true},
        {FullPopup}, {FullPopup, 0, 0, "", false, 0, true}, {FullPopup & ~Popup, 0, 0, "", true},
        {FullPopup & ~Border, 0, 0, "", true}, {FullPopup & ~SysMenu, 0, 0, "", true}};
    ExpectAll(IsDialog, true, Dialogs);
    ExpectAll(IsDialog, false, Others);
}

TEST(ClassRules, Remembered) {
    constexpr WindowTraits Remembered[] = {
        {Caption | Boxes}, {Child | Overlapped, ~ExTool}, {Overlapped, 0, 0, "rctrl_Renwnd32"}};
    constexpr WindowTraits Others[] = {
        {}, {Overlapped & ~Border}, {Overlapped & ~DlgFrame}, {Overlapped & ~MinBox}, {Overlapped & ~MaxBox},
        {Overlapped, ExTool | ExApp}, {Overlapped, 0, 0, "rctrl_renwnd32"}};
    ExpectAll(Qualifies, true, Remembered);
    ExpectAll(Qualifies, false, Others);
}

// clang-format on
TEST(ClassRules, NamesOfTheFrameworkAreCutAtTheirLastColon) {
    for (const auto& [name, expected] : {std::pair("Afx:400000:8", "Afx:400000"), std::pair("A:b", "A:b")}) {
        char text[32] = {};
        std::string(name).copy(text, sizeof(text) - 1);
        NormaliseClassName(text);
        EXPECT_STREQ(text, expected);
    }
}

TEST(KeepInside, GivesTheNearestPlace) {
    constexpr std::pair<RECT, POINT> Cases[] = {{{-400, 300, -300, 400}, {-400, 300}},
                                                {{-401, 301, -301, 401}, {-400, 300}},
                                                {{9, 9, 109, 109}, {-100, 100}},
                                                // Of what is too large, the far edges meet.
                                                {{-500, 0, 1, 500}, {-501, -100}}};
    for (const auto& [popup, corner] : Cases)
        EXPECT_EQ(corner, KeepInside(popup, {-400, 100, 0, 400}));
}

}  // namespace
}  // namespace halyard
