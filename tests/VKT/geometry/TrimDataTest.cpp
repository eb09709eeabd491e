#include "VKT/geometry/TrimData.h"

#include "VKT/geometry/BezierPatch.h"
#include "VKT/support/NodeTest.h"

using namespace VKT;
using namespace VKT::Test;

namespace {

class TrimData : public NodeTest {
protected:
    bool Read(std::string_view text)
    {
        XTextReader in(text);
        return m_Data.Read(in);
    }
    std::string Text() const
    {
        XTextWriter out;
        m_Data.Write(out);
        return out.TakeText();
    }
    bool ReadBytes(std::string_view bytes)
    {
        const TempFile file(".bin", bytes);
        XFileIO in(file.Path(), true);
        return m_Data.DoData(in);
    }
    std::string WrittenBytes()
    {
        const TempFile file(".bin");
        {
            XFileIO out(file.Path(), false);
            m_Data.DoData(out);
        }
        return file.Bytes();
    }

    XTrimData m_Data;
};

const std::string kText =
    "\tnum_regions 1\n"
    "\tREGION {\n"
    "\t\tnum_boundaries 1\n"
    "\t\tBOUNDARY {\n"
    "\t\t\ttype OuterBoundary_AntiClockWise\n"
    "\t\t\tnum_curves 1\n"
    "\t\t\tTRIM_CURVE {\n"
    "\t\t\t\t2d_parametric_curve\n"
    "\t\t\t\tdegree 2\n"
    "\t\t\t\tknots 2\n"
    "\t\t\t\t3 4 \n"
    "\t\t\t\tcvs 2\n"
    "\t\t\t\t\t5 6\n"
    "\t\t\t\t\t7 8\n"
    "\t\t\t\t3d_local_curve\n"
    "\t\t\t\tdegree -1\n"
    "\t\t\t\tknots 1\n"
    "\t\t\t\t9 \n"
    "\t\t\t\tcvs 1\n"
    "\t\t\t\t\t10 11 12\n"
    "\t\t\t}\n"
    "\t\t}\n"
    "\t}\n";
const std::string kBytes =
    "01 00 00 00 "
    "01 00 00 00 "
    "01 00 00 00 "
    "02 00 00 00 00 00 a0 40 00 00 e0 40 "  // u
    "02 00 00 00 00 00 c0 40 00 00 00 41 "  // v
    "02 00 00 00 00 00 40 40 00 00 80 40 "
    "02 00 00 00 "
    "01 00 00 00 00 00 20 41 00 00 30 41 00 00 40 41 "
    "01 00 00 00 00 00 10 41 "
    "ff ff ff ff "
    "01 00 00 00";

TEST_F(TrimData, TextReadsBack)
{
    EXPECT_TRUE(Read(kText));
    EXPECT_EQ(Text(), kText);
    const XTrimBoundary& boundary = m_Data.m_Regions.at(0).m_Boundaries.at(0);
    EXPECT_EQ(boundary.m_Type, kOuterBoundary);
    const XTrimCurve& curve = boundary.m_Curves.at(0);
    EXPECT_EQ(curve.m_CvsU, (XRealList{5, 7}));
    EXPECT_EQ(curve.m_CvsV, (XRealList{6, 8}));
    EXPECT_EQ(curve.m_Knots2D, (XRealList{3, 4}));
    EXPECT_EQ(curve.m_Degree2D, 2);
    EXPECT_EQ(curve.m_Cvs3D, (XVector3Array{{10, 11, 12, 0}}));
    EXPECT_EQ(curve.m_Knots3D, (XRealList{9}));
    EXPECT_EQ(curve.m_Degree3D, -1);
}

TEST_F(TrimData, BytesHavePointsInFrontOfKnots)
{
    EXPECT_TRUE(ReadBytes(Bytes(kBytes)));
    EXPECT_EQ(Text(), kText);
    EXPECT_EQ(Hex(WrittenBytes()), kBytes);
    EXPECT_TRUE(ReadBytes(Bytes(kBytes)));  // replaces what was there
    EXPECT_TRUE(Read(kText));
    EXPECT_EQ(Text(), kText);
}

TEST_F(TrimData, EmptyOneIsACount)
{
    EXPECT_EQ(Text(), "\tnum_regions 0\n");
    EXPECT_TRUE(Read(Text()));
    EXPECT_EQ(Hex(WrittenBytes()), "00 00 00 00");
}

TEST_F(TrimData, KeysFoldCaseAndLinesDoNotMatter)
{
    std::string text = kText;
    for (char& c : text)
        c = c == '\n' || c == '\t' ? ' ' : c;
    EXPECT_TRUE(Read(Replaced(Replaced(text, "REGION", "region"), "TRIM_CURVE", "Trim_Curve"))) << text;
}

TEST_F(TrimData, EachTypeHasItsWord)
{
    ASSERT_TRUE(Read(kText));
    u32 type = 0;
    for (const char* word : {"InnerBoundary_ClockWise", "OuterBoundary_AntiClockWise",
                             "BoundarySegment_CurveOnFace", "ClosedBoundarySegment_ClosedCurveOnFace"}) {
        const std::string text = Replaced(kText, "OuterBoundary_AntiClockWise", word);
        EXPECT_TRUE(Read(text));
        EXPECT_EQ(m_Data.m_Regions[0].m_Boundaries[0].m_Type, type++);
        EXPECT_EQ(Text(), text);
    }
}

TEST_F(TrimData, UnknownWordIsTheFirstTypeAndIsNotLogged)
{
    EXPECT_TRUE(Read(Replaced(kText, "OuterBoundary_AntiClockWise", "outerboundary_anticlockwise")));
    EXPECT_EQ(m_Data.m_Regions[0].m_Boundaries[0].m_Type, kInnerBoundary);
    EXPECT_EQ(m_Log.Text(), "");
}

// Kept on purpose.
TEST_F(TrimData, TypeOutsideTheTableHasNoWordAndDoesNotReadBack)
{
    ASSERT_TRUE(Read(kText));
    m_Data.m_Regions[0].m_Boundaries[0].m_Type = 4;
    const std::string text = Text();
    EXPECT_EQ(text, Replaced(kText, "type OuterBoundary_AntiClockWise", "type "));
    EXPECT_FALSE(Read(text));
}

TEST_F(TrimData, OddCoordinatesAreWrittenAsManyVAsU)
{
    ASSERT_TRUE(Read(kText));
    m_Data.m_Regions[0].m_Boundaries[0].m_Curves[0].m_CvsV.pop_back();
    EXPECT_EQ(Text(), Replaced(kText, "7 8", "7 0"));
    EXPECT_EQ(m_Log.Text(), "Warning : a trim curve has 2 u and 1 v: written with as many v as u\n");
}

TEST_F(TrimData, WrongKeysAreLogged)
{
    for (const auto& [key, row] :
         {std::pair{"num_regions", 1}, std::pair{"REGION", 2}, std::pair{"{", 3},
          std::pair{"num_boundaries", 4}, std::pair{"BOUNDARY", 5}, std::pair{"type", 7},
          std::pair{"num_curves", 8}, std::pair{"TRIM_CURVE", 9}, std::pair{"2d_parametric_curve", 11},
          std::pair{"degree", 12}, std::pair{"knots", 13}, std::pair{"cvs", 14},
          std::pair{"3d_local_curve", 15}, std::pair{"}", 19}}) {
        m_Log.Clear();
        EXPECT_FALSE(Read(Replaced(kText, key, "wrong")));
        EXPECT_EQ(m_Log.Text(), std::string("Error : Expected ") + key +
                                    " got wrong [.\\src\\VKT\\TrimData:" + std::to_string(row) + "]\n");
    }
}

TEST_F(TrimData, CountsThatCannotBeTrueFailWithoutTakingMemory)
{
    for (const char* what :
         {"regions 1", "boundaries 1", "curves 1", "knots 2", "cvs 2", "knots 1", "cvs 1"}) {
        const std::string key(what, std::string(what).find(' ') + 1);
        EXPECT_FALSE(Read(Replaced(kText, what, key + "4294967295"))) << what;
    }
    const std::string bytes = Bytes(kBytes);
    for (const std::size_t count : {0u, 4u, 8u, 12u, 24u, 36u, 52u, 68u}) {
        std::string hostile = bytes;
        hostile.replace(count, 4, "\xFF\xFF\xFF\xFF");
        EXPECT_FALSE(ReadBytes(hostile)) << count;
    }
}

TEST_F(TrimData, EveryCutFails)
{
    const std::string bytes = Bytes(kBytes);
    for (std::size_t length = 0; length < bytes.size(); ++length)
        EXPECT_FALSE(ReadBytes(bytes.substr(0, length))) << length;
    for (std::size_t length = 0; length < kText.rfind('}'); ++length)
        EXPECT_FALSE(Read(kText.substr(0, length))) << length;
}

TEST_F(TrimData, SurfacesHoldItBehindTheirFlag)
{
    XBezierPatch patch(&m_Model);
    const std::string geometry = "\tpoints 0\n\tdeformer_queue 0\n\tintermediate_object 0\n";
    EXPECT_TRUE(ReadText(patch, geometry + "\tis_trimmed 1\n" + kText));
    ASSERT_TRUE(patch.IsTrimmed());
    EXPECT_EQ(TextOf(patch), geometry + "\tis_trimmed 1\n" + kText);
    EXPECT_EQ(patch.GetDataSize(), 23u + 7 + Bytes(kBytes).size());
    XBezierPatch other(&m_Model);
    EXPECT_TRUE(ReadBody(other, BodyOf(patch)));
    EXPECT_EQ(TextOf(other), TextOf(patch));
    EXPECT_TRUE(ReadText(patch, geometry + "\tis_trimmed 0\n"));
    EXPECT_FALSE(patch.IsTrimmed());
    // A tree that is half read stays on the surface.
    EXPECT_FALSE(ReadText(patch, geometry + "\tis_trimmed -1\n" + Replaced(kText, "cvs 1", "wrong")));
    ASSERT_TRUE(patch.IsTrimmed());
    EXPECT_EQ(patch.GetTrimData()->m_Regions.size(), 1u);
}

}  // namespace
