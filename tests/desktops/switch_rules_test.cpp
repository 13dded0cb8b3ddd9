// What a switch does with windows, and how their order is put right.
#include "desktops/switch_rules.h"

#include "desktops/desktop_rules.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <string>

namespace halyard {
namespace {

constexpr DesktopId Here = 1;
constexpr DesktopId There = 2;

// Windows are letters; a small letter after one is its owner's: "Ba" is B, owned by A.
KeyRow Keys(const std::string& letters) {
    KeyRow keys;
    for (const char letter : letters)
        keys.Add(static_cast<WindowKey>(letter));
    return keys;
}

std::string Text(const KeyRow& keys) {
    return {keys.begin(), keys.end()};
}

Row<ListedWindow> Listed(const std::string& text) {
    Row<ListedWindow> windows;
    for (const char letter : text) {
        if (letter < 'a')
            windows.Add({static_cast<WindowKey>(letter), 0});
        else
            windows[windows.Count() - 1].owner = static_cast<WindowKey>(letter - 'a' + 'A');
    }
    return windows;
}

TEST(WantedOrder, IsTheRememberedOneWithNewcomersAtSensiblePlaces) {
    constexpr struct {
        const char* present;
        const char* remembered;
        const char* wanted;
    } Cases[] = {
        {"CAB", "", "CAB"},     {"CAB", "ABC", "ABC"}, {"CA", "ABC", "AC"},      {"CAXB", "ABC", "AXBC"},
        {"XYAB", "AB", "AXYB"}, {"XaAB", "BA", "BXA"}, {"ZyYaAB", "AB", "ZYAB"}, {"X", "ABC", "X"},
    };
    for (const auto& test : Cases)
        EXPECT_EQ(test.wanted, Text(WantedOrder(Listed(test.present), Keys(test.remembered))))
            << test.present << " by " << test.remembered;
}

TEST(RaiseGroup, TakesOwnersAndOwnedAlong) {
    // D is owned by E, which is owned by C.
    for (const auto& [window, raised] : {std::pair('B', "BDAEC"), std::pair('E', "DECAB"), std::pair('C', "DECAB"),
                                         std::pair('A', "ADECB"), std::pair('X', "DAECB")}) {
        KeyRow order = Keys("DAECB");
        RaiseGroup(order, Listed("DeAEcCB"), static_cast<WindowKey>(window));
        EXPECT_EQ(raised, Text(order)) << window;
    }
}

TEST(OrderWithLate, MovesNoneButTheLate) {
    EXPECT_EQ("DABC", Text(OrderWithLate(Keys("CDAB"), Keys("ABCD"), Keys("BC"))));
}

// Carries placements out as the platform does.
std::string Placed(const std::string& present, const std::string& wanted, unsigned& moves) {
    std::string order = present;
    moves = 0;
    for (const Placement& placement : PlacementsFor(Keys(present), Keys(wanted))) {
        ++moves;
        order.erase(order.find(static_cast<char>(placement.window)), 1);
        const std::size_t place = placement.above ? order.find(static_cast<char>(placement.above)) + 1 : 0;
        order.insert(place, 1, static_cast<char>(placement.window));
    }
    return order;
}

TEST(PlacementsFor, MoveAsFewAsPossible) {
    constexpr struct {
        const char* present;
        unsigned moves;
    } Cases[] = {{"", 0},      {"A", 0},     {"ABCDE", 0}, {"BCDEA", 1}, {"EABCD", 1},
                 {"BACDE", 1}, {"EDCBA", 4}, {"DEABC", 2}, {"ADBEC", 2}};
    for (const auto& test : Cases) {
        std::string wanted = test.present;
        std::sort(wanted.begin(), wanted.end());
        unsigned moves = 0;
        EXPECT_EQ(wanted, Placed(test.present, wanted, moves)) << test.present;
        EXPECT_EQ(test.moves, moves) << test.present;
    }
}

SeenRow OwnerAndOwned(DesktopId ofOwner, bool ownerEnabled, DesktopId ofOwned) {
    SeenRow windows;
    windows.Add({.key = 'B', .owner = 'A', .recorded = ofOwned});
    windows.Add({.key = 'A', .recorded = ofOwner, .enabled = ownerEnabled});
    return windows;
}

TEST(DesktopOf, ModalDialogsGoWithTheirOwners) {
    constexpr struct {
        DesktopId owner;
        bool ownerEnabled;
        DesktopId owned;
        DesktopId desktop;
    } Cases[] = {{Here, true, NoDesktop, Here},    {Here, true, There, There},
                 {Here, false, There, Here},       {Here, false, NoDesktop, Here},
                 {NoDesktop, false, There, There}, {AllDesktopsId, false, There, AllDesktopsId}};
    for (const auto& test : Cases) {
        const SeenRow windows = OwnerAndOwned(test.owner, test.ownerEnabled, test.owned);
        EXPECT_EQ(test.desktop, DesktopOf(windows, windows[0])) << test.owner << test.ownerEnabled << test.owned;
    }
    SeenRow ring;
    ring.Add({.key = 'A', .owner = 'B', .recorded = NoDesktop});
    ring.Add({.key = 'B', .owner = 'A', .recorded = NoDesktop});
    EXPECT_EQ(NoDesktop, DesktopOf(ring, ring[0]));
}

TEST(DecideChange, GoesByTheDesktopAndByWhatWasAskedLast) {
    using enum WindowChange;
    constexpr struct {
        bool visible, marked, showAsked;
        WindowChange here, there;
    } Cases[] = {{true, false, false, Nothing, Hide},
                 {true, true, false, Show, Hide},
                 {false, true, false, Show, Nothing},
                 {false, false, true, Nothing, Hide},
                 {false, false, false, Nothing, Nothing}};
    for (const auto& test : Cases) {
        const SeenWindow window = {.visible = test.visible, .marked = test.marked, .showAsked = test.showAsked};
        for (const DesktopId desktop : {Here, AllDesktopsId, NoDesktop})
            EXPECT_EQ(test.here, DecideChange(window, desktop, Here));
        EXPECT_EQ(test.there, DecideChange(window, There, Here));
    }
}

TEST(ChooseFront, TakesTheRememberedOneOrTheNext) {
    SeenRow windows;
    windows.Add({.key = 'A', .activatable = false});
    windows.Add({.key = 'B', .minimised = true});
    windows.Add({.key = 'C'});
    windows.Add({.key = 'E', .owner = 'D'});
    windows.Add({.key = 'D', .enabled = false});
    for (const auto& [order, remembered, front] :
         {std::tuple("ABCED", 'C', 'C'), std::tuple("ABCED", 'E', 'E'), std::tuple("ABCED", 'X', 'C'),
          std::tuple("ABCED", 'B', 'C'), std::tuple("ABCED", 'D', 'E'), std::tuple("ABCD", 'D', 'C'),
          std::tuple("AB", 'A', '\0'), std::tuple("", 'C', '\0')})
        EXPECT_EQ(front, static_cast<char>(ChooseFront(windows, Keys(order), static_cast<WindowKey>(remembered))))
            << order << " with " << remembered;
}

TEST(DesktopIdOfKey, TakesPlainNumbersOnly) {
    constexpr std::pair<const char*, unsigned> Cases[] = {
        {"1", 1},  {"12", 12}, {"1073741823", 1073741823}, {"1073741824", 0}, {"0", 0},
        {"07", 0}, {"1x", 0},  {"99999999999", 0}};
    for (const auto& [name, id] : Cases)
        EXPECT_EQ(DesktopIdOfKey(name), id) << name;
}

}  // namespace
}  // namespace halyard
