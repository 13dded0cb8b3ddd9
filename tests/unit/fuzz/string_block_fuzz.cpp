#include "fuzz_target.h"
#include "process/string_block.h"

using namespace std::string_view_literals;

namespace {

constexpr std::string_view Seeds[] = {
    "\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0"sv,
    "\1\0a\0\2\0b\0c\0\0\0\0\0\0\0\3\0d\0e\0f\0\1\0g\0\1\0h\0\1\0i\0\1\0j\0\1\0k\0\1\0l\0\1\0m\0\1\0n\0\1\0o\0\1\0p\0"sv,
    "\377\377"sv, "\1\0"sv};

}  // namespace

constinit const std::span<const std::string_view> fuzzSeeds(Seeds);

// The strings of a block follow each other without a gap, from its start, until one doesn't fit.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::vector<std::uint16_t> block(size / 2);
    if (!block.empty()) std::memcpy(block.data(), data, block.size() * 2);
    std::size_t next = 0;
    for (unsigned id = 2000; id < 2016; ++id) {
        halyard::StringUnits found{};
        const bool fits = next < block.size() && block[next] <= block.size() - next - 1;
        Require(halyard::FindInBlock(block.data(), block.size(), id, found) == fits, "found if and only if it fits");
        Require(!fits || found.units == &block[next] + 1, "the string lies behind the one before it");
        Require(!fits || found.length == block[next], "the length is the stored one");
        next = fits ? next + found.length + 1 : block.size();
    }
    return 0;
}
