// Wide text, for what people write and for the interfaces of the platform that want it.
#pragma once

#include "common/text_buffer.h"

#include <utility>

namespace halyard {

// Owns a zero-closed wide text, a copy or converted on the system's ANSI code page. Empty when memory or the conversion
// fails.
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

// The narrow form of a zero-closed wide text; empty when the conversion fails.
TextBuffer Narrow(const wchar_t* wide) noexcept;

}  // namespace halyard
