#include "VKT/base/IdMap.h"

#include <gtest/gtest.h>

#include <map>
#include <random>

namespace VKT {
namespace {

// The map never looks at a node: any distinct addresses serve.
XBase* Node(std::size_t number)
{
    static char places[1 << 17];
    return reinterpret_cast<XBase*>(&places[number]);
}

TEST(IdMap, AnEmptyOneFindsNothing)
{
    XIdMap map;
    EXPECT_EQ(map.Find(1), nullptr);
    EXPECT_EQ(map.Find(0), nullptr);
    map.Erase(1, Node(1));
}

TEST(IdMap, IdZeroNeverEnters)
{
    XIdMap map;
    map.Insert(0, Node(1));
    map.Insert(7, Node(2));
    EXPECT_EQ(map.Find(0), nullptr);
    EXPECT_EQ(map.Find(7), Node(2));
}

TEST(IdMap, TheFirstOfSeveralNodesWithOneIdKeepsTheEntry)
{
    XIdMap map;
    map.Insert(5, Node(1));
    map.Insert(5, Node(2));
    EXPECT_EQ(map.Find(5), Node(1));
    map.Erase(5, Node(2));  // not its entry
    EXPECT_EQ(map.Find(5), Node(1));
    map.Erase(5, Node(1));
    EXPECT_EQ(map.Find(5), nullptr);
}

TEST(IdMap, HoldsTheLargestIds)
{
    XIdMap map;
    map.Insert(0xFFFFFFFF, Node(1));
    map.Insert(0x80000000, Node(2));
    EXPECT_EQ(map.Find(0xFFFFFFFF), Node(1));
    EXPECT_EQ(map.Find(0x80000000), Node(2));
}

TEST(IdMap, ClearEmptiesIt)
{
    XIdMap map;
    for (u32 id = 1; id < 1000; ++id)
        map.Insert(id, Node(id));
    map.Clear();
    for (u32 id = 1; id < 1000; ++id)
        EXPECT_EQ(map.Find(id), nullptr);
    map.Insert(3, Node(9));
    EXPECT_EQ(map.Find(3), Node(9));
}

TEST(IdMap, AgreesWithAnOrderedMapOverRandomSteps)
{
    std::mt19937 random(20090131);
    for (const u32 range : {50u, 1000u, 100000u}) {
        XIdMap map;
        std::map<u32, XBase*> reference;
        for (u32 step = 0; step < 50000; ++step) {
            const u32 id = random() % range;
            XBase* const node = Node(random() % 100000);
            if (random() % 3 != 0) {
                map.Insert(id, node);
                if (id != 0)
                    reference.emplace(id, node);
            } else {
                const auto found = reference.find(id);
                XBase* const erased = found != reference.end() && random() % 2 ? found->second : node;
                map.Erase(id, erased);
                if (found != reference.end() && found->second == erased)
                    reference.erase(found);
            }
            const auto found = reference.find(id);
            ASSERT_EQ(map.Find(id), found == reference.end() ? nullptr : found->second);
        }
        for (u32 id = 0; id < range; ++id) {
            const auto found = reference.find(id);
            ASSERT_EQ(map.Find(id), found == reference.end() ? nullptr : found->second);
        }
    }
}

}  // namespace
}  // namespace VKT
