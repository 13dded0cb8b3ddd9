// A map that any thread searches without a lock beside one thread that changes it.
#pragma once

#include <atomic>
#include <cstdint>
#include <new>

namespace halyard {

// Key and value pairs in no order; key 0 means a free place. A search takes no lock, makes no allocation and no kernel
// call. Writers must be kept apart by the owner's lock. `Value` must be a pointer or a number.
//
// A new pair takes a free place or one at the end; its key is published after its value. Without either, all pairs move
// to an array of twice the size. Superseded arrays live until `Clear`, since a search may still be in one: together
// they are smaller than the array in use.
//
// A search for a key that is being removed may find what is put in its place. So only the user of a key may remove it.
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
        if (hint < count && table->entries[hint].Holds(key, found)) return true;
        for (std::uint32_t position = 0; position < count; ++position) {
            if (!table->entries[position].Holds(key, found)) continue;
            lastHit.store(position, std::memory_order_relaxed);
            return true;
        }
        return false;
    }

    // Inserts a key that isn't present; one writer at a time. False, with nothing changed, when memory ran out.
    bool Insert(std::uint32_t key, Value value) noexcept {
        Table* table = current.load(std::memory_order_relaxed);
        const std::uint32_t count = table ? table->count.load(std::memory_order_relaxed) : 0;
        for (std::uint32_t position = 0; position < count; ++position)
            if (table->entries[position].IsFree()) return table->entries[position].Publish(key, value);
        if (!table || count == table->capacity) {
            Table* fresh = MakeTable(table ? count * 2 : InitialCapacity);
            if (!fresh) return false;
            for (std::uint32_t position = 0; position < count; ++position)
                fresh->entries[position].Copy(table->entries[position]);
            fresh->count.store(count, std::memory_order_relaxed);
            fresh->superseded = table;
            current.store(fresh, std::memory_order_release);
            table = fresh;
        }
        table->entries[count].Publish(key, value);
        table->count.store(count + 1, std::memory_order_release);
        return true;
    }

    // One writer at a time. An unknown key is ignored.
    void Remove(std::uint32_t key) noexcept {
        Table* table = current.load(std::memory_order_relaxed);
        const std::uint32_t count = table ? table->count.load(std::memory_order_relaxed) : 0;
        for (std::uint32_t position = 0; position < count; ++position)
            if (table->entries[position].key.load(std::memory_order_relaxed) == key)
                table->entries[position].key.store(FreeKey, std::memory_order_release);
    }

    // Calls `visit(key, value)` for each pair. Not beside a change.
    template <typename Visit>
    void ForEach(Visit visit) const {
        const Table* table = current.load(std::memory_order_acquire);
        const std::uint32_t count = table ? table->count.load(std::memory_order_acquire) : 0;
        for (std::uint32_t position = 0; position < count; ++position)
            if (const Entry& entry = table->entries[position]; !entry.IsFree())
                visit(entry.key.load(std::memory_order_relaxed), entry.value.load(std::memory_order_relaxed));
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
    static constexpr std::uint32_t FreeKey = 0;

    struct Entry {
        bool IsFree() const noexcept { return key.load(std::memory_order_relaxed) == FreeKey; }
        bool Holds(std::uint32_t wanted, Value& found) const noexcept {
            if (key.load(std::memory_order_acquire) != wanted) return false;
            found = value.load(std::memory_order_relaxed);
            return true;
        }
        bool Publish(std::uint32_t newKey, Value newValue) noexcept {
            value.store(newValue, std::memory_order_relaxed);
            key.store(newKey, std::memory_order_release);
            return true;
        }
        void Copy(const Entry& other) noexcept {
            Publish(other.key.load(std::memory_order_relaxed), other.value.load(std::memory_order_relaxed));
        }
        std::atomic<std::uint32_t> key{FreeKey};
        std::atomic<Value> value{};
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
