#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <sstream>

#include "VKT/support/LogCatcher.h"
#include "VKT/support/SmallScene.h"

// Writing of both forms: what stands where, what the save flags leave out, and what a
// save answers.

namespace VKT {
namespace {

using Test::BodyOf;
using Test::BuildSmallScene;
using Test::Bytes;
using Test::Hex;
using Test::LoadBytes;
using Test::LoadText;
using Test::ReadBody;
using Test::RegistryScope;
using Test::SaveBinaryBytes;
using Test::SaveText;
using Test::TempFile;

constexpr char kLambert[] =
    "LAMBERT lambert\n"
    "{\n"
    "\tid 6\n"
    "\thw_shader 0\n"
    "\tcolour 0.65 0.65 0.65 1 input 0\n"
    "\tambient_colour 0.2 0.2 0.2 1 input 0\n"
    "\tincandescence 0 0 0 1 input 0\n"
    "\ttransparency 0 0 0 1 input 0\n"
    "\tbump_map 0\n"
    "\tenv_map 0\n"
    "}\n";
constexpr char kLight[] =
    "SPOT_LIGHT light\n"
    "{\n"
    "\tid 5\n"
    "\tcolour\t\t0.9 0.9 0.9\n"
    "\tintensity\t1\n"
    "\tshadow_colour\t0 0 0\n"
    "\temit_ambient 0\n"
    "\temit_diffuse 0\n"
    "\temit_specular 0\n"
    "\tuse_depth_map_shadows\t0\n"
    "\tcast_soft_shadows\t0\n"
    "\tshadow_radius\t0\n"
    "\tdecay_rate\t0\n"
    "\tdepth_map_filter_size\t1\n"
    "\tdepth_map_resolution\t512\n"
    "\tdepth_map_bias\t0.01\n"
    "\tcone_angle\t0.698132\n"
    "\tpenumbra_angle\t0\n"
    "\tdrop_off\t0\n"
    "\tbarn_doors\t0\n"
    "\t\tleft_barn_door_angle\t0.349066\n"
    "\t\tright_barn_door_angle\t0.349066\n"
    "\t\ttop_barn_door_angle\t0.349066\n"
    "\t\tbottom_barn_door_angle\t0.349066\n"
    "\tuse_decay_regions\t0\n"
    "\t\tdecay_1\t1 2\n"
    "\t\tdecay_2\t3 6\n"
    "\t\tdecay_3\t8 10\n"
    "}\n";
constexpr char kMeshBegin[] =
    "POLYGON_MESH mesh\n"
    "{\n"
    "\tid 4\n"
    "\tpoints 3\n"
    "\t\t0 0 0\n"
    "\t\t1 0 0\n"
    "\t\t0 1 0\n";
constexpr char kMeshEnd[] =
    "\tintermediate_object 0\n"
    "\tpoint_index_set \"points\"\n"
    "\tPOLY_COUNTS 1\n"
    "\t{\n"
    "\t\t3\n"
    "\t}\n"
    "\tnum_index_sets 1\n"
    "\tINDEX_SET \"points\"\n"
    "\t{\n"
    "\t\t0 1 2 \n"
    "\t}\n"
    "\tnum_vertex_sets 1\n"
    "\tVERTEX_SET \"uv\"\n"
    "\t{\n"
    "\t\tnum_elements 1\n"
    "\t\telement_size 2\n"
    "\t\tusage kTexCoord\n"
    "\t\tindex_set \"points\"\n"
    "\t\telements\n"
    "\t\t\t0.5 0.25 \n"
    "\t}\n"
    "}\n";
constexpr char kWave[] =
    "NONLINEAR_WAVE wave\n"
    "{\n"
    "\tid 1\n"
    "\taffected 1 4\n"
    "\tenvelope_weight 1\n"
    "\thandle 0\n"
    "\tmax_radius 1\n"
    "\tmin_radius 0\n"
    "\tamplitude 0\n"
    "\twavelength 1\n"
    "\tdropoff 0\n"
    "\tdropoff_position 0\n"
    "\toffset 0\n"
    "}\n";

// A bone up to its instance list.
std::string Bone(const std::string& head, const std::string& translate, const std::string& tail)
{
    return head +
           "\tvisible\t1\n"
           "\tscale_pivot\t0 0 0\n"
           "\trotate_pivot\t0 0 0\n"
           "\tmin_bound\t0 0 0\n"
           "\tmax_bound\t0 0 0\n"
           "\tscale\t1 1 1\n"
           "\ttranslate\t" +
           translate +
           "\n"
           "\trotation_orient\t0 0 0 1\n"
           "\trotation\t0 0 0 1\n"
           "\tjoint_orient\t0 0 0 1\n"
           "\tbind_pose_matrix\n"
           "\t\t1 0 0 0\n"
           "\t\t0 1 0 0\n"
           "\t\t0 0 1 0\n"
           "\t\t0 0 0 1\n"
           "\trotation_order xyz\n"
           "\tinherits_transform 1\n"
           "\tshearing 0 0 0\n"
           "\trotate_pivot_translate\t0 0 0\n"
           "\tscale_pivot_translate\t0 0 0\n"
           "\ttranslate_limit_x -INF +INF\n"
           "\ttranslate_limit_y -INF +INF\n"
           "\ttranslate_limit_z -INF +INF\n"
           "\trotate_limit_x -INF +INF\n"
           "\trotate_limit_y -INF +INF\n"
           "\trotate_limit_z -INF +INF\n"
           "\tscale_limit_x -INF +INF\n"
           "\tscale_limit_y -INF +INF\n"
           "\tscale_limit_z -INF +INF\n" +
           tail;
}

std::string Joint(const std::string& instances)
{
    return Bone("JOINT joint\n{\n\tid 3\n", "0 2 0", "\tparent 2\n\tchild_joints 0\n\tINSTANCE_LIST\n\t{\n") +
           instances + "\t}\n\tsegment_scale_compensate 1\n}\n";
}
std::string Root(const std::string& instances)
{
    return Bone("BONE root\n{\n\tid 2\n", "0 0 0",
                "\tparent 0\n\tchild_joints 1\n\t\t3 \n\tINSTANCE_LIST\n\t{\n") +
           instances + "\t}\n}\n";
}

constexpr char kMark[] = "|VKT_004A#0000#00000000|\n";
const std::string kMesh = std::string(kMeshBegin) + "\tdeformer_queue 1 1\n" + kMeshEnd;
const std::string kJointInstances =
    "\t\tINSTANCE mesh {\n"
    "\t\t\tobject_id 4\n"
    "\t\t\tnum_uv_sets 0\n"
    "\t\t\tmaterial 6\n"
    "\t\t}\n"
    "\t\tINSTANCE light {\n"
    "\t\t\tobject_id 5\n"
    "\t\t\tnum_uv_sets 0\n"
    "\t\t}\n";
const std::string kRootInstances =
    "\t\tINSTANCE mesh {\n"
    "\t\t\tobject_id 4\n"
    "\t\t\tnum_uv_sets 0\n"
    "\t\t\tMATERIAL_GROUP {\n"
    "\t\t\t\tmaterial_id 6\n"
    "\t\t\t\tnum_face_indices 1\n"
    "\t\t\t\t\t0 \n"
    "\t\t\t}\n"
    "\t\t}\n";

class ContainerSave : public testing::Test {
protected:
    ContainerSave() { BuildSmallScene(m_Model); }

