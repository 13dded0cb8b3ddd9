#include "config/sprites.h"

#include "process/profile.h"
#include "resources/resource_ids.h"

namespace halyard {

namespace {

// Where a control's picture stands in the strip.
struct Sprite {
    UINT control;
    int x;
    int width;
};

constexpr int SpriteHeight = 32;
constexpr COLORREF SpriteBackground = 255;

constexpr Sprite Sprites[] = {
    {IDC_WINDOWS_PICTURE, 0, 32},   {IDC_DIALOGS_PICTURE, 32, 32},   {IDC_EFFECTS_PICTURE, 64, 30},
    {IDC_DESKTOPS_PICTURE, 98, 32}, {IDC_TASKBARS_PICTURE, 131, 35}, {IDC_MIRROR_PICTURE, 168, 35},
    {IDC_HOTKEYS_PICTURE, 204, 32},
};

HDC stripDc = nullptr;  // of the strip that there is

HBITMAP LoadStrip() noexcept {
    return static_cast<HBITMAP>(
        LoadImageA(profile.moduleInstance, MAKEINTRESOURCEA(IDB_SPRITES), IMAGE_BITMAP, 0, 0, LR_CREATEDIBSECTION));
}

}  // namespace

SpriteStrip::SpriteStrip() noexcept
    : bitmap(LoadStrip()), dc(CreateCompatibleDC(ScreenDc().get())), selected(dc.get(), bitmap.get()) {
    stripDc = dc.get();
}

SpriteStrip::~SpriteStrip() {
    stripDc = nullptr;
}

bool DrawSprite(const DRAWITEMSTRUCT& item) noexcept {
    if (!stripDc) return false;
    for (const Sprite& sprite : Sprites) {
        if (sprite.control != item.CtlID) continue;
        TransparentBlt(item.hDC, 0, 0, sprite.width, SpriteHeight, stripDc, sprite.x, 0, sprite.width, SpriteHeight,
                       SpriteBackground);
        return true;
    }
    return false;
}

}  // namespace halyard
