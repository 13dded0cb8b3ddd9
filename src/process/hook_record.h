// Which hooks this system has set, kept where it outlives every process of it: on the desktop's window. Wine keeps a
// hook whose thread has been killed, and with it the library in every program that starts later.
#pragma once

#include "common/win_types.h"

namespace halyard {

enum class OwnHook { SentMessages, PostedMessages, ShellTray, Count };

// A null hook ends the record.
void RecordHook(OwnHook which, HHOOK hook) noexcept;

// Takes away every hook on record, whoever set it. Only while no server lives. Any process.
void DropRecordedHooks() noexcept;

}  // namespace halyard
