#include "VKT/stream/FileIO.h"

#include <gtest/gtest.h>

#include <limits>
#include <numeric>

#include "VKT/support/LogCatcher.h"
#include "VKT/support/TestModel.h"

namespace VKT {
namespace {

using Test::Bytes;
using Test::Hex;
using Test::TempFile;

// What `write` puts into a file.
template <class Write>
std::string Written(Write write)
{
    const TempFile file(".bin");
    {
        XFileIO out(file.Path(), false);
        EXPECT_TRUE(out.IsWriting());
        EXPECT_TRUE(out.IsValid());
        write(out);
    }
    return file.Bytes();
}

template <class T>
std::string HexOf(T value)
{
    return Hex(Written([&](XFileIO& out) { EXPECT_NE(out.DoData(value), 0u); }));
}

// Reads a value from bytes; the count that the stream answered goes to `moved`.
template <class T>
T Read(std::string_view hex, T start, std::size_t* moved = nullptr)
{
    const TempFile file(".bin", Bytes(hex));
    XFileIO in(file.Path(), true);
    const std::size_t count = in.DoData(start);
    if (moved)
        *moved = count;
    return start;
}

TEST(FileIO, ValuesAreLittleEndianAndPacked)
{
    EXPECT_EQ(HexOf(u8{0xAB}), "ab");
    EXPECT_EQ(HexOf(u16{0xABCD}), "cd ab");
    EXPECT_EQ(HexOf(u32{0x01020304}), "04 03 02 01");
    EXPECT_EQ(HexOf(i32{-2}), "fe ff ff ff");
    EXPECT_EQ(HexOf(1.5f), "00 00 c0 3f");
    EXPECT_EQ(HexOf(true), "01");
    EXPECT_EQ(HexOf(false), "00");
    EXPECT_EQ(HexOf(XVector3{1, 2, 3, 9}), "00 00 80 3f 00 00 00 40 00 00 40 40");
    EXPECT_EQ(HexOf(XQuaternion{1, 2, 3, 4}), "00 00 80 3f 00 00 00 40 00 00 40 40 00 00 80 40");
    EXPECT_EQ(HexOf(XColour{1, 2, 3, 4}), "00 00 80 3f 00 00 00 40 00 00 40 40 00 00 80 40");
    EXPECT_EQ(HexOf(XDate{1, 2, 2009, 4, 5, 6}),
              "01 00 00 00 02 00 00 00 d9 07 00 00 04 00 00 00 05 00 00 00 06 00 00 00");
    EXPECT_EQ(HexOf(XString("ab")), "02 00 61 62");
    EXPECT_EQ(HexOf(XString()), "00 00");
    EXPECT_EQ(HexOf(XIndexList{7, 8}), "02 00 00 00 07 00 00 00 08 00 00 00");
    EXPECT_EQ(HexOf(XIntList{-1}), "01 00 00 00 ff ff ff ff");
    EXPECT_EQ(HexOf(XRealList{1}), "01 00 00 00 00 00 80 3f");
    EXPECT_EQ(HexOf(XVector3Array{{1, 2, 3, 9}}), "01 00 00 00 00 00 80 3f 00 00 00 40 00 00 40 40");
    EXPECT_EQ(HexOf(XStringList{"a", "", "bc"}), "03 00 00 00 01 00 61 00 00 02 00 62 63");
}

TEST(FileIO, AMatrixIsSixteenFloatsInOrder)
{
    XMatrix m;
    std::iota(m.m, m.m + 16, 1.0f);
    const std::string bytes = Written([&](XFileIO& out) { EXPECT_EQ(out.DoData(m), 16u); });
    ASSERT_EQ(bytes.size(), 64u);
    EXPECT_EQ(Hex(bytes.substr(0, 8)), "00 00 80 3f 00 00 00 40");
    EXPECT_EQ(Hex(bytes.substr(60)), "00 00 80 41");
    const TempFile file(".bin", bytes);
    XFileIO in(file.Path(), true);
    XMatrix back{};
    EXPECT_EQ(in.DoData(back), 16u);
    EXPECT_EQ(back, m);
}

TEST(FileIO, ReadsWhatItWrites)
{
    EXPECT_EQ(Read("ab", u8{}), 0xAB);
    EXPECT_EQ(Read("cd ab", u16{}), 0xABCD);
    EXPECT_EQ(Read("04 03 02 01", u32{}), 0x01020304u);
    EXPECT_EQ(Read("fe ff ff ff", i32{}), -2);
    EXPECT_EQ(Read("00 00 c0 3f", f32{}), 1.5f);
    EXPECT_EQ(Read("00 00 80 3f 00 00 00 40 00 00 40 40", XVector3{9, 9, 9, 9}), (XVector3{1, 2, 3, 0}));
    EXPECT_EQ(Read("00 00 80 3f 00 00 00 40 00 00 40 40 00 00 80 40", XColour{}), (XColour{1, 2, 3, 4}));
    EXPECT_EQ(Read("02 00 61 62", XString("gone")), "ab");
    EXPECT_EQ(Read("00 00", XString("gone")), "");
    EXPECT_EQ(Read("02 00 00 00 07 00 00 00 08 00 00 00", XIndexList{1, 2, 3}), (XIndexList{7, 8}));
    EXPECT_EQ(Read("01 00 00 00 00 00 80 3f 00 00 00 40 00 00 40 40", XVector3Array{{9, 9, 9, 9}, {}}),
              (XVector3Array{{1, 2, 3, 0}}));
    EXPECT_EQ(Read("03 00 00 00 01 00 61 00 00 02 00 62 63", XStringList{"x"}), (XStringList{"a", "", "bc"}));
}

TEST(FileIO, AnyByteButZeroReadsAsTrue)
{
    EXPECT_FALSE(Read("00", true));
    EXPECT_TRUE(Read("01", false));
    EXPECT_TRUE(Read("02", false));
    EXPECT_TRUE(Read("ff", false));
}

TEST(FileIO, AnEmptyVectorIsItsCountAlone)
{
    EXPECT_EQ(HexOf(XIndexList()), "00 00 00 00");
    EXPECT_EQ(HexOf(XStringList()), "00 00 00 00");
    std::size_t moved = 0;
    EXPECT_TRUE(Read("00 00 00 00", XIndexList{1}, &moved).empty());
    EXPECT_NE(moved, 0u);
}

TEST(FileIO, AStringIsCutTo65535Characters)
{
    XString longest(65535, 'x');
    XString longer(70000, 'y');
    const std::string bytes = Written([&](XFileIO& out) {
        EXPECT_NE(out.DoData(longest), 0u);
        EXPECT_NE(out.DoData(longer), 0u);
    });
    EXPECT_EQ(bytes.size(), 2 * (2 + 65535u));
    EXPECT_EQ(longer.size(), 70000u);
    const TempFile file(".bin", bytes);
    XFileIO in(file.Path(), true);
    XString text;
    EXPECT_NE(in.DoData(text), 0u);
    EXPECT_EQ(text, longest);
    EXPECT_NE(in.DoData(text), 0u);
    EXPECT_EQ(text, XString(65535, 'y'));
}

TEST(FileIO, AMissingFileIsNotValidAndLogsNothing)
{
    LogCatcher log;
    XFileIO in("/nowhere/at/all.vkt", true);
    EXPECT_EQ(in.GetFile(), nullptr);
    EXPECT_FALSE(in.IsValid());
    EXPECT_TRUE(in.IsReading());
    EXPECT_EQ(in.Tell(), 0);
    EXPECT_EQ(in.Remaining(), 0u);
    in.Skip(5);
    EXPECT_EQ(log.Text(), "");
    u32 value = 3;
    EXPECT_EQ(in.DoData(value), 0u);
    XIndexList list{1};
    EXPECT_EQ(in.DoData(list), 0u);
    XVector3Array points;
    EXPECT_EQ(in.DoData(points), 0u);
    EXPECT_EQ(value, 3u);
    EXPECT_EQ(log.Text(),
              "Error : XFileIO::DoData : expected to read/write 1 elements got 0\n"
              "Error : XFileIO::DoData : expected to read/write 1 elements got 0\n"
              "Error : XFileIO::DoData : expected to read/write 1 elements got 0\n");
}

TEST(FileIO, AFileThatCannotBeWrittenIsNotValid)
{
    XFileIO out("/nowhere/at/all.vkt", false);
    EXPECT_FALSE(out.IsValid());
    EXPECT_EQ(out.Tell(), 0);
}

TEST(FileIO, AStringAtTheEndOfAFileLogsOneAndZero)
{
    LogCatcher log;
    std::size_t moved = 9;
    Read("", XString(), &moved);
    EXPECT_EQ(moved, 0u);
    EXPECT_EQ(log.Text(), "Error : XFileIO::DoData : expected to read/write 1 elements got 0\n");
    log.Clear();
    Read("05 00 61 62", XString(), &moved);  // the characters are moved one by one
    EXPECT_EQ(moved, 0u);
    EXPECT_EQ(log.Text(), "Error : XFileIO::DoData : expected to read/write 1 elements got 0\n");
}

TEST(FileIO, AShortReadLogsWantedAndReal)
{
    LogCatcher log;
    const TempFile file(".bin", Bytes("01 00 00 00 02 00 00 00 03 00"));
    XFileIO in(file.Path(), true);
    u32 values[4] = {};
    EXPECT_EQ(in.DoData(values, 4), 0u);
    EXPECT_EQ(log.Text(), "Error : XFileIO::DoData : expected to read/write 4 elements got 2\n");
    EXPECT_EQ(values[1], 2u);
    EXPECT_TRUE(in.IsAtEnd());
    EXPECT_FALSE(in.IsValid());
}

TEST(FileIO, AVectorOfFloatsThatEndsEarlyLogsWholeElements)
{
    LogCatcher log;
    const TempFile file(".bin", std::string(12 + 11, '\0'));
    XFileIO in(file.Path(), true);
    XVector3 points[3];
    EXPECT_EQ(in.DoData(points, 3), 0u);
    EXPECT_EQ(log.Text(), "Error : XFileIO::DoData : expected to read/write 3 elements got 1\n");
    EXPECT_FALSE(in.IsValid());
}

TEST(FileIO, TheEndIsReachedByAReadThatRunsIntoItNotByTheLastByte)
{
    LogCatcher log;
    const TempFile file(".bin", Bytes("07"));
    XFileIO in(file.Path(), true);
    u8 value = 0;
    EXPECT_EQ(in.DoData(value), 1u);
    EXPECT_TRUE(in.IsValid());
    EXPECT_FALSE(in.IsAtEnd());
    EXPECT_EQ(in.DoData(value), 0u);
    EXPECT_FALSE(in.IsValid());
    EXPECT_TRUE(in.IsAtEnd());
    in.Skip(-1);
    EXPECT_TRUE(in.IsValid());
    EXPECT_EQ(in.DoData(value), 1u);
    EXPECT_EQ(value, 7);
}

TEST(FileIO, ACountThatTheRestCannotHoldFailsAsAShortRead)
{
    LogCatcher log;
    std::size_t moved = 9;
    EXPECT_EQ(Read("ff ff ff ff 01 00 00 00 02 00 00 00", XIndexList{5}, &moved), XIndexList{5});
    EXPECT_EQ(moved, 0u);
    Read("ff ff ff ff 00 00 00 00 00 00 00 00 00 00 00 00", XVector3Array{}, &moved);
    EXPECT_EQ(moved, 0u);
    Read("ff ff ff ff 00 00 00 00 00", XStringList{}, &moved);
    EXPECT_EQ(moved, 0u);
    EXPECT_EQ(log.Text(),
              "Error : XFileIO::DoData : expected to read/write -1 elements got 2\n"
              "Error : XFileIO::DoData : expected to read/write -1 elements got 1\n"
              "Error : XFileIO::DoData : expected to read/write -1 elements got 2\n");
}

TEST(FileIO, DoCountHoldsACountAgainstTheBytesThatAreLeft)
{
    LogCatcher log;
    const TempFile file(".bin", Bytes("03 00 00 00") + std::string(30, 'x'));
    for (const auto& [bytes, fits] : {std::pair{10, true}, {11, false}}) {
        XFileIO in(file.Path(), true);
        u32 count = 0;
        EXPECT_EQ(in.DoCount(count, 0, static_cast<u64>(bytes)), fits);
        EXPECT_EQ(count, 3u);
    }
    EXPECT_EQ(log.Text(), "Error : XFileIO::DoData : expected to read/write 3 elements got 2\n");
    EXPECT_EQ(Hex(Written([](XFileIO& out) {
                  u32 count = 0;
                  EXPECT_TRUE(out.DoCount(count, 3, 1000));
                  EXPECT_EQ(count, 3u);
              })),
              "03 00 00 00");
}

struct Pair {
    u8 first = 9;
    XString second;
};

bool DoPair(XFileIO& file, Pair& pair)
{
    return file.DoData(pair.first) && file.DoData(pair.second);
}

TEST(FileIO, DoEachMovesListsOfSeveralFields)
{
    XVector<Pair> list{{1, "a"}, {2, ""}};
    const std::string bytes = Written([&](XFileIO& out) {
        EXPECT_TRUE(out.DoEach(list, 3, [&](Pair& pair) { return DoPair(out, pair); }));
    });
    EXPECT_EQ(Hex(bytes), "02 00 00 00 01 01 00 61 02 00 00");

    // By pointers, which a read makes as it is told.
    const TempFile file(".bin", bytes);
    XFileIO in(file.Path(), true);
    XVector<std::unique_ptr<Pair>> pointers;
    pointers.push_back(std::make_unique<Pair>());
    const auto make = [] { return std::make_unique<Pair>(Pair{7, "new"}); };
    EXPECT_TRUE(in.DoEach(pointers, 3, make, [&](Pair& pair) {
        EXPECT_EQ(pair.second, "new");
        return DoPair(in, pair);
    }));
    ASSERT_EQ(pointers.size(), 2u) << "what stood there is replaced";
    EXPECT_EQ(pointers[0]->second, "a");
    EXPECT_EQ(pointers[1]->first, 2);
}

TEST(FileIO, AnElementThatFailsDoesNotEnterItsList)
{
    LogCatcher log;
    const TempFile file(".bin", Bytes("03 00 00 00 01 01 00 61 02 05 00 62 63"));
    XFileIO in(file.Path(), true);
    XVector<Pair> list;
    EXPECT_FALSE(in.DoEach(list, 3, [&](Pair& pair) { return DoPair(in, pair); }));
    ASSERT_EQ(list.size(), 1u);
    EXPECT_EQ(list[0].second, "a");
    EXPECT_EQ(log.Text(), "Error : XFileIO::DoData : expected to read/write 1 elements got 0\n");
}

TEST(FileIO, CountThatCannotBeTrueLeavesTheList)
{
    LogCatcher log;
    const TempFile file(".bin", Bytes("03 00 00 00 01 01 00 61"));
    XFileIO in(file.Path(), true);
    XVector<Pair> list{{1, "kept"}};
    EXPECT_FALSE(in.DoEach(list, 3, [&](Pair& pair) { return DoPair(in, pair); }));
    ASSERT_EQ(list.size(), 1u);
    EXPECT_EQ(list[0].second, "kept");
    EXPECT_EQ(log.Text(), "Error : XFileIO::DoData : expected to read/write 3 elements got 1\n");
}

TEST(FileIO, DoElementsAppendsAsManyAsItIsTold)
{
    const TempFile file(".bin", Bytes("01 01 00 61 02 00 00 03 00 00"));
    XFileIO in(file.Path(), true);
    XVector<Pair> list{{1, "kept"}};
    EXPECT_TRUE(in.DoElements(list, 2, [&](Pair& pair) { return DoPair(in, pair); }));
    ASSERT_EQ(list.size(), 3u);
    EXPECT_EQ(list[0].second, "kept");
    EXPECT_EQ(list[2].first, 2);
    EXPECT_EQ(in.Position(), 7);
}

TEST(FileIO, MeasuresWhatItWouldWrite)
{
    XFileIO measure = XFileIO::Measuring();
    EXPECT_TRUE(measure.IsWriting());
    EXPECT_TRUE(measure.IsMeasuring());
    u8 byte = 0;
    bool flag = false;
    XVector3 vector{};
    XMatrix matrix{};
    XString text(70000, 'x');
    XIndexList list(3, 0);
    XStringList texts{"ab", ""};
    XVector3Array points(2, XVector3{});
    measure.DoData(byte);
    measure.DoData(flag);
    EXPECT_EQ(measure.GetMeasure(), 2u);
    measure.DoData(vector);
    EXPECT_EQ(measure.GetMeasure(), 14u);
    measure.DoData(matrix);
    EXPECT_EQ(measure.GetMeasure(), 78u);
    measure.DoData(text);
    EXPECT_EQ(measure.GetMeasure(), 78u + 2 + 65535);
    measure.DoData(list);
    measure.DoData(texts);
    measure.DoData(points);
    EXPECT_EQ(measure.GetMeasure(), 78u + 2 + 65535 + 16 + 10 + 28);
    EXPECT_EQ(text.size(), 70000u);
    EXPECT_EQ(measure.GetFile(), nullptr);
}

// Larger than the stream's window, so that the transfers pass it by, cross it and fill it.
TEST(FileIO, LargeArraysComeBackWhole)
{
    XIndexList numbers(100'000, 0);
    std::iota(numbers.begin(), numbers.end(), 0u);
    XVector3Array points;
    for (int i = 0; i < 30'000; ++i)
        points.push_back({static_cast<f32>(i), static_cast<f32>(2 * i), static_cast<f32>(3 * i), 0});
    XString text(60'000, 'q');
    u8 odd = 0x5A;
    const std::string bytes = Written([&](XFileIO& out) {
        EXPECT_NE(out.DoData(odd), 0u);
        EXPECT_NE(out.DoData(points), 0u);
        EXPECT_NE(out.DoData(text), 0u);
        EXPECT_NE(out.DoData(odd), 0u);
        EXPECT_NE(out.DoData(numbers), 0u);
        EXPECT_NE(out.DoData(points), 0u);
        EXPECT_EQ(out.Position(), 1 + 360'004 + 60'002 + 1 + 400'004 + 360'004);
    });
    ASSERT_EQ(bytes.size(), std::size_t{1 + 360'004 + 60'002 + 1 + 400'004 + 360'004});
    const TempFile file(".bin", bytes);
    XFileIO in(file.Path(), true);
    EXPECT_EQ(in.Remaining(), bytes.size());
    u8 byte = 0;
    XVector3Array pointsBack;
    XString textBack;
    XIndexList numbersBack;
    EXPECT_NE(in.DoData(byte), 0u);
    EXPECT_NE(in.DoData(pointsBack), 0u);
    EXPECT_EQ(pointsBack, points);
    EXPECT_EQ(in.Position(), 1 + 360'004);
    EXPECT_NE(in.DoData(textBack), 0u);
    EXPECT_EQ(textBack, text);
    EXPECT_NE(in.DoData(byte), 0u);
    EXPECT_NE(in.DoData(numbersBack), 0u);
    EXPECT_EQ(numbersBack, numbers);
    EXPECT_EQ(in.Remaining(), 360'004u);
    EXPECT_NE(in.DoData(pointsBack), 0u);
    EXPECT_EQ(pointsBack, points);
    EXPECT_EQ(in.Remaining(), 0u);
    EXPECT_TRUE(in.IsValid());
}

TEST(FileIO, SkipsInBothDirections)
{
    std::string bytes(200'000, '\0');
    for (std::size_t i = 0; i < bytes.size(); ++i)
        bytes[i] = static_cast<char>(i % 251);
    const TempFile file(".bin", bytes);
    XFileIO in(file.Path(), true);
    u8 value = 0;
    i64 position = 0;
    const auto step = [&](i64 skip) {
        in.Skip(skip);
        position += skip;
        EXPECT_EQ(in.Position(), position);
        EXPECT_EQ(in.Tell(), position);
        ASSERT_NE(in.DoData(value), 0u);
        EXPECT_EQ(value, position % 251);
        ++position;
    };
    for (const i64 skip : {10, 0, -3, -8, 70'000, -1, -69'000, 100'000, -100'000, 5, 65'536, -65'537})
        step(skip);
    // Behind an array that went past the window, what was in the window is not what
    // stands in front of the position.
    std::vector<u8> large(70'000);
    EXPECT_NE(in.DoData(large.data(), large.size()), 0u);
    position += 70'000;
    step(-10);
    step(-70'000);
}

TEST(FileIO, SkippingPastTheEndFailsAtTheNextRead)
{
    LogCatcher log;
    const TempFile file(".bin", "abc");
    XFileIO in(file.Path(), true);
    in.Skip(100);
    EXPECT_TRUE(in.IsValid());
    EXPECT_EQ(in.Remaining(), 0u);
    u8 value = 0;
    EXPECT_EQ(in.DoData(value), 0u);
    EXPECT_TRUE(in.IsAtEnd());
}

TEST(FileIO, AGivenFileStaysOpenAndStandsWhereReadingStopped)
{
    const TempFile temp(".bin", "abcdef");
    std::FILE* const file = std::fopen(temp.Path(), "rb");
    ASSERT_NE(file, nullptr);
    EXPECT_EQ(std::fgetc(file), 'a');
    XFileIO in(file, true);
    EXPECT_EQ(in.Tell(), 1);
    EXPECT_EQ(in.Remaining(), 5u);
    u16 two = 0;
    EXPECT_EQ(in.DoData(two), 1u);
    EXPECT_EQ(two, 'b' | 'c' << 8);
    EXPECT_TRUE(in.Close());
    EXPECT_EQ(in.GetFile(), nullptr);
    EXPECT_EQ(in.Tell(), 0);
    EXPECT_EQ(std::fgetc(file), 'd');
    std::fclose(file);
}

TEST(FileIO, AGivenFileHoldsWhatWasWrittenOnceTheStreamIsClosed)
{
    const TempFile temp(".bin");
    std::FILE* const file = std::fopen(temp.Path(), "wb");
    ASSERT_NE(file, nullptr);
    std::fputs("<", file);
    {
        XFileIO out(file, false);
        u8 value = 'x';
        EXPECT_EQ(out.DoData(value), 1u);
        EXPECT_EQ(out.Tell(), 2);
        std::fputs("-", out.GetFile());
        EXPECT_EQ(out.DoData(value), 1u);
        EXPECT_TRUE(out.Close());
    }
    std::fputs(">", file);
    std::fclose(file);
    EXPECT_EQ(temp.Bytes(), "<x-x>");
}

TEST(FileIO, TellOfAStreamWithoutAFileIsZero)
{
    XFileIO none(static_cast<std::FILE*>(nullptr), true);
    EXPECT_EQ(none.Tell(), 0);
    EXPECT_FALSE(none.IsValid());
    EXPECT_TRUE(none.Close());
}

#ifdef __linux__
TEST(FileIO, AFullDiskIsSeenAtTheLatestWhenTheFileIsClosed)
{
    LogCatcher log;
    {
        XFileIO out("/dev/full", false);
        u32 value = 1;
        EXPECT_EQ(out.DoData(value), 1u);  // still in the window
        EXPECT_FALSE(out.Close());
    }
    EXPECT_EQ(log.Text(), "Error : XFileIO::DoData : expected to read/write 4 elements got 0\n");
    log.Clear();
    XFileIO out("/dev/full", false);
    XIndexList large(100'000, 0);
    EXPECT_EQ(out.DoData(large), 0u);
    EXPECT_FALSE(out.Close());
}
#endif

}  // namespace
}  // namespace VKT
