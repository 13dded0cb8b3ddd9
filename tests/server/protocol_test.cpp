// What other programs see and ask of the system: the shared block, the exports, the restart.
#include "common/entry.h"
#include "common/handles.h"
#include "support/desktop_fixture.h"

#include <atomic>
#include <cstring>
#include <functional>
#include <regex>
#include <thread>

namespace halyard::test {

namespace {

using ProtocolTest = DesktopTest;

// Each road that README names brings a value into force that was changed by hand.
TEST_F(ProtocolTest, ValuesChangedByHandReachRunningPrograms) {
    StartLoader();
    const Sample sample = OpenSample("Told");
    ASSERT_TRUE(WindowsBecome(0, 1));
    const auto maximisesTo = [&](LONG width) {
        for (const WPARAM command : {SC_RESTORE, SC_MAXIMIZE})
            PostMessageA(sample.window, WM_SYSCOMMAND, command, 0);
        return Eventually([&] { return PlaceOf(sample.window).right - PlaceOf(sample.window).left == width; });
    };
    const std::pair<const char*, std::function<void()>> roads[] = {
        {"restart", [] { AskServer(published::Restart, 1); }},
        {"off and on", [&] { Loader("--disable --enable"); }},
        {"end and start", [&] { QuitLoader(), StartLoader(); }},
    };
    for (const auto& [name, take] : roads)
        for (const DWORD everywhere : {2, 0}) {
            WriteNumber(published::ProductKey, "CtrlMax", everywhere);
            Switch(1);
            take();
            EXPECT_TRUE(BecomesVisible(sample.window)) << name;
            EXPECT_TRUE(maximisesTo(everywhere ? 2048 + 8 : 1024 + 8)) << name << ": " << Describe(sample.window);
        }
}

constexpr char LibraryFile[] = "tvlHalyd.dll";

// The shared block as any process sees it that has the library.
const published::SharedBlock* BlockOf(HMODULE library) {
    const auto* base = reinterpret_cast<const char*>(library);
    const auto* dos = reinterpret_cast<const IMAGE_DOS_HEADER*>(base);
    const auto* headers = reinterpret_cast<const IMAGE_NT_HEADERS*>(base + dos->e_lfanew);
    const IMAGE_SECTION_HEADER* section = IMAGE_FIRST_SECTION(headers);
    while (std::memcmp(section->Name, ".SHARDAT", sizeof(section->Name)) != 0)
        ++section;
    return reinterpret_cast<const published::SharedBlock*>(base + section->VirtualAddress);
}

// What another process sees of the block while something is done: a digit for each state, of the server's window (1),
// the mark of the installed hooks (2) and the two hooks (4, 8).
std::string StatesDuring(const std::function<void()>& action) {
    const Library library(LoadLibraryA((BinFolder() + LibraryFile).c_str()));
    const published::SharedBlock* shared = BlockOf(library.get());
    std::string seen;
    const auto look = [&] {
        // Read twice alike, it did not change between one field and the next.
        const published::SharedBlock block = *shared;
        std::atomic_signal_fence(std::memory_order_seq_cst);
        if (std::memcmp(&block, shared, sizeof(block)) != 0) return;
        const int state = (block.serverWindow ? 1 : 0) + (block.hooksInstalled ? 2 : 0) +
                          (block.callWndProcRetHook ? 4 : 0) + (block.getMessageHook ? 8 : 0);
        const char digit = "0123456789ABCDEF"[state];
        if (seen.empty() || seen.back() != digit) seen += digit;
    };
    look();
    std::atomic<bool> over = false;
    std::thread watcher([&] {
        while (!over)
            look();
    });
    action();
    over = true;
    watcher.join();
    look();
    return seen;
}

// Either may miss states, but has no other ones and none out of order.
TEST_F(ProtocolTest, TheServerWindowStandsBeforeTheHooksAndAfterThem) {
    const std::string atStart = StatesDuring([&] { StartLoader(); });
    EXPECT_TRUE(std::regex_match(atStart, std::regex("01?5?D?F"))) << atStart;
    const std::string atEnd = StatesDuring([&] { QuitLoader(); });
    EXPECT_TRUE(std::regex_match(atEnd, std::regex("FD?9?1?0"))) << atEnd;
}

// Neither over the same library nor over a copy of it, which has a shared block of its own.
TEST_F(ProtocolTest, IsOfOneServerInASession) {
    StartLoader();
    const Sample sample = OpenSample("Served");
    ASSERT_TRUE(WindowsBecome(0, 1));
    Switch(1);
    ASSERT_TRUE(BecomesHidden(sample.window));
    const HWND server = Server();
    const std::string copy = CopyTo(ScratchFolder(), LibraryFile, LibraryFile);
    for (const std::string& path : {BinFolder() + LibraryFile, copy}) {
        const Library library(LoadLibraryA(path.c_str()));
        for (const char* name : {"ServerInit", "Enable", "Disable", "ServerUninit"})
            EntryOf<void (*)()>(library.get(), name)();
        EXPECT_EQ(Server(), server);
        EXPECT_EQ(Status("hooks"), "in");
        EXPECT_TRUE(StaysHidden(sample.window));
    }
}

}  // namespace

}  // namespace halyard::test
