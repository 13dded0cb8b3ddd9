#include "support/layouts.h"

#include <algorithm>

namespace halyard::test {

namespace {

long long Overlap(const RECT& a, const RECT& b) {
    const long long width = std::min(a.right, b.right) - std::max(a.left, b.left);
    const long long height = std::min(a.bottom, b.bottom) - std::max(a.top, b.top);
    return width > 0 && height > 0 ? width * height : 0;
}

long long Distance(const RECT& a, const RECT& b) {
    const long long x = std::max<long long>({0, a.left - b.right, b.left - a.right});
    const long long y = std::max<long long>({0, a.top - b.bottom, b.top - a.bottom});
    return x * x + y * y;
}

Screen Plain(const RECT& whole) {
    return {whole, whole};
}

std::vector<Screen> Row(int count) {
    std::vector<Screen> screens;
    for (int index = 0; index < count; ++index)
        screens.push_back(Plain({index * 800, 0, index * 800 + 800, 600}));
    return screens;
}

}  // namespace

bool Layout::HasBars() const {
    return std::any_of(screens.begin(), screens.end(),
                       [](const Screen& screen) { return !(screen.whole == screen.workArea); });
}

RECT Layout::WorkBounds() const {
    RECT bounds = screens.front().workArea;
    for (const Screen& screen : screens) {
        bounds.left = std::min(bounds.left, screen.workArea.left);
        bounds.top = std::min(bounds.top, screen.workArea.top);
        bounds.right = std::max(bounds.right, screen.workArea.right);
        bounds.bottom = std::max(bounds.bottom, screen.workArea.bottom);
    }
    return bounds;
}

const Screen& Layout::Nearest(const RECT& rect) const {
    return *std::max_element(screens.begin(), screens.end(), [&](const Screen& a, const Screen& b) {
        const long long overlapA = Overlap(rect, a.whole);
        const long long overlapB = Overlap(rect, b.whole);
        if (overlapA || overlapB) return overlapA < overlapB;
        return Distance(rect, a.whole) > Distance(rect, b.whole);
    });
}

unsigned Layout::OverlappedBy(const RECT& rect) const {
    return static_cast<unsigned>(std::count_if(screens.begin(), screens.end(),
                                               [&](const Screen& screen) { return Overlap(rect, screen.whole) > 0; }));
}

const std::vector<Layout>& Layouts() {
    static const std::vector<Layout> layouts = {
        {"one", {Plain({0, 0, 1024, 768})}},
        {"side by side", {Plain({0, 0, 1024, 768}), Plain({1024, 0, 2048, 768})}},
        {"stacked", {Plain({0, 0, 1024, 768}), Plain({0, 768, 1024, 1536})}},
        {"L", {Plain({0, 0, 1024, 768}), Plain({1024, 0, 2048, 768}), Plain({0, 768, 1024, 1536})}},
        {"uneven heights", {Plain({0, 0, 1280, 1024}), Plain({1280, 0, 2304, 768})}},
        {"uneven, aligned below", {Plain({0, 0, 1024, 768}), Plain({1024, -256, 2304, 768})}},
        {"negative origin", {Plain({0, 0, 1280, 1024}), Plain({-1024, -100, 0, 668}), Plain({0, -600, 800, 0})}},
        {"bar below on the first", {{{0, 0, 1024, 768}, {0, 0, 1024, 740}}, Plain({1024, 0, 2048, 768})}},
        {"bar below on both", {{{0, 0, 1024, 768}, {0, 0, 1024, 740}}, {{1024, 0, 2048, 768}, {1024, 0, 2048, 740}}}},
        {"bars left and right",
         {{{0, 0, 1024, 768}, {60, 0, 1024, 768}}, {{1024, 0, 2048, 768}, {1024, 0, 1988, 768}}}},
        {"bars at the inner edges",
         {{{0, 0, 1024, 768}, {0, 0, 964, 768}}, {{1024, 0, 2048, 768}, {1084, 0, 2048, 768}}}},
        {"bar above on the lower", {Plain({0, 0, 1024, 768}), {{0, 768, 1024, 1536}, {0, 798, 1024, 1536}}}},
        {"ten in a row", Row(10)},
    };
    return layouts;
}

}  // namespace halyard::test
