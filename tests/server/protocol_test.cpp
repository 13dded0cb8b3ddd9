// What other programs see and ask of the system: the shared block, the exports, the restart.
#include "common/entry.h"
#include "common/handles.h"
#include "support/desktop_fixture.h"

#include <atomic>
#include <cstring>
#include <functional>
#include <thread>

namespace halyard::test {

namespace {

using ProtocolTest = DesktopTest;

// Each road that README names brings a value into force that was changed by hand.
TEST_F(ProtocolTest, ValuesChangedByHandReachRunningPrograms) {
    const Sample sample = StartWithSample("Told");
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

// As another process sees it: where there is a hook there is the server's window, and where the mark of the installed
// hooks is there are both.
TEST_F(ProtocolTest, TheServerWindowStandsBeforeTheHooksAndAfterThem) {
    const Library library(LoadLibraryA((BinFolder() + LibraryFile).c_str()));
    const published::SharedBlock* shared = BlockOf(library.get());
    std::atomic<bool> over = false;
    std::atomic<unsigned> looks = 0, wrong = 0;
    std::thread watcher([&] {
        for (; !over; ++looks) {
            // Read twice alike, it did not change between one field and the next.
            const published::SharedBlock block = *shared;
            std::atomic_signal_fence(std::memory_order_seq_cst);
            if (std::memcmp(&block, shared, sizeof(block)) != 0) continue;
            const bool one = block.callWndProcRetHook || block.getMessageHook;
            const bool both = block.callWndProcRetHook && block.getMessageHook;
            wrong += (one && !block.serverWindow) || (block.hooksInstalled && !both);
        }
    });
    StartLoader();
    EXPECT_TRUE(shared->hooksInstalled && shared->callWndProcRetHook && shared->serverWindow);
    QuitLoader();
    EXPECT_FALSE(shared->hooksInstalled || shared->callWndProcRetHook || shared->serverWindow);
    over = true;
    watcher.join();
    EXPECT_GT(looks, 1000u);
    EXPECT_EQ(wrong, 0u);
}

// Neither over the same library nor over a copy of it, which has a shared block of its own.
TEST_F(ProtocolTest, IsOfOneServerInASession) {
    const Sample sample = StartWithSample("Served");
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
