// The lines of a report that tell of variables: names, types and values.
#pragma once

#include "crash/report_source.h"
#include "crash/report_text.h"

namespace halyard {

// Appends what there is to tell of a symbol. `place` is the frame that holds it, null for a global. False for a symbol
// that gets no line: a function, and a variable whose place isn't known.
bool FormatSymbol(const ReportSource& source, const Symbol& symbol, const StackPlace* place, ReportText& line) noexcept;

// Appends a type's name and the members of a structure, with their values in the variable at `address`. `handled` takes
// whether the values were told with it. `nesting` is 0 for the variable itself.
void WriteType(const ReportSource& source, ReportText& line, std::uint64_t moduleBase, unsigned type, unsigned nesting,
               std::uint64_t address, bool& handled) noexcept;

// Appends the value of `length` bytes at `address`.
void WriteBasicValue(const ReportSource& source, ReportText& line, unsigned basicType, std::uint64_t length,
                     std::uint64_t address) noexcept;

// The number of the type's basic type, or of the one that it points to or is an array of; 0 for none.
unsigned BasicTypeOf(const ReportSource& source, unsigned type, std::uint64_t moduleBase) noexcept;

}  // namespace halyard
