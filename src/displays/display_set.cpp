#include "displays/display_set.h"

#include "common/rectangles.h"

namespace halyard {

bool DisplaySet::Add(Display display) noexcept {
    if (count >= Limit) return false;
    workBounds = count == 0 ? display.workArea : UnionOf(workBounds, display.workArea);
    unsigned place = count;
    for (; place > 0 && displays[place - 1].handle > display.handle; --place)
        displays[place] = displays[place - 1];
    display.number = ++count;
    displays[place] = display;
    return count < Limit;
}

const DisplaySet::Display* DisplaySet::Numbered(unsigned number) const noexcept {
    for (unsigned index = 0; index < count; ++index)
        if (displays[index].number == number) return &displays[index];
    return nullptr;
}

unsigned DisplaySet::IndexOf(unsigned handle) const noexcept {
    for (unsigned index = 0; index < count; ++index)
        if (displays[index].handle == handle) return index;
    return None;
}

}  // namespace halyard
