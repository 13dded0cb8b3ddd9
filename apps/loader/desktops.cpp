#include "loader/desktops.h"

#include "settings/registry_key.h"
#include "settings/store.h"

namespace halyard::loader {

namespace {

// The library's answer is in the ANSI code page; every letter of a name is where it is stored.
std::string NameOf(const RegistryKey& desktops, unsigned id, const char* answer) {
    RegistryKey one;
    const std::string key = std::to_string(static_cast<int>(id));
    if (!desktops || !one.Open(desktops.get(), key.c_str(), KEY_READ)) return answer;
    return one.ReadString("").Text();
}

constexpr unsigned NameRoom = 1024;

}  // namespace

std::vector<NamedDesktop> DesktopsOf(const Library& library) {
    std::vector<NamedDesktop> desktops;
    RegistryKey stored;
    OpenDesktopsKey(stored, KeyUse::Read);
    char name[NameRoom] = {};
    unsigned id = 0;
    for (unsigned index = 0; library.getDesktop(index, name, sizeof(name), &id); ++index)
        desktops.push_back({id, NameOf(stored, id, name)});
    return desktops;
}

NamedDesktop CurrentOf(const Library& library, unsigned& place) {
    const unsigned current = CurrentDesktop(library);
    char name[NameRoom] = {};
    unsigned id = 0;
    for (place = 1; library.getDesktop(place - 1, name, sizeof(name), &id); ++place) {
        if (id != current) continue;
        RegistryKey stored;
        OpenDesktopsKey(stored, KeyUse::Read);
        return {id, NameOf(stored, id, name)};
    }
    place = 1;
    return {current, {}};
}

unsigned CurrentDesktop(const Library& library) noexcept {
    unsigned id = 0;
    library.getCurrentDesktopId(&id);
    return id;
}

}  // namespace halyard::loader
