#include "behaviours/application_patches.h"

#include "behaviours/import_walk.h"
#include "behaviours/inprocess_fixture.h"

namespace halyard::test {
namespace {

RECT WholeDesktop() {
    RECT rect = {};
    GetWindowRect(GetDesktopWindow(), &rect);
    return rect;
}

// The module of the program that asks for the size of the desktop.
class Layer {
public:
    explicit Layer(const char* name) : module(LoadLibraryA(name)) {}
    Layer(const Layer&) = delete;
    Layer& operator=(const Layer&) = delete;
    ~Layer() { FreeLibrary(module); }

    RECT Desktop() const {
        RECT rect = {};
        EXPECT_TRUE(EntryOf<BOOL (*)(HWND, RECT*)>(module, "LayerWindowRect")(GetDesktopWindow(), &rect));
        return rect;
    }

    // The entry of its import address table that holds the address of GetWindowRect.
    ULONG_PTR* Entry() const {
        const auto* base = reinterpret_cast<const unsigned char*>(module);
        const auto* dos = reinterpret_cast<const IMAGE_DOS_HEADER*>(base);
        const auto* header = reinterpret_cast<const IMAGE_NT_HEADERS*>(base + dos->e_lfanew);
        std::size_t found = 0;
        FindImports(
            {base, header->OptionalHeader.SizeOfImage}, TrueWindowRect(),
            [](void* context, std::size_t offset) { *static_cast<std::size_t*>(context) = offset; }, &found);
        return reinterpret_cast<ULONG_PTR*>(reinterpret_cast<ULONG_PTR>(base) + found);
    }

    static ULONG_PTR TrueWindowRect() {
        return reinterpret_cast<ULONG_PTR>(GetProcAddress(GetModuleHandleA("user32.dll"), "GetWindowRect"));
    }

private:
    HMODULE module;
};

class ApplicationPatchesTest : public BehaviourTest {
protected:
    ApplicationPatchesTest() { profile.program.maya = true; }
    ~ApplicationPatchesTest() override { RemoveApplicationPatches(); }
};

TEST_F(ApplicationPatchesTest, KeepTheProtectionOfTheTables) {
    const Layer layer("EXTENSIONLAYER.dll");
    ULONG_PTR* entry = layer.Entry();
    const auto protectionOf = [](const void* address) {
        MEMORY_BASIC_INFORMATION info = {};
        VirtualQuery(address, &info, sizeof(info));
        return info.Protect;
    };
    for (const DWORD protection : {PAGE_READONLY, PAGE_READWRITE}) {
        DWORD old = 0;
        ASSERT_TRUE(VirtualProtect(entry, sizeof(ULONG_PTR), protection, &old));
        const DWORD before = protectionOf(entry);
        ApplyApplicationPatches();
        ApplyApplicationPatches();
        EXPECT_NE(Layer::TrueWindowRect(), *entry);
        EXPECT_EQ(before, protectionOf(entry));
        RemoveApplicationPatches();
        EXPECT_EQ(Layer::TrueWindowRect(), *entry);
        EXPECT_EQ(before, protectionOf(entry));
    }
}

// A module may have copied what it found in another's table: no entry may lead to code that goes away.
TEST_F(ApplicationPatchesTest, AreUndoneInEveryModule) {
    const Layer layer("ExtensionLayer.dll");
    const Layer other("OtherLayer.dll");
    ULONG_PTR* entry = layer.Entry();
    ULONG_PTR* copy = other.Entry();
    ApplyApplicationPatches();
    EXPECT_EQ(bounds, layer.Desktop());
    EXPECT_EQ(WholeDesktop(), other.Desktop());
    DWORD old = 0;
    VirtualProtect(copy, sizeof(ULONG_PTR), PAGE_READWRITE, &old);
    *copy = *entry;
    EXPECT_EQ(bounds, other.Desktop());
    RemoveApplicationPatches();
    EXPECT_EQ(Layer::TrueWindowRect(), *copy);
    EXPECT_EQ(WholeDesktop(), layer.Desktop());
}

}  // namespace
}  // namespace halyard::test
