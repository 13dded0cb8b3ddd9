// The ordered list of virtual desktops and its storage.
#pragma once

#include "common/handles.h"
#include "common/sorted_map.h"
#include "desktops/desktop.h"

namespace halyard {

class RegistryKey;

// A list longer than this is damage, and would keep every program busy that reads it.
inline constexpr unsigned MaxDesktops = 1000;

// One per process, in order of id, the default desktop first. The registry carries the list from process to process;
// `Load` brings this copy in line. The list owns its records.
//
// In the server process records are changed on the server's thread only, so that a pointer from `Find` holds there
// until `Remove` or `Load`. In the other processes every GUI thread reads the list and loads it: they use the
// operations that give copies. A lock inside keeps each operation whole.
class DesktopList {
public:
    DesktopList() noexcept = default;
    DesktopList(const DesktopList&) = delete;
    DesktopList& operator=(const DesktopList&) = delete;
    ~DesktopList();

    unsigned Count() noexcept;
    DesktopId IdAt(unsigned index) noexcept;     // 0 past the end
    TextBuffer NameAt(unsigned index) noexcept;  // empty past the end
    bool Has(DesktopId id) noexcept;
    unsigned IndexOf(DesktopId id) noexcept;  // `Count` when there is none

    // Null when there is none. Server's thread only.
    Desktop* Find(DesktopId id) noexcept;

    // Adds a record with no wallpaper and the present background colour; `UnsavedDesktopId` asks for the next free id.
    // Returns the id used. An id that is in the list keeps its record.
    DesktopId Add(const char* name, DesktopId id) noexcept;

    // Nothing for the default desktop or an unknown id. The windows are not touched: move them first.
    void Remove(DesktopId id) noexcept;
    void Rename(DesktopId id, const char* name) noexcept;

    // Takes wallpaper, style and colour into the record with that id, if there is one.
    void StoreBackground(const Desktop& desktop) noexcept;

    DesktopId NextFreeId() noexcept;  // the lowest number above 0 that isn't used

    // Brings all records but the default desktop's in line with the registry; desktops beyond `MaxDesktops` are left
    // out.
    void Load() noexcept;
    // Rewrites the whole stored list.
    void Save() noexcept;
    // Writes one record below the open key of the desktops; nothing for the default desktop.
    static void SaveDesktop(const Desktop& desktop, const RegistryKey& desktops) noexcept;

private:
    void RemoveAllButDefault() noexcept;
    Desktop* Insert(DesktopId id, const char* name) noexcept;

    SortedMap<Desktop*> records;
    Lock lock;
};

extern DesktopList desktopList;

}  // namespace halyard
