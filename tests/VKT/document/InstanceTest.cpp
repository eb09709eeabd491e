#include "VKT/document/Instance.h"

#include "VKT/hierarchy/Bone.h"
#include "VKT/lights/SpotLight.h"
#include "VKT/shading/Lambert.h"
#include "VKT/shading/Texture.h"
#include "VKT/support/NodeTest.h"

using namespace VKT;
using namespace VKT::Test;

namespace {

class Instance : public NodeTest {
protected:
    Instance()
    {
        m_Light.SetName("lamp");
        // The ids that the texts below name.
        EXPECT_EQ(m_Light.GetID(), 1u);
        EXPECT_EQ(m_Clay.GetID(), 2u);
        EXPECT_EQ(m_Gold.GetID(), 3u);
        EXPECT_EQ(m_Bone.GetID(), 4u);
        EXPECT_EQ(m_Texture.GetID(), 5u);
    }

    // The instance list of a bone, without the block around it.
    std::string ListOf(const XBone& bone) const
    {
        const std::string text = TextOf(bone);
        const std::size_t begin = text.find("\t{\n") + 3;
        return text.substr(begin, text.rfind("\t}\n") - begin);
    }
    bool ReadList(XBone& bone, const std::string& list) const
    {
        return ReadText(bone, Replaced(TextOf(bone), "\t{\n" + ListOf(bone), "\t{\n" + list));
    }
    // The bytes behind the child list.
    std::string InstanceBytes() { return Hex(BodyOf(m_Bone).substr(2 + 5 + 4 + 310 - 4)); }

