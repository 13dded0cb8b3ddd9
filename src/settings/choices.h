// Settings that have more than two values, as they are stored.
#pragma once

#include "common/win_types.h"

namespace halyard {

enum DialogControl : DWORD {
    DialogsAsTheyCome = 0,
    OnApplicationWindow = 1,
    OnApplicationDisplay = 2,
    OnNumberedDisplay = 3,
    OnCursorDisplay = 4,
};

// When maximising means all displays.
enum SpanningControl : DWORD { SpansNever = 0, SpansWithControlKey = 1, SpansAlways = 2 };

}  // namespace halyard
