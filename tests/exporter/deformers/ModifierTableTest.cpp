#include "exporter/deformers/ModifierTable.h"

#include <gtest/gtest.h>

namespace VKTMax {
namespace {

TEST(ModifierTable, SkinsAndMorphsDeform)
{
    EXPECT_TRUE(IsDeforming({0x100, 0}));
    EXPECT_TRUE(IsDeforming({0x95C723, 0x15666}));
    EXPECT_TRUE(IsDeforming({0x17BB6854, 0xA5CBA2A3}));
}

TEST(ModifierTable, OthersDoNot)
{
    EXPECT_FALSE(IsDeforming({0x10, 0}));
    EXPECT_FALSE(IsDeforming({0x100, 1}));
    EXPECT_FALSE(IsDeforming({0x95C723, 0}));
}

}  // namespace
}  // namespace VKTMax
