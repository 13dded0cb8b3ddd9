#include "crash/report_lines.h"

#include "crash/variables.h"

#include <algorithm>
#include <iterator>

namespace halyard {

namespace {

constexpr unsigned LineLimit = 0x10000;  // characters that one variable may take
constexpr unsigned ModuleNameWidth = 20;
// The longest part of a symbol's name that leaves room in a work area for the displacement.
constexpr int SymbolShown = 480;

class AddressText : public Hex {
public:
    AddressText(const ReportSource& source, std::uint64_t address) noexcept : Hex(address, source.pointerSize * 2) {}
};

template <typename Value>
bool Read(const ReportSource& source, std::uint64_t address, Value& value) noexcept {
    return source.read(source.context, WrapAddress(source, address), &value, sizeof(value));
}

// As they stand in an image's table of sections.
struct SectionHeader {
    char name[8];
    std::uint32_t virtualSize;
    std::uint32_t address;
    std::uint32_t rawSize;
    std::uint32_t unused[4];
    std::uint32_t flags;
};
static_assert(sizeof(SectionHeader) == 40);

bool FindSection(const ReportSource& source, std::uint64_t module, LogicalPlace& place,
                 std::uint64_t address) noexcept {
    std::uint32_t header = 0;
    std::uint16_t count = 0;
    std::uint16_t optionalSize = 0;
    if (!Read(source, module + 0x3C, header) || !Read(source, module + header + 6, count) ||
        !Read(source, module + header + 20, optionalSize))
        return false;
    const std::uint64_t rva = address - module;
    std::uint64_t next = module + header + 24 + optionalSize;
    SectionHeader section = {};
    for (unsigned number = 1; number <= count && Read(source, next, section); ++number, next += sizeof(section)) {
        const std::uint64_t size = std::max(section.rawSize, section.virtualSize);
        if (rva < section.address || rva > section.address + size) continue;
        place.section = number;
        place.offset = static_cast<unsigned>(rva - section.address);
        return true;
    }
    return false;
}

void WriteRegisters(const ReportSource& source, ReportText& report, const Registers& registers) noexcept {
    constexpr const char* Names[] = {"AX", "BX", "CX", "DX", "SI", "DI"};
    const bool wide = source.pointerSize == 8;
    const char size = wide ? 'R' : 'E';
    const auto value = [&](std::uint64_t held) { return AddressText(source, held); };
    report.Append("\r\nRegisters:\r\n=========\r\n");
    for (unsigned index = 0; index < std::size(Names); ++index)
        AppendFormat(report, "%c%s:%s\r\n", size, Names[index], value(registers.general[index]).text);
    for (unsigned index = 8; wide && index < GeneralRegisterCount; ++index)
        AppendFormat(report, "R%u:%s\r\n", index, value(registers.general[index]).text);
    AppendFormat(report, "CS:%cIP:%04X:%s\r\n", size, registers.cs, value(registers.instruction).text);
    AppendFormat(report, "SS:%cSP:%04X:%s  %cBP:%s\r\n", size, registers.ss, value(registers.general[RegisterSp]).text,
                 size, value(registers.general[RegisterBp]).text);
    AppendFormat(report, "DS:%04X  ES:%04X  FS:%04X  GS:%04X\r\n", registers.ds, registers.es, registers.fs,
                 registers.gs);
    AppendFormat(report, "Flags:%08X\r\n\r\n", registers.flags);
}

// A place for the lines of variables to go to.
struct VariableTarget {
    const ReportSource& source;
    ReportText& report;
    ReportText& line;
    const StackPlace* place;  // null for globals
};

void OnSymbol(void* context, const Symbol& symbol) noexcept {
    const auto& target = *static_cast<VariableTarget*>(context);
    if (target.report.IsFull()) return;
    target.line.Clear();
    if (!FormatSymbol(target.source, symbol, target.place, target.line)) return;
    target.report.Append("\t");
    target.report.Append(target.line.Text());
    target.report.Append("\r\n");
}

void WriteVariables(const ReportSource& source, ReportText& report, ReportText& line,
                    const StackPlace& place) noexcept {
    if (!source.enterFrame) {
        report.Append("** error: cannot enum locals/params because SymSetContext() API is missing **");
    } else {
        source.enterFrame(source.context, place.instruction);
        VariableTarget target = {source, report, line, &place};
        if (source.enumerateSymbols)
            source.enumerateSymbols(source.context, 0, OnSymbol, &target);
        else
            report.Append("** error: cannot enum locals/params because SymEnumSymbols() API is missing **");
    }
    report.Append("\r\n");
}

void WriteFrame(const ReportSource& source, ReportText& report, const StackPlace& place) noexcept {
    AppendFormat(report, "%s  %s  ", AddressText(source, place.instruction).text,
                 AddressText(source, place.frame).text);
    char name[SymbolNameRoom] = {};
    std::uint64_t displacement = 0;
    if (source.symbolAt && source.symbolAt(source.context, place.instruction, name, displacement)) {
        AppendFormat(report, "%.*s+%s", SymbolShown, name, Hex(displacement).text);
    } else {
        LogicalPlace logical;
        LogicalAddress(source, place.instruction, logical);
        AppendFormat(report, "%04X:%08X %s", logical.section, logical.offset, logical.path);
    }
    char file[ReportPathRoom] = {};
    unsigned number = 0;
    if (source.lineAt && source.lineAt(source.context, place.instruction, file, number))
        AppendFormat(report, "  %s line %u", file, number);
    report.Append("\r\n");
}

void WriteGlobals(const ReportSource& source, ReportText& report, ReportText& line,
                  std::uint64_t faultAddress) noexcept {
    report.Append("========================\r\nGlobal Variables\r\n");
    if (!source.enumerateSymbols) {
        report.Append("** error - cannot get global vars because SymEnumSymbols() API is not available **\r\n");
        return;
    }
    std::uint64_t base = 0;
    char path[ReportPathRoom] = {};
    VariableTarget target = {source, report, line, nullptr};
    // Module 0 would mean the variables of a frame.
    if (source.moduleAt(source.context, faultAddress, base, path) && base)
        source.enumerateSymbols(source.context, base, OnSymbol, &target);
}

void WriteSystem(ReportText& report, const SystemVersion& system) noexcept {
    report.Append("Operating System\r\n===============\r\n");
    AppendFormat(report, "Version : %u.%u (Build %u)\r\n", system.major, system.minor, system.build);
    AppendFormat(report, "%s\r\n", system.servicePack);
}

struct ModuleTarget {
    const ReportSource& source;
    ReportText& report;
};

void OnModule(void* context, const Module& module) noexcept {
    const auto& target = *static_cast<ModuleTarget*>(context);
    WriteModuleLine(target.source, target.report, module);
}

void WriteModules(const ReportSource& source, ReportText& report) noexcept {
    report.Append("\r\nModules\r\n=======\r\n");
    ModuleTarget target = {source, report};
    if (source.enumerateModules)
        source.enumerateModules(source.context, OnModule, &target);
    else
        report.Append("*** error: missing EnumerateLoadedModules API. ***\r\n");
}

// The frame register of the wide machine holds whatever the code likes; there the end is a caller that doesn't exist.
bool IsPastEnd(const ReportSource& source, const StackPlace& place) noexcept {
    return source.pointerSize == 8 ? place.instruction == 0 : place.frame == 0;
}

void WriteWalk(const ReportSource& source, ReportText& report, ReportText* line) noexcept {
    constexpr unsigned MaxFrames = 50;
    report.Append("\r\nCall stack:\r\n");
    report.Append(source.pointerSize == 8 ? "Address           Frame             Function            SourceFile\r\n"
                                          : "Address   Frame     Function            SourceFile\r\n");
    if (!source.nextFrame) return;
    source.startWalk(source.context);
    StackPlace place;
    for (unsigned count = 1; source.nextFrame(source.context, place) && !IsPastEnd(source, place); ++count) {
        WriteFrame(source, report, place);
        if (line) WriteVariables(source, report, *line, place);
        if (count >= MaxFrames || report.IsFull()) break;
    }
}

}  // namespace

bool LogicalAddress(const ReportSource& source, std::uint64_t address, LogicalPlace& place) noexcept {
    std::uint64_t module = 0;
    return source.moduleAt(source.context, address, module, place.path) && place.path[0] &&
           FindSection(source, module, place, address);
}

void WriteModuleLine(const ReportSource& source, ReportText& report, const Module& module) noexcept {
    char name[ModuleNameWidth + 1];
    CopyText(name, sizeof(name), module.name);
    AppendFormat(report, "%-20s %s %8X  %s  %.*s\r\n", name, AddressText(source, module.base).text, module.size,
                 module.version, static_cast<int>(ReportPathRoom), module.path);
}

void WriteCallStack(const ReportSource& source, ReportText& report, bool withVariables) noexcept {
    if (!withVariables) {
        WriteWalk(source, report, nullptr);
        return;
    }
    ReportText line(LineLimit);
    WriteWalk(source, report, &line);
}

void WriteHead(const ReportSource& source, const Fault& fault, ReportText& report) noexcept {
    report.Clear();
    report.Append("//=====================================================\r\n");
    AppendFormat(report, "Exception code: %08X %.480s\r\n", fault.code, fault.name);
    LogicalPlace place;
    LogicalAddress(source, fault.address, place);
    AppendFormat(report, "Fault address:  %s %02X:%08X %s\r\n", AddressText(source, fault.address).text, place.section,
                 place.offset, place.path);
    WriteRegisters(source, report, fault.registers);
    WriteSystem(report, fault.system);
}

void WriteDetails(const ReportSource& source, std::uint64_t faultAddress, ReportText& report) noexcept {
    WriteModules(source, report);
    unsigned error = 0;
    if (!source.openSymbols(source.context, error)) {
        AppendFormat(report, "\r\nDbgHelp: SymInitialize() failed. Last error=%d.\r\n", static_cast<int>(error));
        return;
    }
    WriteCallStack(source, report, false);
    report.Append("========================\r\nLocal Variables And Parameters\r\n");
    WriteCallStack(source, report, true);
    ReportText line(LineLimit);
    WriteGlobals(source, report, line, faultAddress);
    if (source.closeSymbols) source.closeSymbols(source.context);
    report.Append("\r\n");
}

}  // namespace halyard
