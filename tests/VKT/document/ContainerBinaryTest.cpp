#include <gtest/gtest.h>

#include "VKT/deformers/NonLinearWave.h"
#include "VKT/geometry/PolygonMesh.h"
#include "VKT/hierarchy/Bone.h"
#include "VKT/support/BinaryFile.h"
#include "VKT/support/LogCatcher.h"
#include "VKT/support/TestModel.h"

// Loading of the binary form: the walk over the chunks, and what it says of damaged ones.

namespace VKT {
namespace {

using Test::BodyOf;
using Test::Bytes;
using Test::Chunk;
using Test::Hex;
using Test::kMark;
using Test::kTrueSize;
using Test::LoadBytes;
using Test::RegistryScope;
using Test::SaveBinaryBytes;
using Test::Start;
using Test::TempFile;
using Test::Word;

// A nonLinearWave with its defaults.
std::string WaveBody(const std::string& name, u32 id)
{
    return Word(name.size(), 2) + name + Word(id, 4) +
           Bytes(
               "00 00 00 00 "  // affected
               "00 00 80 3f "  // envelope_weight
               "00 00 00 00 "  // handle
               "00 00 80 3f 00 00 00 00 00 00 00 00 00 00 80 3f 00 00 00 00 00 00 00 00 00 00 00 00");
}
std::string Wave(const std::string& name, u32 id, u32 size = kTrueSize)
{
    return Chunk(kFnNonLinearWave, WaveBody(name, id), size);
}

class ContainerBinary : public testing::Test {
protected:
    // Answers the result; what is logged, but for the line about the path, stands in
    // `m_Said`.
    XFileResult Load(std::string_view bytes)
    {
        m_Log.Clear();
        const XFileResult result = LoadBytes(m_Model, bytes);
        m_Said = m_Log.Text().substr(m_Log.Text().find('\n') + 1);
        return result;
    }
    bool Has(const char* name) const { return m_Model.FindNode(name) != nullptr; }

