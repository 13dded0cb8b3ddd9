#include "common/sorted_map.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>
#include <map>
#include <random>
#include <utility>
#include <vector>

namespace halyard {
namespace {

using Map = SortedMap<int>;
using Pairs = std::vector<std::pair<std::uint32_t, int>>;
constexpr std::uint32_t None = Map::None;

TEST(SortedMap, LastHitFollowsItsPair) {
    struct Case {
        std::uint32_t hit, insert, remove, lastHit;  // two keys, 0 for none; two positions
    };
    // clang-format off
    constexpr Case Cases[] = {
        {0, 0, 0, None}, {0, 1, None, None}, {100, 1, None, 1}, {300, 299, None, 3}, {300, 301, None, 2},
        {1000, 2000, None, 9}, {300, 0, 1, 1}, {300, 0, 2, None}, {300, 0, 3, 2}, {1000, 0, 9, None},
        {1000, 0, 10, 9}, {1000, 0, None - 1, 9}};
    // clang-format on
    for (const auto& [hit, insert, remove, lastHit] : Cases) {
        SCOPED_TRACE(testing::Message() << "hit " << hit << ", insert " << insert << ", remove at " << remove);
        Map map;
        for (std::uint32_t key = 100; key <= 1000; key += 100)
            ASSERT_TRUE(map.Insert(key, 0));
        if (hit) map.Find(hit);
        EXPECT_EQ(map.PositionOf(450), None) << "and a miss keeps the last hit";
        if (insert) map.Insert(insert, 0);
        if (remove != None) map.RemoveAt(remove);
        ASSERT_EQ(map.LastHit(), lastHit);
        EXPECT_TRUE(lastHit == None || map.At(lastHit).key == hit);
    }
}

// Random changes beside std::map, over keys of all 32 bits, with the key that was hit last kept beside the position
// that the map keeps. Room grows by ten and only shrinks when all is cleared.
TEST(SortedMap, EqualsAnOrderedMapUnderRandomChanges) {
    constexpr std::uint32_t Spread = 0xFFFFFFFF / 60;
    std::mt19937 random(20230501);
    Map map;
    std::map<std::uint32_t, int> model;
    std::uint32_t capacity = 0;
    const std::uint32_t* hitKey = nullptr;
    for (int step = 0; step < 20000 && !testing::Test::HasFailure(); ++step) {
        SCOPED_TRACE(testing::Message() << "step " << step);
        const std::uint32_t key = random() % 61 * Spread;
        const auto known = model.find(key);
        const unsigned change = random() % 1000;
        if (change == 0) {
            map.Clear();
            model.clear();
            hitKey = nullptr;
            capacity = 0;
        } else if (change < 300) {
            const int* value = map.Find(key);
            ASSERT_EQ(value != nullptr, known != model.end()) << "key " << key;
            if (!value) continue;
            EXPECT_EQ(*value, known->second);
            hitKey = &known->first;
        } else if (change < 600) {
            const std::uint32_t position = random() % 50;
            map.RemoveAt(position);
            if (position < model.size()) {
                const auto gone = std::next(model.begin(), position);
                if (hitKey == &gone->first) hitKey = nullptr;
                model.erase(gone);
            }
        } else if (known == model.end()) {
            ASSERT_TRUE(map.Insert(key, step));
            model.emplace(key, step);
            capacity = std::max(capacity, (map.Count() + 9) / 10 * 10);
        }
        Pairs pairs;
        for (const Map::Entry& entry : map)
            pairs.emplace_back(entry.key, entry.value);
        ASSERT_EQ(pairs, Pairs(model.begin(), model.end()));
        ASSERT_EQ(map.Count(), model.size());
        ASSERT_EQ(map.Capacity(), capacity);
        ASSERT_EQ(map.LastHit() != None, hitKey != nullptr);
        ASSERT_TRUE(!hitKey || map.At(map.LastHit()).key == *hitKey) << *hitKey << " was hit";
    }
}

}  // namespace
}  // namespace halyard
