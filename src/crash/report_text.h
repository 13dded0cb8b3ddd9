// The text that a report is put together in.
#pragma once

#include "common/text_buffer.h"

#include <cstdint>

namespace halyard {

// Text of a bounded size. Its memory is taken once, at the start, since a program that has just faulted may not have
// any to give later, and what doesn't fit is left out. Not safe for use from several threads.
class ReportText {
public:
    explicit ReportText(unsigned limit) noexcept;  // characters

    void Append(const char* text) noexcept;
    void Clear() noexcept;

    const char* Text() const noexcept { return room.Text(); }
    // Also when there was no memory: nothing is appended any more.
    bool IsFull() const noexcept { return used >= limit; }

private:
    TextBuffer room;
    unsigned limit;
    unsigned used = 0;
};

// Append one formatted piece, of which at most 511 and 2047 characters are taken. Values of 64 bits go through `Hex`:
// the platforms' formats for them differ.
void AppendFormat(ReportText& text, const char* format, ...) noexcept __attribute__((format(printf, 2, 3)));
void AppendFormatLong(ReportText& text, const char* format, ...) noexcept __attribute__((format(printf, 2, 3)));

// A number in hexadecimal capitals, with zeros in front up to `digits`.
struct Hex {
    explicit Hex(std::uint64_t value, unsigned digits = 1) noexcept;
    char text[17];
};

// Copies as much of `source` as fits, always closed by a zero.
void CopyText(char* target, unsigned room, const char* source) noexcept;

}  // namespace halyard
