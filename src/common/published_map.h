// A map that any thread searches without a lock beside one thread that inserts.
#pragma once

#include <atomic>
#include <cstdint>
#include <new>

namespace halyard {

// Key and value pairs, ascending by unsigned key, that only grow until teardown. A search takes no lock, makes no
// allocation and no kernel call: it works on the array that was current when it began, and a finished array is never
// changed where a search can look. Writers must be kept apart by the owner's lock. `Value` must be trivially copyable.
//
// A key above all others is put behind the last pair of the array in use, and the count that makes it visible is
// published after it; any other key means a new array. Superseded arrays live until `Clear`, since a search may still
// be in one; capacity doubles so that they stay below the size of the array in use for keys that arrive in order.
template <typename Value>
class PublishedMap {
public:
    PublishedMap() noexcept = default;
    PublishedMap(const PublishedMap&) = delete;
    PublishedMap& operator=(const PublishedMap&) = delete;
    ~PublishedMap() { Clear(); }

    // Puts the value of `key` into `found`. Any thread, at any time but during `Clear`.
    bool Find(std::uint32_t key, Value& found) const noexcept {
        const Table* table = current.load(std::memory_order_acquire);
        if (!table) return false;
        const std::uint32_t count = table->count.load(std::memory_order_acquire);
        const std::uint32_t hint = lastHit.load(std::memory_order_relaxed);
        if (hint < count && table->entries[hint].key == key) {
            found = table->entries[hint].value;
            return true;
        }
        for (std::uint32_t position = 0; position < count; ++position) {
            if (table->entries[position].key == key) {
                lastHit.store(position, std::memory_order_relaxed);
                found = table->entries[position].value;
                return true;
            }
        }
        return false;
    }

    // Inserts a key that isn't present; one writer at a time. False, with nothing changed, when memory ran out.
    bool Insert(std::uint32_t key, Value value) noexcept {
        Table* table = current.load(std::memory_order_relaxed);
        const std::uint32_t count = table ? table->count.load(std::memory_order_relaxed) : 0;
        const bool last = count == 0 || table->entries[count - 1].key < key;
        if (table && last && count < table->capacity) {
            table->entries[count] = {key, value};
            table->count.store(count + 1, std::memory_order_release);
            return true;
        }
        Table* fresh = MakeTable(count < InitialCapacity / 2 ? InitialCapacity : count * 2);
        if (!fresh) return false;
        std::uint32_t position = 0;
        for (; position < count && table->entries[position].key < key; ++position)
            fresh->entries[position] = table->entries[position];
        fresh->entries[position] = {key, value};
        for (; position < count; ++position)
            fresh->entries[position + 1] = table->entries[position];
        fresh->count.store(count + 1, std::memory_order_relaxed);
        fresh->superseded = table;
        current.store(fresh, std::memory_order_release);
        return true;
    }

    // Calls `visit(key, value)` for each pair in order of key. Not beside `Clear`.
    template <typename Visit>
    void ForEach(Visit visit) const {
        const Table* table = current.load(std::memory_order_acquire);
        const std::uint32_t count = table ? table->count.load(std::memory_order_acquire) : 0;
        for (std::uint32_t position = 0; position < count; ++position)
            visit(table->entries[position].key, table->entries[position].value);
    }

    // Frees all arrays. Only when no thread searches any more.
    void Clear() noexcept {
        Table* table = current.exchange(nullptr);
        while (table) {
            Table* older = table->superseded;
            delete[] table->entries;
            delete table;
            table = older;
        }
        lastHit.store(0, std::memory_order_relaxed);
    }

private:
    static constexpr std::uint32_t InitialCapacity = 10;

    struct Entry {
        std::uint32_t key;
        Value value;
    };

    struct Table {
        Entry* entries;
        std::uint32_t capacity;
        std::atomic<std::uint32_t> count;
        Table* superseded;
    };

    static Table* MakeTable(std::uint32_t capacity) noexcept {
        auto* entries = new (std::nothrow) Entry[capacity];
        auto* table = entries ? new (std::nothrow) Table{entries, capacity, {0}, nullptr} : nullptr;
        if (!table) delete[] entries;
        return table;
    }

    std::atomic<Table*> current{nullptr};
    // A place where the last search of any thread hit; a guess, checked before it is believed.
    mutable std::atomic<std::uint32_t> lastHit{0};
};

}  // namespace halyard
