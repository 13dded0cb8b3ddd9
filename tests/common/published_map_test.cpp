#include "common/published_map.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <map>
#include <random>
#include <thread>
#include <vector>

namespace halyard {
namespace {

using Map = PublishedMap<std::uintptr_t>;

constexpr std::uintptr_t ValueOf(std::uint32_t key) noexcept {
    return static_cast<std::uintptr_t>(key) * 2654435761u + 1;
}

TEST(PublishedMap, HoldsWhatWasPutInAndNotRemoved) {
    constexpr std::uint32_t Last = 100;
    Map map;
    std::map<std::uint32_t, std::uintptr_t> model;
    std::minstd_rand random(7);
    for (int step = 0; step <= 500; ++step) {
        const std::uint32_t key = 1 + static_cast<std::uint32_t>(random()) % Last;
        if (step == 500) {
            map.Clear();
            model.clear();
        } else if (model.erase(key)) {
            map.Remove(key);
        } else {
            ASSERT_TRUE(map.Insert(key, ValueOf(key)));
            model[key] = ValueOf(key);
        }
        std::map<std::uint32_t, std::uintptr_t> found, visited;
        for (std::uint32_t any = 1; any <= Last; ++any)
            if (std::uintptr_t value = 0; map.Find(any, value)) found[any] = value;
        map.ForEach([&](std::uint32_t visitedKey, std::uintptr_t value) { visited[visitedKey] += value; });
        ASSERT_EQ(found, model) << "after step " << step;
        ASSERT_EQ(visited, model) << "after step " << step;
    }
}

// Readers look for keys that stay, and for some that never come, while others come and go around them.
TEST(PublishedMapThreads, EveryPublishedKeyIsFoundBesideTheWriter) {
    constexpr std::uint32_t Stay = 400;
    for (int round = 0; round < 5; ++round) {
        Map map;
        std::atomic<std::uint32_t> published{0};
        std::atomic<bool> stop{false};
        std::atomic<unsigned> searches{0}, wrong{0};
        std::vector<std::thread> readers;
        for (unsigned seed = 1; seed <= 3; ++seed)
            readers.emplace_back([&, seed] {
                std::minstd_rand random(seed);
                while (!stop) {
                    const std::uint32_t count = published.load(std::memory_order_acquire);
                    // Half of the searches go for what came last, where a fault of the order would show.
                    const std::uint32_t key =
                        count == 0 ? 0 : count - random() % (random() % 2 ? std::min(count, 3u) : count);
                    std::uintptr_t found = 0;
                    if (count && (!map.Find(2 * key, found) || found != ValueOf(2 * key))) ++wrong;
                    if (map.Find(2 * Stay + 2 * key + 2, found)) ++wrong;
                    // The threads outnumber the processors: one that never gave way would hold the writer up.
                    if (++searches % 64 == 0) std::this_thread::yield();
                }
            });
        for (std::uint32_t key = 1; key <= Stay; ++key) {
            EXPECT_TRUE(map.Insert(2 * key, ValueOf(2 * key)));
            published.store(key, std::memory_order_release);
            EXPECT_TRUE(map.Insert(2 * key + 1, ValueOf(2 * key + 1)));
            if (key % 3) map.Remove(2 * key + 1);
            // Without this the writer would be through before the readers are under way.
            for (const unsigned before = searches; key % 8 == 0 && searches < before + 3;)
                std::this_thread::yield();
        }
        stop = true;
        for (std::thread& reader : readers)
            reader.join();
        EXPECT_EQ(wrong, 0u);
    }
}

}  // namespace
}  // namespace halyard
