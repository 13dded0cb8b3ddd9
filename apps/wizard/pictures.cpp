#include "wizard/pictures.h"

#include "common/handles.h"

namespace halyard::wizard {

namespace {

constexpr COLORREF Screen = RGB(38, 110, 150), Window = RGB(250, 250, 250), Caption = RGB(60, 140, 230),
                   Bar = RGB(200, 204, 210), Edge = RGB(60, 64, 70), Other = RGB(31, 111, 92);

// In hundredths of the picture: each display is 48 wide and 100 high, the second begins at 52.
class Canvas {
public:
    Canvas(HDC target, const RECT& target_place) : dc(target), place(target_place) {}
    void Box(int left, int top, int right, int bottom, COLORREF inside) const {
        const Brush brush(CreateSolidBrush(inside));
        const Pen pen(CreatePen(PS_SOLID, 1, Edge));
        const SelectedObject filled(dc, brush.get());
        const SelectedObject drawn(dc, pen.get());
        Rectangle(dc, X(left), Y(top), X(right), Y(bottom));
    }
    void WindowAt(int left, int top, int right, int bottom) const {
        Box(left, top, right, bottom, Window);
        Box(left, top, right, top + 16, Caption);
    }

private:
    int X(int part) const { return place.left + part * (place.right - place.left) / 100; }
    int Y(int part) const { return place.top + part * (place.bottom - place.top) / 100; }
    HDC dc;
    RECT place;
};

}  // namespace

void DrawFeature(HDC dc, const RECT& place, Feature feature) {
    const Canvas canvas(dc, place);
    const COLORREF right = feature == Desktops ? Other : Screen;
    canvas.Box(0, 0, 48, 100, Screen);
    canvas.Box(52, 0, 100, 100, right);
    switch (feature) {
    case Desktops:
        canvas.WindowAt(8, 20, 30, 70);
        canvas.WindowAt(64, 35, 92, 85);
        break;
    case Taskbars:
        canvas.Box(0, 78, 48, 100, Bar);
        canvas.Box(52, 78, 100, 100, Bar);
        break;
    case TaskSwitch:
        canvas.Box(12, 35, 36, 65, Bar);
        canvas.Box(64, 35, 88, 65, Bar);
        break;
    case SystemMenu:
        canvas.WindowAt(6, 12, 44, 90);
        canvas.Box(6, 28, 24, 72, Bar);
        canvas.Box(24, 50, 42, 80, Bar);
        break;
    case WindowMemory:
        canvas.WindowAt(60, 25, 90, 80);
        canvas.Box(8, 25, 38, 80, Screen);
        break;
    case Docking: canvas.WindowAt(22, 25, 48, 80); break;
    case Spanning: canvas.WindowAt(0, 0, 100, 100); break;
    case Transparency:
        canvas.WindowAt(8, 20, 34, 70);
        canvas.Box(18, 40, 44, 90, Caption);
        break;
    case FeatureCount: break;
    }
}

}  // namespace halyard::wizard
