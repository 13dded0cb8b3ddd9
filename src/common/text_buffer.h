// The owned narrow string, in the system's ANSI code page.
#pragma once

#include <cstddef>

namespace halyard {

// Owns a zero-closed array of 8-bit characters. `Length` is what was last built, assigned, appended or reserved: after
// `Reserve` it is the room and not the text's length, so readers take the text as zero-closed. When memory runs out
// the text becomes empty. Not safe for use from several threads.
class TextBuffer {
public:
    TextBuffer() noexcept = default;
    TextBuffer(const char* text) noexcept;  // a null text gives an empty one
    TextBuffer(const TextBuffer& other) noexcept;
    TextBuffer(TextBuffer&& other) noexcept;
    virtual ~TextBuffer();

    TextBuffer& operator=(const char* text) noexcept;
    TextBuffer& operator=(const TextBuffer& other) noexcept;
    TextBuffer& operator=(TextBuffer&& other) noexcept;

    // Gives room for `count` characters and the closing zero, drops the old text and sets `Length` to `count`. All of
    // the room is zero. Returns the room, null when memory ran out.
    char* Reserve(unsigned count) noexcept;
    TextBuffer& Append(const char* text) noexcept;

    // Sets `Length` to the length of the zero-closed text.
    void Fit() noexcept;

    // Never null; an empty buffer gives the empty text. Valid until the next change.
    const char* Text() const noexcept { return chars ? chars : ""; }
    char* Room() noexcept { return chars; }
    unsigned Length() const noexcept { return length; }
    bool IsEmpty() const noexcept { return !chars || !*chars; }

private:
    unsigned length = 0;
    char* chars = nullptr;
};

}  // namespace halyard
