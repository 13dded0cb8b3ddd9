// The report's text out of made-up answers of the system and of its debug-help library.
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

constexpr std::uint64_t Base = 0x10000000;

struct MadeUpType {
    std::string name;
    std::map<TypeNumber, std::uint64_t> numbers;
    std::vector<unsigned> children;
};

// A faulted program as the test makes it up.
struct MadeUp {
    std::map<std::uint64_t, std::string> memory;  // spans by their first address
    std::map<unsigned, MadeUpType> types;
    std::vector<Symbol> locals, globals;
    std::vector<StackPlace> frames;
    std::map<std::uint64_t, std::string> symbols;
    std::vector<Module> modules;
    std::size_t walked = 0;
    unsigned reads = 0;
};

MadeUp& Of(void* context) {
    return *static_cast<MadeUp*>(context);
}

ReportSource SourceOf(MadeUp& made, unsigned pointerSize = 4) {
    ReportSource source = {};
    source.context = &made;
    source.pointerSize = pointerSize;
    source.read = [](void* context, std::uint64_t address, void* bytes, std::size_t size) {
        ++Of(context).reads;
        for (const auto& [start, span] : Of(context).memory) {
            if (address < start || address - start > span.size() || span.size() - (address - start) < size) continue;
            std::memcpy(bytes, span.data() + (address - start), size);
            return true;
        }
        return false;
    };
    source.moduleAt = [](void*, std::uint64_t address, std::uint64_t& base, char(&path)[ReportPathRoom]) {
        if (address - Base >= 0x100000) return false;
        base = Base;
        CopyText(path, sizeof(path), "C:\\tvlHalyd.dll");
        return true;
    };
    source.openSymbols = [](void*, unsigned&) { return true; };
    source.enumerateModules = [](void* context, void (*found)(void*, const Module&), void* target) {
        for (const Module& module : Of(context).modules)
            found(target, module);
    };
    source.startWalk = [](void* context) { Of(context).walked = 0; };
    source.nextFrame = [](void* context, StackPlace& place) {
        if (Of(context).walked >= Of(context).frames.size()) return false;
        place = Of(context).frames[Of(context).walked++];
        return true;
    };
    source.symbolAt = [](void* context, std::uint64_t address, char(&name)[SymbolNameRoom], std::uint64_t& distance) {
        const auto found = Of(context).symbols.find(address);
        if (found == Of(context).symbols.end()) return false;
        CopyText(name, sizeof(name), found->second.c_str());
        distance = 0x1F;
        return true;
    };
    source.lineAt = [](void* context, std::uint64_t address, char(&file)[ReportPathRoom], unsigned& line) {
        CopyText(file, sizeof(file), "hook.cpp");
        line = 42;
        return Of(context).symbols.count(address) != 0;
    };
    source.enterFrame = [](void*, std::uint64_t) {};
    source.enumerateSymbols = [](void* context, std::uint64_t base, void (*found)(void*, const Symbol&), void* target) {
        for (const Symbol& symbol : base ? Of(context).globals : Of(context).locals)
            found(target, symbol);
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

TEST(BasicValue, IsShownByLengthAndType) {
    struct Case {
        const char* what;
        unsigned pointerSize, basic;
        std::uint64_t length;
        std::string memory;
        const char* text;
    };
    const Case cases[] = {
        {"number", 4, 7, 4, Bytes(0x78, 0x56, 0x34, 0x12), " = 12345678"},
        {"float", 4, 8, 4, Bytes(0, 0, 0xC0, 0xBF), " = -1.500000"},
        {"double", 4, 8, 8, Bytes(0, 0, 0, 0, 0, 0, 0xF8, 0x3F), " = 1.500000"},
        {"long text", 4, 2, 4, Bytes(0, 0x20, 0, 0), " = \"0123456789012345678901234567890\""},
        {"wide pointer", 8, 2, 8, Bytes(0, 0x20, 0, 0, 0, 0, 0, 0), " = \"0123456789012345678901234567890\""},
        {"text that ends with its page", 4, 2, 4, Bytes(0xFD, 0x2F, 0, 0), " = \"ab\""},
        {"text that goes on beyond its page", 4, 2, 4, Bytes(0xFD, 0x3F, 0, 0), " = 3FFD"},
        {"text nowhere", 4, 2, 4, Bytes(0, 0, 0, 0x70), " = 70000000"},
        {"a length without a form", 4, 7, 16, std::string(16, 'x'), ""},
        {"not all there", 4, 7, 4, "ab", " = <unreadable>"},
    };
    for (const Case& entry : cases) {
        MadeUp made;
        made.memory = {{0x1000, entry.memory},
                       {0x2000, "0123456789012345678901234567890123456789"},
                       {0x2FFD, std::string("ab\0", 3)},
                       {0x3FFD, "abc"}};
        ReportText line(1000);
        WriteBasicValue(SourceOf(made, entry.pointerSize), line, entry.basic, entry.length, 0x1000);
        EXPECT_STREQ(line.Text(), entry.text) << entry.what;
    }
}

// One of everything: a structure that holds itself, a text, places known and unknown, a walk over the limit.
MadeUp FullProgram() {
    MadeUp made;
    std::string headers(0x200, 0);
    headers[0x3C] = 0x40;
    headers[0x46] = 2;     // sections
    headers[0x54] = 0x10;  // size of the optional header
    headers.replace(0x68 + 8, 12, Bytes(0, 0x10, 0, 0, 0, 0x10, 0, 0, 0, 2, 0, 0));
    headers.replace(0x90 + 8, 12, Bytes(0, 1, 0, 0, 0, 0x30, 0, 0, 0, 2, 0, 0));
    made.memory = {{Base, headers},
                   {0x0FFC, Bytes(0, 0, 0, 0, 0x11, 0, 0, 0, 7, 0, 0, 0, 0, 0x20, 0, 0)},
                   {0x2000, std::string("hello\0and more behind it, unseen", 32)}};
    made.types[1] = {"Node", {{TypeNumber::ChildCount, 3}}, {2, 3, 1}};
    made.types[2] = {"count", {{TypeNumber::TypeId, 12}, {TypeNumber::Offset, 4}}, {}};
    made.types[3] = {"text", {{TypeNumber::TypeId, 13}, {TypeNumber::Offset, 8}}, {}};
    made.types[12] = {"int", {{TypeNumber::BasicType, 6}, {TypeNumber::Length, 4}}, {}};
    made.types[13] = {"", {{TypeNumber::BasicType, 2}, {TypeNumber::Length, 4}}, {}};
    // Below the frame by an offset that only fits with the carry dropped.
    made.locals = {{"flag", 0xFFFFFFF4, Base, 0x50, 7, 12, 4}, {"held", 0, Base, 0x88, 7, 12, 4}};
    made.globals = {{"node", 0x1000, Base, 0, 7, 1, 12},
                    {"lost", 8, Base, 0x10, 7, 12, 4},
                    {"Function", 0x1000, Base, 0, 5, 12, 4},
                    {"far", 0x77777777, Base, 0, 7, 12, 4}};
    made.frames = {{Base + 0x1234, 0x1010}, {Base + 0x3200, 0x1010}, {0x5000, 0x1010}, {0x6000, 0}};
    made.symbols[Base + 0x1234] = "Hook";
    made.modules = {{"a name of more than twenty", Base, 0xA000, "1.022.3.4", "C:\\a.dll"}, {"b", 1, 2, "", ""}};
    return made;
}

const Fault MadeUpFault = {0xC0000005,
                           "ACCESS_VIOLATION",
                           Base + 0x1234,
                           {{1, 2, 3, 4, 5, 6, 7, 8}, Base + 0x1234, 0x23, 0x2B, 0x2B, 0x6B, 0x63, 0x2B, 0x202},
                           {5, 1, 2600, "Service Pack 3"}};

void Build(const ReportSource& source, ReportText& report) {
    WriteHead(source, MadeUpFault, report);
    WriteDetails(source, MadeUpFault.address, report);
}

TEST(Report, HasAllRegistersOfA64BitProgram) {
    MadeUp made = FullProgram();
    Fault fault = MadeUpFault;
    fault.registers.general[8] = 0x88;
    fault.registers.general[15] = 0xFF;
    ReportText report(0x10000);
    WriteHead(SourceOf(made, 8), fault, report);
    for (const char* line : {"RAX:0000000000000001\r\n", "R8:0000000000000088\r\n", "R15:00000000000000FF\r\n"})
        EXPECT_NE(std::string(report.Text()).find(line), std::string::npos) << line << " isn't in\n" << report.Text();
}

TEST(Report, TellsAllThereIs) {
    MadeUp made = FullProgram();
    const std::string head =
        "//=====================================================\r\nException code: C0000005 ACCESS_VIOLATION\r\n"
        "Fault address:  10001234 01:00000234 C:\\tvlHalyd.dll\r\n\r\nRegisters:\r\n=========\r\nEAX:00000001\r\n"
        "EBX:00000002\r\nECX:00000003\r\nEDX:00000004\r\nESI:00000005\r\nEDI:00000006\r\nCS:EIP:0023:10001234\r\n"
        "SS:ESP:002B:00000007  EBP:00000008\r\nDS:002B  ES:002B  FS:006B  GS:0063\r\nFlags:00000202\r\n\r\n"
        "Operating System\r\n===============\r\nVersion : 5.1 (Build 2600)\r\nService Pack 3\r\n"
        "\r\nModules\r\n=======\r\n";
    const std::string modules = "a name of more than  10000000     A000  1.022.3.4  C:\\a.dll\r\n"
                                "b                    00000001        2    \r\n";
    const std::string walk = "\r\nCall stack:\r\nAddress   Frame     Function            SourceFile\r\n";
    const std::string frames[] = {"10001234  00001010  Hook+1F  hook.cpp line 42\r\n",
                                  "10003200  00001010  0002:00000200 C:\\tvlHalyd.dll\r\n",
                                  "00005000  00001010  0000:00000000 \r\n"};
    const std::string flag = "\tParameter 'flag' int = 7\r\n\r\n";
    const std::string rule = "========================\r\n";
    std::string expected = head + modules + walk;
    for (const std::string& frame : frames)
        expected += frame;
    expected += rule + "Local Variables And Parameters\r\n" + walk;
    for (const std::string& frame : frames)
        expected += frame + flag;
    expected += rule + "Global Variables\r\n\t'node' Node\r\n";
    std::string deep = "\t\t\t\t\t\t<recursed too deep>";
    deep += deep + deep;
    for (int level = 0; level < 4; ++level) {
        const std::string tabs(level + 2, '\t');
        expected += tabs + " count = 7\r\n" + tabs + " text = \"hello\"\r\n" + tabs + " Node\r\n";
    }
    expected += deep + "\r\n\t'far' int = <unreadable>\r\n\r\n";
    ReportText report(0x10000);
    Build(SourceOf(made), report);
    EXPECT_EQ(report.Text(), expected);

    ReportSource bare = SourceOf(made);
    bare.enumerateModules = nullptr;
    bare.symbolAt = nullptr;
    bare.lineAt = nullptr;
    bare.enterFrame = nullptr;
    bare.enumerateSymbols = nullptr;
    made.frames.assign(60, {0x5000, 0x10});
    Build(bare, report);
    const std::string frame = "00005000  00000010  0000:00000000 \r\n";
    expected = head + "*** error: missing EnumerateLoadedModules API. ***\r\n" + walk;
    for (int count = 0; count < 50; ++count)
        expected += frame;
    expected += rule + "Local Variables And Parameters\r\n" + walk;
    for (int count = 0; count < 50; ++count)
        expected += frame + "** error: cannot enum locals/params because SymSetContext() API is missing **\r\n";
    expected += rule + "Global Variables\r\n"
                       "** error - cannot get global vars because SymEnumSymbols() API is not available **\r\n\r\n";
    EXPECT_EQ(report.Text(), expected);

    bare.openSymbols = [](void*, unsigned& error) { return error = 87, false; };
    Build(bare, report);
    EXPECT_EQ(report.Text(), head +
                                 "*** error: missing EnumerateLoadedModules API. ***\r\n\r\nDbgHelp: SymInitialize() "
                                 "failed. Last error=87.\r\n");
}

// Counts and lengths that no type has.
TEST(Report, OfDamagedTypesEndsInItsRoom) {
    MadeUp made = FullProgram();
    made.types[1] = {"N", {{TypeNumber::ChildCount, 0xFFFFFFFF}}, std::vector<unsigned>(5000, 2)};
    made.types[2] = {"", {{TypeNumber::TypeId, 3}, {TypeNumber::Offset, ~0ULL}}, {}};
    made.types[3] = {"", {{TypeNumber::Length, 1}}, {}};
    ReportText line(0x10000);
    FormatSymbol(SourceOf(made), {"many", 0, Base, 0, 7, 1, 4}, nullptr, line);
    EXPECT_EQ(made.reads, MaxTypeChildren);
    for (const unsigned room : {0u, 1u, 100u, 5000u}) {
        ReportText report(room);
        Build(SourceOf(made), report);
        EXPECT_EQ(std::strlen(report.Text()), room);
    }
}

}  // namespace

}  // namespace halyard::test
