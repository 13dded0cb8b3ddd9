#include "crash/debug_help.h"

#include "crash/module_version.h"
#include "crash/report_text.h"
#include "process/profile.h"

#include <algorithm>
#include <cstring>
#include <type_traits>

namespace halyard {

namespace {

// On 64-bit systems the headers define StackWalk and its like as StackWalk64: only that name is exported there.
#ifdef _WIN64
#define ADDRESS_WIDTH "64"
constexpr DWORD Machine = IMAGE_FILE_MACHINE_AMD64;
#else
#define ADDRESS_WIDTH ""
constexpr DWORD Machine = IMAGE_FILE_MACHINE_I386;
#endif
using AddressValue = std::conditional_t<sizeof(void*) == 8, DWORD64, DWORD>;

constexpr DWORD DeferredLoads = 4;

struct DebugHelpEntries {
    decltype(&SymInitialize) symInitialize;
    decltype(&SymCleanup) symCleanup;
    decltype(&SymSetOptions) symSetOptions;
    decltype(&SymFromAddr) symFromAddr;
    decltype(&StackWalk) stackWalk;
    decltype(&SymFunctionTableAccess) symFunctionTableAccess;
    decltype(&SymGetModuleBase) symGetModuleBase;
    decltype(&SymGetTypeInfo) symGetTypeInfo;
    decltype(&SymEnumSymbols) symEnumSymbols;
    decltype(&SymSetContext) symSetContext;
    decltype(&SymGetLineFromAddr) symGetLineFromAddr;
    decltype(&EnumerateLoadedModules) enumerateLoadedModules;
};

DebugHelpEntries entries;

template <typename Function>
void Fetch(HMODULE library, const char* name, Function& entry) noexcept {
    entry = EntryOf<Function>(library, name);
}

void FetchEntries() noexcept {
    const HMODULE library = LoadLibraryA("dbghelp.dll");
    Fetch(library, "SymInitialize", entries.symInitialize);
    Fetch(library, "SymCleanup", entries.symCleanup);
    Fetch(library, "SymSetOptions", entries.symSetOptions);
    Fetch(library, "SymFromAddr", entries.symFromAddr);
    Fetch(library, "StackWalk" ADDRESS_WIDTH, entries.stackWalk);
    Fetch(library, "SymFunctionTableAccess" ADDRESS_WIDTH, entries.symFunctionTableAccess);
    Fetch(library, "SymGetModuleBase" ADDRESS_WIDTH, entries.symGetModuleBase);
    Fetch(library, "SymGetTypeInfo", entries.symGetTypeInfo);
    Fetch(library, "SymEnumSymbols", entries.symEnumSymbols);
    Fetch(library, "SymSetContext", entries.symSetContext);
    Fetch(library, "SymGetLineFromAddr" ADDRESS_WIDTH, entries.symGetLineFromAddr);
    Fetch(library, "EnumerateLoadedModules" ADDRESS_WIDTH, entries.enumerateLoadedModules);
}

DebugHelp& Counted(void* context) noexcept {
    auto& help = *static_cast<DebugHelp*>(context);
    InterlockedIncrement(&help.progress);
    return help;
}

bool ReadMemory(void*, std::uint64_t address, void* bytes, std::size_t size) {
    SIZE_T copied = 0;
    const auto* place = reinterpret_cast<const void*>(static_cast<ULONG_PTR>(address));
    return ReadProcessMemory(GetCurrentProcess(), place, bytes, size, &copied) && copied == size;
}

bool ModuleAt(void*, std::uint64_t address, std::uint64_t& base, char (&path)[ReportPathRoom]) {
    MEMORY_BASIC_INFORMATION memory = {};
    const auto* place = reinterpret_cast<const void*>(static_cast<ULONG_PTR>(address));
    if (!VirtualQuery(place, &memory, sizeof(memory)) || !memory.AllocationBase) return false;
    base = reinterpret_cast<ULONG_PTR>(memory.AllocationBase);
    lstrcpynA(path, ModulePath(static_cast<HMODULE>(memory.AllocationBase)).text, sizeof(path));
    return true;
}

bool OpenSymbols(void* context, unsigned& error) {
    Counted(context);
    if (entries.symSetOptions && entries.symInitialize) {
        entries.symSetOptions(DeferredLoads);
        if (entries.symInitialize(GetCurrentProcess(), nullptr, TRUE)) return true;
    }
    error = GetLastError();
    return false;
}

void CloseSymbols(void*) {
    entries.symCleanup(GetCurrentProcess());
}

// Where the items of an enumeration go.
template <typename Item>
struct Receiver {
    void Give(const Item& item) const noexcept {
        Counted(context);
        found(target, item);
    }
    void* context;
    void (*found)(void* target, const Item& item);
    void* target;
};

BOOL CALLBACK OnModule(const char* name, AddressValue base, ULONG size, void* context) {
    const ModulePath path(reinterpret_cast<HMODULE>(static_cast<ULONG_PTR>(base)));
    const ModuleVersion version(path.text);
    static_cast<const Receiver<Module>*>(context)->Give(
        {path.text[0] ? path.FileName() : name, base, size, version.text, path.text});
    return TRUE;
}

void EnumerateModules(void* context, void (*found)(void* target, const Module& module), void* target) {
    Receiver<Module> bound = {context, found, target};
    entries.enumerateLoadedModules(GetCurrentProcess(), OnModule, &bound);
}

void StartWalk(void* context) {
    auto& help = Counted(context);
    // The walk changes its copy.
    help.walked = help.faulted;
    help.frame = {};
#ifdef _WIN64
    help.frame.AddrPC.Offset = help.walked.Rip;
    help.frame.AddrFrame.Offset = help.walked.Rbp;
    help.frame.AddrStack.Offset = help.walked.Rsp;
#else
    help.frame.AddrPC.Offset = help.walked.Eip;
    help.frame.AddrFrame.Offset = help.walked.Ebp;
    help.frame.AddrStack.Offset = help.walked.Esp;
#endif
    for (ADDRESS* address : {&help.frame.AddrPC, &help.frame.AddrFrame, &help.frame.AddrStack})
        address->Mode = AddrModeFlat;
}

bool NextFrame(void* context, StackPlace& place) {
    auto& help = Counted(context);
    if (!entries.stackWalk(Machine, GetCurrentProcess(), GetCurrentThread(), &help.frame, &help.walked, nullptr,
                           entries.symFunctionTableAccess, entries.symGetModuleBase, nullptr))
        return false;
    place.instruction = help.frame.AddrPC.Offset;
    place.frame = help.frame.AddrFrame.Offset;
    return true;
}

bool SymbolAt(void* context, std::uint64_t address, char (&name)[SymbolNameRoom], std::uint64_t& displacement) {
    Counted(context);
    constexpr unsigned NameLimit = SymbolNameRoom - 1;
    struct NamedSymbol {
        SYMBOL_INFO info;
        char rest[NameLimit];
    } symbol = {};
    static_assert(sizeof(SYMBOL_INFO) + NameLimit == 1112);
    symbol.info.SizeOfStruct = sizeof(SYMBOL_INFO) + NameLimit;
    symbol.info.MaxNameLen = NameLimit;
    DWORD64 distance = 0;
    if (!entries.symFromAddr(GetCurrentProcess(), address, &distance, &symbol.info)) return false;
    CopyText(name, sizeof(name), symbol.info.Name);
    displacement = distance;
    return true;
}

bool LineAt(void* context, std::uint64_t address, char (&file)[ReportPathRoom], unsigned& number) {
    Counted(context);
    IMAGEHLP_LINE line = {};
    static_assert(sizeof(void*) != 4 || sizeof(line) == 20);
    line.SizeOfStruct = sizeof(line);
    DWORD distance = 0;
    if (!entries.symGetLineFromAddr(GetCurrentProcess(), static_cast<AddressValue>(address), &distance, &line) ||
        !line.FileName)
        return false;
    CopyText(file, sizeof(file), line.FileName);
    number = line.LineNumber;
    return true;
}

void EnterFrame(void* context, std::uint64_t instruction) {
    Counted(context);
    IMAGEHLP_STACK_FRAME frame = {};
    frame.InstructionOffset = instruction;
    entries.symSetContext(GetCurrentProcess(), &frame, nullptr);
}

BOOL CALLBACK SymbolCallback(SYMBOL_INFO* symbol, ULONG, void* context) {
    static_cast<const Receiver<Symbol>*>(context)->Give(
        {symbol->Name, symbol->Address, symbol->ModBase, symbol->Flags, symbol->Tag, symbol->TypeIndex, symbol->Size});
    return TRUE;
}

void EnumerateSymbols(void* context, std::uint64_t moduleBase, void (*found)(void* target, const Symbol& symbol),
                      void* target) {
    Receiver<Symbol> bound = {context, found, target};
    entries.symEnumSymbols(GetCurrentProcess(), moduleBase, nullptr, SymbolCallback, &bound);
}

bool TypeInfo(std::uint64_t moduleBase, unsigned type, unsigned request, void* answer) noexcept {
    return entries.symGetTypeInfo(GetCurrentProcess(), moduleBase, type,
                                  static_cast<IMAGEHLP_SYMBOL_TYPE_INFO>(request), answer) != FALSE;
}

bool TypeName(void*, std::uint64_t moduleBase, unsigned type, char (&name)[TypeNameRoom]) {
    wchar_t* wide = nullptr;
    if (!TypeInfo(moduleBase, type, TI_GET_SYMNAME, &wide) || !wide) return false;
    WideCharToMultiByte(CP_ACP, 0, wide, -1, name, sizeof(name), nullptr, nullptr);
    // A name that doesn't fit is left without its closing zero.
    name[sizeof(name) - 1] = 0;
    LocalFree(wide);
    return true;
}

bool TypeNumberOf(void*, std::uint64_t moduleBase, unsigned type, TypeNumber request, std::uint64_t& number) {
    // Some requests fill 64 bits, others the lower 32.
    ULONG64 answer = 0;
    if (!TypeInfo(moduleBase, type, static_cast<unsigned>(request), &answer)) return false;
    number = answer;
    return true;
}

bool TypeChildren(void*, std::uint64_t moduleBase, unsigned type, unsigned count,
                  unsigned (&children)[MaxTypeChildren]) {
    struct ChildList {
        ULONG count;
        ULONG start;
        ULONG ids[MaxTypeChildren];
    } list = {};
    list.count = std::min(count, MaxTypeChildren);
    if (!TypeInfo(moduleBase, type, TI_FINDCHILDREN, &list)) return false;
    static_assert(sizeof(list.ids) == sizeof(children));
    std::memcpy(children, list.ids, sizeof(children));
    return true;
}

}  // namespace

DebugHelp::DebugHelp(const CONTEXT& faultedContext, volatile LONG& progressCount) noexcept
    : faulted(faultedContext), progress(progressCount) {
    FetchEntries();
    InterlockedIncrement(&progress);
    FetchVersionEntries();
    InterlockedIncrement(&progress);
}

ReportSource ProcessMemory() noexcept {
    ReportSource source = {};
    source.pointerSize = sizeof(void*);
    source.read = ReadMemory;
    source.moduleAt = ModuleAt;
    return source;
}

ReportSource DebugHelp::Source() noexcept {
    ReportSource source = ProcessMemory();
    source.context = this;
    source.openSymbols = OpenSymbols;
    source.startWalk = StartWalk;
    if (entries.enumerateLoadedModules) source.enumerateModules = EnumerateModules;
    if (entries.stackWalk) source.nextFrame = NextFrame;
    if (entries.symFromAddr) source.symbolAt = SymbolAt;
    if (entries.symGetLineFromAddr) source.lineAt = LineAt;
    if (entries.symSetContext) source.enterFrame = EnterFrame;
    if (entries.symEnumSymbols) source.enumerateSymbols = EnumerateSymbols;
    if (entries.symGetTypeInfo) {
        source.typeName = TypeName;
        source.typeNumber = TypeNumberOf;
        source.typeChildren = TypeChildren;
    }
    if (entries.symCleanup) source.closeSymbols = CloseSymbols;
    return source;
}

}  // namespace halyard
