// The main program of the tests of this folder.
#pragma once

#include "common/win_types.h"

namespace halyard::test {

// An unhandled-exception filter: names the test and ends the process as failed. To be put back on top of one that the
// code under test has set.
LONG WINAPI EndAtFault(EXCEPTION_POINTERS* fault);

}  // namespace halyard::test
