#include <gtest/gtest.h>

#include "VKT/stream/FileHeader.h"

using namespace VKT;

namespace {

TEST(FileHeader, IsWrittenInItsOneWay)
{
    EXPECT_EQ((XFileHeader{4, XFileForm::kText}).Text("0000#00000000|"), "|VKT_004A#0000#00000000|");
    EXPECT_EQ((XFileHeader{123, XFileForm::kBinary}).Text("|"), "|VKT_123B#|");
    EXPECT_EQ((XFileHeader{4, XFileForm::kText}).Word(), "VKT_004A");
    EXPECT_EQ(XFileHeader().Word(), "VKT_004B");
}

TEST(FileHeader, VersionAndFormAreRead)
{
    const auto text = XFileHeader::Of("|VKT_003A#0000#00000000|");
    ASSERT_TRUE(text);
    EXPECT_EQ(text->version, 3u);
    EXPECT_EQ(text->form, XFileForm::kText);
    const auto binary = XFileHeader::Of("|VKT_127B");
    ASSERT_TRUE(binary);
    EXPECT_EQ(binary->version, 127u);
    EXPECT_EQ(binary->form, XFileForm::kBinary);
    const auto word = XFileHeader::OfWord("VKT_005A");
    ASSERT_TRUE(word);
    EXPECT_EQ(word->version, 5u);
}

TEST(FileHeader, AnyLetterButAMeansBinary)
{
    for (const char* start : {"|VKT_004b", "|VKT_004a", "|VKT_004", "|VKT_004 A", "|VKT_04A"}) {
        const auto header = XFileHeader::Of(start);
        ASSERT_TRUE(header);
        EXPECT_EQ(header->form, XFileForm::kBinary) << start;
    }
}

TEST(FileHeader, WhatIsNoDigitEndsTheVersion)
{
    const struct {
        const char* start;
        u32 version;
    } headers[] = {{"|VKT_", 0},     {"|VKT_0", 0},   {"|VKT_4", 4},    {"|VKT_04A", 4},
                   {"|VKT_-04A", 0}, {"|VKT_+4A", 0}, {"|VKT_ 04A", 0}, {"|VKT_00x4", 0}};
    for (const auto& [start, version] : headers) {
        const auto header = XFileHeader::Of(start);
        ASSERT_TRUE(header) << start;
        EXPECT_EQ(header->version, version) << start;
    }
}

TEST(FileHeader, WithoutTheMarkThereIsNone)
{
    for (const char* start : {"", "|", "|VKT", "VKT_004A", "|vkt_004A", " |VKT_004A"})
        EXPECT_FALSE(XFileHeader::Of(start)) << start;
    EXPECT_FALSE(XFileHeader::OfWord("|VKT_004A"));
}

}  // namespace
