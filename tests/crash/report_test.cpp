// What a report says of variables, out of made-up memory and types, and where it ends.
#include "crash/report_lines.h"
#include "crash/variables.h"

#include <cstring>
#include <gtest/gtest.h>
#include <map>
#include <string>

namespace halyard::test {

namespace {

// Of the faulted program, from 0x1000 on: numbers, pointers to texts, and the texts up to the end of what can be read.
constexpr char Memory[] = "\x11\0\0\0\7\0\0\0\0\0\xC0\xBF\0\0\0\0\0\0\xF8\x3F"
                          "\x1C\x10\0\0\x1F\x10\0\0ab\0abc";

// The damaged types hold themselves, and have counts and offsets that no type has: without an end to it, a walk over
// them would take years.
enum Type : unsigned { Int = 1, Real, Text, Damaged, DamagedMember, Looped };
const char* const Names[] = {"", "int", "", "", "", "N", "Loop"};
const std::map<std::pair<unsigned, TypeNumber>, std::uint64_t> Numbers = {
    {{Int, TypeNumber::BasicType}, 6},          {{Real, TypeNumber::BasicType}, 8},
    {{Text, TypeNumber::BasicType}, 2},         {{Damaged, TypeNumber::ChildCount}, 0xFFFFFFFF},
    {{DamagedMember, TypeNumber::TypeId}, Int}, {{DamagedMember, TypeNumber::Offset}, ~0ULL},
    {{Looped, TypeNumber::ChildCount}, 1},
};
constexpr StackPlace Place = {0x5000, 0x1010};
unsigned walked = 0;

// Its stack has no end. With nothing that the debug-help library may lack but the types.
ReportSource MadeUpSource() {
    ReportSource source = {};
    source.pointerSize = 4;
    source.read = [](void*, std::uint64_t address, void* bytes, std::size_t size) {
        if (address < 0x1000 || address - 0x1000 + size >= sizeof(Memory)) return false;
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
            children[index] = type == Damaged && index == 0 ? DamagedMember : type;
        return true;
    };
    return source;
}

TEST(Variable, IsShownWithItsMembersOrNotAtAll) {
    const std::pair<Symbol, std::string> cases[] = {
        // Below the frame by an offset that only fits with the carry dropped.
        {{"flag", 0xFFFFFFF4, 1, 0x50, 7, Int, 4}, "Parameter 'flag' int = 7"},
        {{"held", 0, 1, 0x88, 7, Int, 4}, ""},
        {{"Function", 0x1000, 1, 0, 5, Int, 4}, ""},
        {{"far", 0x77777777, 1, 0x80, 7, Int, 4}, "Local 'far' int = <unreadable>"},
        {{"float", 0x1008, 1, 0, 7, Real, 4}, "'float' = -1.500000"},
        {{"double", 0x100C, 1, 0, 7, Real, 8}, "'double' = 1.500000"},
        {{"short", 0x1014, 1, 0, 7, Text, 4}, "'short' = \"ab\""},
        {{"open", 0x1018, 1, 0, 7, Text, 4}, "'open' = 101F"},
        {{"loop", 0x1000, 1, 0, 7, Looped, 4},
         "'loop' Loop\r\n\t\t Loop\r\n\t\t\t Loop\r\n\t\t\t\t Loop\r\n\t\t\t\t\t Loop\r\n\t\t\t\t\t\t<recursed too "
         "deep>"},
    };
    for (const auto& [symbol, text] : cases) {
        ReportText line(1000);
        EXPECT_EQ(FormatSymbol(MadeUpSource(), symbol, &Place, line), !text.empty()) << symbol.name;
        EXPECT_TRUE(text.empty() || line.Text() == text) << line.Text();
    }
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
