// The plain sorted array of key and value pairs that underlies the lists of the system.
#pragma once

#include <cstdint>
#include <new>

namespace halyard {

// Pairs in strictly ascending order of an unsigned 32-bit key, with the place of the last hit kept. Meant for small
// values (pointers to records); it doesn't own what they point at. No locks: one thread at a time.
template <typename Value>
class SortedMap {
public:
    static constexpr std::uint32_t None = 0xFFFFFFFF;
    static constexpr std::uint32_t Growth = 10;

    struct Entry {
        std::uint32_t key;
        Value value;
    };

    SortedMap() noexcept = default;
    SortedMap(const SortedMap&) = delete;
    SortedMap& operator=(const SortedMap&) = delete;
    ~SortedMap() { Clear(); }

    // The value of `key`, null when absent. Valid until the next insertion or removal.
    Value* Find(std::uint32_t key) noexcept {
        if (lastHit != None && entries[lastHit].key == key) return &entries[lastHit].value;
        for (std::uint32_t position = 0; position < count; ++position) {
            if (entries[position].key == key) {
                lastHit = position;
                return &entries[position].value;
            }
        }
        return nullptr;
    }

    // `None` when absent; keeps the place of the hit as `Find` does.
    std::uint32_t PositionOf(std::uint32_t key) noexcept { return Find(key) ? lastHit : None; }

    // Inserts a key that isn't present. False, with nothing changed, when memory ran out.
    bool Insert(std::uint32_t key, Value value) noexcept {
        if (count >= capacity && !Grow()) return false;
        std::uint32_t position = 0;
        while (position < count && entries[position].key <= key)
            ++position;
        for (std::uint32_t from = count; from > position; --from)
            entries[from] = entries[from - 1];
        if (lastHit != None && lastHit >= position) ++lastHit;
        entries[position] = {key, value};
        ++count;
        return true;
    }

    // A position at or above the count is ignored.
    void RemoveAt(std::uint32_t position) noexcept {
        if (position >= count) return;
        --count;
        for (std::uint32_t to = position; to < count; ++to)
            entries[to] = entries[to + 1];
        if (lastHit == position)
            lastHit = None;
        else if (lastHit != None && lastHit > position)
            --lastHit;
    }

    void Clear() noexcept {
        delete[] entries;
        entries = nullptr;
        lastHit = None;
        count = 0;
        capacity = 0;
    }

    std::uint32_t Count() const noexcept { return count; }
    std::uint32_t Capacity() const noexcept { return capacity; }
    std::uint32_t LastHit() const noexcept { return lastHit; }
    const Entry& At(std::uint32_t position) const noexcept { return entries[position]; }

    Entry* begin() noexcept { return entries; }
    Entry* end() noexcept { return entries + count; }
    const Entry* begin() const noexcept { return entries; }
    const Entry* end() const noexcept { return entries + count; }

private:
    bool Grow() noexcept {
        auto* larger = new (std::nothrow) Entry[capacity + Growth];
        if (!larger) return false;
        for (std::uint32_t position = 0; position < count; ++position)
            larger[position] = entries[position];
        delete[] entries;
        entries = larger;
        capacity += Growth;
        return true;
    }

    Entry* entries = nullptr;
    std::uint32_t lastHit = None;
    std::uint32_t count = 0;
    std::uint32_t capacity = 0;
};

}  // namespace halyard
