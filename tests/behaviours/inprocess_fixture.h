// The behaviours in the test's own process, on real windows, real displays and an empty registry.
#pragma once

#include "displays/displays.h"
#include "hook/tracked_window.h"
#include "support/rect_values.h"
#include "support/store_fixture.h"
#include "support/test_windows.h"

namespace halyard::test {

// A window with its record, as a hook would have made it.
struct KnownWindow : TestWindow {
    explicit KnownWindow(const WindowForm& form = {}) : TestWindow(form), tracked(get()) {}
    explicit KnownWindow(HWND made) : TestWindow(made), tracked(made) {}

    WNDPROC Procedure() const {
        const auto read = IsWindowUnicode(get()) ? GetWindowLongPtrW : GetWindowLongPtrA;
        return reinterpret_cast<WNDPROC>(read(get(), GWLP_WNDPROC));
    }
    TrackedWindow tracked;
};

struct InProcessTest : StoreTest {
    InProcessTest() {
        profile.program = {};
        RefreshDisplays();
    }
};

}  // namespace halyard::test
