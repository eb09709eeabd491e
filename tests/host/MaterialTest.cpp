#include "HostTest.h"

namespace {

class MaterialTest : public HostTest {};

TEST_F(MaterialTest, TheStandardMaterialKeepsItsValues)
{
    StdMat2* material = maxhost::MakeMaterial("skin", Color(0.1f, 0.2f, 0.3f));
    material->SetAmbient(Color(0.4f, 0.5f, 0.6f), 0);
    material->SetSpecular(Color(0.7f, 0.8f, 0.9f), 0);
    material->SetShininess(0.25f, 0);
    material->SetShinStr(0.75f, 0);
    material->SetOpacity(0.4f, 0);
    material->SetSelfIllum(0.35f, 0);
    material->SetSelfIllumColor(Color(0.0f, 0.5f, 0.0f), 0);
    Mtl* mtl = material;
    EXPECT_STREQ(mtl->GetName(), "skin");
    EXPECT_TRUE(mtl->ClassID() == Class_ID(2, 0));
    EXPECT_EQ(mtl->SuperClassID(), 0xC00u);
    EXPECT_TRUE(mtl->GetDiffuse() == Color(0.1f, 0.2f, 0.3f));
    EXPECT_TRUE(mtl->GetAmbient() == Color(0.4f, 0.5f, 0.6f));
    EXPECT_TRUE(mtl->GetSpecular() == Color(0.7f, 0.8f, 0.9f));
    EXPECT_EQ(mtl->GetShininess(), 0.25f);
    EXPECT_EQ(mtl->GetShinStr(), 0.75f);
    EXPECT_FLOAT_EQ(mtl->GetXParency(), 0.6f);
    EXPECT_FALSE(mtl->GetSelfIllumColorOn());
    EXPECT_EQ(mtl->GetSelfIllum(), 0.35f);
    material->SetSelfIllumColorOn(TRUE);
    EXPECT_TRUE(mtl->GetSelfIllumColorOn());
    EXPECT_TRUE(mtl->GetSelfIllumColor() == Color(0.0f, 0.5f, 0.0f));
    EXPECT_FALSE(mtl->IsMultiMtl());
}

TEST_F(MaterialTest, SlotsHoldMaps)
{
    StdMat2* material = maxhost::MakeMaterial("m");
    BitmapTex* bitmap = maxhost::MakeBitmap("wood", "C:\\maps\\wood.png");
    EXPECT_EQ(material->NumSubTexmaps(), 12);
    EXPECT_FALSE(material->MapEnabled(ID_DI));
    material->SetSubTexmap(ID_DI, bitmap);
    EXPECT_TRUE(material->MapEnabled(ID_DI));
    EXPECT_EQ(material->GetSubTexmap(1), bitmap);
    EXPECT_EQ(material->GetSubTexmap(0), nullptr);
    material->EnableMap(ID_DI, FALSE);
    EXPECT_FALSE(material->SubTexmapOn(ID_DI));
    material->SetTexmapAmt(ID_DI, 0.5f, 0);
    EXPECT_EQ(material->GetTexmapAmt(ID_DI, 0), 0.5f);
}

TEST_F(MaterialTest, BitmapsKeepFileAndPlacement)
{
    BitmapTex* bitmap = maxhost::MakeBitmap("wood", "C:\\maps\\wood.png");
    EXPECT_TRUE(bitmap->IsSubClassOf(Class_ID(0x240, 0)));
    EXPECT_STREQ(bitmap->GetMapName(), "C:\\maps\\wood.png");
    UVGen* placement = bitmap->GetTheUVGen();
    ASSERT_NE(placement, nullptr);
    EXPECT_TRUE(placement->IsStdUVGen());
    EXPECT_EQ(placement->GetAxis(), AXIS_UV);
    EXPECT_EQ(placement->GetTextureTiling(), 3);
    maxhost::SetPlacement(*bitmap, 4, AXIS_WU, U_MIRROR | V_WRAP);
    EXPECT_EQ(placement->GetAxis(), 2);
    EXPECT_EQ(placement->GetMapChannel(), 4);
    EXPECT_EQ(placement->GetTextureTiling(), 6);
    bitmap->GetUVGen()->SetUOffs(0.25f, 0);
    bitmap->GetUVGen()->SetVScl(3.0f, 0);
    bitmap->GetUVGen()->SetAng(0.5f, 0);
    auto* standard = static_cast<StdUVGen*>(placement);
    EXPECT_EQ(standard->GetUOffs(0), 0.25f);
    EXPECT_EQ(standard->GetVOffs(0), 0.0f);
    EXPECT_EQ(standard->GetUScl(0), 1.0f);
    EXPECT_EQ(standard->GetVScl(0), 3.0f);
    EXPECT_EQ(standard->GetWAng(0), 0.5f);
}

TEST_F(MaterialTest, MultiMaterialsHaveEntriesThatMayBeNull)
{
    StdMat2* red = maxhost::MakeMaterial("red", Color(1.0f, 0.0f, 0.0f));
    MultiMtl* multi = maxhost::MakeMultiMaterial("multi", {red, nullptr});
    Mtl* mtl = multi;
    EXPECT_TRUE(mtl->IsMultiMtl());
    EXPECT_TRUE(mtl->ClassID() == Class_ID(0x200, 0));
    EXPECT_EQ(mtl->NumSubMtls(), 2);
    EXPECT_EQ(mtl->GetSubMtl(0), red);
    EXPECT_EQ(mtl->GetSubMtl(1), nullptr);
    mtl->SetSubMtl(3, red);
    EXPECT_EQ(mtl->NumSubMtls(), 4);
    EXPECT_TRUE(mtl->GetDiffuse(3) == Color(1.0f, 0.0f, 0.0f));
    EXPECT_TRUE(mtl->GetDiffuse(1) == Color(0.0f, 0.0f, 0.0f));
}

TEST_F(MaterialTest, NodesHoldTheirMaterial)
{
    INode* node = maxhost::MakeNode("n");
    EXPECT_EQ(node->GetMtl(), nullptr);
    StdMat2* material = maxhost::MakeMaterial("m");
    node->SetMtl(material);
    EXPECT_EQ(node->GetMtl(), material);
    material->DeleteMe();
    EXPECT_STREQ(node->GetMtl()->GetName(), "m");
}

}  // namespace
