// A growing row of small values.
#pragma once

#include <new>
#include <utility>

namespace halyard {

// What doesn't fit in memory is left out. One thread at a time.
template <typename Value>
class Row {
public:
    Row() noexcept = default;
    Row(const Row&) = delete;
    Row& operator=(const Row&) = delete;
    Row(Row&& other) noexcept { Swap(other); }
    Row& operator=(Row&& other) noexcept {
        Swap(other);
        return *this;
    }
    ~Row() { Clear(); }

    void Swap(Row& other) noexcept {
        std::swap(values, other.values);
        std::swap(count, other.count);
        std::swap(capacity, other.capacity);
    }

    void Add(Value value) noexcept {
        if (count == capacity && !Grow()) return;
        values[count++] = value;
    }
    // The ones from `index` on move up.
    void Insert(unsigned index, Value value) noexcept {
        if (count == capacity && !Grow()) return;
        for (unsigned from = count++; from > index; --from)
            values[from] = values[from - 1];
        values[index] = value;
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
    // The count when the value isn't there.
    unsigned IndexOf(const Value& value) const noexcept {
        unsigned index = 0;
        while (index < count && !(values[index] == value))
            ++index;
        return index;
    }
    bool Has(const Value& value) const noexcept { return IndexOf(value) < count; }
    Value& operator[](unsigned index) noexcept { return values[index]; }
    const Value& operator[](unsigned index) const noexcept { return values[index]; }
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
