#include "common/sorted_map.h"

#include <gtest/gtest.h>

#include <iterator>
#include <map>
#include <random>
#include <utility>
#include <vector>

namespace halyard {
namespace {

using Map = SortedMap<int>;
using Pairs = std::vector<std::pair<std::uint32_t, int>>;

// Random changes beside std::map, over keys of all 32 bits, with the key that was hit last kept beside the position
// that the map keeps.
TEST(SortedMap, EqualsAnOrderedMapUnderRandomChanges) {
    constexpr std::uint32_t Spread = 0xFFFFFFFF / 60;
    std::mt19937 random(20230501);
    Map map;
    std::map<std::uint32_t, int> model;
    const std::uint32_t* hitKey = nullptr;
    for (int step = 0; step < 20000 && !testing::Test::HasFailure(); ++step) {
        const std::uint32_t key = random() % 61 * Spread;
        const auto known = model.find(key);
        const unsigned change = random() % 1000;
        if (change < 300) {
            const int* value = map.Find(key);
            ASSERT_EQ(value != nullptr, known != model.end());
            if (!value) continue;
            ASSERT_EQ(*value, known->second);
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
        }
        Pairs pairs;
        for (const Map::Entry& entry : map)
            pairs.emplace_back(entry.key, entry.value);
        ASSERT_EQ(pairs, Pairs(model.begin(), model.end()));
        ASSERT_EQ(map.LastHit() != Map::None, hitKey != nullptr);
        ASSERT_TRUE(!hitKey || map.At(map.LastHit()).key == *hitKey);
    }
}

}  // namespace
}  // namespace halyard
