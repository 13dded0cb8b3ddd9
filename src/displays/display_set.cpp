#include "displays/display_set.h"

#include "common/rectangles.h"

namespace halyard {

bool DisplaySet::Add(unsigned handle, const RECT& workArea) noexcept {
    if (count >= Limit) return false;
    workBounds = count == 0 ? workArea : UnionOf(workBounds, workArea);
    unsigned place = count;
    for (; place > 0 && displays[place - 1].handle > handle; --place)
        displays[place] = displays[place - 1];
    displays[place] = {handle, workArea};
    return ++count < Limit;
}

unsigned DisplaySet::IndexOf(unsigned handle) const noexcept {
    for (unsigned index = 0; index < count; ++index)
        if (displays[index].handle == handle) return index;
    return None;
}

}  // namespace halyard
