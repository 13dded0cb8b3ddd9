// The behaviours in the test's own process, on real windows, real displays and an empty registry.
#pragma once

#include "displays/displays.h"
#include "hook/tracked_window.h"
#include "support/rect_values.h"
#include "support/store_fixture.h"
#include "support/test_windows.h"

#include <tuple>
#include <vector>

namespace halyard::test {

struct RealDisplay {
    HMONITOR handle;
    RECT whole;
    RECT workArea;
};

// As the platform numbers them.
std::vector<RealDisplay> RealDisplays();

RECT NormalPlaceOf(const TestWindow& window);

// A window with its record, as a hook would have made it.
struct KnownWindow : TestWindow {
    explicit KnownWindow(const WindowForm& form = {}) : TestWindow(form), tracked(get()) {}
    explicit KnownWindow(HWND made) : TestWindow(made), tracked(made) {}

    WNDPROC Procedure() const;
    TrackedWindow tracked;
};

// From the next refresh on the library finds no more than the first `count` displays. What the platform itself says of
// windows and rectangles stays.
void PretendDisplays(unsigned count);

// Message number, window, desktop id.
using ToServer = std::tuple<UINT, HWND, DesktopId>;

class BehaviourTest : public StoreTest {
protected:
    BehaviourTest();
    ~BehaviourTest() override;

    // What the server was sent or posted since the last call of this.
    std::vector<ToServer> TakeMessages();

    const std::vector<RealDisplay> displays;
    RECT bounds;  // of all work areas
    TestWindow server;

private:
    std::vector<ToServer> messages;
};

}  // namespace halyard::test
