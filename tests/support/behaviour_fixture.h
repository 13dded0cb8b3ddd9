// One test of what the behaviours do to windows of foreign programs.
#pragma once

#include "programs/sample_protocol.h"
#include "support/arrangement.h"
#include "support/desktop_fixture.h"
#include "support/input.h"

namespace halyard::test {

// Presets beside those of `DesktopTest`: two displays side by side, all behaviours off but the menu extension, the
// cursor out of the way, windows that are dragged with their contents.
class BehaviourTest : public DesktopTest {
protected:
    void SetUp() override;
    void TearDown() override;

    // A value of the configuration, before the programs that are to read it start.
    static void Set(const char* value, DWORD number) { WriteNumber(published::ProductKey, value, number); }
    // Has all running programs read the configuration, and waits for the sample to have done so.
    static void TellSettings(const Sample& witness);

    // Opens the sample program, or a copy of it, and waits until its window shows.
    Sample OpenFrame(const std::string& title, const std::string& switches = {},
                     const std::string& file = BinFolder() + sample::File);
    // Ends the program as its user does, and waits for its end.
    static void Close(const Sample& sample);
};

}  // namespace halyard::test
