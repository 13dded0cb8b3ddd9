#include "process/hook_record.h"

namespace halyard {

namespace {

struct RecordName {
    explicit RecordName(OwnHook which) noexcept : text{} {
        wsprintfA(text, "TevralHalyardHook%d", static_cast<int>(which));
    }
    char text[32];
};

}  // namespace

void RecordHook(OwnHook which, HHOOK hook) noexcept {
    const RecordName name(which);
    if (hook)
        SetPropA(GetDesktopWindow(), name.text, hook);
    else
        RemovePropA(GetDesktopWindow(), name.text);
}

void DropRecordedHooks() noexcept {
    for (int which = 0; which < static_cast<int>(OwnHook::Count); ++which) {
        const auto hook = RemovePropA(GetDesktopWindow(), RecordName(static_cast<OwnHook>(which)).text);
        if (hook) UnhookWindowsHookEx(static_cast<HHOOK>(hook));
    }
}

}  // namespace halyard
