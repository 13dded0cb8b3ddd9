// Ways to the controls of a page. On the dialog's thread.
#pragma once

#include "common/text_buffer.h"
#include "common/win_types.h"

namespace halyard {

// Makes the Apply button live.
void PageChanged(HWND page) noexcept;

// A control that has the focus and becomes grey hands it on.
void EnableControl(HWND page, int control, bool enabled) noexcept;
bool IsChecked(HWND page, int control) noexcept;
void SetCheck(HWND page, int control, bool checked) noexcept;

// Images of the lists.
enum ListImage : int { DesktopImage, DefaultDesktopImage, HotkeyImage };

// Gives the list view its small images, which it frees.
void GiveListImages(HWND list) noexcept;

}  // namespace halyard
