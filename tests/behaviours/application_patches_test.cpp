#include "behaviours/application_patches.h"

#include "behaviour_fixture.h"
#include "behaviours/import_walk.h"

namespace halyard::test {
namespace {

RECT DesktopRect() {
    RECT rect = {};
    GetWindowRect(GetDesktopWindow(), &rect);
    return rect;
}

// The module of the program that asks for the size of the desktop.
class Layer {
public:
    explicit Layer(const char* name)
        : module(LoadLibraryA(name)), windowRect(EntryOf<WindowRectFn>(module, "LayerWindowRect")),
          parameters(EntryOf<ParametersFn>(module, "LayerParameters")) {}
    Layer(const Layer&) = delete;
    Layer& operator=(const Layer&) = delete;
    ~Layer() { FreeLibrary(module); }

    RECT RectOf(HWND window) const {
        RECT rect = {};
        EXPECT_TRUE(windowRect(window, &rect));
        return rect;
    }
    RECT WorkArea() const {
        RECT rect = {};
        EXPECT_TRUE(parameters(SPI_GETWORKAREA, 0, &rect, 0));
        return rect;
    }
    BOOL Parameters(UINT action, UINT param, void* data) const { return parameters(action, param, data, 0); }

    // The entries of its import address tables that hold `address`.
    std::vector<ULONG_PTR*> EntriesOf(ULONG_PTR address) const {
        const auto* base = reinterpret_cast<const unsigned char*>(module);
        const auto* dos = reinterpret_cast<const IMAGE_DOS_HEADER*>(base);
        const auto* header = reinterpret_cast<const IMAGE_NT_HEADERS*>(base + dos->e_lfanew);
        std::vector<ULONG_PTR*> entries;
        FindImports(
            {base, header->OptionalHeader.SizeOfImage}, address,
            [](void* context, std::size_t offset) {
                auto& found = *static_cast<std::vector<ULONG_PTR*>*>(context);
                found.push_back(reinterpret_cast<ULONG_PTR*>(offset));
            },
            &entries);
        for (ULONG_PTR*& entry : entries)
            entry =
                reinterpret_cast<ULONG_PTR*>(reinterpret_cast<ULONG_PTR>(entry) + reinterpret_cast<ULONG_PTR>(base));
        return entries;
    }

private:
    using WindowRectFn = BOOL (*)(HWND, RECT*);
    using ParametersFn = BOOL (*)(UINT, UINT, void*, UINT);
    HMODULE module;
    WindowRectFn windowRect;
    ParametersFn parameters;
};

class ApplicationPatchesTest : public BehaviourTest {
protected:
    ApplicationPatchesTest() { SystemParametersInfoA(SPI_GETWORKAREA, 0, &workArea, 0); }
    ~ApplicationPatchesTest() override { RemoveApplicationPatches(); }

    void ExpectTrueSizes(const Layer& layer) const {
        EXPECT_EQ(DesktopRect(), layer.RectOf(GetDesktopWindow()));
        EXPECT_EQ(workArea, layer.WorkArea());
    }

    static ULONG_PTR TrueWindowRect() {
        return reinterpret_cast<ULONG_PTR>(GetProcAddress(GetModuleHandleA("user32.dll"), "GetWindowRect"));
    }

