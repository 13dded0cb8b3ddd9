// The pictures on the pages. On the dialog's thread.
#pragma once

#include "common/handles.h"

namespace halyard {

// The strip of all pictures, ready to be copied from. One at a time.
class SpriteStrip {
public:
    SpriteStrip() noexcept;
    SpriteStrip(const SpriteStrip&) = delete;
    SpriteStrip& operator=(const SpriteStrip&) = delete;
    ~SpriteStrip();

private:
    Bitmap bitmap;
    MemoryDc dc;
    SelectedObject selected;
};

// Paints the control's picture; false for a control that has none, or without a strip.
bool DrawSprite(const DRAWITEMSTRUCT& item) noexcept;

}  // namespace halyard
