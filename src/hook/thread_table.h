// The threads of this process that a hook has met.
#pragma once

#include "common/handles.h"
#include "common/published_map.h"
#include "hook/thread_windows.h"

namespace halyard {

// One per process, made at load and kept to the process's end. Searches take no lock; changes are kept apart by the
// mutex. A thread has a record from the first message that is of interest to its end.
class ThreadTable {
public:
    ThreadTable() noexcept;
    ThreadTable(const ThreadTable&) = delete;
    ThreadTable& operator=(const ThreadTable&) = delete;
    ~ThreadTable();

    // The record of the calling thread, made if there is none. Null only when memory ran out.
    ThreadWindows* ForCurrentThread() noexcept;

    // The calling thread is about to end: drops its record.
    void RemoveCurrentThread() noexcept;

    // Teardown, once, when no hook code runs any more.
    void DestroyAll() noexcept;

private:
    ThreadWindows* AddThread(DWORD thread) noexcept;

    PublishedMap<ThreadWindows*> threads;
    KernelHandle mutex;
};

// Null before the load step, after the unload step and when memory ran out: the hooks then only pass messages on.
extern ThreadTable* threadTable;

// The record of a window of the calling thread, made if there is none; null when there can't be one.
TrackedWindow* TrackedWindowOf(HWND window) noexcept;

}  // namespace halyard
