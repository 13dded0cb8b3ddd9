// The texts that the user sees, out of the string table of the library's resources.
#pragma once

#include "common/text_buffer.h"
#include "process/string_ids.h"

namespace halyard {

// Both return the process's one shared buffer, which the next lookup on any thread overwrites: copy the text at once,
// or use `LookupText`. Null when the block of the id doesn't exist (in that language, or in any); an id that has no
// string in an existing block gives the empty text.
const char* LoadStringForLanguage(unsigned short language, unsigned id) noexcept;
const char* LookupString(unsigned id) noexcept;

// A copy of the text; empty where `LookupString` gives null.
TextBuffer LookupText(unsigned id) noexcept;

// Whether the display driver says that the machine is one of the other brand's. Asked once per process.
bool IsAlternativeBrand() noexcept;

}  // namespace halyard
