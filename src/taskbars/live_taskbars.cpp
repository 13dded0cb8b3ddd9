#include "taskbars/live_taskbars.h"

#include <new>

namespace halyard {

namespace {

Row<SecondaryTaskbar*> live;
Row<SecondaryTaskbar*> retired;  // without a window, until their message comes

// False: it wasn't there.
bool TakeOut(Row<SecondaryTaskbar*>& bars, const SecondaryTaskbar* bar) noexcept {
    for (unsigned index = 0; index < bars.Count(); ++index) {
        if (bars.At(index) != bar) continue;
        bars.RemoveAt(index);
        return true;
    }
    return false;
}

}  // namespace

unsigned TaskbarCount() noexcept {
    return live.Count();
}

SecondaryTaskbar& TaskbarAt(unsigned index) noexcept {
    return *live.At(index);
}

bool IsLive(const SecondaryTaskbar* bar) noexcept {
    for (const SecondaryTaskbar* present : live)
        if (present == bar) return true;
    return false;
}

SecondaryTaskbar* AddTaskbar() noexcept {
    auto* bar = new (std::nothrow) SecondaryTaskbar;
    if (!bar) return nullptr;
    live.Add(bar);
    if (IsLive(bar)) return bar;
    delete bar;
    return nullptr;
}

bool RetireTaskbar(SecondaryTaskbar& bar) noexcept {
    if (!TakeOut(live, &bar)) return false;
    retired.Add(&bar);
    return true;
}

void DeleteRetiredTaskbar(LPARAM address) noexcept {
    auto* bar = reinterpret_cast<SecondaryTaskbar*>(address);
    if (TakeOut(retired, bar)) delete bar;
}

}  // namespace halyard
