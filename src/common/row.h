// A growing row of small values.
#pragma once

#include <new>

namespace halyard {

// What doesn't fit in memory is left out. One thread at a time.
template <typename Value>
class Row {
public:
    Row() noexcept = default;
    Row(const Row&) = delete;
    Row& operator=(const Row&) = delete;
    ~Row() { Clear(); }

    void Add(Value value) noexcept {
        if (count == capacity && !Grow()) return;
        values[count++] = value;
    }
    void Clear() noexcept {
        delete[] values;
        values = nullptr;
        count = 0;
        capacity = 0;
    }

    // The ones behind it move down.
    void RemoveAt(unsigned index) noexcept {
        for (--count; index < count; ++index)
            values[index] = values[index + 1];
    }

    unsigned Count() const noexcept { return count; }
    Value At(unsigned index) const noexcept { return values[index]; }
    const Value* begin() const noexcept { return values; }
    const Value* end() const noexcept { return values + count; }

private:
    bool Grow() noexcept {
        const unsigned larger = capacity ? capacity * 2 : 8;
        auto* moved = new (std::nothrow) Value[larger];
        if (!moved) return false;
        for (unsigned index = 0; index < count; ++index)
            moved[index] = values[index];
        delete[] values;
        values = moved;
        capacity = larger;
        return true;
    }

    Value* values = nullptr;
    unsigned count = 0;
    unsigned capacity = 0;
};

}  // namespace halyard
