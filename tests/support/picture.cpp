#include "support/picture.h"

#include "common/handles.h"
#include "support/arrangement.h"
#include "support/desktop_fixture.h"

#include <algorithm>

namespace halyard::test {

std::vector<COLORREF> PixelsOf(const RECT& part) {
    const LONG width = part.right - part.left, height = part.bottom - part.top;
    BITMAPINFO info = {};
    info.bmiHeader = {sizeof(info.bmiHeader), width, -height, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
    void* bits = nullptr;
    const ScreenDc screen;
    const MemoryDc memory(CreateCompatibleDC(screen.get()));
    const Bitmap bitmap(CreateDIBSection(screen.get(), &info, DIB_RGB_COLORS, &bits, nullptr, 0));
    const SelectedObject selected(memory.get(), bitmap.get());
    BitBlt(memory.get(), 0, 0, width, height, screen.get(), part.left, part.top, SRCCOPY);
    GdiFlush();
    std::vector<COLORREF> pixels(static_cast<DWORD*>(bits), static_cast<DWORD*>(bits) + width * height);
    for (COLORREF& pixel : pixels)
        pixel &= 0xFFFFFF;
    return pixels;
}

std::string SavePicture(const std::string& name) {
    std::string path = BinFolder() + "out\\" + name + ".png", below = path.substr(2);
    std::replace(below.begin(), below.end(), '\\', '/');
    DeleteFileA(path.c_str());
    RunBeneath("mkdir -p " + below.substr(0, below.rfind('/')) + "; import -window root png:" + below + ".part && mv " +
               below + ".part " + below);
    const bool saved = Eventually([&] { return GetFileAttributesA(path.c_str()) != INVALID_FILE_ATTRIBUTES; });
    return saved ? path : "could not be saved";
}

}  // namespace halyard::test
