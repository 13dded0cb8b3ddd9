// The stand-in shell's objects as an in-process COM library, which stays mapped once it is: the one for wallpaper and
// style, and the one by which programs take windows off the task bar.
#include "shell/record.h"
#include "shell/tray_protocol.h"

#include <cstring>

// The shell's header declares what it has for wallpaper only after this one.
#include <wininet.h>

#include <shlobj.h>
#include <shlwapi.h>

namespace standin {

namespace {

using Entry = void (*)();

// Lives as long as the library, and has one interface beside that of all objects. What the system has no need to call
// has no entry: such a call ends the program.
struct Object {
    const Entry* entries;
    GUID interfaceId;
    const Object* made = nullptr;  // what a factory makes
};

template <typename Function>
Entry EntryFor(Function* function) {
    return reinterpret_cast<Entry>(function);
}

HRESULT STDMETHODCALLTYPE Query(const Object* object, const GUID& wanted, const void** found) {
    const bool known = wanted == IID_IUnknown || wanted == object->interfaceId;
    *found = known ? object : nullptr;
    return known ? S_OK : E_NOINTERFACE;
}

ULONG STDMETHODCALLTYPE CountReference(const Object*) {
    return 1;
}

HRESULT STDMETHODCALLTYPE Make(const Object* factory, IUnknown*, const GUID& wanted, const void** made) {
    return Query(factory->made, wanted, made);
}

// Wide, so that every letter is kept.
constexpr wchar_t Key[] = L"Software\\HalyardStandIn", Wallpaper[] = L"Wallpaper";

// What is set takes effect with ApplyChanges, as in the real one.
wchar_t chosen[MAX_PATH] = {};
DWORD chosenStyle = 0;

HRESULT STDMETHODCALLTYPE ApplyChanges(const Object*, DWORD flags) {
    if (!(flags & AD_APPLY_SAVE)) return S_OK;
    SHSetValueW(HKEY_CURRENT_USER, Key, Wallpaper, REG_SZ, chosen, (lstrlenW(chosen) + 1) * sizeof(wchar_t));
    WriteNumber(StandInKey, WallpaperStyleValue, chosenStyle);
    return S_OK;
}

HRESULT STDMETHODCALLTYPE GetWallpaper(const Object*, wchar_t* path, UINT room, DWORD) {
    DWORD size = room * sizeof(wchar_t);
    *path = 0;
    SHGetValueW(HKEY_CURRENT_USER, Key, Wallpaper, nullptr, path, &size);
    return S_OK;
}

HRESULT STDMETHODCALLTYPE SetWallpaper(const Object*, const wchar_t* path, DWORD) {
    lstrcpynW(chosen, path, MAX_PATH);
    return S_OK;
}

HRESULT STDMETHODCALLTYPE GetWallpaperOptions(const Object*, WALLPAPEROPT* options, DWORD) {
    if (options->dwSize != sizeof(*options)) return E_INVALIDARG;
    options->dwStyle = NumberOr(StandInKey, WallpaperStyleValue, 0);
    return S_OK;
}

HRESULT STDMETHODCALLTYPE SetWallpaperOptions(const Object*, const WALLPAPEROPT* options, DWORD) {
    if (options->dwSize != sizeof(*options)) return E_INVALIDARG;
    chosenStyle = options->dwStyle;
    return S_OK;
}

// Who wants to hear of shell events. Wine takes a registration (shell32.dll, ordinal 181), answers that it is done, and
// keeps nothing.
constexpr WORD RegisterOrdinal = 181;
constexpr DWORD AddTaskManager = 3;  // the one kind of registration that brings events on the NT family

BOOL WINAPI OnRegister(HWND window, DWORD kind) {
    if (window && kind == AddTaskManager) SetPropA(window, ListenerProperty, FindWindowA(TrayClass, nullptr));
    return TRUE;
}

#pragma pack(push, 1)
// Machine code for either bitness: the prefix that makes the load one of 64 bits is "dec eax" in 32-bit code.
struct Jump {
    BYTE load[2] = {0x48, 0xB8};  // mov rax, target
    BOOL(WINAPI* target)(HWND, DWORD) = OnRegister;
    BYTE go[2] = {0xFF, 0xE0};  // jmp rax
};
#pragma pack(pop)

// From here on the calls in this process leave a mark on the registered window: the property `ListenerProperty`, whose
// value is the window of the shell that ran then. So a registration ends with its window, and with that shell.
void KeepRegistrations() {
    HMODULE pinned = nullptr;
    GetModuleHandleExA(GET_MODULE_HANDLE_EX_FLAG_PIN | GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS,
                       reinterpret_cast<LPCSTR>(OnRegister), &pinned);
    void* entry = reinterpret_cast<void*>(
        GetProcAddress(LoadLibraryA("shell32.dll"), reinterpret_cast<LPCSTR>(ULONG_PTR{RegisterOrdinal})));
    constexpr Jump Written;
    DWORD before = 0;
    VirtualProtect(entry, sizeof(Jump), PAGE_EXECUTE_READWRITE, &before);
    std::memcpy(entry, &Written, sizeof(Jump));
    VirtualProtect(entry, sizeof(Jump), before, &before);
}

HRESULT STDMETHODCALLTYPE StartTaskList(const Object*) {
    KeepRegistrations();
    return S_OK;
}

template <UINT Message>
HRESULT STDMETHODCALLTYPE Tell(const Object*, HWND window) {
    constexpr UINT TrayPatience = 2000;  // ms
    DWORD_PTR answer = 0;
    SendMessageTimeoutA(FindWindowA(TrayClass, nullptr), Message, reinterpret_cast<WPARAM>(window), 0, SMTO_NORMAL,
                        TrayPatience, &answer);
    return S_OK;
}

const Entry query = EntryFor(Query), count = EntryFor(CountReference);
const Entry FactoryEntries[5] = {query, count, count, EntryFor(Make)};
const Entry ActiveDesktopEntries[23] = {query,
                                        count,
                                        count,
                                        EntryFor(ApplyChanges),
                                        EntryFor(GetWallpaper),
                                        EntryFor(SetWallpaper),
                                        EntryFor(GetWallpaperOptions),
                                        EntryFor(SetWallpaperOptions)};
const Entry TaskListEntries[8] = {
    query, count, count, EntryFor(StartTaskList), EntryFor(Tell<AddTab>), EntryFor(Tell<DeleteTab>)};

const Object activeDesktop = {ActiveDesktopEntries,
                              {0xF490EB00, 0x1240, 0x11D1, {0x98, 0x88, 0x00, 0x60, 0x97, 0xDE, 0xAC, 0xF9}}};
const Object taskList = {TaskListEntries,
                         {0x56FDF342, 0xFD6D, 0x11D0, {0x95, 0x8A, 0x00, 0x60, 0x97, 0xC9, 0xA0, 0x90}}};

const struct {
    GUID id;
    Object factory;
} Classes[] = {{{0x75048700, 0xEF1F, 0x11D0, {0x98, 0x88, 0x00, 0x60, 0x97, 0xDE, 0xAC, 0xF9}},
                {FactoryEntries, IID_IClassFactory, &activeDesktop}},
               {{0x56FDF344, 0xFD6D, 0x11D0, {0x95, 0x8A, 0x00, 0x60, 0x97, 0xC9, 0xA0, 0x90}},
                {FactoryEntries, IID_IClassFactory, &taskList}}};

}  // namespace

}  // namespace standin

extern "C" HRESULT STDAPICALLTYPE DllGetClassObject(const GUID& id, const GUID& wanted, void** object) {
    for (const auto& [classId, factory] : standin::Classes)
        if (id == classId) return Query(&factory, wanted, const_cast<const void**>(object));
    return CLASS_E_CLASSNOTAVAILABLE;
}
