// What a report says of variables, out of made-up memory and types, and where it ends.
#include "crash/report_lines.h"
#include "crash/variables.h"

#include <algorithm>
#include <cstring>
#include <gtest/gtest.h>
#include <map>
#include <string>
#include <vector>

namespace halyard::test {

namespace {

struct MadeUpType {
    std::string name;
    std::map<TypeNumber, std::uint64_t> numbers;
    std::vector<unsigned> children;
};

// A faulted program as the test makes it up. Its stack has no end.
struct MadeUp {
    std::string memory;  // from 0x1000 on
    std::map<unsigned, MadeUpType> types;
    unsigned reads = 0, walked = 0;
};

MadeUp& Of(void* context) {
    return *static_cast<MadeUp*>(context);
}

// With nothing that the debug-help library may lack but the types.
ReportSource SourceOf(MadeUp& made) {
    ReportSource source = {};
    source.context = &made;
    source.pointerSize = 4;
    source.read = [](void* context, std::uint64_t address, void* bytes, std::size_t size) {
        ++Of(context).reads;
        const std::string& memory = Of(context).memory;
        if (address < 0x1000 || address - 0x1000 + size > memory.size()) return false;
        std::memcpy(bytes, &memory[address - 0x1000], size);
        return true;
    };
    source.moduleAt = [](void*, std::uint64_t, std::uint64_t& base, char(&)[ReportPathRoom]) { return base = 1, true; };
    source.openSymbols = [](void*, unsigned&) { return true; };
    source.startWalk = [](void*) {};
    source.nextFrame = [](void* context, StackPlace& place) {
        ++Of(context).walked;
        place = {0x5000, 0x1010};
        return true;
    };
    source.typeName = [](void* context, std::uint64_t, unsigned type, char(&name)[TypeNameRoom]) {
        CopyText(name, sizeof(name), Of(context).types[type].name.c_str());
        return name[0] != 0;
    };
    source.typeNumber = [](void* context, std::uint64_t, unsigned type, TypeNumber request, std::uint64_t& number) {
        const auto& numbers = Of(context).types[type].numbers;
        const auto found = numbers.find(request);
        if (found != numbers.end()) number = found->second;
        return found != numbers.end();
    };
    source.typeChildren = [](void* context, std::uint64_t, unsigned type, unsigned count,
                             unsigned(&children)[MaxTypeChildren]) {
        const std::vector<unsigned>& known = Of(context).types[type].children;
        std::copy_n(known.begin(), std::min<std::size_t>(known.size(), count), children);
        return true;
    };
    return source;
}

template <typename... Byte>
std::string Bytes(Byte... bytes) {
    return {static_cast<char>(bytes)...};
}

TEST(Variable, IsShownWithItsMembersOrNotAtAll) {
    MadeUp made;
    made.memory = Bytes(0x11, 0, 0, 0, 7, 0, 0, 0, 0, 0, 0xC0, 0xBF, 0, 0, 0, 0, 0, 0, 0xF8, 0x3F,  // numbers
                        0x20, 0x10, 0, 0, 0x48, 0x10, 0, 0, 0x4B, 0x10, 0, 0) +                     // pointers to texts
                  "0123456789012345678901234567890123456789ab" +
                  std::string("\0abc", 4);
    // A structure that holds itself.
    made.types[1] = {"Node", {{TypeNumber::ChildCount, 2}}, {2, 1}};
    made.types[2] = {"count", {{TypeNumber::TypeId, 3}, {TypeNumber::Offset, 4}}, {}};
    made.types[3] = {"int", {{TypeNumber::BasicType, 6}, {TypeNumber::Length, 4}}, {}};
    made.types[4] = {"", {{TypeNumber::BasicType, 8}}, {}};
    made.types[5] = {"", {{TypeNumber::BasicType, 2}}, {}};
    std::string node = "'node' Node\r\n";
    for (std::string tabs = "\t\t"; tabs.size() < 6; tabs += '\t')
        node += tabs + " count = 7\r\n" + tabs + " Node\r\n";
    const std::pair<Symbol, std::string> cases[] = {
        // Below the frame by an offset that only fits with the carry dropped.
        {{"flag", 0xFFFFFFF4, 1, 0x50, 7, 3, 4}, "Parameter 'flag' int = 7"},
        {{"held", 0, 1, 0x88, 7, 3, 4}, ""},
        {{"Function", 0x1000, 1, 0, 5, 3, 4}, ""},
        {{"far", 0x77777777, 1, 0x80, 7, 3, 4}, "Local 'far' int = <unreadable>"},
        {{"float", 0x1008, 1, 0, 7, 4, 4}, "'float' = -1.500000"},
        {{"double", 0x100C, 1, 0, 7, 4, 8}, "'double' = 1.500000"},
        {{"long", 0x1014, 1, 0, 7, 5, 4}, "'long' = \"0123456789012345678901234567890\""},
        {{"short", 0x1018, 1, 0, 7, 5, 4}, "'short' = \"ab\""},
        {{"open", 0x101C, 1, 0, 7, 5, 4}, "'open' = 104B"},
        {{"odd", 0x1000, 1, 0, 7, 5, 3}, "'odd'"},
        {{"node", 0x1000, 1, 0, 7, 1, 8}, node + "\t\t\t\t\t\t<recursed too deep>\t\t\t\t\t\t<recursed too deep>"},
    };
    const StackPlace place = {0x5000, 0x1010};
    for (const auto& [symbol, text] : cases) {
        ReportText line(1000);
        EXPECT_EQ(FormatSymbol(SourceOf(made), symbol, &place, line), !text.empty()) << symbol.name;
        EXPECT_TRUE(text.empty() || line.Text() == text) << line.Text();
    }
}

// Counts and lengths that no type has, and a stack that goes round.
TEST(Report, OfADamagedProgramEndsInItsRoom) {
    MadeUp made;
    made.types[1] = {"N", {{TypeNumber::ChildCount, 0xFFFFFFFF}}, std::vector<unsigned>(5000, 2)};
    made.types[2] = {"", {{TypeNumber::TypeId, 3}, {TypeNumber::Offset, ~0ULL}}, {}};
    made.types[3] = {"", {{TypeNumber::Length, 1}}, {}};
    ReportSource source = SourceOf(made);
    ReportText line(0x10000);
    FormatSymbol(source, {"many", 0, 1, 0, 7, 1, 4}, nullptr, line);
    EXPECT_EQ(made.reads, MaxTypeChildren);
    ReportText walks(0x10000);
    WriteDetails(source, 0, walks);
    EXPECT_EQ(made.walked, 2 * 50u);
    source.enumerateSymbols = [](void*, std::uint64_t, void (*found)(void*, const Symbol&), void* target) {
        found(target, {"many", 0, 1, 0, 7, 1, 4});
    };
    for (const unsigned room : {0u, 1u, 100u, 5000u}) {
        ReportText report(room);
        WriteDetails(source, 0, report);
        EXPECT_EQ(std::strlen(report.Text()), room);
    }
}

}  // namespace

}  // namespace halyard::test
