// The texts that the user sees, out of the string table of the library's resources.
#pragma once

#include "common/text_buffer.h"
#include "process/string_ids.h"

namespace halyard {

// The text in the first language that has the block of the id; empty where none has it. Any thread.
TextBuffer LookupText(unsigned id) noexcept;

// Whether the display driver says that the machine is one of the other brand's. Asked once per process.
bool IsAlternativeBrand() noexcept;

}  // namespace halyard
