// The instance that stays: it owns the server's thread.
#pragma once

#include "loader/command.h"
#include "loader/library.h"

namespace halyard::loader {

// Starts the server on this thread, carries `line` out, and pumps messages until it is told to end: by --quit, by the
// end of the session or by Ctrl+C. The server is ended on this thread in every one of these cases. Returns the exit
// status.
int RunResident(const Library& library, const CommandLine& line);

}  // namespace halyard::loader
