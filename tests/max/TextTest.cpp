#include "max/Text.h"

#include <gtest/gtest.h>
#include <max.h>

namespace VKTMax {
namespace {

// A string of the host that was never assigned may hold null.
TEST(Text, OneThatWasNeverAssignedIsEmpty)
{
    EXPECT_EQ(TextOrEmpty(nullptr), "");
    EXPECT_EQ(TextOrEmpty(MSTR().data()), "");
}

TEST(Text, OthersAreCopied)
{
    MSTR text("a b");
    EXPECT_EQ(TextOrEmpty(text.data()), "a b");
}

}  // namespace
}  // namespace VKTMax
