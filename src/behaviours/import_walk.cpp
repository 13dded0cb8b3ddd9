#include "behaviours/import_walk.h"

#include <cstring>

namespace halyard {

namespace {

constexpr std::size_t HeaderOffsetPlace = 0x3C;
// Data directory 1, after an optional header whose fixed part is 16 bytes longer in a 64-bit image.
constexpr std::size_t ImportDirectoryPlace = sizeof(void*) == 4 ? 0x80 : 0x90;
constexpr std::uint32_t HeaderSignature = 0x00004550;  // "PE"
constexpr std::uint16_t OptionalMagic = sizeof(void*) == 4 ? 0x10B : 0x20B;
constexpr std::size_t OptionalMagicPlace = 0x18;
constexpr std::size_t DescriptorSize = 20;
constexpr std::size_t AddressTablePlace = 16;
constexpr std::uintptr_t OrdinalBit = std::uintptr_t{1} << (sizeof(void*) * 8 - 1);

template <typename Value>
bool Read(const MappedImage& image, std::size_t offset, Value& value) noexcept {
    if (offset > image.size || image.size - offset < sizeof(value)) return false;
    std::memcpy(&value, image.bytes + offset, sizeof(value));
    return true;
}

// 0 for an image that has no import table, or none that can be read.
std::size_t ImportTable(const MappedImage& image) noexcept {
    std::uint32_t header = 0;
    std::uint32_t signature = 0;
    std::uint16_t magic = 0;
    std::uint32_t table = 0;
    const bool readable = Read(image, HeaderOffsetPlace, header) && Read(image, header, signature) &&
                          signature == HeaderSignature && Read(image, header + OptionalMagicPlace, magic) &&
                          magic == OptionalMagic && Read(image, header + ImportDirectoryPlace, table);
    return readable ? table : 0;
}

}  // namespace

void FindImports(const MappedImage& image, std::uintptr_t address, void (*found)(void* context, std::size_t offset),
                 void* context) noexcept {
    std::size_t descriptor = ImportTable(image);
    if (descriptor == 0) return;
    std::uint32_t names = 0;
    std::uint32_t addresses = 0;
    for (; Read(image, descriptor, names) && names != 0; descriptor += DescriptorSize) {
        if (!Read(image, descriptor + AddressTablePlace, addresses)) return;
        std::uintptr_t entry = 0;
        for (std::size_t place = addresses; Read(image, place, entry) && entry != 0; place += sizeof(entry))
            // An entry that the loader hasn't bound yet may be an ordinal.
            if (entry == address && !(entry & OrdinalBit)) found(context, place);
    }
}

}  // namespace halyard
