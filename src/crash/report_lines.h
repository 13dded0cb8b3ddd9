// The report on a fault, from its first line to its last.
#pragma once

#include "crash/report_source.h"
#include "crash/report_text.h"

namespace halyard {

// What the processor held; the first eight in this order, and on the wide machine the eight numbered ones.
enum GeneralRegister { RegisterA, RegisterB, RegisterC, RegisterD, RegisterSi, RegisterDi, RegisterSp, RegisterBp };
inline constexpr unsigned GeneralRegisterCount = 16;

struct Registers {
    std::uint64_t general[GeneralRegisterCount];
    std::uint64_t instruction;
    unsigned cs, ds, es, fs, gs, ss;
    unsigned flags;
};

struct SystemVersion {
    unsigned major;
    unsigned minor;
    unsigned build;
    const char* servicePack;
};

struct Fault {
    unsigned code;
    const char* name;
    std::uint64_t address;
    Registers registers;
    SystemVersion system;
};

// The number of a module's section, from 1, and the offset in it.
struct LogicalPlace {
    unsigned section = 0;
    unsigned offset = 0;
    char path[ReportPathRoom] = {};
};

// False for an address outside of every section; the path is then still there if a module holds the address.
bool LogicalAddress(const ReportSource& source, std::uint64_t address, LogicalPlace& place) noexcept;

void WriteModuleLine(const ReportSource& source, ReportText& report, const Module& module) noexcept;

// One walk over the faulted thread's stack.
void WriteCallStack(const ReportSource& source, ReportText& report, bool withVariables) noexcept;

// The exception, its registers and the system: all that can be told from the memory of the program alone. Replaces what
// `report` held.
void WriteHead(const ReportSource& source, const Fault& fault, ReportText& report) noexcept;
// The modules, the stack, the variables.
void WriteDetails(const ReportSource& source, std::uint64_t faultAddress, ReportText& report) noexcept;

}  // namespace halyard
