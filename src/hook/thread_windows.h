// The tracked windows of one thread.
#pragma once

#include "common/handles.h"
#include "common/sorted_map.h"
#include "hook/tracked_window.h"

namespace halyard {

// Owns its records. Only the thread whose windows these are calls in while hooks run, so that no lock is needed.
class ThreadWindows {
public:
    ThreadWindows() noexcept = default;
    ThreadWindows(const ThreadWindows&) = delete;
    ThreadWindows& operator=(const ThreadWindows&) = delete;
    ~ThreadWindows();

    // The record, made if there is none; null only when memory ran out at the window's first sight, and then for good.
    TrackedWindow* ForWindow(HWND window) noexcept;

    // Drops the record; an unknown window is ignored. A record that a `Pin` may be holding is freed when the last goes.
    void Remove(HWND window) noexcept;

    // Keeps the records of the thread in memory for the length of a hook call: what a behaviour does to a window can
    // make the program destroy it, and the record would go under the feet of the code that works on it.
    class Pin {
    public:
        explicit Pin(ThreadWindows& pinned) noexcept : owner(pinned) { ++owner.pins; }
        Pin(const Pin&) = delete;
        Pin& operator=(const Pin&) = delete;
        ~Pin() {
            if (--owner.pins == 0 && owner.retired) owner.FreeRetired();
        }

    private:
        ThreadWindows& owner;
    };

    // Teardown: takes the menu extensions off, tells the server, frees all records.
    void DestroyAll() noexcept;

    unsigned Count() const noexcept { return windows.Count(); }

    // Set while the hook itself takes a message out of the queue, which brings the hook again.
    bool isTaking = false;

private:
    void FreeRetired() noexcept;

    SortedMap<TrackedWindow*> windows;
    TrackedWindow* retired = nullptr;
    unsigned pins = 0;
};

}  // namespace halyard
