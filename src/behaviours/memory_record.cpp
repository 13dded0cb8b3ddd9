#include "behaviours/memory_record.h"

#include <cstring>

namespace halyard {

namespace {

constexpr DWORD PlacementLength = 44;
constexpr DWORD ShowNormal = 1;
constexpr DWORD ShowMinimized = 2;
constexpr DWORD ShowMaximized = 3;
constexpr DWORD Minimize = 6;
constexpr DWORD Restore = 9;
constexpr DWORD KnownFlags = 7;     // WPF_SETMINPOSITION, WPF_RESTORETOMAXIMIZED, WPF_ASYNCWINDOWPLACEMENT
constexpr LONG FarAway = 0x100000;  // no desktop reaches so far, and sums of such numbers can't overflow

// The record's layout from its first byte on; both platforms that we build for are little-endian.
#pragma pack(push, 1)
struct Stored {
    BYTE maximisedAcross;
    BYTE topmost;
    DWORD length;
    DWORD flags;
    DWORD showCommand;
    LONG points[4];
    LONG rect[4];
};
#pragma pack(pop)
static_assert(sizeof(Stored) == MemoryRecordSize);

DWORD UsableShowCommand(DWORD stored) noexcept {
    switch (stored) {
    case ShowMinimized:
    case Minimize: return Restore;
    case ShowMaximized:
    case Restore: return stored;
    default: return ShowNormal;
    }
}

bool IsNear(LONG coordinate) noexcept {
    return coordinate > -FarAway && coordinate < FarAway;
}

bool IsPlausible(const RECT& rect) noexcept {
    return IsNear(rect.left) && IsNear(rect.top) && IsNear(rect.right) && IsNear(rect.bottom) &&
           rect.left < rect.right && rect.top < rect.bottom;
}

}  // namespace

void EncodeWindowMemory(const WindowMemory& memory, BYTE (&bytes)[MemoryRecordSize]) noexcept {
    const Stored stored = {
        static_cast<BYTE>(memory.maximisedAcross),
        static_cast<BYTE>(memory.topmost),
        PlacementLength,
        memory.flags,
        memory.showCommand,
        {memory.minPosition.x, memory.minPosition.y, memory.maxPosition.x, memory.maxPosition.y},
        {memory.normalRect.left, memory.normalRect.top, memory.normalRect.right, memory.normalRect.bottom}};
    std::memcpy(bytes, &stored, sizeof(stored));
}

bool DecodeWindowMemory(const BYTE* bytes, std::size_t size, WindowMemory& memory) noexcept {
    if (size != MemoryRecordSize) return false;
    Stored stored;
    std::memcpy(&stored, bytes, sizeof(stored));
    const RECT rect = {stored.rect[0], stored.rect[1], stored.rect[2], stored.rect[3]};
    if (!IsPlausible(rect)) return false;
    memory.maximisedAcross = stored.maximisedAcross != 0;
    memory.topmost = stored.topmost != 0;
    memory.flags = stored.flags & KnownFlags;
    memory.showCommand = UsableShowCommand(stored.showCommand);
    memory.minPosition = {stored.points[0], stored.points[1]};
    memory.maxPosition = {stored.points[2], stored.points[3]};
    memory.normalRect = rect;
    return true;
}

}  // namespace halyard
