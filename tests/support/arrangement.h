// The displays of the session, as a user may plug and arrange them.
#pragma once

#include <string>
#include <vector>
#include <windows.h>

namespace halyard::test {

struct Display {
    RECT whole, workArea;
};

// As the platform enumerates them.
std::vector<Display> PresentDisplays();
std::string Describe(const std::vector<Display>& displays);

// The first is the primary one, with 0, 0 as its top left corner. The platform's displays are changed if they aren't so
// already, and the platform tells no program of it. Returns whether they are so in the end.
bool Arrange(const std::vector<Display>& wanted);

// Two side by side and others that tests are used to.
std::vector<Display> SideBySide();
std::vector<Display> AbovePrimary();
std::vector<Display> ThreeInARow();    // the primary one in the middle
std::vector<Display> UnderTaskbars();  // as SideBySide, with a bar of 40 pixels at the bottom of each

// Tells all windows that the displays have changed, which the platform leaves to whoever changed them.
void AnnounceDisplays();

// Starts a command line of the system beneath the runtime. There is no handle to wait for.
void RunBeneath(const std::string& command);

}  // namespace halyard::test
