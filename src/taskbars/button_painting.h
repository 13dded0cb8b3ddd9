// How the buttons look where the platform doesn't draw them as a taskbar's. On the server's thread.
#pragma once

#include "taskbars/secondary_taskbar.h"

namespace halyard {

// NM_CUSTOMDRAW. False: the platform draws, and answers.
bool DrawButton(SecondaryTaskbar& bar, const NMTBCUSTOMDRAW& drawing, LRESULT& result) noexcept;

}  // namespace halyard
