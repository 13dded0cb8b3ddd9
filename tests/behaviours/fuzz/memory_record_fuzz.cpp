#include "behaviours/memory_record.h"
#include "fuzz_target.h"

using namespace std::string_view_literals;

namespace {

constexpr std::string_view Seeds[] = {
    "\1\0\x2C\0\0\0\2\0\0\0\3\0\0\0\377\377\377\377\377\377\377\377\374\377\377\377\374\377\377\377"
    "\144\0\0\0\144\0\0\0\220\1\0\0\54\1\0\0"sv,
    "\0\1\x2C\0\0\0\0\0\0\0\1\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\373\377\377\0\0\0\0\0\0\0\0\0\3\0\0"sv,
    "\0\1\x2C"sv,
};
static_assert(Seeds[0].size() == halyard::MemoryRecordSize && Seeds[1].size() == halyard::MemoryRecordSize);

bool Near(LONG coordinate) {
    return coordinate > -0x100000 && coordinate < 0x100000;
}

}  // namespace

constinit const std::span<const std::string_view> fuzzSeeds(Seeds);

// A record that is taken gives a placement that can be used, and is the same after it went round.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    halyard::WindowMemory memory;
    if (!halyard::DecodeWindowMemory(data, size, memory)) return 0;
    Require(size == halyard::MemoryRecordSize, "a record has its size");
    const RECT& rect = memory.normalRect;
    Require(Near(rect.left) && Near(rect.top) && Near(rect.right) && Near(rect.bottom), "the rectangle is near");
    Require(rect.left < rect.right && rect.top < rect.bottom, "the rectangle has a size");
    Require(memory.showCommand == 1 || memory.showCommand == 3 || memory.showCommand == 9, "the window reopens");
    Require(memory.flags < 8, "the flags are known ones");
    BYTE first[halyard::MemoryRecordSize];
    halyard::EncodeWindowMemory(memory, first);
    halyard::WindowMemory again;
    Require(halyard::DecodeWindowMemory(first, sizeof(first), again), "what was taken is taken again");
    BYTE second[halyard::MemoryRecordSize];
    halyard::EncodeWindowMemory(again, second);
    Require(std::memcmp(first, second, sizeof(first)) == 0, "and says the same");
    return 0;
}
