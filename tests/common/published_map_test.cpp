#include "common/published_map.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <random>
#include <thread>
#include <vector>

namespace halyard {
namespace {

using Keys = std::vector<std::uint32_t>;

// Wide enough that a half-written one would show.
struct Value {
    std::uint32_t low = 0, high = 0;
    bool operator==(const Value&) const = default;
};

using Map = PublishedMap<Value>;

constexpr Value ValueOf(std::uint32_t key) noexcept {
    return {key * 2654435761u, ~key};
}

// Even keys, ascending, descending and shuffled.
std::vector<Keys> Orders(std::size_t count) {
    Keys ascending(count);
    for (std::size_t index = 0; index < count; ++index)
        ascending[index] = static_cast<std::uint32_t>(index) * 2;
    ascending.back() = 0xFFFFFFFE;
    Keys shuffled = ascending;
    std::shuffle(shuffled.begin(), shuffled.end(), std::mt19937(7));
    return {ascending, Keys(ascending.rbegin(), ascending.rend()), shuffled};
}

void ExpectHolds(const Map& map, const Keys& keys, std::size_t count) {
    for (std::size_t index = 0; index < count; ++index) {
        Value found;
        ASSERT_TRUE(map.Find(keys[index], found)) << "key " << keys[index] << " of " << count;
        ASSERT_TRUE(found == ValueOf(keys[index])) << "key " << keys[index] << " of " << count;
        ASSERT_FALSE(map.Find(keys[index] + 1, found)) << "key " << keys[index] + 1 << " of " << count;
    }
}

TEST(PublishedMap, FindsEveryKeyUntilItIsCleared) {
    Map map;
    Value found;
    for (const Keys& keys : Orders(150)) {
        for (std::size_t count = 1; count <= keys.size(); ++count) {
            ASSERT_TRUE(map.Insert(keys[count - 1], ValueOf(keys[count - 1])));
            ExpectHolds(map, keys, count);
        }
        Keys visited, sorted = keys;
        map.ForEach([&](std::uint32_t key, const Value& value) {
            visited.push_back(key);
            EXPECT_TRUE(value == ValueOf(key)) << "key " << key;
        });
        std::sort(sorted.begin(), sorted.end());
        EXPECT_EQ(visited, sorted);
        map.Clear();
        map.ForEach([](std::uint32_t key, const Value&) { ADD_FAILURE() << "still holds " << key; });
        EXPECT_FALSE(map.Find(keys.back(), found));
    }
}

// One thread that searches until the writer is through, and the first wrong answer that it got.
struct Reader {
    void Run(const Map& map, const Keys& keys, const std::atomic<std::size_t>& published, unsigned seed) {
        std::minstd_rand random(seed);
        while (!stop.load(std::memory_order_relaxed)) {
            const std::size_t count = published.load(std::memory_order_acquire);
            // Half of the searches go for what was put in last, where a fault of the order would show.
            const std::size_t back = 1 + random() % (random() % 2 ? std::min<std::size_t>(count, 3) : count);
            Search(map, keys[count - back], true);
            Search(map, keys[count - back] + 1, false);
            // The threads outnumber the processors: one that never gave way would hold the writer up.
            if (searches.fetch_add(1, std::memory_order_relaxed) % 64 == 0) std::this_thread::yield();
        }
    }

    void Search(const Map& map, std::uint32_t key, bool present) noexcept {
        Value value;
        const bool hit = map.Find(key, value);
        if (wrong || (hit == present && (!hit || value == ValueOf(key)))) return;
        wrong = true, wrongKey = key, wrongHit = hit, wrongValue = value;
    }

    std::atomic<bool> stop{false};
    std::atomic<unsigned> searches{0};
    bool wrong = false, wrongHit = false;
    std::uint32_t wrongKey = 0;
    Value wrongValue;
};

void SearchBesideInsertions(const Keys& keys) {
    Map map;
    ASSERT_TRUE(map.Insert(keys[0], ValueOf(keys[0])));
    std::atomic<std::size_t> published{1};
    Reader readers[3];
    std::vector<std::thread> threads;
    for (Reader& reader : readers)
        threads.emplace_back([&, seed = threads.size() + 1] { reader.Run(map, keys, published, seed); });
    for (std::size_t index = 1; index < keys.size(); ++index) {
        EXPECT_TRUE(map.Insert(keys[index], ValueOf(keys[index])));
        published.store(index + 1, std::memory_order_release);
        // Without this the writer would be through before the readers are under way.
        for (Reader& reader : readers)
            for (const unsigned before = reader.searches; index % 8 == 0 && reader.searches == before;)
                std::this_thread::yield();
    }
    for (Reader& reader : readers)
        reader.stop = true;
    for (std::thread& thread : threads)
        thread.join();
    for (const Reader& reader : readers)
        EXPECT_FALSE(reader.wrong) << "key " << reader.wrongKey << (reader.wrongHit ? " found" : " not found")
                                   << ", value " << reader.wrongValue.low << ' ' << reader.wrongValue.high;
    ExpectHolds(map, keys, keys.size());
}

TEST(PublishedMapThreads, EveryPublishedKeyIsFoundBesideTheWriter) {
    for (const Keys& keys : Orders(800))
        for (int round = 0; round < 5 && !testing::Test::HasFailure(); ++round)
            SearchBesideInsertions(keys);
}

}  // namespace
}  // namespace halyard
