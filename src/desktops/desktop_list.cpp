#include "desktops/desktop_list.h"

#include "desktops/desktop_rules.h"
#include "desktops/desktop_storage.h"
#include "process/strings.h"
#include "settings/registry_key.h"
#include "settings/store.h"

#include <new>

namespace halyard {

DesktopList desktopList;

DesktopList::~DesktopList() {
    for (auto& entry : records)
        delete entry.value;
}

unsigned DesktopList::Count() noexcept {
    const Guard guard(lock.Section());
    return records.Count();
}

DesktopId DesktopList::IdAt(unsigned index) noexcept {
    const Guard guard(lock.Section());
    return index < records.Count() ? records.At(index).value->id : DefaultDesktopId;
}

TextBuffer DesktopList::NameAt(unsigned index) noexcept {
    const Guard guard(lock.Section());
    return index < records.Count() ? records.At(index).value->name : TextBuffer();
}

bool DesktopList::Has(DesktopId id) noexcept {
    const Guard guard(lock.Section());
    return records.Find(id) != nullptr;
}

unsigned DesktopList::IndexOf(DesktopId id) noexcept {
    const Guard guard(lock.Section());
    const auto position = records.PositionOf(id);
    return position == records.None ? records.Count() : position;
}

Desktop* DesktopList::Find(DesktopId id) noexcept {
    const Guard guard(lock.Section());
    Desktop** found = records.Find(id);
    return found ? *found : nullptr;
}

Desktop* DesktopList::Insert(DesktopId id, const char* name) noexcept {
    if (Desktop** known = records.Find(id)) return *known;
    auto* desktop = new (std::nothrow) Desktop(id, name, GetSysColor(COLOR_BACKGROUND));
    if (desktop && records.Insert(id, desktop)) return desktop;
    delete desktop;
    return nullptr;
}

DesktopId DesktopList::Add(const char* name, DesktopId id) noexcept {
    const Guard guard(lock.Section());
    if (id == UnsavedDesktopId) id = NextFreeId();
    Insert(id, name);
    return id;
}

void DesktopList::Remove(DesktopId id) noexcept {
    const Guard guard(lock.Section());
    const auto position = id == DefaultDesktopId ? records.None : records.PositionOf(id);
    if (position == records.None) return;
    delete records.At(position).value;
    records.RemoveAt(position);
}

void DesktopList::Rename(DesktopId id, const char* name) noexcept {
    const Guard guard(lock.Section());
    Desktop** found = id == DefaultDesktopId ? nullptr : records.Find(id);
    if (found) (*found)->name = name;
}

void DesktopList::StoreBackground(const Desktop& desktop) noexcept {
    const Guard guard(lock.Section());
    Desktop** found = records.Find(desktop.id);
    if (!found) return;
    (*found)->wallpaper = desktop.wallpaper;
    (*found)->wallpaperStyle = desktop.wallpaperStyle;
    (*found)->colour = desktop.colour;
}

DesktopId DesktopList::NextFreeId() noexcept {
    const Guard guard(lock.Section());
    // The keys ascend, so the first number above 0 that no key has is found in one pass.
    DesktopId candidate = 1;
    for (const auto& entry : records)
        if (entry.key == candidate) ++candidate;
    return candidate;
}

void DesktopList::RemoveAllButDefault() noexcept {
    while (records.Count() > 0 && records.At(records.Count() - 1).key != DefaultDesktopId) {
        delete records.At(records.Count() - 1).value;
        records.RemoveAt(records.Count() - 1);
    }
}

void DesktopList::Load() noexcept {
    RegistryKey desktops;
    OpenDesktopsKey(desktops, KeyUse::Read);
    const TextBuffer defaultName = LookupText(IDS_DEFAULT_DESKTOP_NAME);

    const Guard guard(lock.Section());
    Insert(DefaultDesktopId, defaultName.Text());
    RemoveAllButDefault();
    for (DWORD index = 0; records.Count() < MaxDesktops && desktops; ++index) {
        const TextBuffer name = desktops.SubkeyName(index);
        if (name.IsEmpty()) return;
        const DesktopId id = DesktopIdOfKey(name.Text());
        if (id == DefaultDesktopId) continue;
        RegistryKey stored;
        if (!stored.Open(desktops.get(), name.Text(), KEY_READ)) return;
        if (Desktop* desktop = Insert(id, nullptr)) ReadDesktop(stored, *desktop);
    }
}

void DesktopList::Save() noexcept {
    RegistryKey desktops;
    if (!OpenDesktopsKey(desktops, KeyUse::Write)) return;
    desktops.DeleteContents();
    const Guard guard(lock.Section());
    for (const auto& entry : records)
        SaveDesktop(*entry.value, desktops);
}

void DesktopList::SaveDesktop(const Desktop& desktop, const RegistryKey& desktops) noexcept {
    if (desktop.id == DefaultDesktopId) return;
    char name[16];
    wsprintfA(name, "%d", static_cast<int>(desktop.id));
    RegistryKey key;
    if (key.Create(desktops.get(), name)) WriteDesktop(key, desktop);
}

}  // namespace halyard
