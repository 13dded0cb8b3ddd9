// What the report asks of the system and of its debug-help library, as plain callbacks, so that the report can be made
// of made-up answers too.
#pragma once

#include <cstddef>
#include <cstdint>

namespace halyard {

inline constexpr unsigned ReportPathRoom = 260;  // characters, the closing zero included, as in the next two
inline constexpr unsigned SymbolNameRoom = 1025;
inline constexpr unsigned TypeNameRoom = 256;
inline constexpr unsigned MaxTypeChildren = 1024;

struct StackPlace {
    std::uint64_t instruction = 0;
    std::uint64_t frame = 0;
};

// A variable or function; flags and tag as the debug-help library has them.
struct Symbol {
    const char* name;
    std::uint64_t address;
    std::uint64_t moduleBase;
    unsigned flags;
    unsigned tag;
    unsigned type;
    unsigned size;  // bytes
};

struct Module {
    const char* name;
    std::uint64_t base;
    unsigned size;  // bytes
    const char* version;
    const char* path;
};

// Requests of the debug-help library for one number of a type.
enum class TypeNumber : unsigned { Length = 2, TypeId = 4, BasicType = 5, Offset = 10, ChildCount = 13 };

// Each callback gets `context`. Those of the second group are null where the debug-help library lacks the entry. A
// callback that answers false leaves its results as they were.
struct ReportSource {
    void* context;
    unsigned pointerSize;  // 4 or 8: of the machine that the report is about

    // Copies memory of the faulted program; false, and no fault, where it can't be read whole.
    bool (*read)(void* context, std::uint64_t address, void* bytes, std::size_t size);
    // The module that an address lies in. False for none; true with an empty path where the path can't be had.
    bool (*moduleAt)(void* context, std::uint64_t address, std::uint64_t& base, char (&path)[ReportPathRoom]);
    // Makes the library ready for all that follows; else the number of the error.
    bool (*openSymbols)(void* context, unsigned& error);

    void (*enumerateModules)(void* context, void (*found)(void* target, const Module& module), void* target);
    // The first call behind `startWalk` gives the place of the fault, each other one its caller.
    void (*startWalk)(void* context);
    bool (*nextFrame)(void* context, StackPlace& place);
    bool (*symbolAt)(void* context, std::uint64_t address, char (&name)[SymbolNameRoom], std::uint64_t& displacement);
    bool (*lineAt)(void* context, std::uint64_t address, char (&file)[ReportPathRoom], unsigned& line);
    void (*enterFrame)(void* context, std::uint64_t instruction);
    // The symbols of the module, or with 0 the variables of the frame that was entered last.
    void (*enumerateSymbols)(void* context, std::uint64_t moduleBase, void (*found)(void* target, const Symbol& symbol),
                             void* target);
    // The three are there or missing together.
    bool (*typeName)(void* context, std::uint64_t moduleBase, unsigned type, char (&name)[TypeNameRoom]);
    bool (*typeNumber)(void* context, std::uint64_t moduleBase, unsigned type, TypeNumber request,
                       std::uint64_t& number);
    bool (*typeChildren)(void* context, std::uint64_t moduleBase, unsigned type, unsigned count,
                         unsigned (&children)[MaxTypeChildren]);
    void (*closeSymbols)(void* context);
};

// An address as far as the machine's pointers carry it.
inline std::uint64_t WrapAddress(const ReportSource& source, std::uint64_t address) noexcept {
    return source.pointerSize == 4 ? address & 0xFFFFFFFF : address;
}

}  // namespace halyard
