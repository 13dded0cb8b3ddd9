#include "crash/report_text.h"

#include <algorithm>
#include <cstdarg>
#include <cstdio>
#include <cstring>

namespace halyard {

namespace {

// Formats into a work area and appends that, whatever of it there was room for.
template <std::size_t Room>
void AppendPiece(ReportText& text, const char* format, va_list arguments) noexcept {
    char area[Room] = {};
#ifdef _WIN32
    // The platform's own, which doesn't close a text that fills the area. The compiler's would add 20 KB to the
    // library.
    _vsnprintf(area, Room - 1, format, arguments);
#else
    std::vsnprintf(area, Room, format, arguments);
#endif
    text.Append(area);
}

}  // namespace

ReportText::ReportText(unsigned wantedLimit) noexcept : limit(room.Reserve(wantedLimit) ? wantedLimit : 0) {}

void ReportText::Append(const char* text) noexcept {
    const auto length = static_cast<unsigned>(std::min<std::size_t>(std::strlen(text), limit - used));
    if (length == 0) return;
    std::memcpy(room.Room() + used, text, length);
    used += length;
    room.Room()[used] = 0;
}

void ReportText::Clear() noexcept {
    used = 0;
    if (char* start = room.Room()) *start = 0;
}

void AppendFormat(ReportText& text, const char* format, ...) noexcept {
    va_list arguments;
    va_start(arguments, format);
    AppendPiece<512>(text, format, arguments);
    va_end(arguments);
}

void AppendFormatLong(ReportText& text, const char* format, ...) noexcept {
    va_list arguments;
    va_start(arguments, format);
    AppendPiece<2048>(text, format, arguments);
    va_end(arguments);
}

Hex::Hex(std::uint64_t value, unsigned digits) noexcept : text{} {
    unsigned count = 1;
    while (count < 16 && value >> (4 * count))
        ++count;
    count = std::clamp(digits, count, 16U);
    for (unsigned place = count; place-- > 0; value >>= 4)
        text[place] = "0123456789ABCDEF"[value & 15];
}

void CopyText(char* target, unsigned room, const char* source) noexcept {
    if (room == 0) return;
    const std::size_t length = std::min<std::size_t>(std::strlen(source), room - 1);
    std::memcpy(target, source, length);
    target[length] = 0;
}

}  // namespace halyard
