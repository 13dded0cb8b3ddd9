#include "common/text_buffer.h"

#include <cstring>
#include <new>
#include <utility>

namespace halyard {

TextBuffer::TextBuffer(const char* text) noexcept {
    *this = text;
}

TextBuffer::TextBuffer(const TextBuffer& other) noexcept {
    *this = other.chars;
}

TextBuffer::TextBuffer(TextBuffer&& other) noexcept
    : length(std::exchange(other.length, 0)), chars(std::exchange(other.chars, nullptr)) {}

TextBuffer::~TextBuffer() {
    delete[] chars;
}

TextBuffer& TextBuffer::operator=(const char* text) noexcept {
    // The text may lie inside our own array, so that the old array goes last.
    TextBuffer fresh;
    if (text) {
        const auto size = static_cast<unsigned>(std::strlen(text));
        if (char* room = fresh.Reserve(size)) std::memcpy(room, text, size);
    }
    return *this = std::move(fresh);
}

TextBuffer& TextBuffer::operator=(const TextBuffer& other) noexcept {
    return this == &other ? *this : *this = other.chars;
}

TextBuffer& TextBuffer::operator=(TextBuffer&& other) noexcept {
    std::swap(length, other.length);
    std::swap(chars, other.chars);
    return *this;
}

char* TextBuffer::Reserve(unsigned count) noexcept {
    delete[] chars;
    chars = new (std::nothrow) char[static_cast<std::size_t>(count) + 1]();
    length = chars ? count : 0;
    return chars;
}

TextBuffer& TextBuffer::Append(const char* text) noexcept {
    const std::size_t own = std::strlen(Text());
    const std::size_t more = text ? std::strlen(text) : 0;
    TextBuffer joined;
    if (char* room = joined.Reserve(static_cast<unsigned>(own + more))) {
        std::memcpy(room, Text(), own);
        if (more) std::memcpy(room + own, text, more);
    }
    return *this = std::move(joined);
}

void TextBuffer::Fit() noexcept {
    length = static_cast<unsigned>(std::strlen(Text()));
}

}  // namespace halyard
