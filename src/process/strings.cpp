#include "process/strings.h"

#include "process/profile.h"
#include "process/string_block.h"

namespace halyard {

namespace {

char stringBuffer[1024];

}  // namespace

const char* LoadStringForLanguage(unsigned short language, unsigned id) noexcept {
    const HMODULE module = profile.moduleInstance;
    const HRSRC place = FindResourceExA(module, RT_STRING, MAKEINTRESOURCEA(StringBlock(id)), language);
    const HGLOBAL loaded = place ? LoadResource(module, place) : nullptr;
    const auto* block = loaded ? static_cast<const std::uint16_t*>(LockResource(loaded)) : nullptr;
    if (!block) return nullptr;
    StringUnits found = {nullptr, 0};
    int size = 0;
    if (FindInBlock(block, SizeofResource(module, place) / sizeof(std::uint16_t), id, found) && found.length > 0)
        size = WideCharToMultiByte(GetACP(), 0, reinterpret_cast<const wchar_t*>(found.units),
                                   static_cast<int>(found.length), stringBuffer, sizeof(stringBuffer) - 1, nullptr,
                                   nullptr);
    stringBuffer[size] = 0;
    return stringBuffer;
}

const char* LookupString(unsigned id) noexcept {
    const LANGID user = GetUserDefaultLangID();
    for (unsigned place = 0; place < LanguageCount; ++place)
        if (const char* text = LoadStringForLanguage(LanguageAt(place, user), id)) return text;
    return nullptr;
}

TextBuffer LookupText(unsigned id) noexcept {
    return TextBuffer(LookupString(id));
}

}  // namespace halyard
