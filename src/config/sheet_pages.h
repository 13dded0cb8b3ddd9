// The pages of the property sheet in their order. Other programs name them by these numbers.
#pragma once

namespace halyard {

enum SheetPage : int { WindowsPage, TaskbarsPage, DesktopsPage, HotkeysPage, SheetPageCount };
inline constexpr int PresentPage = -1;  // whichever shows

}  // namespace halyard
