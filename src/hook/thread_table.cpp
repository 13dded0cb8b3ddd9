#include "hook/thread_table.h"

#include <new>

namespace halyard {

namespace {

constexpr DWORD TableLockTimeout = 5000;  // ms

}  // namespace

ThreadTable* threadTable = nullptr;

ThreadTable::ThreadTable() noexcept : mutex(CreateMutexA(nullptr, FALSE, nullptr)) {}

ThreadTable::~ThreadTable() {
    threads.ForEach([](std::uint32_t, ThreadWindows* windows) { delete windows; });
}

ThreadWindows* ThreadTable::ForCurrentThread() noexcept {
    const DWORD thread = GetCurrentThreadId();
    ThreadWindows* windows = nullptr;
    return threads.Find(thread, windows) ? windows : AddThread(thread);
}

ThreadWindows* ThreadTable::AddThread(DWORD thread) noexcept {
    auto* windows = new (std::nothrow) ThreadWindows;
    if (!windows) return nullptr;
    WaitForSingleObject(mutex.get(), TableLockTimeout);
    const bool inserted = threads.Insert(thread, windows);
    ReleaseMutex(mutex.get());
    if (inserted) return windows;
    delete windows;
    return nullptr;
}

void ThreadTable::RemoveCurrentThread() noexcept {
    const DWORD thread = GetCurrentThreadId();
    ThreadWindows* windows = nullptr;
    if (!threads.Find(thread, windows)) return;
    WaitForSingleObject(mutex.get(), TableLockTimeout);
    threads.Remove(thread);
    ReleaseMutex(mutex.get());
    delete windows;
}

void ThreadTable::DestroyAll() noexcept {
    WaitForSingleObject(mutex.get(), TableLockTimeout);
    threads.ForEach([](std::uint32_t, ThreadWindows* windows) {
        windows->DestroyAll();
        delete windows;
    });
    threads.Clear();
    ReleaseMutex(mutex.get());
}

TrackedWindow* TrackedWindowOf(HWND window) noexcept {
    // A message to the thread itself has no window.
    ThreadWindows* windows = window && threadTable ? threadTable->ForCurrentThread() : nullptr;
    return windows ? windows->ForWindow(window) : nullptr;
}

}  // namespace halyard
