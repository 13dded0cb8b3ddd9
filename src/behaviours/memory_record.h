// The stored form of a window's place.
#pragma once

#include "common/win_types.h"

#include <cstddef>

namespace halyard {

inline constexpr std::size_t MemoryRecordSize = 46;

// How a window stood when it was destroyed. Rectangle and points as a window placement has them.
struct WindowMemory {
    bool maximisedAcross = false;
    bool topmost = false;
    DWORD flags = 0;
    DWORD showCommand = 1;
    POINT minPosition = {};
    POINT maxPosition = {};
    RECT normalRect = {};
};

// Two flag bytes and then a window placement of 44 bytes, little-endian, without gaps.
void EncodeWindowMemory(const WindowMemory& memory, BYTE (&bytes)[MemoryRecordSize]) noexcept;

// False, with `memory` untouched, for a size other than 46 or for a rectangle that no window can have. A show command
// that no window closes with counts as the normal one, and a minimised window comes back restored.
bool DecodeWindowMemory(const BYTE* bytes, std::size_t size, WindowMemory& memory) noexcept;

}  // namespace halyard
