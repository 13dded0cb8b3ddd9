// The texts that the user sees, out of the string table of the library's resources.
#pragma once

#include "common/text_buffer.h"
#include "process/string_ids.h"

namespace halyard {

// Returns the process's one shared buffer, which the next call on any thread overwrites: use `LookupText` wherever more
// than one thread may ask. Null when no language has the block of the id; an id without a string in an existing block
// gives the empty text.
const char* LookupString(unsigned id) noexcept;

// The text, of the caller's own; empty where `LookupString` gives null. Any thread.
TextBuffer LookupText(unsigned id) noexcept;

// Whether the display driver says that the machine is one of the other brand's. Asked once per process.
bool IsAlternativeBrand() noexcept;

}  // namespace halyard
