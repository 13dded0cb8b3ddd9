#include "support/picture.h"

#include "support/desktop_fixture.h"

#include <cstdio>
#include <cstring>

namespace halyard::test {

namespace {

std::string OutFolder() {
    char chosen[MAX_PATH] = {};
    const bool named = GetEnvironmentVariableA("HALYARD_TEST_OUT", chosen, sizeof(chosen)) != 0;
    const std::string folder = named ? chosen : BinFolder() + "out";
    CreateDirectoryA(folder.c_str(), nullptr);
    return folder + "\\";
}

BITMAPINFOHEADER Header() {
    BITMAPINFOHEADER header = {};
    header.biSize = sizeof(header);
    header.biWidth = GetSystemMetrics(SM_CXVIRTUALSCREEN);
    header.biHeight = GetSystemMetrics(SM_CYVIRTUALSCREEN);
    header.biPlanes = 1;
    header.biBitCount = 32;
    return header;
}

}  // namespace

std::vector<unsigned char> ScreenPixels() {
    BITMAPINFOHEADER header = Header();
    std::vector<unsigned char> copy(std::size_t(header.biWidth) * header.biHeight * 4);
    void* pixels = nullptr;
    HDC screen = GetDC(nullptr);
    HDC memory = CreateCompatibleDC(screen);
    HBITMAP bitmap =
        CreateDIBSection(screen, reinterpret_cast<BITMAPINFO*>(&header), DIB_RGB_COLORS, &pixels, nullptr, 0);
    HGDIOBJ old = SelectObject(memory, bitmap);
    BitBlt(memory, 0, 0, header.biWidth, header.biHeight, screen, GetSystemMetrics(SM_XVIRTUALSCREEN),
           GetSystemMetrics(SM_YVIRTUALSCREEN), SRCCOPY);
    SelectObject(memory, old);
    DeleteDC(memory);
    ReleaseDC(nullptr, screen);
    if (pixels) std::memcpy(copy.data(), pixels, copy.size());
    DeleteObject(bitmap);
    return copy;
}

std::string SavePicture(const std::string& name) {
    const BITMAPINFOHEADER header = Header();
    const std::vector<unsigned char> pixels = ScreenPixels();
    BITMAPFILEHEADER file = {};
    file.bfType = 0x4D42;  // "BM"
    file.bfOffBits = sizeof(file) + sizeof(header);
    file.bfSize = file.bfOffBits + static_cast<DWORD>(pixels.size());
    std::string path = OutFolder() + name + ".bmp";
    std::FILE* out = std::fopen(path.c_str(), "wb");
    if (out) {
        std::fwrite(&file, sizeof(file), 1, out);
        std::fwrite(&header, sizeof(header), 1, out);
        std::fwrite(pixels.data(), pixels.size(), 1, out);
    }
    if (!out || std::fclose(out) != 0) path.clear();
    return path;
}

}  // namespace halyard::test