    RECT workArea = {};
};

TEST_F(ApplicationPatchesTest, ShowTheModuleAllDisplays) {
    ASSERT_FALSE(bounds == workArea) << "the test needs a second display";
    for (const char* name : {"ExtensionLayer.dll", "EXTENSIONLAYER.DLL"}) {
        SCOPED_TRACE(name);
        const Layer layer(name);
        const Layer other("OtherLayer.dll");
        profile.program.maya = true;
        ExpectTrueSizes(layer);
        ApplyApplicationPatches();
        EXPECT_EQ(bounds, layer.RectOf(GetDesktopWindow()));
        EXPECT_EQ(bounds, layer.WorkArea());
        ExpectTrueSizes(other);

        // Everything else is told as ever.
        EXPECT_EQ(server.Place(), layer.RectOf(server.get()));
        UINT seen = 0;
        UINT real = 0;
        EXPECT_TRUE(layer.Parameters(SPI_GETWHEELSCROLLLINES, 0, &seen));
        SystemParametersInfoA(SPI_GETWHEELSCROLLLINES, 0, &real, 0);
        EXPECT_EQ(real, seen);
        RECT none = {};
        EXPECT_FALSE(layer.Parameters(0xFFFFFFF0, 0, &none));

        PretendDisplays(1);
        RefreshDisplays();
        EXPECT_EQ(displays[0].workArea, layer.RectOf(GetDesktopWindow())) << "as of the last refresh";
        EXPECT_EQ(displays[0].workArea, layer.WorkArea());
        PretendDisplays(10);
        RefreshDisplays();

        ApplyApplicationPatches();
        RemoveApplicationPatches();
        ExpectTrueSizes(layer);
        RemoveApplicationPatches();
        ExpectTrueSizes(layer);
    }
}

TEST_F(ApplicationPatchesTest, AreForOneProgramOnly) {
    const Layer layer("ExtensionLayer.dll");
    for (const bool modeler : {false, true}) {
        profile.program.modeler = modeler;
        ApplyApplicationPatches();
        ExpectTrueSizes(layer);
    }
}

TEST_F(ApplicationPatchesTest, ComeTooEarlyForAModuleLoadedLater) {
    profile.program.maya = true;
    ApplyApplicationPatches();
    const Layer layer("ExtensionLayer.dll");
    ExpectTrueSizes(layer);
}

TEST_F(ApplicationPatchesTest, KeepTheProtectionOfTheTables) {
    const Layer layer("ExtensionLayer.dll");
    const auto entries = layer.EntriesOf(TrueWindowRect());
    ASSERT_EQ(1u, entries.size());
    const auto protectionOf = [](const void* address) {
        MEMORY_BASIC_INFORMATION info = {};
        VirtualQuery(address, &info, sizeof(info));
        return info.Protect;
    };
    for (const DWORD protection : {PAGE_READONLY, PAGE_READWRITE}) {
        DWORD old = 0;
        ASSERT_TRUE(VirtualProtect(entries[0], sizeof(ULONG_PTR), protection, &old));
        const DWORD before = protectionOf(entries[0]);
        profile.program.maya = true;
        ApplyApplicationPatches();
        EXPECT_NE(TrueWindowRect(), *entries[0]);
        EXPECT_EQ(before, protectionOf(entries[0]));
        RemoveApplicationPatches();
        EXPECT_EQ(TrueWindowRect(), *entries[0]);
        EXPECT_EQ(before, protectionOf(entries[0]));
    }
}

// A module may have copied what it found in another's table: no entry may lead to code that goes away.
TEST_F(ApplicationPatchesTest, AreUndoneInEveryModule) {
    const Layer layer("ExtensionLayer.dll");
    const Layer other("OtherLayer.dll");
    const auto entries = layer.EntriesOf(TrueWindowRect());
    const auto copies = other.EntriesOf(TrueWindowRect());
    ASSERT_EQ(1u, entries.size());
    ASSERT_EQ(1u, copies.size());
    profile.program.maya = true;
    ApplyApplicationPatches();
    DWORD old = 0;
    VirtualProtect(copies[0], sizeof(ULONG_PTR), PAGE_READWRITE, &old);
    *copies[0] = *entries[0];
    EXPECT_EQ(bounds, other.RectOf(GetDesktopWindow()));
    RemoveApplicationPatches();
    ExpectTrueSizes(other);
    EXPECT_EQ(TrueWindowRect(), *copies[0]);
}

DWORD RunScreenHolder(const std::string& arguments) {
    char line[100];
    lstrcpynA(line, ("screen_holder.exe " + arguments).c_str(), sizeof(line));
    STARTUPINFOA start = {};
    start.cb = sizeof(start);
    PROCESS_INFORMATION process = {};
    DWORD result = 0;
    EXPECT_TRUE(CreateProcessA(nullptr, line, nullptr, nullptr, FALSE, 0, nullptr, nullptr, &start, &process));
    EXPECT_EQ(WAIT_OBJECT_0, WaitForSingleObject(process.hProcess, 60000));
    GetExitCodeProcess(process.hProcess, &result);
    CloseHandle(process.hThread);
    CloseHandle(process.hProcess);
    return result;
}

TEST_F(ApplicationPatchesTest, WidenTheStoredScreenSize) {
    const int width = GetSystemMetrics(SM_CXSCREEN);
    const int height = GetSystemMetrics(SM_CYSCREEN);
    const int allWidth = GetSystemMetrics(SM_CXVIRTUALSCREEN);
    const int allHeight = GetSystemMetrics(SM_CYVIRTUALSCREEN);
    ASSERT_LT(width, allWidth);
    struct Case {
        const char* what;
        int width, height;
        DWORD protection;
        bool widened;
    };
    const Case cases[] = {
        {"the first display's", width, height, PAGE_READWRITE, true},
        {"with another height", width, 5, PAGE_READWRITE, true},
        {"as code", width, height, PAGE_EXECUTE_READWRITE, true},
        {"of another build", width + 1, height, PAGE_READWRITE, false},
        {"nothing there", 0, 0, PAGE_READWRITE, false},
        {"all displays already", allWidth, allHeight, PAGE_READWRITE, false},
        {"out of reach", width, height, PAGE_NOACCESS, false},
        {"guarded", width, height, PAGE_READWRITE | PAGE_GUARD, false},
    };
    for (const Case& test : cases) {
        const DWORD size = RunScreenHolder(std::to_string(test.width) + " " + std::to_string(test.height) + " " +
                                           std::to_string(test.protection));
        EXPECT_EQ(test.widened ? allWidth : test.width, HIWORD(size)) << test.what;
        EXPECT_EQ(test.widened ? allHeight : test.height, LOWORD(size)) << test.what;
    }
}

}  // namespace
}  // namespace halyard::test
