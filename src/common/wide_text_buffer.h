// Wide text for the few interfaces of the platform that want it.
#pragma once

#include "common/text_buffer.h"

namespace halyard {

// Owns a zero-closed wide text, converted on the system's ANSI code page. Empty when memory or the conversion fails.
class WideTextBuffer {
public:
    explicit WideTextBuffer(const char* narrow) noexcept;
    WideTextBuffer(const WideTextBuffer&) = delete;
    WideTextBuffer& operator=(const WideTextBuffer&) = delete;
    ~WideTextBuffer();

    // Never null; valid as long as the buffer.
    const wchar_t* Text() const noexcept { return chars ? chars : L""; }

private:
    wchar_t* chars = nullptr;
};

// The narrow form of a zero-closed wide text; empty when the conversion fails.
TextBuffer Narrow(const wchar_t* wide) noexcept;

}  // namespace halyard
