#include "support/picture.h"

#include "support/desktop_fixture.h"

#include <cstdio>

namespace halyard::test {

namespace {

std::string OutFolder() {
    char chosen[MAX_PATH] = {};
    const bool named = GetEnvironmentVariableA("HALYARD_TEST_OUT", chosen, sizeof(chosen)) != 0;
    const std::string folder = named ? chosen : BinFolder() + "out";
    CreateDirectoryA(folder.c_str(), nullptr);
    return folder + "\\";
}

}  // namespace

std::string SavePicture(const std::string& name) {
    BITMAPINFO info = {};
    BITMAPINFOHEADER& header = info.bmiHeader;
    header.biSize = sizeof(header);
    header.biWidth = GetSystemMetrics(SM_CXVIRTUALSCREEN);
    header.biHeight = GetSystemMetrics(SM_CYVIRTUALSCREEN);
    header.biPlanes = 1;
    header.biBitCount = 32;
    const std::size_t size = static_cast<std::size_t>(header.biWidth) * header.biHeight * 4;
    void* pixels = nullptr;
    HDC screen = GetDC(nullptr);
    HDC memory = CreateCompatibleDC(screen);
    HBITMAP bitmap = CreateDIBSection(screen, &info, DIB_RGB_COLORS, &pixels, nullptr, 0);
    HGDIOBJ old = SelectObject(memory, bitmap);
    BitBlt(memory, 0, 0, header.biWidth, header.biHeight, screen, GetSystemMetrics(SM_XVIRTUALSCREEN),
           GetSystemMetrics(SM_YVIRTUALSCREEN), SRCCOPY);
    SelectObject(memory, old);
    DeleteDC(memory);
    ReleaseDC(nullptr, screen);

    BITMAPFILEHEADER file = {};
    file.bfType = 0x4D42;  // "BM"
    file.bfOffBits = sizeof(file) + sizeof(header);
    file.bfSize = file.bfOffBits + static_cast<DWORD>(size);
    std::string path = OutFolder() + name + ".bmp";
    std::FILE* out = pixels ? std::fopen(path.c_str(), "wb") : nullptr;
    if (out) {
        std::fwrite(&file, sizeof(file), 1, out);
        std::fwrite(&header, sizeof(header), 1, out);
        std::fwrite(pixels, size, 1, out);
    }
    if (!out || std::fclose(out) != 0) path.clear();
    DeleteObject(bitmap);
    return path;
}

}  // namespace halyard::test
