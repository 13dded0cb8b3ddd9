#include "crash/crash_report.h"

#include "crash/debug_help.h"
#include "crash/exception_names.h"
#include "crash/report_lines.h"

namespace halyard {

namespace {

char systemText[512];

Registers RegistersOf(const CONTEXT& context) noexcept {
    Registers registers = {};
#ifdef _WIN64
    const DWORD64 general[] = {context.Rax, context.Rbx, context.Rcx, context.Rdx, context.Rsi, context.Rdi,
                               context.Rsp, context.Rbp, context.R8,  context.R9,  context.R10, context.R11,
                               context.R12, context.R13, context.R14, context.R15};
    registers.instruction = context.Rip;
#else
    const DWORD general[] = {context.Eax, context.Ebx, context.Ecx, context.Edx,
                             context.Esi, context.Edi, context.Esp, context.Ebp};
    registers.instruction = context.Eip;
#endif
    unsigned index = 0;
    for (const auto value : general)
        registers.general[index++] = value;
    registers.cs = context.SegCs;
    registers.ds = context.SegDs;
    registers.es = context.SegEs;
    registers.fs = context.SegFs;
    registers.gs = context.SegGs;
    registers.ss = context.SegSs;
    registers.flags = context.EFlags;
    return registers;
}

}  // namespace

const char* ExceptionName(DWORD code) noexcept {
    if (const char* name = KnownExceptionName(code)) return name;
    systemText[0] = 0;
    FormatMessageA(FORMAT_MESSAGE_FROM_HMODULE | FORMAT_MESSAGE_IGNORE_INSERTS, GetModuleHandleA("NTDLL.DLL"), code, 0,
                   systemText, sizeof(systemText), nullptr);
    return systemText;
}

void BuildReportHead(const EXCEPTION_POINTERS& exception, ReportText& report) noexcept {
    OSVERSIONINFOA version = {};
    version.dwOSVersionInfoSize = sizeof(version);
    GetVersionExA(&version);
    const DWORD code = exception.ExceptionRecord->ExceptionCode;
    const Fault fault = {
        code,
        ExceptionName(code),
        reinterpret_cast<ULONG_PTR>(exception.ExceptionRecord->ExceptionAddress),
        RegistersOf(*exception.ContextRecord),
        {version.dwMajorVersion, version.dwMinorVersion, version.dwBuildNumber, version.szCSDVersion},
    };
    WriteHead(ProcessMemory(), fault, report);
}

void BuildReport(const EXCEPTION_POINTERS& exception, ReportText& report, volatile LONG& progress) noexcept {
    BuildReportHead(exception, report);
    DebugHelp help(*exception.ContextRecord, progress);
    WriteDetails(help.Source(), reinterpret_cast<ULONG_PTR>(exception.ExceptionRecord->ExceptionAddress), report);
}

}  // namespace halyard