    LogCatcher m_Log;
    RegistryScope m_Registry;
    XModel m_Model;
    std::string m_Said;
};

constexpr char kShort[] = "Error : XFileIO::DoData : expected to read/write 1 elements got 0\n";

TEST_F(ContainerBinary, AFileWithoutChunksIsAnEmptyDocument)
{
    EXPECT_EQ(Load(Start()), FileOk);
    EXPECT_TRUE(m_Model.GetNodes().empty());
    EXPECT_EQ(m_Model.GetVersion(), 4u);
    EXPECT_EQ(m_Said, "");
}

TEST_F(ContainerBinary, EveryFormButTextIsBinary)
{
    EXPECT_EQ(Load("|VKT_004x" + Start().substr(9) + Wave("w", 1)), FileOk);
    EXPECT_TRUE(Has("w"));
}

TEST_F(ContainerBinary, NewerAndForeignFilesAreRefused)
{
    EXPECT_EQ(Load("|VKT_005B#0000#00000000|" + Wave("w", 1)), FileTooNew);
    EXPECT_EQ(m_Said, "Error : opening file: file version 5 is newer than vkt version 4\n");
    EXPECT_EQ(Load("|VKX_004B#0000#00000000|"), FileNotVkt);
    EXPECT_TRUE(m_Model.GetNodes().empty());
}

TEST_F(ContainerBinary, AnOlderFileLoadsWithAWarning)
{
    std::string body = WaveBody("w", 1);
    body.erase(2 + 1 + 4 + 4, 4);  // no envelope_weight then
    EXPECT_EQ(Load("|VKT_003" + Start().substr(8) + Chunk(kFnNonLinearWave, body)), FileOk);
    EXPECT_EQ(
        m_Said,
        "Warning : File is from an older vkt version. If saved it will be unreadable by versions of vkt "
        "older than version 4\n");
    EXPECT_EQ(m_Model.GetVersion(), 3u);
    EXPECT_EQ(Hex(SaveBinaryBytes(m_Model)), Hex(Start() + Wave("w", 1)));
    EXPECT_EQ(m_Model.GetVersion(), 4u);
}

TEST_F(ContainerBinary, ShortHeadersAndMissingImageTablesAreSaidAndPassed)
{
    EXPECT_EQ(Load("|VKT_004B#"), FileOk);
    EXPECT_EQ(m_Said, "Error : XFileIO::DoData : expected to read/write 24 elements got 10\n" +
                          std::string(kShort) + "Error : could not load the textures\n");
    EXPECT_EQ(Load(kMark), FileOk);
    EXPECT_EQ(m_Said, std::string(kShort) + "Error : could not load the textures\n");
    EXPECT_EQ(Load("|VKT_"), FileOk);  // of version 0, and so older
    EXPECT_EQ(m_Model.GetVersion(), 0u);
}

TEST_F(ContainerBinary, NodesComeWithTheIdsAndNamesOfTheFile)
{
    EXPECT_EQ(Load(Start() + Wave("b", 7) + Wave("a", 3)), FileOk);
    EXPECT_EQ(m_Said, "");
    EXPECT_EQ(m_Model.GetNodes().size(), 2u);
    EXPECT_STREQ(m_Model.FindNode(7u)->GetName(), "b");
    EXPECT_EQ(m_Model.FindNode("a")->GetID(), 3u);
    EXPECT_EQ(m_Model.CreateNode(kFnBone)->GetID(), 8u);
}

TEST_F(ContainerBinary, NamesAreCleaned)
{
    EXPECT_EQ(Load(Start() + Wave("a\"b/c\\ d", 1)), FileOk);
    EXPECT_TRUE(Has("abc_d"));
}

TEST_F(ContainerBinary, EqualNamesAndEqualIdsAreAllHeld)
{
    EXPECT_EQ(Load(Start() + Wave("w", 1) + Wave("w", 1) + Wave("v", 0)), FileOk);
    EXPECT_EQ(m_Model.GetNodes().size(), 3u);
    EXPECT_EQ(m_Model.FindNode(1u), m_Model.FindNode("w"));
    // A node with id 0 is written too.
    EXPECT_EQ(Hex(SaveBinaryBytes(m_Model)), Hex(Start() + Wave("v", 0) + Wave("w", 1) + Wave("w", 1)));
}

TEST_F(ContainerBinary, TypeZeroEndsTheFile)
{
    EXPECT_EQ(Load(Start() + Wave("w", 1) + Chunk(0, "") + Wave("v", 2)), FileOk);
    EXPECT_TRUE(Has("w"));
    EXPECT_FALSE(Has("v"));
    EXPECT_EQ(m_Said, "");
}

TEST_F(ContainerBinary, UnknownAndAbstractTypesAreSkippedBySize)
{
    for (const u16 type : {1, 25, 161, 173, 4095, 4098, 9999, 53248, 65535}) {
        EXPECT_EQ(Load(Start() + Chunk(type, "whatever") + Wave("w", 1)), FileOk) << type;
        EXPECT_TRUE(Has("w")) << type;
        EXPECT_EQ(m_Said, "") << type;
        ASSERT_EQ(m_Model.GetLoadReport().GetChunks().GetCount(), 1u) << type;
        EXPECT_EQ(m_Model.GetLoadReport().GetChunks().GetFirst()[0].key, std::to_string(type));
        EXPECT_FALSE(m_Model.GetLoadReport().GetChunks().GetFirst()[0].isDamaged);
    }
}

TEST_F(ContainerBinary, AnUnusableChunkOfSizeZeroIsCorrupt)
{
    EXPECT_EQ(Load(Start() + Wave("w", 1) + Chunk(9999, "", 0) + Wave("v", 2)), FileCorrupt);
    EXPECT_EQ(m_Said, "Error : XModel::LoadBin : header byte size 0\n");
    EXPECT_TRUE(Has("w"));
    EXPECT_FALSE(Has("v"));
}

TEST_F(ContainerBinary, TheSizeOfAChunkThatWasReadIsNotLookedAt)
{
    // Each size is wrong, and so is what is thought to remain: the file ends with a header
    // that does not come, or ahead of its last chunk.
    EXPECT_EQ(Load(Start() + Wave("w", 1, 0) + Wave("v", 2, 0)), FileCorrupt);
    EXPECT_EQ(m_Said, kShort);
    EXPECT_TRUE(Has("w") && Has("v"));
    EXPECT_EQ(Load(Start() + Wave("w", 1, 1000) + Wave("v", 2)), FileOk);
    EXPECT_TRUE(Has("w"));
    EXPECT_FALSE(Has("v"));
}

TEST_F(ContainerBinary, SizesBelowTheHeaderSendTheWalkBackAndItEnds)
{
    for (u32 size = 1; size < 8; ++size) {
        const XFileResult result = Load(Start() + Chunk(9999, "", size) + Wave("w", 1));
        EXPECT_TRUE(result == FileOk || result == FileCorrupt) << size;
    }
    // Each chunk claims 7 bytes, so that the next begins at its last byte.
    std::string bytes = Start();
    for (int i = 0; i < 200'000; ++i)
        bytes += Bytes("00 ff 00 00 07 00 00");
    EXPECT_EQ(Load(bytes), FileCorrupt);
    EXPECT_EQ(m_Model.GetLoadReport().GetChunks().GetCount(), 199'999u);
    EXPECT_EQ(m_Model.GetLoadReport().GetChunks().GetFirst().size(), 1000u);
    Load(Start());
    EXPECT_EQ(m_Model.GetLoadReport().GetChunks().GetCount(), 0u);
    EXPECT_TRUE(m_Model.GetLoadReport().GetChunks().GetFirst().empty());
}

TEST_F(ContainerBinary, AChunkThatClaimsMoreThanTheRestEndsTheFile)
{
    EXPECT_EQ(Load(Start() + Chunk(9999, "", 0xFFFFFFFF) + Wave("w", 1)), FileOk);
    EXPECT_FALSE(Has("w"));
    EXPECT_EQ(Load(Start() + Chunk(9999, "", 1000) + Wave("w", 1)), FileOk);
    EXPECT_FALSE(Has("w"));
}

TEST_F(ContainerBinary, AnIncompleteHeaderIsCorrupt)
{
    const std::string header = Chunk(kFnBone, "");
    for (std::size_t length = 1; length < header.size(); ++length) {
        EXPECT_EQ(Load(Start() + Wave("w", 1) + header.substr(0, length)), FileCorrupt) << length;
        EXPECT_EQ(m_Said, kShort) << length;
        EXPECT_TRUE(Has("w"));
    }
}

TEST_F(ContainerBinary, ADamagedNodeCostsItselfAlone)
{
    // A child count that no file can hold, in a chunk whose size is right.
    XBone* const bone = m_Model.CreateNode<XBone>();
    const std::string name = bone->GetName();
    std::string body = BodyOf(*bone);
    body.replace(body.size() - 8, 4, Word(0xFFFFFFFF, 4));
    EXPECT_EQ(Load(Start() + Wave("w", 1) + Chunk(kFnBone, body) + Wave("v", 2)), FileOk);
    EXPECT_EQ(m_Said, "Error : XFileIO::DoData : expected to read/write -1 elements got 14\n");
    EXPECT_TRUE(Has("w") && Has("v"));
    EXPECT_EQ(m_Model.GetNodes().size(), 2u);
    ASSERT_EQ(m_Model.GetLoadReport().GetChunks().GetCount(), 1u);
    EXPECT_EQ(m_Model.GetLoadReport().GetChunks().GetFirst()[0].key, "BONE");
    EXPECT_EQ(m_Model.GetLoadReport().GetChunks().GetFirst()[0].name, name);
    EXPECT_TRUE(m_Model.GetLoadReport().GetChunks().GetFirst()[0].isDamaged);
}

TEST_F(ContainerBinary, ADamagedNodeAtTheEndIsNoCorruptFile)
{
    EXPECT_EQ(Load(Start() + Wave("w", 1) + Chunk(kFnNonLinearWave, WaveBody("v", 2).substr(0, 30))), FileOk);
    EXPECT_EQ(m_Said, kShort);
    EXPECT_TRUE(Has("w"));
    EXPECT_FALSE(Has("v"));
}

TEST_F(ContainerBinary, ABodyMayReadPastItsSize)
{
    // The walk goes on behind what was read, but takes the size for what is gone.
    EXPECT_EQ(Load(Start() + Wave("w", 1, 20) + Wave("v", 2)), FileCorrupt);
    EXPECT_TRUE(Has("w") && Has("v"));
}

TEST_F(ContainerBinary, TheInformationRecord)
{
    const std::string info = Bytes(
        "30 00 00 00 01 00 6f 03 00 61 70 70 02 00 75 73 00 00 "
        "05 00 00 00 03 00 00 00 d9 07 00 00 0e 00 00 00 07 00 00 00 09 00 00 00");
    EXPECT_EQ(Load(Start() + Chunk(162, info) + Wave("w", 1)), FileOk);
    ASSERT_NE(m_Model.GetInfo(), nullptr);
    EXPECT_EQ(m_Model.GetInfo()->GetApplication(), "app");
    EXPECT_TRUE(Has("w"));
    EXPECT_EQ(Hex(SaveBinaryBytes(m_Model)), Hex(Start() + Chunk(162, info) + Wave("w", 1)));

    EXPECT_EQ(Load(Start() + Wave("w", 1) + Chunk(162, info.substr(0, 20))), FileOk);
    EXPECT_EQ(m_Model.GetInfo(), nullptr);  // what could not be read whole is dropped
    EXPECT_TRUE(Has("w"));
}

TEST_F(ContainerBinary, ImagesStandAheadOfTheChunksAndComeBack)
{
    const std::string image = Bytes("02 01 11 02 01 00 6e 01 00 70 01 02 03 04 05 06 07 08 09 0a 0b 0c");
    const std::string unnamed = Bytes("03 00 21 01 00 00");
    const std::string bytes = kMark + Word(2, 2) + image + unnamed + Wave("w", 1);
    EXPECT_EQ(Load(bytes), FileOk);
    EXPECT_EQ(m_Said, "");
    ASSERT_EQ(m_Model.GetImages().size(), 2u);
    EXPECT_EQ(m_Model.GetImages()[0]->m_Name, "n");
    EXPECT_EQ(m_Model.GetImages()[0]->m_Pixels.size(), 12u);
    EXPECT_EQ(m_Model.GetImages()[1]->m_ID, 3);
    EXPECT_TRUE(Has("w"));
    m_Model.Clear();
    EXPECT_TRUE(m_Model.GetImages().empty());
    EXPECT_EQ(Load(kMark + Word(1, 2) + image + Wave("w", 1)), FileOk);
    EXPECT_EQ(Hex(SaveBinaryBytes(m_Model)), Hex(kMark + Word(1, 2) + image + Wave("w", 1)));
}

TEST_F(ContainerBinary, DamagedImagesDoNotStopTheCount)
{
    // Ten images are claimed, one and a half stand there.
    EXPECT_EQ(Load(kMark + Word(10, 2) +
                   Bytes("02 01 11 02 01 00 6e 00 00 01 02 03 04 05 06 07 08 09 0a 0b 0c 05 00")),
              FileOk);
    EXPECT_EQ(m_Said, kShort);
    ASSERT_EQ(m_Model.GetImages().size(), 2u);
    EXPECT_EQ(m_Model.GetImages()[1]->m_ID, 5);
}

TEST_F(ContainerBinary, OneTreeUnderManyRootsTakesEachEdgeOnce)
{
    // Half of the bones are roots and name the top of one chain of the other half.
    constexpr u32 kRoots = 10'000;
    XBone* bone = m_Model.CreateNode<XBone>();
    const u32 top = bone->GetID();
    for (u32 i = 0; i < kRoots; ++i) {
        XBone* const child = m_Model.CreateNode<XBone>();
        child->SetTranslate({1, 0, 0, 0}, true);
        bone->AddChild(child);
        bone = child;
    }
    const std::string name = bone->GetName();
    std::string bytes = SaveBinaryBytes(m_Model);
    XBone* const root = m_Model.CreateNode<XBone>();
    std::string body = BodyOf(*root);
    body.replace(body.size() - 8, 4, Word(1, 4) + Word(top, 4));
    for (u32 i = 0; i < kRoots; ++i)
        bytes += Chunk(kFnBone, body);
    EXPECT_EQ(Load(bytes), FileOk);
    EXPECT_EQ(XCast<XBone>(m_Model.FindNode(name))->GetWorld(false)[12], static_cast<f32>(kRoots));
}

TEST_F(ContainerBinary, ShapesOfOneIdDoNotEachListItsInstances)
{
    constexpr u32 kShapes = 3000;
    constexpr u32 kInstances = 30'000;
    XPolygonMesh* const mesh = m_Model.CreateNode<XPolygonMesh>();
    XBone* const bone = m_Model.CreateNode<XBone>();
    const u32 meshId = mesh->GetID();
    std::string meshes;
    for (u32 i = 0; i < kShapes; ++i)
        meshes += Chunk(kFnPolygonMesh, BodyOf(*mesh));
    std::string body = BodyOf(*bone);
    body.replace(body.size() - 4, 4, Word(kInstances, 4));
    for (u32 i = 0; i < kInstances; ++i)
        body += Word(0, 2) + Word(mesh->GetID(), 4) + Word(0, 1) + Word(0, 4);
    EXPECT_EQ(Load(Start() + meshes + Chunk(kFnBone, body)), FileOk);
    XNodeList shapes;
    m_Model.List(shapes, kFnShape);
    ASSERT_EQ(shapes.size(), kShapes);
    u32 showing = 0;
    for (XBase* shape : shapes) {
        XInstanceList instances;
        showing += XCast<XShape>(shape)->GetObjectInstances(instances);
    }
    EXPECT_EQ(showing, 1u);
    XInstanceList shown;
    XCast<XShape>(m_Model.FindNode(meshId))->GetObjectInstances(shown);
    EXPECT_EQ(shown.size(), kInstances);
}

TEST_F(ContainerBinary, ABoneThatFailsBehindManyInstancesTakesThemAlong)
{
    constexpr u32 kInstances = 200'000;
    XPolygonMesh* const mesh = m_Model.CreateNode<XPolygonMesh>();
    XBone* const bone = m_Model.CreateNode<XBone>();
    std::string body = BodyOf(*bone);
    body.replace(body.size() - 4, 4, Word(kInstances + 1, 4));
    for (u32 i = 0; i < kInstances; ++i)
        body += Word(0, 2) + Word(mesh->GetID(), 4) + Word(0, 1) + Word(0, 4);
    const std::string last = Word(0, 2) + Word(mesh->GetID(), 4) + Word(1, 1) + Word(0xFFFFFFFF, 4);
    EXPECT_EQ(Load(Start() + Chunk(kFnPolygonMesh, BodyOf(*mesh)) + Chunk(kFnBone, body + last)), FileOk);
    XInstanceList instances;
    EXPECT_FALSE(m_Model.ListInstances(instances));
    EXPECT_EQ(m_Model.GetNodes().size(), 1u);
}

TEST_F(ContainerBinary, ChunksThatEachReadTheRestInVainAreGivenUp)
{
    // Each mesh claims points up to the end of the file, then fails and is skipped by the
    // few bytes of its size.
    constexpr u32 kMeshes = 60'000;
    const auto size = static_cast<u32>(8 + 2 + 4 + 4);
    std::string bytes = Start();
    for (u32 i = 0; i < kMeshes; ++i) {
        const u32 rest = (kMeshes - i - 1) * size / 12;
        bytes += Chunk(kFnPolygonMesh, Word(0, 2) + Word(i, 4) + Word(rest, 4), size);
    }
    EXPECT_EQ(Load(bytes), FileCorrupt);
    EXPECT_TRUE(m_Said.ends_with("Error : XModel::LoadBin : too many chunks overrun their size\n"));
}

}  // namespace
}  // namespace VKT
