#include "VKT/document/Model.h"

#include <gtest/gtest.h>

#include <map>
#include <random>
#include <set>

#include "VKT/geometry/PolygonMesh.h"
#include "VKT/hierarchy/Bone.h"
#include "VKT/hierarchy/Joint.h"
#include "VKT/lights/SpotLight.h"
#include "VKT/shading/Lambert.h"
#include "VKT/support/LogCatcher.h"
#include "VKT/support/TestModel.h"

namespace VKT {
namespace {

using Test::LoadText;
using Test::RegistryScope;
using Test::TextOf;

class ModelTest : public testing::Test {
protected:
    std::vector<std::string> NamesOf(const XNodeList& nodes)
    {
        std::vector<std::string> names;
        for (const XBase* node : nodes)
            names.emplace_back(node->GetName());
        return names;
    }
    XBone* Bone(const char* name)
    {
        XBone* bone = m_Model.CreateNode<XBone>();
        bone->SetName(name);
        return bone;
    }

    LogCatcher m_Log;
    RegistryScope m_Registry;
    XModel m_Model;
};

TEST_F(ModelTest, ANewOneIsEmptyAndOfVersion4)
{
    EXPECT_EQ(m_Model.GetVersion(), 4u);
    EXPECT_TRUE(m_Model.GetNodes().empty());
    EXPECT_EQ(m_Model.GetInfo(), nullptr);
    EXPECT_TRUE(m_Model.GetImages().empty());
    XInstanceList instances;
    EXPECT_FALSE(m_Model.ListInstances(instances));
}

TEST_F(ModelTest, TheDefaultFlags)
{
    for (const u32 bit : {1u, 2u, 4u, 8u, 16u, 32u, 64u, 128u, 256u})
        EXPECT_TRUE(m_Model.GetSaveFlags().Test(bit)) << bit;
    EXPECT_FALSE(m_Model.GetSaveFlags().Test(~511u));
    for (const u32 bit : {1u, 2u, 4u, 8u, 16u, 32u, 64u})
        EXPECT_TRUE(m_Model.GetCopyFlags().Test(bit)) << bit;
    EXPECT_FALSE(m_Model.GetCopyFlags().Test(~127u));
    for (int bit = 0; bit < 32; ++bit)
        EXPECT_TRUE(m_Model.GetDeleteFlags().Test(1u << bit)) << bit;
}

TEST_F(ModelTest, FlagsAreSetTestedAndClearedByBits)
{
    XFlagStack& flags = m_Model.GetSaveFlags();
    flags.Clear(SaveBones | SaveAscii);
    EXPECT_FALSE(flags.Test(SaveBones));
    EXPECT_FALSE(flags.Test(SaveAscii));
    EXPECT_TRUE(flags.Test(SaveBones | SaveShapes));  // any of them
    flags.Set(SaveBones);
    EXPECT_TRUE(flags.Test(SaveBones));
    m_Model.Clear();
    EXPECT_FALSE(flags.Test(SaveAscii));  // flags stay
}

TEST_F(ModelTest, FirstNodesGetIdsAndNamesFromOne)
{
    XBase* const first = m_Model.CreateNode(kFnBone);
    XBase* const second = m_Model.CreateNode(kFnLambert);
    ASSERT_TRUE(first && second);
    EXPECT_EQ(first->GetID(), 1u);
    EXPECT_STREQ(first->GetName(), "node1");
    EXPECT_EQ(first->GetApiType(), kFnBone);
    EXPECT_EQ(first->GetModel(), &m_Model);
    EXPECT_EQ(second->GetID(), 2u);
    EXPECT_STREQ(second->GetName(), "node2");
    EXPECT_EQ(m_Model.FindNode(1u), first);
    EXPECT_EQ(m_Model.FindNode("node2"), second);
    EXPECT_EQ(m_Log.Text(), "");
}

TEST_F(ModelTest, DefaultNamesTakeTheFirstFreeNumber)
{
    XBase* const first = m_Model.CreateNode(kFnBone);
    m_Model.CreateNode(kFnBone);
    m_Model.CreateNode(kFnBone);
    first->SetName("root");
    EXPECT_STREQ(m_Model.CreateNode(kFnBone)->GetName(), "node1");
    EXPECT_STREQ(m_Model.CreateNode(kFnBone)->GetName(), "node4");
    m_Model.FindNode("node3")->SetName("node6");
    EXPECT_STREQ(m_Model.CreateNode(kFnBone)->GetName(), "node3");
    EXPECT_STREQ(m_Model.CreateNode(kFnBone)->GetName(), "node5");
    EXPECT_STREQ(m_Model.CreateNode(kFnBone)->GetName(), "node7");
}

TEST_F(ModelTest, AnAbstractOrUnknownTypeIsRefusedWithAMessageAndTakesNoId)
{
    EXPECT_EQ(m_Model.CreateNode(kFnMaterial), nullptr);
    EXPECT_EQ(m_Log.Text(),
              "Error : Could not create type material. This is either because the type is abstract, or "
              "invalid...\n");
    m_Log.Clear();
    EXPECT_EQ(m_Model.CreateNode(9999), nullptr);
    EXPECT_EQ(m_Log.Text(),
              "Error : Could not create type . This is either because the type is abstract, or invalid...\n");
    EXPECT_EQ(m_Model.CreateNode(kFnBone)->GetID(), 1u);
}

TEST_F(ModelTest, WithoutARegistryNothingIsCreated)
{
    XFnShutdown();
    EXPECT_EQ(m_Model.CreateNode(kFnBone), nullptr);
    EXPECT_EQ(m_Log.Text(),
              "Error : Could not create type invalid. This is either because the type is abstract, or "
              "invalid...\n");
}

TEST_F(ModelTest, ATypedCreateAnswersTheClass)
{
    XPolygonMesh* const mesh = m_Model.CreateNode<XPolygonMesh>();
    ASSERT_NE(mesh, nullptr);
    EXPECT_EQ(mesh->GetApiType(), kFnPolygonMesh);
    EXPECT_EQ(m_Model.CreateNode<XMaterial>(), nullptr);
}

TEST_F(ModelTest, LookUpsOfWhatIsNotThereAnswerNullAndLogNothing)
{
    m_Model.CreateNode(kFnBone);
    EXPECT_EQ(m_Model.FindNode(0u), nullptr);
    EXPECT_EQ(m_Model.FindNode(2u), nullptr);
    EXPECT_EQ(m_Model.FindNode("node"), nullptr);
    EXPECT_EQ(m_Model.FindNode("node10"), nullptr);
    EXPECT_FALSE(m_Model.HasNode(0));
    EXPECT_FALSE(m_Model.HasNode(2));
    EXPECT_TRUE(m_Model.HasNode(1));
    EXPECT_EQ(m_Log.Text(), "");
}

TEST_F(ModelTest, SetNameReplacesBlanksAndTabsAndNumbersWhatIsTaken)
{
    XBase* const first = m_Model.CreateNode(kFnBone);
    XBase* const second = m_Model.CreateNode(kFnBone);
    EXPECT_EQ(m_Model.SetName(first, "a b"), "a_b");
    EXPECT_STREQ(first->GetName(), "a_b");
    EXPECT_EQ(m_Model.SetName(second, "a\tb"), "a_b1");
    EXPECT_EQ(m_Model.FindNode("a_b"), first);
    EXPECT_EQ(m_Model.FindNode("a_b1"), second);
    EXPECT_EQ(m_Model.FindNode("node1"), nullptr);
}

TEST_F(ModelTest, TheNodesOwnNameCountsAsTaken)
{
    XBase* const node = m_Model.CreateNode(kFnBone);
    EXPECT_EQ(m_Model.SetName(node, "arm"), "arm");
    EXPECT_EQ(m_Model.SetName(node, "arm"), "arm1");
    EXPECT_EQ(m_Model.SetName(node, "arm"), "arm");
    EXPECT_EQ(m_Model.SetName(node, "arm"), "arm1");
    EXPECT_EQ(m_Model.SetName(node, "arm1"), "arm11");
}

TEST_F(ModelTest, ANullNodeGetsNoName)
{
    m_Model.CreateNode(kFnBone);
    EXPECT_EQ(m_Model.SetName(nullptr, "node1"), "");
    EXPECT_EQ(m_Model.GetNodes().size(), 1u);
}

TEST_F(ModelTest, AnEmptyNameIsANameLikeAnyOther)
{
    XBase* const first = m_Model.CreateNode(kFnBone);
    XBase* const second = m_Model.CreateNode(kFnBone);
    EXPECT_EQ(m_Model.SetName(first, ""), "");
    EXPECT_EQ(m_Model.SetName(second, ""), "1");
    EXPECT_EQ(m_Model.FindNode(""), first);
}

TEST_F(ModelTest, OneOfSeveralNumberedNodesIsRenamedAlone)
{
    for (int i = 0; i < 5; ++i)
        Bone("same");
    EXPECT_EQ(m_Model.SetName(m_Model.FindNode("same2"), "other"), "other");
    EXPECT_NE(m_Model.FindNode("same"), nullptr);
    EXPECT_NE(m_Model.FindNode("same1"), nullptr);
    EXPECT_EQ(m_Model.FindNode("same2"), nullptr);
    EXPECT_NE(m_Model.FindNode("same4"), nullptr);
    EXPECT_STREQ(Bone("same")->GetName(), "same2");
}

// The rule as it is told, without any memory of numbers.
class NamesByTheRule {
public:
    void Add(u32 id) { m_Names[id] = FirstFree("node"); }
    std::string Rename(u32 id, std::string name)
    {
        for (char& c : name)
            if (c == ' ' || c == '\t')
                c = '_';
        if (IsTaken(name))
            name = FirstFree(name);
        return m_Names[id] = name;
    }
    const std::string& NameOf(u32 id) const { return m_Names.at(id); }

private:
    bool IsTaken(const std::string& name) const
    {
        for (const auto& [id, taken] : m_Names)
            if (taken == name)
                return true;
        return false;
    }
    std::string FirstFree(const std::string& stem) const
    {
        for (int n = 1;; ++n)
            if (std::string name = stem + std::to_string(n); !IsTaken(name))
                return name;
    }
    std::map<u32, std::string> m_Names;
};

TEST_F(ModelTest, RandomRenamesGoByTheRule)
{
    const std::vector<std::string> stems = {
        "a",  "a1", "a2", "a10", "a01", "a0",    "b c", "b_c", "node", "node1", "",  "1",    "0",   "a\t",
        "a_", "9",  "99", "a9",  "a99", "node0", "a11", "a21", "007",  "x1y",   "x", "a100", "b_c1"};
    for (u32 seed = 1; seed <= 30; ++seed) {
        std::mt19937 random(seed);
        XModel model;
        NamesByTheRule rule;
        u32 count = 0;
        for (int step = 0; step < 300; ++step) {
            if (count == 0 || random() % 4 == 0) {
                const XBase* node = model.CreateNode(kFnBone);
                rule.Add(node->GetID());
                ASSERT_EQ(node->GetName(), rule.NameOf(node->GetID())) << "seed " << seed;
                ++count;
                continue;
            }
            const u32 id = 1 + random() % count;
            // Mostly a few stems, sometimes the name that another node has.
            const std::string wanted =
                random() % 5 == 0 ? rule.NameOf(1 + random() % count) : stems[random() % stems.size()];
            const std::string expected = rule.Rename(id, wanted);
            ASSERT_EQ(model.SetName(model.FindNode(id), wanted), expected) << "seed " << seed;
            ASSERT_EQ(model.FindNode(id)->GetName(), expected);
        }
        for (u32 id = 1; id <= count; ++id)
            ASSERT_EQ(model.FindNode(rule.NameOf(id)), model.FindNode(id));
        ASSERT_EQ(model.GetNodes().size(), count);
    }
}

TEST_F(ModelTest, AHundredThousandEqualNamesAreNumberedInOnePass)
{
    constexpr u32 kCount = 100'000;
    for (u32 i = 0; i < kCount; ++i)
        m_Model.CreateNode(kFnBone);
    EXPECT_NE(m_Model.FindNode("node100000"), nullptr);
    for (u32 id = 1; id <= kCount; ++id)
        m_Model.SetName(m_Model.FindNode(id), "same");
    EXPECT_STREQ(m_Model.FindNode(1u)->GetName(), "same");
    EXPECT_STREQ(m_Model.FindNode(2u)->GetName(), "same1");
    EXPECT_STREQ(m_Model.FindNode(kCount)->GetName(), "same99999");
}

TEST_F(ModelTest, ListAnswersAClassAndItsSubclassesInNameOrder)
{
    Bone("b");
    Bone("A");
    m_Model.SetName(m_Model.CreateNode<XJoint>(), "a");
    m_Model.SetName(m_Model.CreateNode<XLambert>(), "0");
    XNodeList nodes;
    EXPECT_TRUE(m_Model.List(nodes, kFnBase));
    EXPECT_EQ(NamesOf(nodes), (std::vector<std::string>{"0", "A", "a", "b"}));
    EXPECT_TRUE(m_Model.List(nodes, kFnBone));
    EXPECT_EQ(NamesOf(nodes), (std::vector<std::string>{"A", "a", "b"}));
    EXPECT_TRUE(m_Model.List(nodes, kFnBone, true));
    EXPECT_EQ(NamesOf(nodes), (std::vector<std::string>{"A", "b"}));
    EXPECT_TRUE(m_Model.List(nodes, kFnMaterial));
    EXPECT_EQ(NamesOf(nodes), (std::vector<std::string>{"0"}));
    EXPECT_FALSE(m_Model.List(nodes, kFnMaterial, true));  // no node is a material and no more
    EXPECT_TRUE(nodes.empty());
    m_Model.List(nodes, kFnBone);
    EXPECT_FALSE(m_Model.List(nodes, kFnBase, true));
    EXPECT_TRUE(nodes.empty());
}

TEST_F(ModelTest, NamesAreOrderedByTheirBytes)
{
    for (const char* name : {"b", "\xC3\xA4", "B", "a", "_", "aa", "a1"})
        Bone(name);
    XNodeList nodes;
    m_Model.List(nodes, kFnBase);
    EXPECT_EQ(NamesOf(nodes), (std::vector<std::string>{"B", "_", "a", "a1", "aa", "b", "\xC3\xA4"}));
}

TEST_F(ModelTest, ListRootBonesAnswersBonesWithoutParent)
{
    XBone* const top = Bone("top");
    top->AddChild(Bone("child"));
    XBone* const other = m_Model.CreateNode<XJoint>();
    other->SetName("another");
    m_Model.CreateNode<XLambert>();
    XBoneList roots;
    EXPECT_TRUE(m_Model.ListRootBones(roots));
    EXPECT_EQ(roots, (XBoneList{other, top}));
    m_Model.Clear();
    EXPECT_FALSE(m_Model.ListRootBones(roots));
    EXPECT_TRUE(roots.empty());
}

TEST_F(ModelTest, IsValidKnowsItsOwnNodesAlone)
{
    XModel other;
    XBase* const mine = m_Model.CreateNode(kFnBone);
    XBase* const theirs = other.CreateNode(kFnBone);
    XBone loose(&m_Model);
    EXPECT_TRUE(m_Model.IsValid(mine));
    EXPECT_FALSE(m_Model.IsValid(theirs));
    EXPECT_FALSE(m_Model.IsValid(&loose));
    EXPECT_FALSE(m_Model.IsValid(nullptr));
    EXPECT_TRUE(m_Model.Holds(*mine));
    EXPECT_FALSE(m_Model.Holds(*theirs));
    EXPECT_FALSE(m_Model.Holds(loose));
    EXPECT_TRUE(mine->IsValid(mine));
    EXPECT_FALSE(mine->IsValid(theirs));
    EXPECT_TRUE(mine->IsValidId(1));
    EXPECT_FALSE(mine->IsValidId(2));
    const XBase* gone = mine;
    m_Model.Clear();
    EXPECT_FALSE(m_Model.IsValid(gone));
}

TEST_F(ModelTest, ClearStartsCountingAnew)
{
    XBone* const bone = Bone("b");
    XPolygonMesh* const mesh = m_Model.CreateNode<XPolygonMesh>();
    m_Model.CreateInstance(bone, mesh);
    m_Model.SetInfo(std::make_unique<XInfo>());
    m_Model.Clear();
    EXPECT_TRUE(m_Model.GetNodes().empty());
    EXPECT_EQ(m_Model.GetInfo(), nullptr);
    XInstanceList instances;
    EXPECT_FALSE(m_Model.ListInstances(instances));
    EXPECT_EQ(m_Model.FindNode(1u), nullptr);
    XBone* const again = m_Model.CreateNode<XBone>();
    EXPECT_EQ(again->GetID(), 1u);
    EXPECT_STREQ(again->GetName(), "node1");
    EXPECT_EQ(m_Model.CreateInstance(again, m_Model.CreateNode<XPolygonMesh>())->GetID(), 1u);
}

TEST_F(ModelTest, ANodeOutsideTheDocumentTakesANameWithoutEntering)
{
    XBone loose(&m_Model);
    Bone("arm");
    EXPECT_EQ(m_Model.SetName(&loose, "arm"), "arm1");
    EXPECT_STREQ(loose.GetName(), "arm1");
    EXPECT_EQ(m_Model.FindNode("arm1"), nullptr);
}

TEST_F(ModelTest, CreateInstanceHangsAShapeUnderABoneOnce)
{
    XBone* const bone = Bone("bone");
    XBone* const other = Bone("other");
    XPolygonMesh* const mesh = m_Model.CreateNode<XPolygonMesh>();
    mesh->SetName("mesh");
    XSpotLight* const light = m_Model.CreateNode<XSpotLight>();

    XInstance* const first = m_Model.CreateInstance(bone, mesh);
    ASSERT_NE(first, nullptr);
    EXPECT_EQ(first->GetID(), 1u);
    EXPECT_STREQ(first->GetName(), "mesh");
    EXPECT_EQ(first->GetShape(), mesh);
    EXPECT_EQ(first->GetParent(), bone);
    EXPECT_EQ(first->GetMaterial(), 0u);
    EXPECT_EQ(m_Model.CreateInstance(bone, mesh), first);
    EXPECT_EQ(bone->GetInstanceIds(), XIndexList{1});

    XInstance* const second = m_Model.CreateInstance(other, mesh);
    XInstance* const third = m_Model.CreateInstance(bone, light);
    EXPECT_EQ(second->GetID(), 2u);
    EXPECT_EQ(third->GetID(), 3u);
    EXPECT_EQ(bone->GetInstanceIds(), (XIndexList{1, 3}));
    XInstanceList instances;
    EXPECT_TRUE(mesh->GetObjectInstances(instances));
    EXPECT_EQ(instances, (XInstanceList{first, second}));
    EXPECT_TRUE(m_Model.ListInstances(instances));
    EXPECT_EQ(instances, (XInstanceList{first, second, third}));
    EXPECT_EQ(m_Model.FindInstance(3u), third);
    EXPECT_EQ(m_Model.FindInstance(4u), nullptr);
    EXPECT_EQ(m_Model.FindInstance(*bone, *mesh), first);
    EXPECT_EQ(m_Model.FindInstance(*other, *light), nullptr);
    XIndexList ids{9};
    m_Model.ListInstancesOf(mesh->GetID(), ids);
    EXPECT_EQ(ids, (XIndexList{1, 2}));
    m_Model.ListInstancesOf(99, ids);
    EXPECT_TRUE(ids.empty());
}

TEST_F(ModelTest, ThereIsNoInstanceOfNothing)
{
    EXPECT_EQ(m_Model.CreateInstance(nullptr, m_Model.CreateNode<XPolygonMesh>()), nullptr);
    EXPECT_EQ(m_Model.CreateInstance(Bone("b"), nullptr), nullptr);
}

TEST_F(ModelTest, DeleteInstanceTakesItFromTheDocumentAndItsBone)
{
    XBone* const bone = Bone("bone");
    XPolygonMesh* const mesh = m_Model.CreateNode<XPolygonMesh>();
    XSpotLight* const light = m_Model.CreateNode<XSpotLight>();
    m_Model.CreateInstance(bone, mesh);
    XInstance* const second = m_Model.CreateInstance(bone, light);
    EXPECT_FALSE(m_Model.DeleteInstance(0));
    EXPECT_FALSE(m_Model.DeleteInstance(3));
    EXPECT_TRUE(m_Model.DeleteInstance(1));
    EXPECT_FALSE(m_Model.DeleteInstance(1));
    EXPECT_EQ(bone->GetInstanceIds(), XIndexList{2});
    XInstanceList instances;
    EXPECT_FALSE(mesh->GetObjectInstances(instances));
    EXPECT_TRUE(m_Model.ListInstances(instances));
    EXPECT_EQ(instances, XInstanceList{second});
    EXPECT_EQ(m_Model.FindInstance(*bone, *mesh), nullptr);
    // Ids run on.
    EXPECT_EQ(m_Model.CreateInstance(bone, mesh)->GetID(), 3u);
}

TEST_F(ModelTest, UpdateWorldMatricesWalksFromTheRoots)
{
    XBone* const top = Bone("top");
    XBone* const child = Bone("child");
    top->AddChild(child);
    top->SetTranslate({1, 0, 0, 0});
    child->SetTranslate({0, 2, 0, 0});
    m_Model.UpdateWorldMatrices();
    EXPECT_EQ(child->GetWorld(false), TranslationMatrix({1, 2, 0, 0}));
    EXPECT_EQ(child->GetInverseWorld(false), TranslationMatrix({-1, -2, 0, 0}));
}

TEST_F(ModelTest, ACloneIsANodeOfItsOwn)
{
    XSpotLight* const light = m_Model.CreateNode<XSpotLight>();
    light->SetName("lamp");
    light->SetConeAngle(0.5f);
    XSpotLight* const copy = XCast<XSpotLight>(light->Clone());
    ASSERT_NE(copy, nullptr);
    EXPECT_NE(copy, light);
    EXPECT_EQ(copy->GetID(), 2u);
    EXPECT_STREQ(copy->GetName(), "lamp1");
    EXPECT_EQ(copy->GetConeAngle(), 0.5f);
    EXPECT_TRUE(m_Model.Holds(*copy));
}

TEST_F(ModelTest, IdsRunOnBehindTheLargestIdOfAFile)
{
    const std::string header = "|VKT_004A#0000#00000000|\n";
    XLambert* const lambert = m_Model.CreateNode<XLambert>();
    const std::string body = TextOf(*lambert);
    const auto file = [&](const char* id) {
        return header + "LAMBERT a\n{\n\tid " + id + "\n" + body + "}\n";
    };
    ASSERT_EQ(LoadText(m_Model, file("40")), FileOk);
    EXPECT_EQ(m_Model.CreateNode(kFnBone)->GetID(), 41u);

    // Nothing stands behind the largest number: the lowest that are free come next.
    ASSERT_EQ(LoadText(m_Model, file("4294967295")), FileOk);
    EXPECT_EQ(m_Model.CreateNode(kFnBone)->GetID(), 1u);
    EXPECT_EQ(m_Model.CreateNode(kFnBone)->GetID(), 2u);
    for (u32 id = 3; id <= 100'000; ++id)
        ASSERT_EQ(m_Model.CreateNode(kFnBone)->GetID(), id);
    m_Model.Clear();
    EXPECT_EQ(m_Model.CreateNode(kFnBone)->GetID(), 1u);

    ASSERT_EQ(LoadText(m_Model, file("0")), FileOk);
    EXPECT_EQ(m_Model.FindNode(0u), nullptr);
    EXPECT_NE(m_Model.FindNode("a"), nullptr);
    EXPECT_EQ(m_Model.CreateNode(kFnBone)->GetID(), 1u);
}

}  // namespace
}  // namespace VKT
