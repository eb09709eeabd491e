#include "VKT/stream/BlockReader.h"

#include <gtest/gtest.h>

#include "VKT/support/LogCatcher.h"

using namespace VKT;

namespace {

constexpr const char* kSource = ".\\src\\VKT\\Wheel";

TEST(BlockReader, ReadsWhatStandsBehindItsKeys)
{
    XTextReader in("Radius 1.5 { spokes 7 round 1 name big one");
    XBlockReader block(in, kSource);
    f32 radius = 0;
    u32 spokes = 0;
    bool isRound = false;
    XString name;
    EXPECT_TRUE(block.Read("radius", radius));
    EXPECT_TRUE(block.Expect("{"));
    EXPECT_TRUE(block.Read("spokes", spokes));
    EXPECT_TRUE(block.Read("round", isRound));
    EXPECT_TRUE(block.Read("name", name));
    EXPECT_EQ(radius, 1.5f);
    EXPECT_EQ(spokes, 7u);
    EXPECT_TRUE(isRound);
    EXPECT_EQ(name, "big");
}

TEST(BlockReader, CountsItsKeys)
{
    LogCatcher log;
    XTextReader in("radius 2 wrong wrong none");
    XBlockReader block(in, kSource);
    f32 radius = 0;
    EXPECT_TRUE(block.Read("radius", radius));
    EXPECT_FALSE(block.Expect("{"));
    EXPECT_EQ(block.NextRow(), 3);
    EXPECT_FALSE(block.Read("spokes", radius));
    EXPECT_EQ(radius, 2) << "nothing is read behind a wrong key";
    EXPECT_FALSE(block.Refuse("ROUND", "oval"));
    EXPECT_EQ(log.Text(),
              "Error : Expected { got wrong [.\\src\\VKT\\Wheel:2]\n"
              "Error : Expected spokes got wrong [.\\src\\VKT\\Wheel:4]\n"
              "Error : Expected ROUND got oval [.\\src\\VKT\\Wheel:5]\n");
}

TEST(BlockReader, GoesOnBehindRowsThatOthersRead)
{
    LogCatcher log;
    XTextReader in("wrong");
    EXPECT_FALSE(XBlockReader(in, kSource, 4).Expect("tyre"));
    EXPECT_EQ(log.Text(), "Error : Expected tyre got wrong [.\\src\\VKT\\Wheel:5]\n");
}

TEST(BlockReader, EntriesOfAListHaveTheSameNumbers)
{
    LogCatcher log;
    XTextReader in("count SPOKE { SPOKE [ back");
    XBlockReader block(in, kSource);
    const auto readSpoke = [](XBlockReader spoke) { return spoke.Expect("SPOKE") && spoke.Expect("{"); };
    EXPECT_TRUE(block.Expect("count"));
    EXPECT_TRUE(readSpoke(block));
    EXPECT_FALSE(readSpoke(block));
    EXPECT_FALSE(block.Expect("}"));
    EXPECT_EQ(log.Text(),
              "Error : Expected { got [ [.\\src\\VKT\\Wheel:3]\n"
              "Error : Expected } got back [.\\src\\VKT\\Wheel:2]\n");
}

TEST(BlockReader, NumberThatFailsToComeIsSeenAtTheNextKey)
{
    LogCatcher log;
    XTextReader in("radius big spokes 3");
    XBlockReader block(in, kSource);
    f32 radius = 0;
    u32 spokes = 0;
    EXPECT_TRUE(block.Read("radius", radius));
    EXPECT_FALSE(block.Read("spokes", spokes));
    EXPECT_EQ(log.Text(), "Error : Expected spokes got  [.\\src\\VKT\\Wheel:2]\n");
}

}  // namespace
