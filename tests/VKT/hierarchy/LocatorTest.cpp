#include "VKT/hierarchy/Locator.h"

#include "VKT/hierarchy/Bone.h"
#include "VKT/support/NodeTest.h"

using namespace VKT;
using namespace VKT::Test;

namespace {

class Locator : public NodeTest {};

TEST_F(Locator, IsAShapeWithAnEmptyBody)
{
    XLocator& locator = *m_Model.CreateNode<XLocator>();
    EXPECT_EQ(ChunkOf(locator), "LOCATOR node1\n{\n\tid 1\n}\n");
    EXPECT_EQ(Hex(BodyOf(locator)), "05 00 6e 6f 64 65 31 01 00 00 00");
    EXPECT_EQ(locator.GetDataSize(), 14u + 5);
    EXPECT_TRUE(ReadText(locator, ""));
    EXPECT_EQ(locator.HasFn(25), &locator);
    EXPECT_EQ(locator.HasFn(26), nullptr);
    EXPECT_EQ(locator.GetNodeProperties()->GetNumProperties(), 0u);
    EXPECT_EQ(TextOf(*locator.Clone()), "");
}

TEST_F(Locator, DiesWithItsOnlyBone)
{
    XLocator& locator = *m_Model.CreateNode<XLocator>();
    XBone& bone = *m_Model.CreateNode<XBone>();
    m_Model.CreateInstance(&bone, &locator);
    EXPECT_FALSE(locator.NodeDeath(bone.GetID()));
}

}  // namespace
