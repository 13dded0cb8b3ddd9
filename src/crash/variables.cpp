#include "crash/variables.h"

#include <algorithm>
#include <bit>

namespace halyard {

namespace {

constexpr unsigned MaxNesting = 4;

enum SymbolFlag : unsigned { InRegister = 0x8, FrameRelative = 0x10, IsParameter = 0x40, IsLocal = 0x80 };
constexpr unsigned FunctionTag = 5;
enum BasicType : unsigned { CharType = 2, FloatType = 8 };

constexpr unsigned StringTestSize = 32;  // bytes that are looked at
constexpr unsigned StringShown = 31;     // characters

// The longest part of a name that leaves room in a work area for what stands beside it.
constexpr int NameShown = 500;

std::uint64_t NumberOr0(const ReportSource& source, std::uint64_t base, unsigned type, TypeNumber request) noexcept {
    std::uint64_t number = 0;
    return source.typeNumber(source.context, base, type, request, number) ? number : 0;
}

// Whether the text at `address` can be read up to its zero or to the end of what is shown.
bool ReadString(const ReportSource& source, std::uint64_t address, char (&text)[StringTestSize]) noexcept {
    if (source.read(source.context, address, text, sizeof(text))) return true;
    // A short text may end right before memory that can't be read.
    for (unsigned place = 0; place < StringTestSize; ++place) {
        if (!source.read(source.context, WrapAddress(source, address + place), text + place, 1)) return false;
        if (text[place] == 0) return true;
    }
    return true;
}

template <typename Value>
void WriteNumber(const ReportSource& source, ReportText& line, unsigned basicType, std::uint64_t address) noexcept {
    Value value = 0;
    if (!source.read(source.context, address, &value, sizeof(value))) {
        line.Append(" = <unreadable>");
        return;
    }
    char text[StringTestSize] = {};
    if (sizeof(value) == 4 && basicType == FloatType)
        AppendFormatLong(line, " = %f", static_cast<double>(std::bit_cast<float>(static_cast<std::uint32_t>(value))));
    else if (sizeof(value) == 8 && basicType == FloatType)
        AppendFormatLong(line, " = %f", std::bit_cast<double>(static_cast<std::uint64_t>(value)));
    else if (sizeof(value) == source.pointerSize && basicType == CharType && ReadString(source, value, text))
        AppendFormatLong(line, " = \"%.*s\"", static_cast<int>(StringShown), text);
    else
        AppendFormatLong(line, " = %s", Hex(value).text);
}

void WriteMember(const ReportSource& source, ReportText& line, std::uint64_t base, unsigned member, unsigned nesting,
                 std::uint64_t address) noexcept {
    bool handled = false;
    WriteType(source, line, base, member, nesting, address, handled);
    if (handled) return;
    const std::uint64_t offset = NumberOr0(source, base, member, TypeNumber::Offset);
    const auto type = static_cast<unsigned>(NumberOr0(source, base, member, TypeNumber::TypeId));
    const std::uint64_t length = NumberOr0(source, base, type, TypeNumber::Length);
    WriteBasicValue(source, line, BasicTypeOf(source, member, base), length, WrapAddress(source, address + offset));
    line.Append("\r\n");
}

}  // namespace

bool FormatSymbol(const ReportSource& source, const Symbol& symbol, const StackPlace* place,
                  ReportText& line) noexcept {
    if (symbol.flags & IsParameter)
        line.Append("Parameter ");
    else if (symbol.flags & IsLocal)
        line.Append("Local ");
    if (symbol.tag == FunctionTag) return false;
    AppendFormat(line, "'%.*s'", NameShown, symbol.name);
    std::uint64_t address = symbol.address;
    if (symbol.flags & FrameRelative) {
        if (!place) return false;
        address += place->frame;
    } else if (symbol.flags & InRegister) {
        return false;
    }
    address = WrapAddress(source, address);
    bool handled = false;
    WriteType(source, line, symbol.moduleBase, symbol.type, 0, address, handled);
    if (!handled)
        WriteBasicValue(source, line, BasicTypeOf(source, symbol.type, symbol.moduleBase), symbol.size, address);
    return true;
}

void WriteType(const ReportSource& source, ReportText& line, std::uint64_t moduleBase, unsigned type, unsigned nesting,
               std::uint64_t address, bool& handled) noexcept {
    handled = false;
    if (!source.typeNumber) {
        AppendFormatLong(line, "** error: missing SymGetTypeInfo API **\r\n");
        handled = true;
        return;
    }
    char name[TypeNameRoom] = {};
    if (source.typeName(source.context, moduleBase, type, name)) AppendFormatLong(line, " %s", name);
    const auto count = static_cast<unsigned>(
        std::min<std::uint64_t>(NumberOr0(source, moduleBase, type, TypeNumber::ChildCount), MaxTypeChildren));
    if (count == 0) return;
    unsigned children[MaxTypeChildren] = {};
    if (!source.typeChildren(source.context, moduleBase, type, count, children)) return;
    line.Append("\r\n");
    // A full line ends the walk: types that hold each other would go on through 1024 members on each level.
    for (unsigned index = 0; index < count && !line.IsFull(); ++index) {
        for (unsigned tab = 0; tab < nesting + 2; ++tab)
            line.Append("\t");
        if (nesting >= MaxNesting)
            line.Append("<recursed too deep>");
        else
            WriteMember(source, line, moduleBase, children[index], nesting + 1, address);
    }
    handled = true;
}

void WriteBasicValue(const ReportSource& source, ReportText& line, unsigned basicType, std::uint64_t length,
                     std::uint64_t address) noexcept {
    switch (length) {
    case 1: WriteNumber<std::uint8_t>(source, line, basicType, address); break;
    case 2: WriteNumber<std::uint16_t>(source, line, basicType, address); break;
    case 4: WriteNumber<std::uint32_t>(source, line, basicType, address); break;
    case 8: WriteNumber<std::uint64_t>(source, line, basicType, address); break;
    default: break;
    }
}

unsigned BasicTypeOf(const ReportSource& source, unsigned type, std::uint64_t moduleBase) noexcept {
    if (!source.typeNumber) return 0;
    std::uint64_t number = 0;
    if (source.typeNumber(source.context, moduleBase, type, TypeNumber::BasicType, number))
        return static_cast<unsigned>(number);
    if (!source.typeNumber(source.context, moduleBase, type, TypeNumber::TypeId, number)) return 0;
    return static_cast<unsigned>(NumberOr0(source, moduleBase, static_cast<unsigned>(number), TypeNumber::BasicType));
}

}  // namespace halyard
