#include "behaviours/import_walk.h"
#include "behaviours/made_up_image.h"

#include <gtest/gtest.h>

#include <functional>
#include <vector>

namespace halyard::test {
namespace {

using Image = MadeUpImage;
using Offsets = std::vector<std::size_t>;

constexpr std::size_t Pointer = Image::PointerSize;

void Note(void* context, std::size_t offset) {
    static_cast<Offsets*>(context)->push_back(offset);
}

// The walk over the first `size` bytes, in a block of just that size.
Offsets Walk(const Image& image, std::uintptr_t address, std::size_t size = Image::Size) {
    const std::vector<unsigned char> exact(image.bytes.begin(),
                                           image.bytes.begin() + static_cast<std::ptrdiff_t>(size));
    Offsets found;
    FindImports({exact.data(), exact.size()}, address, Note, &found);
    return found;
}

const Offsets All = {Image::FirstTable + Pointer, Image::FirstTable + 3 * Pointer, Image::SecondTable};
const Offsets OfFirst = {All[0], All[1]};
const Offsets OfSecond = {All[2]};

TEST(ImportWalk, FindsAllEntriesOfAnAddress) {
    const Image image;
    EXPECT_EQ(All, Walk(image, Image::Wanted));
    EXPECT_EQ((Offsets{Image::FirstTable, Image::SecondTable + Pointer}), Walk(image, Image::Other));
    EXPECT_EQ(Offsets(), Walk(image, 0x1234));
    EXPECT_EQ(Offsets(), Walk(image, 0)) << "the closing entries are none";
    EXPECT_EQ(Offsets(), Walk(image, Image::OrdinalBit | 12)) << "an ordinal is no address";
    EXPECT_EQ(Offsets(), Walk(image, Image::Wanted & 0xFFFF)) << "an entry is compared whole";
}

// What is damaged, and what is still found.
TEST(ImportWalk, StaysInsideADamagedImage) {
    struct Case {
        const char* what;
        std::function<void(Image&)> damage;
        Offsets found;
    };
    const auto put32 = [](std::size_t offset, std::uint32_t value) {
        return [=](Image& image) { image.Put(offset, value); };
    };
    const std::size_t firstName = Image::Descriptors;
    const std::size_t secondName = firstName + Image::DescriptorSize;
    const std::size_t thirdName = secondName + Image::DescriptorSize;
    const std::uint32_t lastPointer = Image::Size - Pointer;
    const Case Cases[] = {
        {"nothing", [](Image&) {}, All},
        {"header offset 0", put32(0x3C, 0), {}},
        {"header offset before the wrap", put32(0x3C, 0xFFFFFFF0), {}},
        {"header offset half way", put32(0x3C, 0x80000000), {}},
        {"no signature", put32(Image::HeaderOffset, 0x4551), {}},
        {"header of the other bitness",
         [](Image& image) { image.Put<std::uint16_t>(Image::Magic, Pointer == 4 ? 0x20B : 0x10B); },
         {}},
        {"no import table",
         [](Image& image) {
             image.Put<std::uint32_t>(Image::ImportDirectory, 0);
             image.Put<std::uint32_t>(16, Image::FirstTable);  // what a descriptor at offset 0 would name
         },
         {}},
        {"import table past the end", put32(Image::ImportDirectory, Image::Size + 1), {}},
        {"import table that is cut by the end",
         [](Image& image) {
             image.Put<std::uint32_t>(Image::ImportDirectory, Image::Size - 16);
             image.Put<std::uint32_t>(Image::Size - 16, 1);
         },
         {}},
        {"import table that ends early", put32(secondName, 0), OfFirst},
        {"first address table at the wrap", put32(firstName + 16, 0xFFFFFFFC), OfSecond},
        {"first address table cut by the end", put32(firstName + 16, Image::Size - 2), OfSecond},
        {"address table that the end closes",
         [=](Image& image) {
             image.PutDescriptor(1, lastPointer);
             image.Put(lastPointer, Image::Wanted);
         },
         {All[0], All[1], lastPointer}},
        {"descriptors that nothing closes",
         [=](Image& image) {
             // They run into the address tables, whose bytes then count as descriptors with tables out of reach.
             for (std::size_t at = thirdName; at < Image::FirstTable; at += 4)
                 image.Put<std::uint32_t>(at, 0xEEEEEEEE);
         },
         All},
        {"entry that is an ordinal",
         [](Image& image) { image.Put(Image::SecondTable, Image::Wanted | Image::OrdinalBit); }, OfFirst},
        {"one table for both",
         [](Image& image) { image.PutDescriptor(1, Image::FirstTable); },
         {All[0], All[1], All[0], All[1]}},
        {"table off its alignment",
         [](Image& image) {
             image.PutDescriptor(1, Image::SecondTable + 1);
             image.PutEntries(Image::SecondTable + 1, {Image::Wanted, std::uintptr_t{0}});
         },
         {All[0], All[1], Image::SecondTable + 1}},
    };
    for (const Case& test : Cases) {
        Image image;
        test.damage(image);
        EXPECT_EQ(test.found, Walk(image, Image::Wanted)) << test.what;
    }
}

TEST(ImportWalk, FindsInATruncatedImageWhatIsLeft) {
    const Image image;
    for (std::size_t size = 0; size <= Image::Size; ++size) {
        Offsets expected;
        // The walk reaches a table once its descriptor is whole; then it goes to the last whole entry.
        for (const std::size_t offset : All) {
            const std::size_t descriptor = Image::Descriptors + (offset >= Image::SecondTable ? 20 : 0);
            if (descriptor + 20 <= size && offset + Pointer <= size) expected.push_back(offset);
        }
        EXPECT_EQ(expected, Walk(image, Image::Wanted, size)) << size << " bytes";
    }
}

}  // namespace
}  // namespace halyard::test
