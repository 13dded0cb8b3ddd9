#include "behaviours/import_walk.h"
#include "fuzz_target.h"
#include "made_up_image.h"

namespace {

using Image = halyard::test::MadeUpImage;

constexpr Image Whole;
constexpr Image Unclosed = [] {
    Image image;
    for (std::size_t index = 2; index < 8; ++index)
        image.PutDescriptor(index, Image::SecondTable);
    return image;
}();
constexpr Image Nested = [] {
    Image image;
    image.PutDescriptor(1, Image::Descriptors);
    return image;
}();

constexpr std::string_view Seeds[] = {Whole.Text(), Unclosed.Text(), Nested.Text(), Whole.Text().substr(0, 0x100)};

struct Walk {
    const std::uint8_t* data;
    std::size_t size;
    std::size_t found;
};

void Check(void* context, std::size_t offset) {
    auto& walk = *static_cast<Walk*>(context);
    Require(walk.size >= sizeof(std::uintptr_t) && offset <= walk.size - sizeof(std::uintptr_t),
            "an entry lies inside the image");
    std::uintptr_t entry = 0;
    std::memcpy(&entry, walk.data + offset, sizeof(entry));
    Require(entry == Image::Wanted, "an entry that is found holds the address");
    ++walk.found;
}

void Never(void*, std::size_t) {
    Require(false, "neither an ordinal nor the closing entry is found");
}

}  // namespace

constinit const std::span<const std::string_view> fuzzSeeds(Seeds);

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const halyard::MappedImage image = {data, size};
    Walk walk = {data, size, 0};
    halyard::FindImports(image, Image::Wanted, Check, &walk);
    const std::size_t descriptors = size / Image::DescriptorSize;
    Require(walk.found <= descriptors * (size / sizeof(std::uintptr_t)), "each table is walked once a descriptor");
    halyard::FindImports(image, Image::OrdinalBit | 12, Never, nullptr);
    halyard::FindImports(image, 0, Never, nullptr);
    return 0;
}
