#include "behaviours/import_walk.h"

#include <gtest/gtest.h>

#include <cstring>
#include <utility>
#include <vector>

namespace halyard::test {
namespace {

using Offsets = std::vector<std::size_t>;

constexpr std::size_t Pointer = sizeof(void*), Size = 0x180, Header = 0x40, Descriptors = 0xE0;
constexpr std::size_t Directory = Header + (Pointer == 4 ? 0x80 : 0x90);
constexpr std::size_t FirstTable = 0x120, SecondTable = 0x150;
constexpr auto Wanted = static_cast<std::uintptr_t>(0x11223344556677F0);
constexpr std::uintptr_t Ordinal = std::uintptr_t{1} << (8 * Pointer - 1);

template <typename Value>
void Put(std::vector<unsigned char>& bytes, std::size_t offset, Value value) {
    std::memcpy(&bytes[offset], &value, sizeof(value));
}

// An image as it would lie in memory, of this program's bitness: two modules are imported from, and both give `Wanted`.
std::vector<unsigned char> Image() {
    std::vector<unsigned char> bytes(Size);
    const std::pair<std::size_t, std::uint32_t> numbers[] = {{0x3C, Header},
                                                             {Header, 0x4550},
                                                             {Header + 0x18, Pointer == 4 ? 0x10B : 0x20B},
                                                             {Directory, Descriptors},
                                                             {Descriptors, 0x11},
                                                             {Descriptors + 16, FirstTable},
                                                             {Descriptors + 20, 0x11},
                                                             {Descriptors + 36, SecondTable}};
    for (const auto& [offset, number] : numbers)
        Put(bytes, offset, number);
    for (std::size_t place = FirstTable; const std::uintptr_t entry : {Wanted + 16, Wanted, Ordinal | 12, Wanted})
        Put(bytes, std::exchange(place, place + Pointer), entry);
    Put(bytes, SecondTable, Wanted);
    return bytes;
}

Offsets Walk(const std::vector<unsigned char>& bytes, std::uintptr_t address = Wanted) {
    Offsets found;
    FindImports(
        {bytes.data(), bytes.size()}, address,
        [](void* context, std::size_t offset) { static_cast<Offsets*>(context)->push_back(offset); }, &found);
    return found;
}

TEST(ImportWalk, FindsAnAddressAndStaysInsideADamagedImage) {
    const Offsets all = {FirstTable + Pointer, FirstTable + 3 * Pointer, SecondTable}, first = {all[0], all[1]};
    const struct {
        const char* what;
        std::size_t offset;
        std::uint32_t number;  // that stands there
        Offsets found;
    } cases[] = {
        {"nothing", 0x3C, Header, all},
        {"header offset before the wrap", 0x3C, 0xFFFFFFF0, {}},
        {"no signature", Header, 0x4551, {}},
        {"header of the other bitness", Header + 0x18, Pointer == 4 ? 0x20B : 0x10B, {}},
        {"import table that ends early", Descriptors + 20, 0, first},
        {"first address table at the wrap", Descriptors + 16, 0xFFFFFFFC, {all[2]}},
    };
    for (const auto& test : cases) {
        auto image = Image();
        Put(image, test.offset, test.number);
        EXPECT_EQ(test.found, Walk(image)) << test.what;
    }
    for (const std::uintptr_t none : {std::uintptr_t{0}, Ordinal | 12, Wanted & 0xFFFF})
        EXPECT_EQ(Offsets(), Walk(Image(), none)) << none;
    for (std::size_t size = 0; size < SecondTable + Pointer; ++size) {
        const auto whole = Image();
        EXPECT_LT(Walk({whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(size)}).size(), all.size()) << size;
    }
}

}  // namespace
}  // namespace halyard::test
