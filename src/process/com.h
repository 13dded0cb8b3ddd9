// The platform's object model, mapped into the server's process only.
#pragma once

#include "common/win_types.h"

namespace halyard {

// Maps the object model and initialises it on the calling thread, the server's. Once; later calls do nothing.
void BindCom() noexcept;

// The object behind `interfaceId` with one reference, which the caller owns; null when it can't be had. On the thread
// that `BindCom` ran on. `context`: where the object may live, in the platform's CLSCTX bits.
void* CreateObject(const GUID& classId, DWORD context, const GUID& interfaceId) noexcept;

}  // namespace halyard
