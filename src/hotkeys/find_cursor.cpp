#include "hotkeys/find_cursor.h"

#include "common/handles.h"

namespace halyard {

namespace {

constexpr int Radii[] = {100, 80, 60, 40, 20};  // pixels
constexpr int RingCount = sizeof(Radii) / sizeof(Radii[0]);
constexpr int Idle = -1;

struct FindCursorState {
    int step = Idle;  // index of the ring on the screen
    RECT ring = {};
    Pen pen;  // made at first use, kept to the process's end
};

FindCursorState state;

// Draws by inversion, so that drawing the same ring again takes it away.
class RingDrawing {
public:
    explicit RingDrawing(HPEN pen) noexcept
        : oldMode(SetROP2(screen.get(), R2_XORPEN)), brush(screen.get(), GetStockObject(NULL_BRUSH)),
          selectedPen(screen.get(), pen) {}
    RingDrawing(const RingDrawing&) = delete;
    RingDrawing& operator=(const RingDrawing&) = delete;
    ~RingDrawing() { SetROP2(screen.get(), oldMode); }
    void Draw(const RECT& ring) noexcept { Ellipse(screen.get(), ring.left, ring.top, ring.right, ring.bottom); }

private:
    ScreenDc screen;
    int oldMode;
    SelectedObject brush;
    SelectedObject selectedPen;
};

RECT RingRoundCursor(int radius) noexcept {
    POINT cursor = {};
    GetCursorPos(&cursor);
    return {cursor.x - radius, cursor.y - radius, cursor.x + radius, cursor.y + radius};
}

bool Advance() noexcept {
    if (!state.pen) state.pen.Reset(CreatePen(PS_INSIDEFRAME, 3, RGB(0x80, 0x80, 0x80)));
    RingDrawing drawing(state.pen.get());
    if (state.step != Idle) drawing.Draw(state.ring);
    if (++state.step == RingCount) {
        state.step = Idle;
        return false;
    }
    state.ring = RingRoundCursor(Radii[state.step]);
    drawing.Draw(state.ring);
    return true;
}

}  // namespace

bool StartFindCursor() noexcept {
    return state.step == Idle && Advance();
}

// Any program can send the timer's message.
bool StepFindCursor() noexcept {
    return state.step != Idle && Advance();
}

}  // namespace halyard
