#include "export/ExportReport.h"

#include <gmock/gmock.h>

#include "VKT/deformers/NonLinearBend.h"
#include "VKT/geometry/PolygonMesh.h"
#include "apps/export/HandMadeDocument.h"

namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class ExportReport : public HandMadeDocument {
protected:
    void Show(VKT::XBone& bone)
    {
        m_Document.CreateInstance(&bone, VKT::XCast<VKT::XShape>(m_Document.CreateNode(VKT::kFnPolygonMesh)));
    }
    // The lines of one title.
    std::vector<std::string> Lines(const std::string& title)
    {
        for (const tool::ExportLoss& loss : tool::FindLosses(Root(), m_Document, false))
            if (loss.title == title)
                return loss.lines;
        return {"no such title"};
    }
};

TEST_F(ExportReport, BentMeshWithItsHandleIsSound)
{
    Node("bent", nullptr, maxhost::MakeBox({1, 1, 1}));
    Node("plain", nullptr, maxhost::MakeBox({1, 1, 1}));
    VKT::XBone& bent = Bone("bent", &m_RootBone);
    Bone("plain", &m_RootBone);
    auto* bend = VKT::XCast<VKT::XNonLinearBend>(m_Document.CreateNode(VKT::kFnNonLinearBend));
    bend->SetHandle(&Bone("BendHandle", &bent));
    Show(bent);
    EXPECT_THAT(Lines("nodes that the document does not hold"), IsEmpty());
    EXPECT_THAT(Lines("nodes without a shape"), ElementsAre("\"plain\": its geometry is left out"));
}

TEST_F(ExportReport, SharedObjectsAreTheirsWhoHaveTheShape)
{
    Object* const box = maxhost::MakeBox({1, 1, 1});
    Node("one", nullptr, box);
    Node("two", nullptr, box);
    Bone("one", &m_RootBone);
    VKT::XBone& two = Bone("two", &m_RootBone);
    EXPECT_THAT(Lines("nodes without a shape"),
                ElementsAre("\"one\": its geometry is left out", "\"two\": its geometry is left out"));
    Show(two);
    EXPECT_THAT(Lines("nodes without a shape"),
                ElementsAre("\"one\": shares the object of \"two\", which has the shape"));
}

TEST_F(ExportReport, NodesWithoutABoneAreNamed)
{
    Node("gone");
    EXPECT_THAT(Lines("nodes that the document does not hold"), ElementsAre("\"gone\""));
}

TEST_F(ExportReport, OneMaterialOfManyIsNotAll)
{
    const auto absent = [&](tool::SceneContent content) {
        return tool::FindAbsent(content, m_Document).lines;
    };
    EXPECT_THAT(absent({.materials = 3}), ElementsAre("3 materials"));
    m_Document.CreateNode(VKT::kFnPhong);
    EXPECT_THAT(absent({.materials = 3}), ElementsAre("2 of 3 materials"));
    EXPECT_THAT(absent({.materials = 1}), IsEmpty());
    EXPECT_THAT(absent({.animations = 2}), ElementsAre("2 animations"));
    m_Document.CreateNode(VKT::kFnAnimationTake);  // which holds all that moves
    EXPECT_THAT(absent({.animations = 2}), IsEmpty());
}

}  // namespace
