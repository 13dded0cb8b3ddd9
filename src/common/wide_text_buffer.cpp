#include "common/wide_text_buffer.h"

#include "common/win_types.h"

#include <cstring>
#include <new>

namespace halyard {

namespace {

UINT NarrowCodePage() noexcept {
    return TakesWideText() ? CP_UTF8 : CP_ACP;
}

TextBuffer Converted(const wchar_t* wide, UINT codePage) noexcept {
    TextBuffer narrow;
    const int size = WideCharToMultiByte(codePage, 0, wide, -1, nullptr, 0, nullptr, nullptr);
    if (size > 0 && narrow.Reserve(static_cast<unsigned>(size) - 1))
        WideCharToMultiByte(codePage, 0, wide, -1, narrow.Room(), size, nullptr, nullptr);
    return narrow;
}

}  // namespace

bool TakesWideText() noexcept {
    constexpr DWORD NotNt = 0x80000000;
    return (GetVersion() & NotNt) == 0;
}

WideTextBuffer::WideTextBuffer(const char* narrow) noexcept {
    const int size = MultiByteToWideChar(NarrowCodePage(), 0, narrow, -1, nullptr, 0);
    if (size <= 0) return;
    chars = new (std::nothrow) wchar_t[static_cast<std::size_t>(size)]();
    if (chars) MultiByteToWideChar(NarrowCodePage(), 0, narrow, -1, chars, size);
}

WideTextBuffer::WideTextBuffer(const wchar_t* wide) noexcept {
    const int size = lstrlenW(wide) + 1;
    chars = new (std::nothrow) wchar_t[static_cast<std::size_t>(size)]();
    if (chars) std::memcpy(chars, wide, static_cast<std::size_t>(size) * sizeof(wchar_t));
}

WideTextBuffer::~WideTextBuffer() {
    delete[] chars;
}

TextBuffer Narrow(const wchar_t* wide) noexcept {
    return Converted(wide, NarrowCodePage());
}

TextBuffer InAnsi(const char* text) noexcept {
    return Converted(WideTextBuffer(text).Text(), CP_ACP);
}

}  // namespace halyard
