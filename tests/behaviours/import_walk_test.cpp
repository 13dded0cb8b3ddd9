#include "behaviours/import_walk.h"

#include <gtest/gtest.h>

#include <cstring>
#include <utility>
#include <vector>

namespace halyard::test {
namespace {

using Bytes = std::vector<unsigned char>;
using Offsets = std::vector<std::size_t>;

constexpr std::size_t Pointer = sizeof(void*), Header = 0x40, Descriptors = 0xE0, FirstTable = 0x120,
                      SecondTable = 0x150;
constexpr auto Wanted = static_cast<std::uintptr_t>(0x11223344556677F0);
constexpr std::uintptr_t Ordinal = std::uintptr_t{1} << (8 * Pointer - 1);

template <typename Value>
void Put(Bytes& bytes, std::size_t offset, Value value) {
    std::memcpy(&bytes[offset], &value, sizeof(value));
}

// An image as it would lie in memory, of this program's bitness: two modules are imported from, and both give `Wanted`.
Bytes Image() {
    Bytes bytes(SecondTable + 2 * Pointer);
    const std::pair<std::size_t, std::uint32_t> numbers[] = {{0x3C, Header},
                                                             {Header, 0x4550},
                                                             {Header + 0x18, Pointer == 4 ? 0x10B : 0x20B},
                                                             {Header + (Pointer == 4 ? 0x80 : 0x90), Descriptors},
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

Offsets Walk(const Bytes& bytes, std::uintptr_t address = Wanted) {
    Offsets found;
    const auto note = [](void* context, std::size_t offset) { static_cast<Offsets*>(context)->push_back(offset); };
    FindImports({bytes.data(), bytes.size()}, address, note, &found);
    return found;
}

TEST(ImportWalk, FindsAnAddressAndStaysInsideADamagedImage) {
    const Offsets all = {FirstTable + Pointer, FirstTable + 3 * Pointer, SecondTable};
    const Bytes image = Image();
    EXPECT_EQ(all, Walk(image));
    EXPECT_EQ(Offsets(), Walk(image, Ordinal | 12));
    // A header offset before the wrap, no signature, a header of the other bitness; the first address table at the
    // wrap.
    for (const auto& [offset, number] : {std::pair{0x3Cu, 0xFFFFFFF0u}, {Header, 0x4551u}, {Header + 0x18, 0x30Bu}}) {
        Bytes damaged = image;
        Put(damaged, offset, static_cast<std::uint32_t>(number));
        EXPECT_EQ(Offsets(), Walk(damaged)) << offset;
    }
    Bytes damaged = image;
    Put(damaged, Descriptors + 16, std::uint32_t{0xFFFFFFFC});
    EXPECT_EQ(Offsets{SecondTable}, Walk(damaged));
    for (std::size_t size = 0; size < SecondTable + Pointer; ++size)
        EXPECT_LT(Walk({image.begin(), image.begin() + static_cast<std::ptrdiff_t>(size)}).size(), all.size()) << size;
}

}  // namespace
}  // namespace halyard::test
