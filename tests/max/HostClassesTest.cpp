#include "max/HostClasses.h"

#include <gtest/gtest.h>
#include <max.h>

#include <cs/bipexp.h>
#include <iskin.h>

#include "max/ClassId.h"

namespace VKTMax {
namespace {

// Pairs that the host's headers name as expressions, which the compiler can't compare.
TEST(HostClasses, PairsAreThoseOfTheHost)
{
    EXPECT_EQ(kBipedPart, ToHostClass(SKELOBJ_CLASS_ID));
    EXPECT_EQ(kBoneObject, ToHostClass(BONE_OBJ_CLASSID));
    EXPECT_EQ(kSkin, ToHostClass(SKIN_CLASSID));
}

TEST(HostClasses, BothWordsCount)
{
    EXPECT_NE((HostClass{1, 2}), (HostClass{1, 3}));
    EXPECT_NE((HostClass{1, 2}), (HostClass{3, 2}));
    EXPECT_EQ(ToHostClass(Class_ID(1, 2)), (HostClass{1, 2}));
    EXPECT_EQ(ToClassId({1, 2}), Class_ID(1, 2));
}

}  // namespace
}  // namespace VKTMax