    LogCatcher m_Log;
    RegistryScope m_Registry;
    XModel m_Model;
};

TEST_F(ContainerSave, AnEmptyDocumentIsItsHeader)
{
    m_Model.Clear();
    EXPECT_EQ(SaveText(m_Model), "|VKT_004A#0000#00000000|\n");
    EXPECT_EQ(Hex(SaveBinaryBytes(m_Model)),
              "7c 56 4b 54 5f 30 30 34 42 23 30 30 30 30 23 30 30 30 30 30 30 30 30 7c 00 00");
}

TEST_F(ContainerSave, GroupsStandBehindWhatTheyReferToAndInNameOrder)
{
    EXPECT_EQ(SaveText(m_Model), kMark + std::string(kLambert) + kLight + kMesh + Joint(kJointInstances) +
                                     Root(kRootInstances) + kWave);
    EXPECT_EQ(m_Log.Text(), "");
}

// The types of the chunks of a binary file, as their sizes string them together.
std::vector<u32> ChunkTypes(const std::string& bytes)
{
    const auto word = [&](std::size_t at, int size) {
        u32 value = 0;
        for (int i = 0; i < size; ++i)
            value |= static_cast<u32>(static_cast<unsigned char>(bytes[at + static_cast<std::size_t>(i)]))
                     << 8 * i;
        return value;
    };
    std::vector<u32> types;
    std::size_t at = 26;
    for (; at < bytes.size(); at += word(at + 4, 4))
        types.push_back(word(at, 2));
    EXPECT_EQ(at, bytes.size());
    return types;
}

TEST_F(ContainerSave, TheBinaryFormHasTheSameOrderAndItsSizesAddUp)
{
    EXPECT_EQ(ChunkTypes(SaveBinaryBytes(m_Model)), (std::vector<u32>{10, 82, 166, 87, 86, 128}));
    m_Model.SetInfo(std::make_unique<XInfo>());
    EXPECT_EQ(ChunkTypes(SaveBinaryBytes(m_Model)), (std::vector<u32>{162, 10, 82, 166, 87, 86, 128}));
}

TEST_F(ContainerSave, TheBytesOfSmallChunks)
{
    const std::string bytes = SaveBinaryBytes(m_Model);
    EXPECT_EQ(Hex(bytes.substr(bytes.size() - 62)),
              "80 00 00 00 3e 00 00 00 "        // type 128, flags, size 62
              "04 00 77 61 76 65 01 00 00 00 "  // name and id
              "01 00 00 00 04 00 00 00 00 00 80 3f 00 00 00 00 "
              "00 00 80 3f 00 00 00 00 00 00 00 00 00 00 80 3f 00 00 00 00 00 00 00 00 00 00 00 00");
    const std::string mesh = Bytes(
        "a6 00 00 00 97 00 00 00 04 00 6d 65 73 68 04 00 00 00 "
        "03 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 "  // points
        "00 00 80 3f 00 00 00 00 00 00 00 00 "
        "00 00 00 00 00 00 80 3f 00 00 00 00 "
        "01 00 00 00 01 00 00 00 00 "                       // queue, intermediate
        "06 00 70 6f 69 6e 74 73 01 00 00 00 03 00 00 00 "  // point set, polygons
        "01 00 00 00 06 00 70 6f 69 6e 74 73 03 00 00 00 00 00 00 00 01 00 00 00 02 00 00 00 "
        "01 00 00 00 02 00 75 76 01 00 00 00 02 00 00 00 03 00 00 00 06 00 70 6f 69 6e 74 73 "
        "02 00 00 00 00 00 00 3f 00 00 80 3e");
    EXPECT_NE(bytes.find(mesh), bytes.npos);
}

TEST_F(ContainerSave, BothFormsLoadToTheSameDocument)
{
    m_Model.UpdateWorldMatrices();
    XModel fromText;
    ASSERT_EQ(LoadText(fromText, SaveText(m_Model)), FileOk);
    XModel fromBytes;
    ASSERT_EQ(LoadBytes(fromBytes, SaveBinaryBytes(m_Model)), FileOk);
    EXPECT_EQ(SaveText(fromBytes), SaveText(fromText));
    EXPECT_EQ(Hex(SaveBinaryBytes(fromText)), Hex(SaveBinaryBytes(fromBytes)));
    XModel again;
    ASSERT_EQ(LoadText(again, SaveText(fromText)), FileOk);
    EXPECT_EQ(SaveText(again), SaveText(fromText));
}

TEST_F(ContainerSave, AFlagThatIsClearLeavesItsGroupOut)
{
    XFlagStack& flags = m_Model.GetSaveFlags();
    flags.Clear(SaveBones);
    EXPECT_EQ(SaveText(m_Model), kMark + std::string(kLambert) + kLight + kMesh + kWave);
    EXPECT_EQ(ChunkTypes(SaveBinaryBytes(m_Model)), (std::vector<u32>{10, 82, 166, 128}));
    flags.Set(511);
    flags.Clear(SaveTextures | 16 | SaveExtraAttributes | SaveAnimCycles);  // the sample has none of these
    EXPECT_EQ(ChunkTypes(SaveBinaryBytes(m_Model)), (std::vector<u32>{10, 82, 166, 87, 86, 128}));
    flags.Clear(~u32{SaveAscii});
    EXPECT_EQ(SaveText(m_Model), kMark);
}

// The keys of the chunks of a text, in their order.
std::vector<std::string> ChunkKeys(const std::string& text)
{
    std::vector<std::string> keys;
    std::istringstream lines(text);
    for (std::string line, last; std::getline(lines, line); last = line)
        if (line == "{")
            keys.push_back(last.substr(0, last.find(' ')));
    return keys;
}

TEST_F(ContainerSave, AllGroupsStandInTheirOrderWhateverTheirNames)
{
    m_Model.Clear();
    const auto add = [this](u32 type, const char* name) { m_Model.CreateNode(type)->SetName(name); };
    m_Model.CreateNode(kFnAnimCycle);
    add(kFnObjectSet, "b");
    add(kFnNonLinearWave, "c");
    add(kFnTexPlacement3D, "d");
    add(kFnSpotLight, "e");
    add(kFnLambert, "f");
    add(kFnTexture, "g");
    add(kFnTexPlacement2D, "h");
    ASSERT_NE(m_Model.AddInheritedNode(kFnBone, "LIMB"), nullptr);
    ASSERT_NE(m_Model.AddNewNode(kFamilyNone, "fog", "FOG"), nullptr);
    m_Model.SetInfo(std::make_unique<XInfo>());
    const std::vector<std::string> keys = {
        "INFO",           "NEW_NODE",   "INHERITED_NODE", "TEXTURE_2D",
        "TEXTURE",        "LAMBERT",    "SPOT_LIGHT",     "TEXTURE_PLACEMENT_3D",
        "NONLINEAR_WAVE", "OBJECT_SET", "ANIM_CYCLE"};
    EXPECT_EQ(ChunkKeys(SaveText(m_Model)), keys);
    XModel fromBytes;
    ASSERT_EQ(LoadBytes(fromBytes, SaveBinaryBytes(m_Model)), FileOk);
    EXPECT_EQ(ChunkKeys(SaveText(fromBytes)), keys);

    m_Model.GetSaveFlags().Clear(SaveTextures);
    std::vector<std::string> rest = keys;
    rest.erase(rest.begin() + 3, rest.begin() + 5);  // a placement in space is a bone
    EXPECT_EQ(ChunkKeys(SaveText(m_Model)), rest);
}

TEST_F(ContainerSave, WithoutShapesTheInstanceListsAreEmpty)
{
    m_Model.GetSaveFlags().Clear(SaveShapes);
    EXPECT_EQ(SaveText(m_Model), kMark + std::string(kLambert) + Joint("") + Root("") + kWave);
    EXPECT_EQ(ChunkTypes(SaveBinaryBytes(m_Model)), (std::vector<u32>{10, 87, 86, 128}));
}

TEST_F(ContainerSave, WithoutMaterialsInstancesHaveNone)
{
    m_Model.GetSaveFlags().Clear(SaveMaterials);
    const std::string mesh = "\t\tINSTANCE mesh {\n\t\t\tobject_id 4\n\t\t\tnum_uv_sets 0\n\t\t}\n";
    const std::string light = "\t\tINSTANCE light {\n\t\t\tobject_id 5\n\t\t\tnum_uv_sets 0\n\t\t}\n";
    EXPECT_EQ(SaveText(m_Model),
              kMark + std::string(kLight) + kMesh + Joint(mesh + light) + Root(mesh) + kWave);
    EXPECT_EQ(ChunkTypes(SaveBinaryBytes(m_Model)), (std::vector<u32>{82, 166, 87, 86, 128}));
}

TEST_F(ContainerSave, WithoutDeformersQueuesAreEmpty)
{
    m_Model.GetSaveFlags().Clear(SaveDeformers);
    EXPECT_EQ(SaveText(m_Model), kMark + std::string(kLambert) + kLight + kMeshBegin +
                                     "\tdeformer_queue 0\n" + kMeshEnd + Joint(kJointInstances) +
                                     Root(kRootInstances));
    EXPECT_EQ(ChunkTypes(SaveBinaryBytes(m_Model)), (std::vector<u32>{10, 82, 166, 87, 86}));
}

TEST_F(ContainerSave, TheFlagPicksTheFormWhateverTheExtension)
{
    const TempFile file(".vkt");
    EXPECT_EQ(m_Model.Save(file.Path()), FileOk);
    EXPECT_EQ(file.Bytes(), SaveText(m_Model));
    m_Model.GetSaveFlags().Clear(SaveAscii);
    EXPECT_EQ(m_Model.Save(file.Path()), FileOk);
    EXPECT_EQ(file.Bytes().substr(0, 24), "|VKT_004B#0000#00000000|");
}

TEST_F(ContainerSave, AFileThatCannotBeOpenedIsSaid)
{
    EXPECT_EQ(m_Model.Save("/nowhere/at/all.vkt"), FileOpenFailed);
    m_Model.GetSaveFlags().Clear(SaveAscii);
    EXPECT_EQ(m_Model.Save("/nowhere/at/all.vkt"), FileOpenFailed);
}

#ifdef __linux__
TEST_F(ContainerSave, AFullDiskIsCorrupt)
{
    EXPECT_EQ(m_Model.Save("/dev/full"), FileCorrupt);
    m_Model.GetSaveFlags().Clear(SaveAscii);
    EXPECT_EQ(m_Model.Save("/dev/full"), FileCorrupt);
}
#endif

TEST_F(ContainerSave, AStreamThatFailsIsCorrupt)
{
    std::ostringstream out;
    out.setstate(std::ios::badbit);
    EXPECT_EQ(m_Model.Save(out), FileCorrupt);
}

TEST_F(ContainerSave, ASaveMakesTheVersionFour)
{
    ASSERT_EQ(LoadText(m_Model, "|VKT_002A#0000#00000000|\n"), FileOk);
    EXPECT_EQ(m_Model.GetVersion(), 2u);
    m_Model.Save("/nowhere/at/all.vkt");
    EXPECT_EQ(m_Model.GetVersion(), 4u);
}

TEST_F(ContainerSave, ASaveChangesNothing)
{
    const std::string before = SaveText(m_Model);
    SaveBinaryBytes(m_Model);
    EXPECT_EQ(SaveText(m_Model), before);
}

// Measures as many bytes as it is told to, without having them.
class Giant final : public XBone {
public:
    Giant(XModel* model, u64 bytes) : XBone(model), m_Bytes(bytes) {}
    bool DoData(XFileIO& file) override
    {
        static u8 s_Block[65536];
        bool ok = XBone::DoData(file);
        for (u64 left = file.IsMeasuring() ? m_Bytes : 0; ok && left > 0;) {
            const std::size_t part = std::min<u64>(left, sizeof s_Block);
            ok = file.DoData(s_Block, part) == part;
            left -= part;
        }
        return ok;
    }

private:
    u64 m_Bytes;
};

// A header has four bytes for the size of its chunk.
TEST_F(ContainerSave, AChunkThatItsHeaderCannotMeasureIsRefusedAheadOfTheFile)
{
    const TempFile file(".vkt");
    const auto save = [&](u64 bytes) {
        static u64 s_Bytes;  // a creator has no context
        s_Bytes = bytes;
        XModel model;
        XNewNode* const giants = model.AddNewNode(kFamilyTransform, "giant", "GIANT");
        giants->SetCreator([](const XNewNode&, XModel* owner) -> std::unique_ptr<XBase> {
            return std::make_unique<Giant>(owner, s_Bytes);
        });
        model.CreateNode(*giants);
        model.GetSaveFlags().Clear(SaveAscii);
        return model.Save(file.Path());
    };
    constexpr u64 kMost = 0xFFFFFFFF;
    const u64 bone = XBone(&m_Model).MeasureChunk() + 5;  // and the five letters of its name
    ASSERT_EQ(save(kMost - bone), FileOk);
    const auto size = std::filesystem::file_size(file.Path());
    m_Log.Clear();
    EXPECT_EQ(save(kMost - bone + 1), FileCorrupt);
    EXPECT_EQ(m_Log.Text(),
              "Error : \"node1\" takes more than the 4 GiB that a binary file has for a node\n");
    EXPECT_EQ(std::filesystem::file_size(file.Path()), size) << "the file that was there stays";
}

TEST_F(ContainerSave, CornersThatNoSetHoldsAreNotPaddedWithoutEnd)
{
    // A binary file may claim polygons of any number of corners and index sets of none.
    XPolygonMesh* const mesh = XCast<XPolygonMesh>(m_Model.FindNode("mesh"));
    std::string body = BodyOf(*mesh);
    const std::string polygon = Bytes("03 00 00 00 01 00 00 00 06 00 70 6f 69 6e 74 73");
    const std::size_t at = body.find(polygon);
    ASSERT_NE(at, body.npos);
    body.replace(at, 4, Bytes("00 00 00 70"));
    ASSERT_TRUE(ReadBody(*mesh, body));
    const TempFile file(".vkt", "stays");
    EXPECT_EQ(m_Model.Save(file.Path()), FileCorrupt);
    EXPECT_EQ(file.Bytes(), "stays");
    EXPECT_EQ(m_Log.Text(), "Error : the document's polygons claim more corners than its index sets hold\n");
    m_Model.GetSaveFlags().Clear(SaveAscii);
    EXPECT_EQ(m_Model.Save(file.Path()), FileOk);
}

}  // namespace
}  // namespace VKT
