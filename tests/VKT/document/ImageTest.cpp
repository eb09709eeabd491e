#include "VKT/document/Image.h"

#include <gtest/gtest.h>

#include "VKT/support/LogCatcher.h"
#include "VKT/support/TestModel.h"

namespace VKT {
namespace {

using Test::Bytes;
using Test::Hex;
using Test::TempFile;

std::string Written(XImage& image)
{
    const TempFile file(".bin");
    {
        XFileIO out(file.Path(), false);
        EXPECT_TRUE(image.DoData(out));
    }
    return file.Bytes();
}

bool Read(XImage& image, std::string_view bytes, i64* position = nullptr)
{
    const TempFile file(".bin", bytes);
    XFileIO in(file.Path(), true);
    const bool answer = image.DoData(in);
    if (position)
        *position = in.Position();
    return answer;
}

XImage Checker()
{
    XImage image;
    image.m_ID = 0x0102;
    image.m_Width = 2;
    image.m_Height = 4;
    image.m_Channels = 3;
    image.m_Name = "n";
    image.m_Path = "a/n.png";
    for (u8 i = 0; i < 24; ++i)
        image.m_Pixels.push_back(i);
    return image;
}

constexpr char kChecker[] =
    "02 01 21 02 "  // id, 2 to the 1 wide and to the 2 high, 3 channels less one
    "01 00 6e "
    "07 00 61 2f 6e 2e 70 6e 67 "
    "00 01 02 03 04 05 06 07 08 09 0a 0b 0c 0d 0e 0f 10 11 12 13 14 15 16 17";

TEST(Image, TheRecord)
{
    XImage image = Checker();
    EXPECT_EQ(Hex(Written(image)), kChecker);
    XImage back;
    ASSERT_TRUE(Read(back, Bytes(kChecker)));
    EXPECT_EQ(back.m_ID, 0x0102);
    EXPECT_EQ(back.m_Width, 2u);
    EXPECT_EQ(back.m_Height, 4u);
    EXPECT_EQ(back.m_Channels, 3u);
    EXPECT_EQ(back.m_Name, "n");
    EXPECT_EQ(back.m_Path, "a/n.png");
    EXPECT_EQ(back.m_Pixels, image.m_Pixels);
}

TEST(Image, SizesThatAreNoPowerOfTwoAreStoredAsZeroAndReadAsOne)
{
    for (const u32 size : {0u, 1u, 3u, 65536u}) {
        XImage image = Checker();
        image.m_Width = size;
        image.m_Height = 32768;
        EXPECT_EQ(Hex(Written(image)), "02 01 f0 02 01 00 6e 07 00 61 2f 6e 2e 70 6e 67") << size;
    }
    XImage back;
    ASSERT_TRUE(Read(back, Bytes("02 01 f0 02 01 00 6e 00 00")));
    EXPECT_EQ(back.m_Width, 1u);
    EXPECT_EQ(back.m_Height, 32768u);
    EXPECT_TRUE(back.m_Pixels.empty());
}

TEST(Image, OneChannelMeansNoPixels)
{
    XImage image = Checker();
    image.m_Channels = 1;
    image.m_Pixels.resize(8);
    EXPECT_EQ(Hex(Written(image)), "02 01 21 00 01 00 6e 07 00 61 2f 6e 2e 70 6e 67");
    EXPECT_EQ(image.m_Pixels.size(), 8u);
    XImage back;
    i64 position = 0;
    ASSERT_TRUE(Read(back, Bytes("02 01 21 00 01 00 6e 00 00 01 02"), &position));
    EXPECT_EQ(back.m_Channels, 1u);
    EXPECT_EQ(position, 9);
}

TEST(Image, OnlyTheLowTwoBitsOfTheChannelsCount)
{
    XImage back;
    ASSERT_TRUE(Read(back, Bytes("02 01 11 fd 01 00 6e 00 00 01 02 03 04 05 06 07 08")));
    EXPECT_EQ(back.m_Channels, 2u);
    EXPECT_EQ(back.m_Pixels, (XVector<u8>{1, 2, 3, 4, 5, 6, 7, 8}));
}

TEST(Image, ARecordWithoutANameEndsThere)
{
    XImage back;
    i64 position = 0;
    ASSERT_TRUE(Read(back, Bytes("02 01 21 02 00 00 07 00"), &position));
    EXPECT_EQ(position, 6);
    EXPECT_EQ(back.m_Width, 2u);
    EXPECT_EQ(back.m_Path, "");
    EXPECT_TRUE(back.m_Pixels.empty());
    XImage image = Checker();
    image.m_Name.clear();
    EXPECT_EQ(Hex(Written(image)), "02 01 21 02 00 00");
}

TEST(Image, WritesNeverMorePixelsThanTheRecordClaims)
{
    XImage image = Checker();
    image.m_Pixels.push_back(99);
    EXPECT_EQ(Hex(Written(image)), kChecker);
    EXPECT_EQ(image.m_Pixels.size(), 25u);
    image.m_Channels = 7;  // as two bits: 3
    EXPECT_EQ(Hex(Written(image)), kChecker);
}

TEST(Image, AnImageThatLacksPixelsIsWrittenWithoutAny)
{
    LogCatcher log;
    XImage image = Checker();
    image.m_Pixels.pop_back();
    EXPECT_EQ(Hex(Written(image)), "02 01 21 00 01 00 6e 07 00 61 2f 6e 2e 70 6e 67");
    EXPECT_EQ(log.Text(), "Warning : image \"n\" lacks pixels: it is written without any\n");
    EXPECT_EQ(image.m_Pixels.size(), 23u);
}

TEST(Image, EveryPrefixOfARecordFails)
{
    const std::string bytes = Bytes(kChecker);
    for (std::size_t length = 0; length < bytes.size(); ++length) {
        const LogCatcher log;
        XImage back;
        EXPECT_FALSE(Read(back, bytes.substr(0, length))) << length;
        EXPECT_TRUE(back.m_Pixels.empty());
        EXPECT_NE(log.Text(), "");
    }
}

TEST(Image, AClaimOf4GiBTakesNoMoreThanTheFileHolds)
{
    LogCatcher log;
    XImage back;
    EXPECT_FALSE(Read(back, Bytes("02 01 ff 03 01 00 6e 00 00") + std::string(3'000'000, 'p')));
    EXPECT_EQ(back.m_Width, 32768u);
    EXPECT_EQ(back.m_Height, 32768u);
    EXPECT_EQ(back.m_Channels, 4u);
    EXPECT_EQ(back.m_Pixels.size(), std::size_t{2} << 20);  // whole pieces of 1 MiB
    EXPECT_EQ(log.Text(), "Error : XFileIO::DoData : expected to read/write 1048576 elements got 902848\n");
}

}  // namespace
}  // namespace VKT
