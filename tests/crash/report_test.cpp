// What a report says of variables, out of made-up memory and types, and where it ends.
#include "crash/report_lines.h"
#include "crash/variables.h"

#include <cstring>
#include <gtest/gtest.h>
#include <map>
#include <string>

namespace halyard::test {

namespace {

template <typename... Byte>
std::string Bytes(Byte... bytes) {
    return {static_cast<char>(bytes)...};
}

// Of the faulted program, from 0x1000 on: numbers, pointers to texts, and the texts up to the end of what can be read.
const std::string Memory = Bytes(0x11, 0, 0, 0, 7, 0, 0, 0, 0, 0, 0xC0, 0xBF, 0, 0, 0, 0, 0, 0, 0xF8, 0x3F) +
                           Bytes(0x20, 0x10, 0, 0, 0x48, 0x10, 0, 0, 0x4B, 0x10, 0, 0) +
                           "0123456789012345678901234567890123456789ab" + std::string("\0abc", 4);

// A node holds a count and itself. The damaged types have counts and offsets that no type has: without an end to it, a
// walk over them would take years.
enum Type : unsigned { Node = 1, Count, Int, Real, Text, Damaged, DamagedMember };
const char* const Names[] = {"", "Node", "count", "int", "", "", "N", ""};
const std::map<std::pair<unsigned, TypeNumber>, std::uint64_t> Numbers = {
    {{Node, TypeNumber::ChildCount}, 2},
    {{Count, TypeNumber::TypeId}, Int},
    {{Count, TypeNumber::Offset}, 4},
    {{Int, TypeNumber::BasicType}, 6},
    {{Int, TypeNumber::Length}, 4},
    {{Real, TypeNumber::BasicType}, 8},
    {{Text, TypeNumber::BasicType}, 2},
    {{Damaged, TypeNumber::ChildCount}, 0xFFFFFFFF},
    {{DamagedMember, TypeNumber::TypeId}, Int},
    {{DamagedMember, TypeNumber::Offset}, ~0ULL},
};
constexpr StackPlace Place = {0x5000, 0x1010};
unsigned walked = 0;

// Its stack has no end. With nothing that the debug-help library may lack but the types.
ReportSource MadeUpSource() {
    ReportSource source = {};
    source.pointerSize = 4;
    source.read = [](void*, std::uint64_t address, void* bytes, std::size_t size) {
        if (address < 0x1000 || address - 0x1000 + size > Memory.size()) return false;
        std::memcpy(bytes, &Memory[address - 0x1000], size);
        return true;
    };
    source.moduleAt = [](void*, std::uint64_t, std::uint64_t& base, char(&)[ReportPathRoom]) { return base = 1, true; };
    source.openSymbols = [](void*, unsigned&) { return true; };
    source.startWalk = [](void*) {};
    source.nextFrame = [](void*, StackPlace& place) {
        ++walked;
        place = Place;
        return true;
    };
    source.typeName = [](void*, std::uint64_t, unsigned type, char(&name)[TypeNameRoom]) {
        CopyText(name, sizeof(name), Names[type]);
        return name[0] != 0;
    };
    source.typeNumber = [](void*, std::uint64_t, unsigned type, TypeNumber request, std::uint64_t& number) {
        const auto found = Numbers.find({type, request});
        if (found != Numbers.end()) number = found->second;
        return found != Numbers.end();
    };
    source.typeChildren = [](void*, std::uint64_t, unsigned type, unsigned count,
                             unsigned(&children)[MaxTypeChildren]) {
        for (unsigned index = 0; index < count; ++index)
            children[index] = type == Damaged ? (index ? Damaged : DamagedMember) : (index ? Node : Count);
        return true;
    };
    return source;
}

TEST(Variable, IsShownWithItsMembersOrNotAtAll) {
    std::string node = "'node' Node\r\n";
    for (std::string tabs = "\t\t"; tabs.size() < 6; tabs += '\t')
        node += tabs + " count = 7\r\n" + tabs + " Node\r\n";
    const std::pair<Symbol, std::string> cases[] = {
        // Below the frame by an offset that only fits with the carry dropped.
        {{"flag", 0xFFFFFFF4, 1, 0x50, 7, Int, 4}, "Parameter 'flag' int = 7"},
        {{"held", 0, 1, 0x88, 7, Int, 4}, ""},
        {{"Function", 0x1000, 1, 0, 5, Int, 4}, ""},
        {{"far", 0x77777777, 1, 0x80, 7, Int, 4}, "Local 'far' int = <unreadable>"},
        {{"float", 0x1008, 1, 0, 7, Real, 4}, "'float' = -1.500000"},
        {{"double", 0x100C, 1, 0, 7, Real, 8}, "'double' = 1.500000"},
        {{"long", 0x1014, 1, 0, 7, Text, 4}, "'long' = \"0123456789012345678901234567890\""},
        {{"short", 0x1018, 1, 0, 7, Text, 4}, "'short' = \"ab\""},
        {{"open", 0x101C, 1, 0, 7, Text, 4}, "'open' = 104B"},
        {{"odd", 0x1000, 1, 0, 7, Text, 3}, "'odd'"},
        {{"node", 0x1000, 1, 0, 7, Node, 8}, node + "\t\t\t\t\t\t<recursed too deep>\t\t\t\t\t\t<recursed too deep>"},
    };
    for (const auto& [symbol, text] : cases) {
        ReportText line(1000);
        EXPECT_EQ(FormatSymbol(MadeUpSource(), symbol, &Place, line), !text.empty()) << symbol.name;
        EXPECT_TRUE(text.empty() || line.Text() == text) << line.Text();
    }
}

TEST(Report, BeginsWithTheFaultAndTheSystem) {
    const Fault fault = {0xC0000005,
                         "ACCESS_VIOLATION",
                         0x5000,
                         {{1, 2, 3, 4, 5, 6, 7, 8, 9}, 0x5001, 0x23, 0x2B, 0x2C, 0x6B, 0x63, 0x2D, 0x202},
                         {5, 1, 2600, "Service Pack 3"}};
    ReportText report(0x1000);
    WriteHead(MadeUpSource(), fault, report);
    EXPECT_STREQ(
        report.Text(),
        "//=====================================================\r\nException code: C0000005 ACCESS_VIOLATION\r\n"
        "Fault address:  00005000 00:00000000 \r\n\r\nRegisters:\r\n=========\r\nEAX:00000001\r\nEBX:00000002\r\n"
        "ECX:00000003\r\nEDX:00000004\r\nESI:00000005\r\nEDI:00000006\r\nCS:EIP:0023:00005001\r\n"
        "SS:ESP:002D:00000007  EBP:00000008\r\nDS:002B  ES:002C  FS:006B  GS:0063\r\nFlags:00000202\r\n\r\n"
        "Operating System\r\n===============\r\nVersion : 5.1 (Build 2600)\r\nService Pack 3\r\n");
}

TEST(Report, OfADamagedProgramEndsInItsRoom) {
    static constexpr Symbol Many = {"many", 0, 1, 0, 7, Damaged, 4};
    ReportSource source = MadeUpSource();
    ReportText line(0x10000);
    FormatSymbol(source, Many, nullptr, line);
    EXPECT_TRUE(line.IsFull());
    line.Clear();
    walked = 0;
    WriteDetails(source, 0, line);
    EXPECT_EQ(walked, 2 * 50u);
    source.enumerateSymbols = [](void*, std::uint64_t, void (*found)(void*, const Symbol&), void* target) {
        found(target, Many);
    };
    for (const unsigned room : {0u, 1u, 100u, 5000u}) {
        ReportText report(room);
        WriteDetails(source, 0, report);
        EXPECT_EQ(std::strlen(report.Text()), room);
    }
}

}  // namespace

}  // namespace halyard::test
