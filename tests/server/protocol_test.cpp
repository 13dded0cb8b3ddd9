// What other programs see and ask of the system: the shared block, the exports, the restart.
#include "support/desktop_fixture.h"

#include <atomic>
#include <cstring>
#include <regex>
#include <thread>

namespace halyard::test {

namespace {

using ProtocolTest = DesktopTest;

TEST_F(ProtocolTest, RestartReadsTheRegistryAgain) {
    struct Case {
        DWORD run;  // in the registry ahead of the restart
        WPARAM enable;
        const char* enabled;
        const char* hooks;
        DWORD runAfter;
    };
    constexpr Case Cases[] = {
        {0, 0, "no", "out", 0}, {1, 0, "yes", "out", 1}, {0, 1, "yes", "in", 1}, {1, 7, "yes", "in", 1}};
    StartLoader();
    const Sample sample = OpenSample("Restarted");
    ASSERT_TRUE(WindowsBecome(0, 1));
    for (const Case& test : Cases) {
        SCOPED_TRACE(testing::Message() << "Run " << test.run << ", wParam " << test.enable);
        AskServer(published::Restart, 1);
        ASSERT_TRUE(WindowsBecome(0, 1));
        Assign(sample.window, 1);
        Switch(2);
        ASSERT_TRUE(BecomesHidden(sample.window));

        WriteNumber(published::ProductKey, "Run", test.run);
        AskServer(published::Restart, test.enable);
        EXPECT_EQ(Status("enabled"), test.enabled);
        EXPECT_EQ(Status("hooks"), test.hooks);
        EXPECT_EQ(Status("current desktop"), "0");
        EXPECT_EQ(NumberOr(published::ProductKey, "Run", 99), test.runAfter);
        EXPECT_TRUE(BecomesVisible(sample.window));
    }
}

TEST_F(ProtocolTest, AProgramKeepsItsSettingsUntilABroadcastFindsAWindowOfIt) {
    StartLoader();
    const Sample witness = OpenSample("Witness");
    const Sample windowless = OpenSample("Windowless");
    ASSERT_TRUE(WindowsBecome(0, 2));
    const auto tell = [] { PostMessageA(HWND_BROADCAST, RegisterWindowMessageA(published::SettingBroadcast), 1, 0); };
    const auto maximisesTo = [](HWND window, LONG width) {
        for (const WPARAM command : {SC_RESTORE, SC_MAXIMIZE})
            PostMessageA(window, WM_SYSCOMMAND, command, 0);
        RECT place = {};
        return Eventually([&] { return GetWindowRect(window, &place) && place.right - place.left == width; });
    };
    // The platform's own window for the input of text is in a broadcast as well.
    for (HWND window : {windowless.window, WindowOf(windowless.program->Id(), "Default IME")})
        SetParent(window, HWND_MESSAGE);
    WriteNumber(published::ProductKey, "CtrlMax", 2);
    tell();
    EXPECT_TRUE(maximisesTo(witness.window, 2048 + 8)) << Describe(witness.window);
    SetParent(windowless.window, nullptr);
    EXPECT_TRUE(maximisesTo(windowless.window, 1024 + 8)) << Describe(windowless.window);
    tell();
    EXPECT_TRUE(maximisesTo(windowless.window, 2048 + 8)) << Describe(windowless.window);
}

constexpr char LibraryFile[] = "tvlHalyd.dll";

// The library mapped into the test itself, as any program may map it.
class MappedLibrary {
public:
    MappedLibrary() : module(LoadLibraryA((BinFolder() + LibraryFile).c_str())) {
        const auto* base = reinterpret_cast<const char*>(module);
        if (!base) return;
        const auto* dos = reinterpret_cast<const IMAGE_DOS_HEADER*>(base);
        const auto* headers = reinterpret_cast<const IMAGE_NT_HEADERS*>(base + dos->e_lfanew);
        const IMAGE_SECTION_HEADER* section = IMAGE_FIRST_SECTION(headers);
        for (int index = 0; index < headers->FileHeader.NumberOfSections; ++index, ++section)
            if (std::memcmp(section->Name, ".SHARDAT", IMAGE_SIZEOF_SHORT_NAME) == 0)
                block = reinterpret_cast<const published::SharedBlock*>(base + section->VirtualAddress);
    }
    MappedLibrary(const MappedLibrary&) = delete;
    MappedLibrary& operator=(const MappedLibrary&) = delete;
    ~MappedLibrary() { FreeLibrary(module); }
    explicit operator bool() const { return block != nullptr; }

