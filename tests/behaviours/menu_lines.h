// A menu with all that hangs in it, as lines of text.
#pragma once

#include "common/win_types.h"

#include <string>
#include <vector>

namespace halyard::test {

using Lines = std::vector<std::string>;

// One line an item: "ID TEXT", or "ID -" for a separator, then "checked", "grey", "default" or "state N" in brackets,
// and
// ">" where a submenu hangs, whose lines follow with two more blanks ahead of them.
Lines MenuLines(HMENU menu, const std::string& indent = "");

// The line of one item, without what hangs in it.
std::string MenuLine(HMENU menu, UINT id);

}  // namespace halyard::test
