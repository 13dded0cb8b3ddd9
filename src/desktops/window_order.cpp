#include "desktops/window_order.h"

namespace halyard {

namespace {

constexpr unsigned None = static_cast<unsigned>(-1);

unsigned IndexOfKey(const Row<ListedWindow>& windows, WindowKey key) noexcept {
    unsigned index = 0;
    while (index < windows.Count() && windows[index].key != key)
        ++index;
    return index;
}

// Where a window that isn't remembered goes among the ones that are placed already.
unsigned PlaceOfNewcomer(const Row<ListedWindow>& present, unsigned index, const KeyRow& placed) noexcept {
    const unsigned owner = placed.IndexOf(present[index].owner);
    if (owner < placed.Count()) return owner;
    for (unsigned above = index; above > 0; --above) {
        const unsigned position = placed.IndexOf(present[above - 1].key);
        if (position < placed.Count()) return position + 1;
    }
    return 1;
}

WindowKey RootOf(const Row<ListedWindow>& windows, WindowKey key) noexcept {
    constexpr int Depth = 16;  // owners can't form a ring, but the row is of several moments
    for (int step = 0; step < Depth; ++step) {
        const unsigned index = IndexOfKey(windows, key);
        if (index == windows.Count() || IndexOfKey(windows, windows[index].owner) == windows.Count()) break;
        key = windows[index].owner;
    }
    return key;
}

// For each position whether it belongs to the longest ascending run.
Row<bool> LongestRun(const Row<unsigned>& ranks) noexcept {
    Row<unsigned> length;
    Row<unsigned> previous;
    unsigned last = None;
    for (unsigned at = 0; at < ranks.Count(); ++at) {
        length.Add(1);
        previous.Add(None);
        for (unsigned before = 0; before < at; ++before) {
            if (ranks[before] > ranks[at] || length[before] < length[at]) continue;
            length[at] = length[before] + 1;
            previous[at] = before;
        }
        if (last == None || length[at] > length[last]) last = at;
    }
    Row<bool> stays;
    for (unsigned at = 0; at < ranks.Count(); ++at)
        stays.Add(false);
    for (; last != None; last = previous[last])
        stays[last] = true;
    return stays;
}

}  // namespace

KeyRow CopyOf(const KeyRow& keys) noexcept {
    KeyRow copy;
    for (const WindowKey key : keys)
        copy.Add(key);
    return copy;
}

KeyRow Intersection(const KeyRow& keys, const KeyRow& chosen) noexcept {
    KeyRow both;
    for (const WindowKey key : keys)
        if (chosen.Has(key)) both.Add(key);
    return both;
}

KeyRow WantedOrder(const Row<ListedWindow>& present, const KeyRow& remembered) noexcept {
    KeyRow wanted;
    for (const WindowKey key : remembered)
        if (IndexOfKey(present, key) < present.Count()) wanted.Add(key);
    const bool known = wanted.Count() > 0;
    // From the bottom up: an owner comes before what it owns.
    for (unsigned index = present.Count(); index > 0; --index)
        if (!wanted.Has(present[index - 1].key))
            wanted.Insert(known ? PlaceOfNewcomer(present, index - 1, wanted) : 0, present[index - 1].key);
    return wanted;
}

void RaiseGroup(KeyRow& order, const Row<ListedWindow>& present, WindowKey window) noexcept {
    const WindowKey root = RootOf(present, window);
    KeyRow raised;
    for (const WindowKey key : order)
        if (RootOf(present, key) == root) raised.Add(key);
    for (const WindowKey key : order)
        if (!raised.Has(key)) raised.Add(key);
    if (order.Has(window)) order.Swap(raised);
}

KeyRow OrderWithLate(const KeyRow& present, const KeyRow& wanted, const KeyRow& late) noexcept {
    KeyRow order;
    for (const WindowKey key : present)
        if (!late.Has(key)) order.Add(key);
    for (unsigned index = 0; index < wanted.Count(); ++index) {
        if (!late.Has(wanted[index]) || !present.Has(wanted[index])) continue;
        unsigned place = 0;
        for (unsigned above = index; above > 0 && place == 0; --above) {
            const unsigned position = order.IndexOf(wanted[above - 1]);
            if (position < order.Count()) place = position + 1;
        }
        order.Insert(place, wanted[index]);
    }
    return order;
}

Row<Placement> PlacementsFor(const KeyRow& present, const KeyRow& wanted) noexcept {
    Row<unsigned> ranks;
    for (const WindowKey key : present)
        ranks.Add(wanted.IndexOf(key));
    const Row<bool> stays = LongestRun(ranks);
    Row<Placement> placements;
    for (unsigned index = 0; index < wanted.Count(); ++index)
        if (!stays[present.IndexOf(wanted[index])]) placements.Add({wanted[index], index > 0 ? wanted[index - 1] : 0});
    return placements;
}

}  // namespace halyard
