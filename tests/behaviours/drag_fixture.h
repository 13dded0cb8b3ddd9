// Move loops as the platform sends them, with the cursor for real.
#pragma once

#include "behaviour_fixture.h"
#include "behaviours/drag_loop.h"
#include "hook/behaviours.h"

namespace halyard::test {

class DragTest : public BehaviourTest {
protected:
    DragTest() {
        settings.SetDragTransPerCent(75);
        UseSettings(true, false);
    }
    ~DragTest() override { EndDragLoop(); }

    static void UseSettings(bool autodock, bool transparency) {
        settings.SetAutodock(autodock);
        settings.SetDragTrans(transparency);
    }

    static WindowForm Form(const RECT& place, bool wide = false) {
        return {.style = WS_OVERLAPPEDWINDOW | WS_VISIBLE, .place = place, .wide = wide};
    }

    // The hook calls when the program has had the message.
    void Enter(KnownWindow& window) {
        SetCursorPos(grip.x, grip.y);
        start = window.Place();
        SendMessageA(window.get(), WM_ENTERSIZEMOVE, 0, 0);
        BeginDragLoop(window.tracked);
    }

    // The cursor is `way` from where the loop began; `rect` is what the platform proposes, and then what came of it.
    LRESULT Send(const KnownWindow& window, POINT way, RECT& rect) {
        SetCursorPos(grip.x + way.x, grip.y + way.y);
        return SendMessageA(window.get(), WM_MOVING, 9, reinterpret_cast<LPARAM>(&rect));
    }
    // As a platform that counts from where the loop began.
    LRESULT Move(const KnownWindow& window, POINT way, RECT& rect) {
        rect = Shifted(start, way.x, way.y);
        return Send(window, way, rect);
    }
    RECT Move(const KnownWindow& window, POINT way) {
        RECT proposed;
        Move(window, way, proposed);
        return proposed;
    }

    static LRESULT Exit(const KnownWindow& window) { return SendMessageA(window.get(), WM_EXITSIZEMOVE, 0, 0); }

    POINT grip = {640, 400};

private:
    RECT start = {};
};

}  // namespace halyard::test
