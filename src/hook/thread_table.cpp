#include "hook/thread_table.h"

#include <new>

namespace halyard {

ThreadTable* threadTable = nullptr;

ThreadTable::ThreadTable() noexcept : mutex(CreateMutexA(nullptr, FALSE, nullptr)) {}

ThreadTable::~ThreadTable() {
    threads.ForEach([](std::uint32_t, ThreadWindows* windows) { delete windows; });
}

ThreadWindows* ThreadTable::ForThread(DWORD thread) noexcept {
    ThreadWindows* windows = nullptr;
    return threads.Find(thread, windows) ? windows : AddThread(thread);
}

ThreadWindows* ThreadTable::AddThread(DWORD thread) noexcept {
    auto* fresh = new (std::nothrow) ThreadWindows(thread);
    WaitForSingleObject(mutex.get(), TableLockTimeout);
    ThreadWindows* windows = nullptr;
    // Another thread may have come first.
    if (threads.Find(thread, windows) || !threads.Insert(thread, fresh))
        delete fresh;
    else
        windows = fresh;
    ReleaseMutex(mutex.get());
    return windows;
}

void ThreadTable::DestroyAll() noexcept {
    WaitForSingleObject(mutex.get(), TableLockTimeout);
    threads.ForEach([](std::uint32_t, ThreadWindows* windows) {
        if (!windows) return;
        windows->Lock();
        windows->DestroyAll();
        windows->Unlock();
        windows->CloseLock();
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
