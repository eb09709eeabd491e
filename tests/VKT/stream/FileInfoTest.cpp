#include "VKT/stream/FileInfo.h"

#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>

#include "VKT/stream/Platform.h"
#include "VKT/support/TestModel.h"

namespace VKT {
namespace {

using Test::TempFile;

// A number that grows with time, leap days or not.
u64 Seconds(const XDate& date)
{
    return ((((u64{date.year} * 12 + date.month) * 31 + date.day) * 24 + date.hour) * 60 + date.minute) * 60 +
           date.second;
}

TEST(FileInfo, SplitsAPathAtItsLastSlash)
{
    const XFileInfo info("/some/where/scene.vkt");
    EXPECT_EQ(info.GetName(), "scene.vkt");
    EXPECT_EQ(info.GetDirectory(), "/some/where");
}

TEST(FileInfo, TurnsBackslashesIntoSlashes)
{
    const XFileInfo info("c:\\some/where\\scene.vkt");
    EXPECT_EQ(info.GetName(), "scene.vkt");
    EXPECT_EQ(info.GetDirectory(), "c:/some/where");
}

TEST(FileInfo, WithoutASlashTheFolderIsTheCurrentOne)
{
    const XFileInfo info("scene.vkt");
    EXPECT_EQ(info.GetName(), "scene.vkt");
    EXPECT_EQ(info.GetDirectory(), "./");
}

TEST(FileInfo, EdgesOfPaths)
{
    EXPECT_EQ(XFileInfo("").GetName(), "");
    EXPECT_EQ(XFileInfo("").GetDirectory(), "./");
    EXPECT_EQ(XFileInfo("/").GetName(), "");
    EXPECT_EQ(XFileInfo("/").GetDirectory(), "");
    EXPECT_EQ(XFileInfo("a/").GetName(), "");
    EXPECT_EQ(XFileInfo("a/").GetDirectory(), "a");
}

TEST(FileInfo, AsksForSizeAndTime)
{
    const TempFile file(".bin", "12345");
    const XFileInfo info(file.Path());
    EXPECT_EQ(info.GetSize(), 5u);
    EXPECT_NEAR(static_cast<double>(Seconds(info.GetTime())), static_cast<double>(Seconds(LocalTime())),
                60.0);

    using namespace std::chrono_literals;
    std::filesystem::last_write_time(file.Path(), std::filesystem::file_time_type::clock::now() - 24h * 800);
    EXPECT_LT(Seconds(XFileInfo(file.Path()).GetTime()), Seconds(LocalTime()) - 2 * 365 * 24 * 3600);
}

TEST(FileInfo, AMissingFileHasNoSizeAndThePresentTime)
{
    const u64 before = Seconds(LocalTime());
    const XFileInfo info("/nowhere/at/all.vkt");
    EXPECT_EQ(info.GetSize(), 0u);
    EXPECT_EQ(info.GetName(), "all.vkt");
    EXPECT_GE(Seconds(info.GetTime()), before);
    EXPECT_LE(Seconds(info.GetTime()), Seconds(LocalTime()));
}

}  // namespace
}  // namespace VKT
