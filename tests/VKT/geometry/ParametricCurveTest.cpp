#include "VKT/geometry/ParametricCurve.h"

#include "VKT/geometry/BezierCurve.h"
#include "VKT/geometry/HermiteCurve.h"
#include "VKT/geometry/NurbsCurve.h"
#include "VKT/support/NodeTest.h"
#include "VKT/support/PropertyRows.h"

using namespace VKT;
using namespace VKT::Test;

namespace {

class ParametricCurve : public NodeTest {
protected:
    XBezierCurve m_Bezier{&m_Model};
    XNurbsCurve m_Nurbs{&m_Model};
};

constexpr const char kGeometryText[] =
    "\tpoints 0\n"
    "\tdeformer_queue 0\n"
    "\tintermediate_object 0\n";
constexpr const char kGeometryBytes[] = "00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 ";

const std::string kBezierText = kGeometryText + std::string("\tcurve_type 5\n");
const std::string kBezierBytes = kGeometryBytes + std::string("05 00 00 00");
const std::string kNurbsText = kBezierText + "\tdegree 3\n\tknots 2\n\t\t0.5 2 \n";
const std::string kNurbsBytes = kBezierBytes + " 03 00 02 00 00 00 00 00 00 3f 00 00 00 40";

TEST_F(ParametricCurve, FreshOnesWriteTheirDefaults)
{
    EXPECT_EQ(TextOf(m_Bezier), kGeometryText + std::string("\tcurve_type 0\n"));
    EXPECT_EQ(TextOf(m_Nurbs), TextOf(m_Bezier) + "\tdegree 0\n\tknots 0\n\t\t\n");
    EXPECT_EQ(m_Bezier.GetDataSize(), 23u + 4);
    EXPECT_EQ(m_Nurbs.GetDataSize(), 23u + 4 + 6);
}

TEST_F(ParametricCurve, TextReadsBack)
{
    EXPECT_TRUE(ReadText(m_Bezier, kBezierText));
    EXPECT_EQ(TextOf(m_Bezier), kBezierText);
    XHermiteCurve hermite(&m_Model);
    EXPECT_TRUE(ReadText(hermite, kBezierText));
    EXPECT_EQ(TextOf(hermite), kBezierText);
    EXPECT_TRUE(ReadText(m_Nurbs, kNurbsText));
    EXPECT_EQ(TextOf(m_Nurbs), kNurbsText);
    EXPECT_EQ(m_Nurbs.GetCurveType(), 5u);
    EXPECT_EQ(m_Nurbs.GetDegree(), 3u);
    EXPECT_EQ(m_Nurbs.GetKnots(), (XRealList{0.5f, 2}));
}

TEST_F(ParametricCurve, BytesReadBack)
{
    EXPECT_TRUE(ReadBody(m_Bezier, Bytes(kBezierBytes)));
    EXPECT_EQ(TextOf(m_Bezier), kBezierText);
    EXPECT_EQ(Hex(BodyOf(m_Bezier)), kBezierBytes);
    EXPECT_TRUE(ReadBody(m_Nurbs, Bytes(kNurbsBytes)));
    EXPECT_EQ(TextOf(m_Nurbs), kNurbsText);
    EXPECT_EQ(Hex(BodyOf(m_Nurbs)), kNurbsBytes);
    EXPECT_EQ(m_Nurbs.GetDataSize(), 23u + 4 + 6 + 4 * 2);
}

TEST_F(ParametricCurve, OlderFilesLackTheKindAndItIsWrittenAllTheSame)
{
    MakeOlder();
    const std::string older = Replaced(kNurbsText, "\tintermediate_object 0\n\tcurve_type 5\n", "");
    EXPECT_TRUE(ReadText(m_Nurbs, older));
    EXPECT_EQ(TextOf(m_Nurbs), Replaced(kNurbsText, "curve_type 5", "curve_type 0"));
    XNurbsCurve bytes(&m_Model);
    EXPECT_TRUE(ReadBody(bytes, Bytes(Replaced(kNurbsBytes, "05 00 00 00 ", ""))));
    EXPECT_EQ(TextOf(bytes), TextOf(m_Nurbs));
    EXPECT_EQ(Hex(BodyOf(bytes)), Replaced(kNurbsBytes, "05 00 00 00", "00 00 00 00"));
}

TEST_F(ParametricCurve, WrongKeysAreLogged)
{
    EXPECT_FALSE(ReadText(m_Bezier, Replaced(kBezierText, "curve_type", "kind")));
    EXPECT_FALSE(ReadText(m_Nurbs, Replaced(kNurbsText, "degree", "order")));
    EXPECT_FALSE(ReadText(m_Nurbs, Replaced(kNurbsText, "knots", "nots")));
    EXPECT_EQ(m_Log.Text(),
              "Error : Expected curve_type got kind [.\\src\\VKT\\ParametricCurve:1]\n"
              "Error : Expected degree got order [.\\src\\VKT\\NurbsCurve:1]\n"
              "Error : Expected knots got nots [.\\src\\VKT\\NurbsCurve:2]\n");
}

TEST_F(ParametricCurve, KnotsThatDoNotComeAreLogged)
{
    for (const char* count : {"knots 3", "knots 4294967295", "knots x"}) {
        m_Log.Clear();
        EXPECT_FALSE(ReadText(m_Nurbs, Replaced(kNurbsText, "knots 2", count)));
        EXPECT_EQ(m_Log.Text(),
                  "Error : VKT::XNurbsCurve::ReadChunk >> unexpected File-IO error whilst reading knots\n");
        EXPECT_LT(m_Nurbs.GetKnots().capacity(), 100u);
    }
}

TEST_F(ParametricCurve, EveryCutFails)
{
    const std::string bytes = Bytes(kNurbsBytes);
    for (std::size_t length = 0; length < bytes.size(); ++length)
        EXPECT_FALSE(ReadBody(m_Nurbs, bytes.substr(0, length))) << length;
    for (std::size_t length = 0; length < kNurbsText.rfind('2'); ++length)
        EXPECT_FALSE(ReadText(m_Nurbs, kNurbsText.substr(0, length))) << length;
}

TEST_F(ParametricCurve, CastsFollowTheFamily)
{
    for (const u32 type : {32u, 31u, 30u, 26u, 25u, 0u}) {
        EXPECT_EQ(m_Bezier.HasFn(type), &m_Bezier) << type;
        EXPECT_EQ(static_cast<const XBase&>(m_Bezier).HasFn(type), &m_Bezier) << type;
    }
    EXPECT_EQ(m_Bezier.HasFn(36), nullptr);
}

// Kept on purpose.
TEST_F(ParametricCurve, ConstCastOfANurbsCurveKnowsItselfAndTheRootAlone)
{
    const XBase& constant = m_Nurbs;
    for (const u32 type : {34u, 31u, 30u, 26u, 25u, 0u})
        EXPECT_EQ(m_Nurbs.HasFn(type), &m_Nurbs) << type;
    for (const u32 type : {34u, 0u})
        EXPECT_EQ(constant.HasFn(type), &m_Nurbs) << type;
    for (const u32 type : {31u, 30u, 26u, 25u})
        EXPECT_EQ(constant.HasFn(type), nullptr) << type;
    EXPECT_EQ(XCast<XGeometry>(&constant), &m_Nurbs);  // the library's own casts find it
    XVector3Array points;
    EXPECT_TRUE(constant.GetNodeProperties()->GetVectorArray(&constant, 1, points));
    EXPECT_FALSE(IsOfType(constant, kFnParametricSurface));
}

TEST_F(ParametricCurve, CloneHasAllValues)
{
    XNurbsCurve& curve = *m_Model.CreateNode<XNurbsCurve>();
    ASSERT_TRUE(ReadText(curve, Replaced(kNurbsText, "points 0\n", "points 1\n1 2 3\n")));
    EXPECT_EQ(TextOf(*curve.Clone()), TextOf(curve));
}

TEST_F(ParametricCurve, PropertiesReachTheFields)
{
    EXPECT_EQ(RowsOf(XParametricCurve::ClassProperties()), "4 properties\ncurve_type int 4\n");
    EXPECT_EQ(RowsOf(XNurbsCurve::ClassProperties()), "6 properties\ndegree int 5\nknots floats 6\n");
    EXPECT_EQ(XBezierCurve::ClassProperties(), XParametricCurve::ClassProperties());
    EXPECT_EQ(XHermiteCurve::ClassProperties(), XParametricCurve::ClassProperties());
    EXPECT_EQ(XParametricBase::ClassProperties(), XGeometry::ClassProperties());
    const XNodeProperties& properties = *m_Nurbs.GetNodeProperties();
    EXPECT_TRUE(properties.SetInteger(&m_Nurbs, 4, 5));
    EXPECT_TRUE(properties.SetInteger(&m_Nurbs, 5, 3));
    EXPECT_TRUE(properties.SetFloatArray(&m_Nurbs, 6, {0.5f, 2}));
    EXPECT_EQ(TextOf(m_Nurbs), kNurbsText);
    i32 degree = 0;
    EXPECT_TRUE(properties.GetInteger(&m_Nurbs, 5, degree));
    EXPECT_EQ(degree, 3);
}

TEST_F(ParametricCurve, DocumentsKeepNurbsAmongTheShapes)
{
    XNurbsCurve& curve = *m_Model.CreateNode<XNurbsCurve>();
    m_Model.SetName(&curve, "z");
    m_Model.CreateNode(kFnBone);
    const std::string text = SaveText(m_Model);
    EXPECT_LT(text.find("NURBS_CURVE z"), text.find("BONE node"));
    m_Model.GetSaveFlags().Clear(SaveShapes);
    EXPECT_EQ(SaveText(m_Model).find("NURBS_CURVE"), std::string::npos);
}

}  // namespace
