#include "process/strings.h"

#include "process/profile.h"
#include "process/string_block.h"

namespace halyard {

namespace {

constexpr unsigned TextRoom = 1024;

// Writes the text, closed by a zero, into `text`. False where the language has no block for the id.
bool ReadText(unsigned short language, unsigned id, char (&text)[TextRoom]) noexcept {
    const HMODULE module = profile.moduleInstance;
    const HRSRC place = FindResourceExA(module, RT_STRING, MAKEINTRESOURCEA(StringBlock(id)), language);
    const HGLOBAL loaded = place ? LoadResource(module, place) : nullptr;
    const auto* block = loaded ? static_cast<const std::uint16_t*>(LockResource(loaded)) : nullptr;
    if (!block) return false;
    StringUnits found = {nullptr, 0};
    int size = 0;
    if (FindInBlock(block, SizeofResource(module, place) / sizeof(std::uint16_t), id, found) && found.length > 0)
        size = WideCharToMultiByte(GetACP(), 0, reinterpret_cast<const wchar_t*>(found.units),
                                   static_cast<int>(found.length), text, TextRoom - 1, nullptr, nullptr);
    text[size] = 0;
    return true;
}

bool Lookup(unsigned id, char (&text)[TextRoom]) noexcept {
    const LANGID user = GetUserDefaultLangID();
    for (unsigned place = 0; place < LanguageCount; ++place)
        if (ReadText(LanguageAt(place, user), id, text)) return true;
    return false;
}

}  // namespace

TextBuffer LookupText(unsigned id) noexcept {
    char text[TextRoom];
    return TextBuffer(Lookup(id, text) ? text : nullptr);
}

}  // namespace halyard