    // The shared block as this process, or another one that has the library, sees it.
    published::SharedBlock Block() const {
        // Another process writes it.
        std::atomic_signal_fence(std::memory_order_seq_cst);
        return *block;
    }
    published::SharedBlock BlockOf(const Child& child) const {
        published::SharedBlock read = {};
        const auto offset = reinterpret_cast<const char*>(block) - reinterpret_cast<const char*>(module);
        const auto* other = reinterpret_cast<const char*>(child.Module(LibraryFile));
        if (other) ReadProcessMemory(child.Handle(), other + offset, &read, sizeof(read), nullptr);
        return read;
    }
    int SetActiveDesktop(unsigned id) const {
        void* entry = reinterpret_cast<void*>(GetProcAddress(module, "SetActiveDesktop"));
        return reinterpret_cast<int (*)(unsigned)>(entry)(id);
    }

private:
    HMODULE module;
    const published::SharedBlock* block = nullptr;
};

// What another process sees of the start or of the end: a digit for each state of the block, of the server's window
// (1), the mark of the installed hooks (2) and the two hooks (4, 8).
class BlockWatch {
public:
    // Has seen the block once when it returns.
    explicit BlockWatch(const MappedLibrary& library) : watched(library) {
        Look();
        watcher = std::thread([this] {
            while (!stopped)
                Look();
        });
    }
    std::string Stop() {
        stopped = true;
        watcher.join();
        Look();
        return seen;
    }

private:
    void Look() {
        // Read twice alike, it did not change between one field and the next.
        const published::SharedBlock block = watched.Block();
        const published::SharedBlock again = watched.Block();
        if (std::memcmp(&block, &again, sizeof(block)) != 0) return;
        const int state = (block.serverWindow ? 1 : 0) + (block.hooksInstalled ? 2 : 0) +
                          (block.callWndProcRetHook ? 4 : 0) + (block.getMessageHook ? 8 : 0);
        const char digit = "0123456789ABCDEF"[state];
        if (seen.empty() || seen.back() != digit) seen += digit;
    }

    const MappedLibrary& watched;
    std::atomic<bool> stopped = false;
    std::string seen;
    std::thread watcher;
};

TEST_F(ProtocolTest, TheServerWindowStandsBeforeTheHooksAndAfterThem) {
    const MappedLibrary library;
    ASSERT_TRUE(library);
    BlockWatch start(library);
    StartLoader();
    // Either may miss states, but has no other ones and none out of order.
    const std::string atStart = start.Stop();
    EXPECT_TRUE(std::regex_match(atStart, std::regex("01?3?7?F"))) << atStart;
    BlockWatch end(library);
    QuitLoader();
    const std::string atEnd = end.Stop();
    EXPECT_TRUE(std::regex_match(atEnd, std::regex("FD?9?1?0"))) << atEnd;
}

TEST_F(ProtocolTest, AllProcessesSeeOneSharedBlock) {
    StartLoader();
    const Sample sample = OpenSample("Sharing");
    ASSERT_TRUE(WindowsBecome(0, 1));
    const MappedLibrary library;
    ASSERT_TRUE(library);
    Switch(2);
    const published::SharedBlock here = library.Block();
    const published::SharedBlock there = library.BlockOf(*sample.program);
    EXPECT_EQ(std::memcmp(&here, &there, sizeof(here)), 0);

    EXPECT_EQ(here.currentDesktopId, 2u);
    EXPECT_EQ(here.serverWindow, static_cast<DWORD>(HandleToLong(Server())));
    EXPECT_EQ(here.hooksInstalled, 1);

    // A switch that another process than the server's asks for.
    EXPECT_EQ(library.SetActiveDesktop(0), 1);
    EXPECT_TRUE(BecomesVisible(sample.window));
    AskServer(published::Restart, 0);
    EXPECT_EQ(library.SetActiveDesktop(1), 0) << "without hooks";
    EXPECT_EQ(library.Block().currentDesktopId, 0u);
}

}  // namespace

}  // namespace halyard::test
