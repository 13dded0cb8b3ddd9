// A PE image as it would lie in memory, small, of this program's bitness, and open to any damage.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace halyard::test {

// Two modules are imported from: the first gives the function `Wanted` and others, the second gives it once more.
struct MadeUpImage {
    static constexpr std::size_t Size = 0x180;
    static constexpr std::size_t PointerSize = sizeof(void*);
    static constexpr std::size_t HeaderOffset = 0x40;
    static constexpr std::size_t Magic = HeaderOffset + 0x18;
    static constexpr std::size_t ImportDirectory = HeaderOffset + (PointerSize == 4 ? 0x80 : 0x90);
    static constexpr std::size_t Descriptors = 0xE0;
    static constexpr std::size_t DescriptorSize = 20;
    static constexpr std::size_t FirstTable = 0x120;   // four entries and the closing one
    static constexpr std::size_t SecondTable = 0x150;  // two entries and the closing one
    static constexpr std::uintptr_t Wanted = static_cast<std::uintptr_t>(0x11223344556677F0);
    static constexpr std::uintptr_t Other = Wanted + 16;
    static constexpr std::uintptr_t OrdinalBit = std::uintptr_t{1} << (8 * PointerSize - 1);

    constexpr MadeUpImage() {
        Put<std::uint16_t>(0, 0x5A4D);
        Put<std::uint32_t>(0x3C, HeaderOffset);
        Put<std::uint32_t>(HeaderOffset, 0x4550);
        Put<std::uint16_t>(Magic, PointerSize == 4 ? 0x10B : 0x20B);
        Put<std::uint32_t>(ImportDirectory, Descriptors);
        PutDescriptor(0, FirstTable);
        PutDescriptor(1, SecondTable);
        PutEntries(FirstTable, {Other, Wanted, OrdinalBit | 12, Wanted});
        PutEntries(SecondTable, {Wanted, Other});
    }

    constexpr void PutDescriptor(std::size_t index, std::uint32_t table) {
        Put<std::uint32_t>(Descriptors + index * DescriptorSize, 0x11);  // any number but 0: the names aren't read
        Put<std::uint32_t>(Descriptors + index * DescriptorSize + 16, table);
    }

    template <std::size_t Count>
    constexpr void PutEntries(std::size_t table, const std::uintptr_t (&entries)[Count]) {
        for (std::size_t index = 0; index < Count; ++index)
            Put(table + index * PointerSize, entries[index]);
    }

    template <typename Value>
    constexpr void Put(std::size_t offset, Value value) {
        for (std::size_t index = 0; index < sizeof(value); ++index)
            bytes[offset + index] = static_cast<char>(value >> 8 * index);
    }

    constexpr std::string_view Text() const { return {bytes.data(), bytes.size()}; }

    std::array<char, Size> bytes = {};
};

}  // namespace halyard::test