    XSpotLight& m_Light = *m_Model.CreateNode<XSpotLight>();
    XLambert& m_Clay = *m_Model.CreateNode<XLambert>();
    XLambert& m_Gold = *m_Model.CreateNode<XLambert>();
    XBone& m_Bone = *m_Model.CreateNode<XBone>();
    XTexture& m_Texture = *m_Model.CreateNode<XTexture>();
};

constexpr const char kPlain[] =
    "\t\tINSTANCE lamp {\n"
    "\t\t\tobject_id 1\n"
    "\t\t\tnum_uv_sets 0\n"
    "\t\t}\n";
constexpr const char kWithMaterial[] =
    "\t\tINSTANCE lamp {\n"
    "\t\t\tobject_id 1\n"
    "\t\t\tnum_uv_sets 2\n"
    "\t\t\t\t5 map1\n"
    "\t\t\t\t5 map2\n"
    "\t\t\tmaterial 2\n"
    "\t\t}\n";
constexpr const char kWithGroups[] =
    "\t\tINSTANCE shade {\n"
    "\t\t\tobject_id 1\n"
    "\t\t\tnum_uv_sets 1\n"
    "\t\t\t\t5 map1\n"
    "\t\t\tMATERIAL_GROUP {\n"
    "\t\t\t\tmaterial_id 3\n"
    "\t\t\t\tnum_face_indices 3\n"
    "\t\t\t\t\t7 8 9 \n"
    "\t\t\t}\n"
    "\t\t\tMATERIAL_GROUP {\n"
    "\t\t\t\tmaterial_id 0\n"
    "\t\t\t\tnum_face_indices 0\n"
    "\t\t\t\t\t\n"
    "\t\t\t}\n"
    "\t\t}\n";

TEST_F(Instance, FreshOneIsNamedLikeItsShape)
{
    const XInstance* instance = m_Model.CreateInstance(&m_Bone, &m_Light);
    EXPECT_EQ(instance->GetID(), 1u);
    EXPECT_STREQ(instance->GetName(), "lamp");
    EXPECT_EQ(instance->GetShape(), &m_Light);
    EXPECT_EQ(instance->GetParent(), &m_Bone);
    EXPECT_EQ(instance->GetMaterial(), 0u);
    EXPECT_EQ(ListOf(m_Bone), kPlain);
}

TEST_F(Instance, GroupsAreReachedByNumber)
{
    XInstance& instance = *m_Model.CreateInstance(&m_Bone, &m_Light);
    EXPECT_FALSE(instance.SetMaterial(3, 0));
    EXPECT_FALSE(instance.AddFaces(0, {1}));
    instance.SetNumMaterialGroups(2);
    instance.SetNumMaterialGroups(1);  // never fewer
    ASSERT_EQ(instance.GetMaterialGroups().size(), 2u);
    EXPECT_TRUE(instance.SetMaterial(3, 1));
    EXPECT_TRUE(instance.AddFaces(1, {1}));
    EXPECT_TRUE(instance.AddFaces(1, {2, 3}));
    EXPECT_EQ(instance.GetMaterialGroups()[1]->m_Material, 3u);
    EXPECT_EQ(instance.GetMaterialGroups()[1]->m_Faces, (XIndexList{1, 2, 3}));
    EXPECT_FALSE(instance.SetMaterial(3, 2));
}

TEST_F(Instance, TextReadsBack)
{
    for (const char* list : {kPlain, kWithMaterial, kWithGroups}) {
        XBone& bone = *m_Model.CreateNode<XBone>();
        EXPECT_TRUE(ReadList(bone, list));
        EXPECT_EQ(ListOf(bone), list);
    }
    EXPECT_EQ(m_Log.Text(), "");
}

TEST_F(Instance, ReadOneIsListedByBoneAndShape)
{
    ASSERT_TRUE(ReadList(m_Bone, kWithMaterial));
    XInstanceList ofBone;
    XInstanceList ofShape;
    EXPECT_TRUE(m_Bone.ListInstances(ofBone));
    EXPECT_TRUE(m_Light.GetObjectInstances(ofShape));
    EXPECT_EQ(ofBone, ofShape);
    EXPECT_EQ(ofBone[0]->GetMaterial(), 2u);
}

TEST_F(Instance, WithoutMaterialsOrShapesOnlyTheRestIsWritten)
{
    ASSERT_TRUE(ReadList(m_Bone, kWithMaterial));
    m_Model.GetSaveFlags().Clear(SaveMaterials);
    EXPECT_EQ(ListOf(m_Bone), Replaced(kWithMaterial, "\t\t\tmaterial 2\n", ""));
    EXPECT_EQ(InstanceBytes(), "01 00 00 00 04 00 6c 61 6d 70 01 00 00 00 00 00 00 00 00");
    m_Model.GetSaveFlags().Clear(SaveShapes);
    EXPECT_EQ(ListOf(m_Bone), "");
    EXPECT_EQ(InstanceBytes(), "00 00 00 00");
    EXPECT_EQ(m_Bone.GetDataSize(), 8 + BodyOf(m_Bone).size());
}

TEST_F(Instance, GroupsAreNotWrittenWithoutMaterials)
{
    ASSERT_TRUE(ReadList(m_Bone, kWithGroups));
    m_Model.GetSaveFlags().Clear(SaveMaterials);
    EXPECT_EQ(ListOf(m_Bone),
              Replaced(Replaced(kPlain, "lamp", "shade"), "sets 0", "sets 1\n\t\t\t\t5 map1"));
    EXPECT_EQ(InstanceBytes(), "01 00 00 00 05 00 73 68 61 64 65 01 00 00 00 00 00 00 00 00");
}

TEST_F(Instance, BytesWithOneMaterial)
{
    ASSERT_TRUE(ReadList(m_Bone, kWithMaterial));
    EXPECT_EQ(InstanceBytes(), "01 00 00 00 04 00 6c 61 6d 70 01 00 00 00 00 02 00 00 00");
    EXPECT_EQ(m_Bone.GetDataSize(), 14u + 5 + 310 + 4 + 7 + 4);
}

TEST_F(Instance, BytesWithGroups)
{
    ASSERT_TRUE(ReadList(m_Bone, kWithGroups));
    EXPECT_EQ(InstanceBytes(),
              "01 00 00 00 05 00 73 68 61 64 65 01 00 00 00 01 02 00 00 00 "
              "03 00 00 00 03 00 00 00 07 00 00 00 08 00 00 00 09 00 00 00 "
              "00 00 00 00 00 00 00 00");
    EXPECT_EQ(m_Bone.GetDataSize(), 14u + 5 + 310 + 5 + 7 + 4 + 2 * 8 + 3 * 4);
}

TEST_F(Instance, BytesReadBackWithoutUvSets)
{
    for (const char* list : {kPlain, kWithMaterial, kWithGroups}) {
        XBone& source = *m_Model.CreateNode<XBone>();
        ASSERT_TRUE(ReadList(source, list));
        const std::string bytes = BodyOf(source);
        XBone& bone = *m_Model.CreateNode<XBone>();
        EXPECT_TRUE(ReadBody(bone, bytes));
        std::string expected = list;
        for (const char* gone : {"2\n\t\t\t\t5 map1\n\t\t\t\t5 map2\n", "1\n\t\t\t\t5 map1\n"})
            if (expected.find(gone) != std::string::npos)
                expected = Replaced(expected, gone, "0\n");
        EXPECT_EQ(ListOf(bone), expected);
        XInstanceList instances;
        ASSERT_TRUE(bone.ListInstances(instances));
        EXPECT_EQ(instances[0]->GetParentId(), bone.GetID());
    }
}

TEST_F(Instance, OlderTextHasNoUvSets)
{
    const std::string older =
        "|VKT_003A#0000#00000000|\n"
        "SPOT_LIGHT lamp\n{\n\tid 1\n\tcolour 1 1 1\n\tintensity 1\n\tshadow_colour 0 0 0\n"
        "\tuse_depth_map_shadows 0\n\tcast_soft_shadows 0\n\tshadow_radius 0\n\tdecay_rate 0\n"
        "\tdepth_map_filter_size 1\n\tdepth_map_resolution 512\n\tdepth_map_bias 0.01\n\tcone_angle 1\n"
        "\tpenumbra_angle 0\n\tdrop_off 0\n\tbarn_doors 0\n\tleft_barn_door_angle 0\n\tright_barn_door_angle "
        "0\n"
        "\ttop_barn_door_angle 0\n\tbottom_barn_door_angle 0\n\tuse_decay_regions 0\n\tdecay_1 1 2\n"
        "\tdecay_2 3 6\n\tdecay_3 8 10\n}\n"
        "BONE hip\n{\n\tid 2\n\tvisible 1\n\tscale_pivot 0 0 0\n\trotate_pivot 0 0 0\n\tmin_bound 0 0 0\n"
        "\tmax_bound 0 0 0\n\tscale 1 1 1\n\ttranslate 0 0 0\n\trotation_orient 0 0 0 1\n\trotation 0 0 0 1\n"
        "\tjoint_orient 0 0 0 1\n\tbind_pose_matrix 1 0 0 0 0 1 0 0 0 0 1 0 0 0 0 1\n\tparent 0\n"
        "\tchild_joints 0\n\tINSTANCE_LIST\n\t{\n\t\tINSTANCE lamp {\n\t\t\tobject_id 1\n\t\t}\n\t}\n}\n";
    ASSERT_EQ(LoadText(m_Model, older), FileOk);
    EXPECT_EQ(ListOf(*XCast<XBone>(m_Model.FindNode("hip"))), kPlain);
    XInstanceList shown;
    EXPECT_TRUE(XCast<XShape>(m_Model.FindNode("lamp"))->GetObjectInstances(shown));
    EXPECT_EQ(shown.size(), 1u);
}

TEST_F(Instance, ShapeThatIsNotThereIsSkippedWithAWarning)
{
    const std::string missing = Replaced(kWithGroups, "object_id 1", "object_id 44");
    const std::string noShape = Replaced(kWithMaterial, "object_id 1", "object_id 2");
    EXPECT_TRUE(ReadList(m_Bone, missing + noShape + kPlain));
    EXPECT_EQ(m_Log.Text(),
              "Warning : Shape ID 44 : name shade not found.\n"
              "Warning : Shape ID 2 : name lamp is not a shape.\n");
    EXPECT_EQ(ListOf(m_Bone), kPlain);
}

TEST_F(Instance, SkippedBlockThatNeverEndsFails)
{
    EXPECT_FALSE(
        ReadText(m_Bone, Replaced(TextOf(m_Bone), "\t}\n", "INSTANCE a { object_id 44 num_uv_sets 0 ")));
}

TEST_F(Instance, WhatIsNoTextureOrNoMaterialIsDropped)
{
    std::string list = Replaced(kWithMaterial, "5 map1", "2 map1");  // a material
    list = Replaced(list, "5 map2", "99 map2");
    list = Replaced(list, "material 2", "material 99");
    EXPECT_TRUE(ReadList(m_Bone, list));
    EXPECT_EQ(ListOf(m_Bone), kPlain);

    XBone& bone = *m_Model.CreateNode<XBone>();
    EXPECT_TRUE(ReadList(bone, Replaced(kWithGroups, "material_id 3", "material_id 4")));
    EXPECT_EQ(ListOf(bone), Replaced(kWithGroups, "material_id 3", "material_id 0"));
    EXPECT_EQ(m_Log.Text(), "");
}

// A load keeps count of what it drops.
TEST_F(Instance, LoadNamesTheReferencesThatItDrops)
{
    m_Bone.SetName("hip");
    const std::string text = SaveText(m_Model);
    const std::string list =
        Replaced(Replaced(kWithMaterial, "5 map1", "98 map1"), "material 2", "material 99") +
        Replaced(kWithGroups, "object_id 1", "object_id 44");
    XModel model;
    ASSERT_EQ(LoadText(model, Replaced(text, "INSTANCE_LIST\n\t{\n", "INSTANCE_LIST\n\t{\n" + list)), FileOk);
    EXPECT_EQ(model.GetLoadReport().GetReferences().GetCount(), 3u);
    std::string dropped;
    for (const XDroppedReference& reference : model.GetLoadReport().GetReferences().GetFirst())
        dropped += reference.bone + ' ' + reference.instance + ' ' + WordFor(reference.link) + ' ' +
                   std::to_string(reference.id) +
                   (reference.link == XInstanceLink::kShape ? " whole\n" : "\n");
    EXPECT_EQ(dropped,
              "hip lamp texture 98\n"
              "hip lamp material 99\n"
              "hip shade shape 44 whole\n");

    // Those of a group, and no more than a thousand are kept.
    std::string many;
    for (int i = 0; i < 1500; ++i)
        many += Replaced(kWithGroups, "material_id 3", "material_id 97");
    ASSERT_EQ(LoadText(model, Replaced(text, "INSTANCE_LIST\n\t{\n", "INSTANCE_LIST\n\t{\n" + many)), FileOk);
    EXPECT_EQ(model.GetLoadReport().GetReferences().GetCount(), 1500u);
    EXPECT_EQ(model.GetLoadReport().GetReferences().GetFirst().size(), 1000u);
    ASSERT_EQ(LoadText(model, text), FileOk);
    EXPECT_EQ(model.GetLoadReport().GetReferences().GetCount(), 0u);
    EXPECT_TRUE(model.GetLoadReport().GetReferences().GetFirst().empty());
}

TEST_F(Instance, SecondOneOfAShapeIsTheFirstAgain)
{
    EXPECT_TRUE(ReadList(m_Bone, std::string(kPlain) + kWithMaterial));
    EXPECT_EQ(m_Bone.GetInstanceIds().size(), 1u);
    EXPECT_EQ(ListOf(m_Bone), kWithMaterial);
}

// Ids of files may repeat: each bone goes by its own list.
TEST_F(Instance, BonesOfOneIdHaveInstancesOfTheirOwn)
{
    m_Bone.SetName("hip");
    ASSERT_TRUE(ReadList(m_Bone, kWithMaterial));
    const std::string chunk = TextOf(m_Bone);
    const std::string head = "BONE twin\n{\n\tid 4\n";
    XModel model;
    ASSERT_EQ(LoadText(model, SaveText(m_Model) + head + Replaced(chunk, kWithMaterial, kPlain) + "}\n"),
              FileOk);
    EXPECT_EQ(ListOf(*XCast<XBone>(model.FindNode("hip"))), kWithMaterial);
    EXPECT_EQ(ListOf(*XCast<XBone>(model.FindNode("twin"))), kPlain);
}

TEST_F(Instance, SecondOneOfAShapeIsFoundOnceTheFirstIsGone)
{
    ASSERT_TRUE(ReadList(m_Bone, kPlain));
    const std::string one = BodyOf(m_Bone).substr(2 + 5 + 4 + 310 - 4 + 4);
    std::string bytes = BodyOf(m_Bone) + one;
    XBone& bone = *m_Model.CreateNode<XBone>();
    bytes[2 + 5] = static_cast<char>(bone.GetID());
    bytes[2 + 5 + 4 + 310 - 4] = 2;
    ASSERT_TRUE(ReadBody(bone, bytes));
    ASSERT_EQ(bone.GetInstanceIds().size(), 2u);
    const XIndexList ids = bone.GetInstanceIds();
    ASSERT_TRUE(m_Model.DeleteInstance(ids[0]));
    EXPECT_EQ(m_Model.CreateInstance(&bone, &m_Light), m_Model.FindInstance(ids[1]));
    EXPECT_EQ(bone.GetInstanceIds(), XIndexList{ids[1]});
}

TEST_F(Instance, TextWritesTheMaterialAndBytesTheGroupsWhereBothStand)
{
    ASSERT_TRUE(ReadList(m_Bone, kWithGroups));
    m_Model.FindInstance(m_Bone.GetInstanceIds()[0])->SetMaterial(2);
    EXPECT_NE(ListOf(m_Bone).find("\t\t\tmaterial 2\n\t\t}\n"), std::string::npos);
    EXPECT_EQ(ListOf(m_Bone).find("MATERIAL_GROUP"), std::string::npos);
    EXPECT_TRUE(InstanceBytes().starts_with("01 00 00 00 05 00 73 68 61 64 65 01 00 00 00 01 02 00 00 00 "));
}

TEST_F(Instance, WrongKeysAreLogged)
{
    const struct {
        const char* list;
        const char* key;
        const char* message;
    } cases[] = {
        {kPlain, "lamp {", "Expected { got [ [.\\src\\VKT\\Instance:1]"},
        {kPlain, "object_id", "Expected object_id got [ [.\\src\\VKT\\Instance:2]"},
        {kPlain, "num_uv_sets", "Expected num_uv_sets got [ [.\\src\\VKT\\Instance:3]"},
        {kWithGroups, "MATERIAL_GROUP {", "Expected { got [ [.\\src\\VKT\\Instance:4]"},
        {kWithGroups, "material_id", "Expected material_id got [ [.\\src\\VKT\\Instance:5]"},
        {kWithGroups, "num_face_indices", "Expected num_face_indices got [ [.\\src\\VKT\\Instance:6]"},
        {kWithGroups, "9 \n\t\t\t}", "Expected } got [ [.\\src\\VKT\\Instance:7]"},
        {kWithMaterial, "material", "Unexpected error when reading instance list"},
    };
    for (const auto& [list, key, message] : cases) {
        m_Log.Clear();
        std::string with = key;
        with = with.ends_with('{') || with.ends_with('}') ? with.substr(0, with.size() - 1) + "[" : "[";
        EXPECT_FALSE(ReadList(*m_Model.CreateNode<XBone>(), Replaced(list, key, with)));
        EXPECT_EQ(m_Log.Text(), std::string("Error : ") + message + "\n");
    }
}

TEST_F(Instance, CountsThatCannotBeTrueFail)
{
    EXPECT_FALSE(ReadList(*m_Model.CreateNode<XBone>(), Replaced(kPlain, "sets 0", "sets 4294967295")));
    EXPECT_FALSE(
        ReadList(*m_Model.CreateNode<XBone>(), Replaced(kWithGroups, "indices 3", "indices 4294967295")));
    ASSERT_TRUE(ReadList(m_Bone, kWithGroups));
    const std::string bytes = Hex(BodyOf(m_Bone));
    const char* const counts[] = {"01 00 00 00 05 00 73", "01 02 00 00 00 03", "03 00 00 00 03 00 00 00 07"};
    const char* const claims[] = {"ff ff ff ff 05 00 73", "01 ff ff ff ff 03", "03 00 00 00 ff ff ff ff 07"};
    for (int i = 0; i < 3; ++i)
        EXPECT_FALSE(ReadBody(*m_Model.CreateNode<XBone>(), Bytes(Replaced(bytes, counts[i], claims[i]))))
            << i;
}

TEST_F(Instance, BoneThatCannotBeReadLeavesNoInstanceBehind)
{
    ASSERT_TRUE(ReadList(m_Bone, kWithMaterial));
    std::string text = SaveText(m_Model);
    text.erase(text.rfind("\t}\n"));  // the list does not end
    XModel model;
    EXPECT_EQ(LoadText(model, text), FileCorrupt);
    XInstanceList instances;
    EXPECT_FALSE(model.ListInstances(instances));
    EXPECT_EQ(model.FindNode("node4"), nullptr);
    EXPECT_NE(model.FindNode("lamp"), nullptr);
}

TEST_F(Instance, ManyInstancesOfABinaryFileAreLinkedToShapesAfterTheLoad)
{
    for (int i = 0; i < 3; ++i)
        m_Model.CreateInstance(m_Model.CreateNode<XBone>(), &m_Light);
    XModel model;
    ASSERT_EQ(LoadBytes(model, SaveBinaryBytes(m_Model)), FileOk);
    XInstanceList shown;
    EXPECT_TRUE(XCast<XShape>(model.FindNode("lamp"))->GetObjectInstances(shown));
    ASSERT_EQ(shown.size(), 3u);
    for (u32 i = 0; i < 3; ++i) {
        EXPECT_EQ(shown[i]->GetID(), i + 1);
        ASSERT_NE(shown[i]->GetParent(), nullptr);
        EXPECT_EQ(shown[i]->GetParent()->GetInstanceIds(), XIndexList{i + 1});
    }
}

}  // namespace
