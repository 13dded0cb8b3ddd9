#include "behaviours/import_walk.h"

#include <gtest/gtest.h>

#include <cstring>
#include <functional>
#include <vector>

namespace halyard::test {
namespace {

using Offsets = std::vector<std::size_t>;

constexpr std::size_t Pointer = sizeof(void*);
constexpr std::size_t Size = 0x180;
constexpr std::size_t Header = 0x40;
constexpr std::size_t Directory = Header + (Pointer == 4 ? 0x80 : 0x90);
constexpr std::size_t Descriptors = 0xE0;
constexpr std::size_t FirstTable = 0x120, SecondTable = 0x150;
constexpr auto Wanted = static_cast<std::uintptr_t>(0x11223344556677F0);
constexpr std::uintptr_t Ordinal = std::uintptr_t{1} << (8 * Pointer - 1);

// An image as it would lie in memory, of this program's bitness: two modules are imported from, and both give `Wanted`.
struct Image {
    Image() {
        Put<std::uint32_t>(0x3C, Header);
        Put<std::uint32_t>(Header, 0x4550);
        Put<std::uint16_t>(Header + 0x18, Pointer == 4 ? 0x10B : 0x20B);
        Put<std::uint32_t>(Directory, Descriptors);
        Descriptor(0, FirstTable, {Wanted + 16, Wanted, Ordinal | 12, Wanted});
        Descriptor(1, SecondTable, {Wanted, Wanted + 16});
    }
    template <typename Value>
    void Put(std::size_t offset, Value value) {
        std::memcpy(&bytes[offset], &value, sizeof(value));
    }
    void Descriptor(std::size_t index, std::size_t table, const std::vector<std::uintptr_t>& entries) {
        Put<std::uint32_t>(Descriptors + index * 20, 0x11);  // any number but 0: the names aren't read
        Put(Descriptors + index * 20 + 16, static_cast<std::uint32_t>(table));
        for (std::size_t place = table; const std::uintptr_t entry : entries) {
            Put(place, entry);
            place += Pointer;
        }
    }
    Offsets Walk(std::uintptr_t address = Wanted) const {
        const auto note = [](void* context, std::size_t offset) { static_cast<Offsets*>(context)->push_back(offset); };
        Offsets found;
        FindImports({bytes.data(), bytes.size()}, address, note, &found);
        return found;
    }
    std::vector<unsigned char> bytes = std::vector<unsigned char>(Size);
};

const Offsets All = {FirstTable + Pointer, FirstTable + 3 * Pointer, SecondTable};

// What is damaged, and what is still found.
TEST(ImportWalk, FindsAnAddressAndStaysInsideADamagedImage) {
    const auto put32 = [](std::size_t offset, std::uint32_t value) {
        return [=](Image& image) { image.Put(offset, value); };
    };
    const struct {
        const char* what;
        std::function<void(Image&)> damage;
        Offsets found;
    } cases[] = {
        {"nothing", [](Image&) {}, All},
        {"header offset before the wrap", put32(0x3C, 0xFFFFFFF0), {}},
        {"header offset half way", put32(0x3C, 0x80000000), {}},
        {"no signature", put32(Header, 0x4551), {}},
        {"header of the other bitness", put32(Header + 0x18, Pointer == 4 ? 0x20B : 0x10B), {}},
        {"import table past the end", put32(Directory, Size + 1), {}},
        {"import table that is cut by the end", put32(Directory, Size - 16), {}},
        {"import table that ends early", put32(Descriptors + 20, 0), {All[0], All[1]}},
        {"first address table at the wrap", put32(Descriptors + 16, 0xFFFFFFFC), {All[2]}},
        {"first address table cut by the end", put32(Descriptors + 16, Size - 2), {All[2]}},
        {"address table that the end closes",
         [](Image& image) { image.Descriptor(1, Size - Pointer, {Wanted}); },
         {All[0], All[1], Size - Pointer}},
        {"entry that is an ordinal", [](Image& image) { image.Put(SecondTable, Wanted | Ordinal); }, {All[0], All[1]}},
        {"table off its alignment",
         [](Image& image) {
             image.Descriptor(1, SecondTable + 1, {Wanted, 0});
         },
         {All[0], All[1], SecondTable + 1}},
    };
    for (const auto& test : cases) {
        Image image;
        test.damage(image);
        EXPECT_EQ(test.found, image.Walk()) << test.what;
    }
    for (const std::uintptr_t none : {std::uintptr_t{0}, Ordinal | 12, Wanted & 0xFFFF})
        EXPECT_EQ(Offsets(), Image().Walk(none)) << none;
    for (std::size_t size = 0; size < SecondTable + Pointer; ++size) {
        Image cut;
        cut.bytes.resize(size);
        cut.bytes.shrink_to_fit();
        EXPECT_LT(cut.Walk().size(), All.size()) << size << " bytes";
    }
}

}  // namespace
}  // namespace halyard::test
