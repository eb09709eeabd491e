#include "VKT/geometry/ParametricSurface.h"

#include "VKT/geometry/BezierPatch.h"
#include "VKT/geometry/HermitePatch.h"
#include "VKT/geometry/NurbsSurface.h"
#include "VKT/support/NodeTest.h"
#include "VKT/support/PropertyRows.h"

using namespace VKT;
using namespace VKT::Test;

namespace {

class ParametricSurface : public NodeTest {
protected:
    XBezierPatch m_Patch{&m_Model};
    XNurbsSurface m_Nurbs{&m_Model};
};

const std::string kGeometryText =
    "\tpoints 0\n"
    "\tdeformer_queue 0\n"
    "\tintermediate_object 0\n";
const std::string kNurbsText = kGeometryText +
                               "\tis_trimmed 0\n"
                               "\tdegree_u 3\n"
                               "\tdegree_v 4\n"
                               "\tnum_cvs_u 261\n"
                               "\tnum_cvs_v 6\n"
                               "\ttype_u 7\n"
                               "\ttype_v 8\n"
                               "\tknots_u 1\n"
                               "\t\t0.5 \n"
                               "\tknots_v 2\n"
                               "\t\t1 2 \n";
const std::string kGeometryBytes = "00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 ";
const std::string kPatchBytes = kGeometryBytes + "05 01 06 00 07 08 00";
const std::string kNurbsBytes =
    kPatchBytes + " 03 04 01 00 00 00 00 00 00 3f 02 00 00 00 00 00 80 3f 00 00 00 40";

TEST_F(ParametricSurface, FreshOnesWriteTheirDefaults)
{
    EXPECT_EQ(TextOf(m_Patch), kGeometryText + "\tis_trimmed 0\n");
    EXPECT_EQ(TextOf(m_Nurbs), kGeometryText +
                                   "\tis_trimmed 0\n"
                                   "\tdegree_u 0\n\tdegree_v 0\n\tnum_cvs_u 0\n\tnum_cvs_v 0\n"
                                   "\ttype_u 0\n\ttype_v 0\n\tknots_u 0\n\t\t\n\tknots_v 0\n\t\t\n");
    EXPECT_EQ(m_Patch.GetDataSize(), 23u + 7);
    EXPECT_EQ(m_Nurbs.GetDataSize(), 23u + 7 + 10);
}

TEST_F(ParametricSurface, TextOfANurbsSurfaceReadsBack)
{
    EXPECT_TRUE(ReadText(m_Nurbs, kNurbsText));
    EXPECT_EQ(TextOf(m_Nurbs), kNurbsText);
    EXPECT_EQ(m_Nurbs.GetDegreeU(), 3u);  // the digit, not the byte
    EXPECT_EQ(m_Nurbs.GetDegreeV(), 4u);
    EXPECT_EQ(m_Nurbs.GetNumCvsU(), 261u);
    EXPECT_EQ(m_Nurbs.GetNumCvsV(), 6u);
    EXPECT_EQ(m_Nurbs.GetTypeU(), 7u);
    EXPECT_EQ(m_Nurbs.GetTypeV(), 8u);
    EXPECT_EQ(m_Nurbs.GetKnotsU(), (XRealList{0.5f}));
    EXPECT_EQ(m_Nurbs.GetKnotsV(), (XRealList{1, 2}));
}

TEST_F(ParametricSurface, BytesReadBack)
{
    EXPECT_TRUE(ReadBody(m_Nurbs, Bytes(kNurbsBytes)));
    EXPECT_EQ(TextOf(m_Nurbs), kNurbsText);
    EXPECT_EQ(Hex(BodyOf(m_Nurbs)), kNurbsBytes);
    EXPECT_EQ(m_Nurbs.GetDataSize(), 23u + 7 + 10 + 4 * 3);
    EXPECT_TRUE(ReadBody(m_Patch, Bytes(kPatchBytes)));
    EXPECT_EQ(m_Patch.GetNumCvsU(), 261u);
    EXPECT_EQ(Hex(BodyOf(m_Patch)), kPatchBytes);
}

TEST_F(ParametricSurface, OlderFilesHoldTheSame)
{
    MakeOlder();
    EXPECT_TRUE(ReadText(m_Nurbs, Replaced(kNurbsText, "\tintermediate_object 0\n", "")));
    EXPECT_EQ(TextOf(m_Nurbs), kNurbsText);
    EXPECT_TRUE(ReadBody(m_Nurbs, Bytes(kNurbsBytes)));
    EXPECT_EQ(TextOf(m_Nurbs), kNurbsText);
}

TEST_F(ParametricSurface, PatchesHaveTheirNumbersInBytesAlone)
{
    for (XParametricSurface* patch :
         {static_cast<XParametricSurface*>(m_Model.CreateNode<XBezierPatch>()),
          static_cast<XParametricSurface*>(m_Model.CreateNode<XHermitePatch>())}) {
        patch->SetNumCvsU(261);
        patch->SetNumCvsV(6);
        patch->SetTypeU(7);
        patch->SetTypeV(8);
        EXPECT_EQ(TextOf(*patch), kGeometryText + "\tis_trimmed 0\n");
        EXPECT_EQ(Hex(BodyOf(*patch)).substr(6 + 15 + 18), Hex(Bytes(kPatchBytes)).substr(6 + 18));
    }
}

TEST_F(ParametricSurface, WrongKeysAreLogged)
{
    EXPECT_FALSE(ReadText(m_Patch, Replaced(kNurbsText, "is_trimmed", "trimmed")));
    EXPECT_EQ(m_Log.Text(), "Error : Expected is_trimmed got trimmed [.\\src\\VKT\\ParametricSurface:1]\n");
    int row = 0;
    for (const std::string key :
         {"degree_u", "degree_v", "num_cvs_u", "num_cvs_v", "type_u", "type_v", "knots_u", "knots_v"}) {
        m_Log.Clear();
        EXPECT_FALSE(ReadText(m_Nurbs, Replaced(kNurbsText, key, "wrong")));
        EXPECT_EQ(m_Log.Text(), "Error : Expected " + key +
                                    " got wrong [.\\src\\VKT\\NurbsSurface:" + std::to_string(++row) + "]\n");
    }
}

TEST_F(ParametricSurface, EveryCutFails)
{
    const std::string bytes = Bytes(kNurbsBytes);
    for (std::size_t length = 0; length < bytes.size(); ++length)
        EXPECT_FALSE(ReadBody(m_Nurbs, bytes.substr(0, length))) << length;
    for (std::size_t length = 0; length < kNurbsText.rfind('2'); ++length)
        EXPECT_FALSE(ReadText(m_Nurbs, kNurbsText.substr(0, length))) << length;
}

TEST_F(ParametricSurface, CastsFollowTheFamily)
{
    for (const u32 type : {37u, 36u, 30u, 26u, 25u, 0u})
        EXPECT_EQ(static_cast<const XBase&>(m_Patch).HasFn(type), &m_Patch) << type;
    const XBase& constant = m_Nurbs;
    for (const u32 type : {39u, 36u, 30u, 26u, 25u, 0u})
        EXPECT_EQ(m_Nurbs.HasFn(type), &m_Nurbs) << type;
    for (const u32 type : {39u, 0u})
        EXPECT_EQ(constant.HasFn(type), &m_Nurbs) << type;
    for (const u32 type : {36u, 30u, 26u, 25u})  // kept on purpose
        EXPECT_EQ(constant.HasFn(type), nullptr) << type;
}

TEST_F(ParametricSurface, CloneHasItsOwnTrimData)
{
    XNurbsSurface& surface = *m_Model.CreateNode<XNurbsSurface>();
    ASSERT_TRUE(ReadText(surface, kNurbsText));
    EXPECT_FALSE(XCast<XNurbsSurface>(surface.Clone())->IsTrimmed());
    auto trimData = std::make_unique<XTrimData>();
    trimData->m_Regions.resize(1);
    surface.SetTrimData(std::move(trimData));
    const XNurbsSurface& copy = *XCast<XNurbsSurface>(surface.Clone());
    EXPECT_EQ(TextOf(copy), TextOf(surface));
    EXPECT_NE(copy.GetTrimData(), surface.GetTrimData());
    surface.DoCopy(&surface);
    EXPECT_EQ(TextOf(copy), TextOf(surface));
    surface.SetTrimData(nullptr);
    surface.DoCopy(&copy);
    EXPECT_TRUE(surface.IsTrimmed());
}

TEST_F(ParametricSurface, PropertiesReachTheFields)
{
    EXPECT_EQ(RowsOf(XParametricSurface::ClassProperties()),
              "7 properties\n"
              "type_u int 4\n"
              "type_v int 5\n"
              "num_cvs_u floats 6\n"
              "num_cvs_v floats 7\n");
    EXPECT_EQ(RowsOf(XNurbsSurface::ClassProperties()),
              "11 properties\n"
              "degree_u int 8\n"
              "degree_u int 9\n"
              "knots_u floats 10 l\n"
              "knots_v floats 11 l\n");
    EXPECT_EQ(XBezierPatch::ClassProperties(), XParametricSurface::ClassProperties());
    EXPECT_EQ(XHermitePatch::ClassProperties(), XParametricSurface::ClassProperties());
    const XNodeProperties& properties = *m_Nurbs.GetNodeProperties();
    EXPECT_EQ(m_Nurbs.GetPropertyId("degree_u"), 8u);
    EXPECT_TRUE(properties.SetInteger(&m_Nurbs, 8, 3));
    EXPECT_TRUE(properties.SetInteger(&m_Nurbs, 9, 4));  // the degree in v
    EXPECT_TRUE(properties.SetInteger(&m_Nurbs, 6, 261));
    EXPECT_TRUE(properties.SetInteger(&m_Nurbs, 7, 6));
    EXPECT_TRUE(properties.SetInteger(&m_Nurbs, 4, 7));
    EXPECT_TRUE(properties.SetInteger(&m_Nurbs, 5, 8));
    EXPECT_TRUE(properties.SetFloatArray(&m_Nurbs, 10, {0.5f}));
    EXPECT_TRUE(properties.SetFloatArray(&m_Nurbs, 11, {1, 2}));
    EXPECT_EQ(TextOf(m_Nurbs), kNurbsText);
}

}  // namespace
