// Owners of platform handles: move-only, closed when they go.
#pragma once

#include "common/win_types.h"

#include <utility>

namespace halyard {

// `Traits` gives `Handle`, `Invalid()` and `Close(handle)`.
template <typename Traits>
class Owned {
public:
    using Handle = typename Traits::Handle;

    constexpr Owned() noexcept = default;
    explicit Owned(Handle raw) noexcept : handle(raw) {}
    Owned(Owned&& other) noexcept : handle(other.Release()) {}
    Owned& operator=(Owned&& other) noexcept {
        if (this != &other) Reset(other.Release());
        return *this;
    }
    ~Owned() { Reset(); }

    Handle get() const noexcept { return handle; }
    explicit operator bool() const noexcept { return handle != Traits::Invalid(); }

    Handle Release() noexcept { return std::exchange(handle, Traits::Invalid()); }
    void Reset(Handle raw = Traits::Invalid()) noexcept {
        Handle old = std::exchange(handle, raw);
        if (old != Traits::Invalid()) Traits::Close(old);
    }

private:
    Handle handle = Traits::Invalid();
};

// A kernel object whose invalid value is null: mutex, event, process, thread.
struct KernelHandleTraits {
    using Handle = HANDLE;
    static Handle Invalid() noexcept { return nullptr; }
    static void Close(Handle handle) noexcept { CloseHandle(handle); }
};
using KernelHandle = Owned<KernelHandleTraits>;

// What the graphics interface deletes as its object.
template <typename GdiHandle>
struct GdiTraits {
    using Handle = GdiHandle;
    static Handle Invalid() noexcept { return nullptr; }
    static void Close(Handle handle) noexcept { DeleteObject(handle); }
};
using Region = Owned<GdiTraits<HRGN>>;
using Font = Owned<GdiTraits<HFONT>>;
using Brush = Owned<GdiTraits<HBRUSH>>;
using Pen = Owned<GdiTraits<HPEN>>;
using Bitmap = Owned<GdiTraits<HBITMAP>>;

struct MemoryDcTraits {
    using Handle = HDC;
    static Handle Invalid() noexcept { return nullptr; }
    static void Close(Handle handle) noexcept { DeleteDC(handle); }
};
using MemoryDc = Owned<MemoryDcTraits>;

struct LibraryTraits {
    using Handle = HMODULE;
    static Handle Invalid() noexcept { return nullptr; }
    static void Close(Handle handle) noexcept { FreeLibrary(handle); }
};
using Library = Owned<LibraryTraits>;

struct MenuTraits {
    using Handle = HMENU;
    static Handle Invalid() noexcept { return nullptr; }
    static void Close(Handle handle) noexcept { DestroyMenu(handle); }
};
using Menu = Owned<MenuTraits>;

struct IconTraits {
    using Handle = HICON;
    static Handle Invalid() noexcept { return nullptr; }
    static void Close(Handle handle) noexcept { DestroyIcon(handle); }
};
using Icon = Owned<IconTraits>;

// The screen's device context.
class ScreenDc {
public:
    ScreenDc() noexcept : dc(GetDC(nullptr)) {}
    ScreenDc(const ScreenDc&) = delete;
    ScreenDc& operator=(const ScreenDc&) = delete;
    ~ScreenDc() {
        if (dc) ReleaseDC(nullptr, dc);
    }
    HDC get() const noexcept { return dc; }

private:
    HDC dc;
};

// The device context of a whole window, frame included.
class WindowDc {
public:
    explicit WindowDc(HWND owner) noexcept : window(owner), dc(GetWindowDC(owner)) {}
    WindowDc(const WindowDc&) = delete;
    WindowDc& operator=(const WindowDc&) = delete;
    ~WindowDc() {
        if (dc) ReleaseDC(window, dc);
    }
    HDC get() const noexcept { return dc; }

private:
    HWND window;
    HDC dc;
};

// An object that a device context draws with; the context gets back the one before it.
class SelectedObject {
public:
    SelectedObject(HDC target, HGDIOBJ object) noexcept : dc(target), before(SelectObject(target, object)) {}
    SelectedObject(const SelectedObject&) = delete;
    SelectedObject& operator=(const SelectedObject&) = delete;
    ~SelectedObject() {
        if (before) SelectObject(dc, before);
    }

private:
    HDC dc;
    HGDIOBJ before;
};

// Holds a critical section for the length of a scope.
class Guard {
public:
    explicit Guard(CRITICAL_SECTION& guarded) noexcept : section(guarded) { EnterCriticalSection(&section); }
    Guard(const Guard&) = delete;
    Guard& operator=(const Guard&) = delete;
    ~Guard() { LeaveCriticalSection(&section); }

private:
    CRITICAL_SECTION& section;
};

// A critical section that lives as long as its owner.
class Lock {
public:
    Lock() noexcept { InitializeCriticalSection(&section); }
    Lock(const Lock&) = delete;
    Lock& operator=(const Lock&) = delete;
    ~Lock() { DeleteCriticalSection(&section); }
    CRITICAL_SECTION& Section() noexcept { return section; }

private:
    CRITICAL_SECTION section;
};

}  // namespace halyard
