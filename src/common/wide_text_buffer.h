// Wide text, for what people write and for the interfaces of the platform that want it.
#pragma once

#include "common/text_buffer.h"

#include <utility>

namespace halyard {

// Whether the platform takes wide text: so on the NT family. The system's narrow texts are UTF-8 there, so that every
// letter has its place in them; elsewhere they are in the ANSI code page.
bool TakesWideText() noexcept;

// Owns a zero-closed wide text, a copy or converted from one of the system's narrow texts. Empty when memory or the
// conversion fails.
class WideTextBuffer {
public:
    WideTextBuffer() noexcept = default;
    explicit WideTextBuffer(const wchar_t* wide) noexcept;
    explicit WideTextBuffer(const char* narrow) noexcept;
    WideTextBuffer(WideTextBuffer&& other) noexcept : chars(std::exchange(other.chars, nullptr)) {}
    WideTextBuffer& operator=(WideTextBuffer&& other) noexcept {
        std::swap(chars, other.chars);
        return *this;
    }
    ~WideTextBuffer();

    bool IsEmpty() const noexcept { return !*Text(); }

    // Never null; valid as long as the buffer.
    const wchar_t* Text() const noexcept { return chars ? chars : L""; }

private:
    wchar_t* chars = nullptr;
};

// A zero-closed wide text as one of the system's narrow texts; empty when the conversion fails.
TextBuffer Narrow(const wchar_t* wide) noexcept;

// One of the system's narrow texts in the ANSI code page, for those who know nothing else; "?" for other letters.
TextBuffer InAnsi(const char* text) noexcept;

}  // namespace halyard
