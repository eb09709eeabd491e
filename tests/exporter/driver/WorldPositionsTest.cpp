// Vertices of a document stand where the host shows them, as far as bones can say it.

#include "scenes/WorldPositions.h"

#include <gmock/gmock.h>

#include <random>

#include "scenes/ExportScenes.h"

namespace VKTMax {
namespace {

using namespace export_scenes;
using maxhost::MakeNode;

// What a random scene may hold.
struct Variety {
    bool unequalScale = false;
    bool mirrors = false;  // any node
    bool mirroredLeaves = false;
    bool joints = false;
    bool offsets = true;
};

class WorldPositionsTest : public ExportTest {
protected:
    float Any(float low, float high) { return std::uniform_real_distribution<float>(low, high)(m_Random); }
    bool OneIn(int n) { return std::uniform_int_distribution<int>(1, n)(m_Random) == 1; }
    Point3 AnyPoint(float size) { return Point3(Any(-size, size), Any(-size, size), Any(-size, size)); }

    void Place(INode& node, const Variety& variety, bool isLeaf)
    {
        const float size = Any(0.3f, 3.0f);
        Point3 scale(size, size, size);
        if (variety.unequalScale)
            scale = Point3(Any(0.3f, 3.0f), Any(0.3f, 3.0f), Any(0.3f, 3.0f));
        if (variety.mirrors ? OneIn(3) : variety.mirroredLeaves && isLeaf)
            scale.x = -scale.x;
        maxhost::SetPosition(node, AnyPoint(10.0f));
        maxhost::SetRotation(node, AnyPoint(3.14f));
        maxhost::SetScale(node, scale);
        if (!variety.offsets)
            return;
        node.SetObjOffsetPos(AnyPoint(2.0f));
        node.SetObjOffsetRot(Quat(AngAxis(Point3(0, 1, 0), Any(-3.0f, 3.0f))));
        node.SetObjOffsetScale(ScaleValue(Point3(Any(0.5f, 2.0f), Any(0.5f, 2.0f), Any(0.5f, 2.0f)),
                                          Quat(AngAxis(Point3(1, 0, 0), Any(-3.0f, 3.0f)))));
    }

    void BuildScene(const Variety& variety, int count = 40)
    {
        std::vector<INode*> nodes;
        std::vector<bool> isLeaf(static_cast<std::size_t>(count), true);
        std::vector<int> parents;
        for (int i = 0; i < count; ++i) {
            const int parent = std::uniform_int_distribution<int>(-1, i - 1)(m_Random);
            parents.push_back(parent);
            if (parent >= 0)
                isLeaf[static_cast<std::size_t>(parent)] = false;
        }
        for (int i = 0; i < count; ++i) {
            const int parent = parents[static_cast<std::size_t>(i)];
            TriObject* object = MakeTriangle({AnyPoint(5.0f), AnyPoint(5.0f), AnyPoint(5.0f)});
            INode* node = MakeNode(NumberedName(i), object,
                                   parent < 0 ? nullptr : nodes[static_cast<std::size_t>(parent)]);
            Place(*node, variety, isLeaf[static_cast<std::size_t>(i)]);
            if (variety.joints && OneIn(2))
                node->SetBoneNodeOnOff(TRUE, 0);
            nodes.push_back(node);
        }
    }

    // Exports the scene and measures the document, and again what comes back from its
    // binary file.
    std::vector<world_positions::Report> Measure()
    {
        world_positions::Rules rules;
        rules.factor = options.GetScaleFactor();
        rules.removeScale = options.GetRemoveScale();
        rules.currentPose = options.GetUseCurrentPoseAsBindpose();
        model.Clear();
        ExportScene();
        std::vector<world_positions::Report> reports{world_positions::Compare(Root(), model, rules)};
        const std::string path = PathOf("scene.vkt");
        model.GetSaveFlags().Clear(VKT::SaveAscii);
        EXPECT_EQ(model.Save(path.c_str()), VKT::FileOk);
        VKT::XModel read;
        EXPECT_EQ(read.Load(path.c_str()), VKT::FileOk);
        reports.push_back(world_positions::Compare(Root(), read, rules));
        return reports;
    }

    // Many scenes of a variety under the options that are set. Answers how many nodes
    // were of the exact class and how many were not.
    std::pair<std::size_t, std::size_t> ExpectInPlace(const Variety& variety)
    {
        std::size_t exact = 0, byRules = 0;
        for (int scene = 0; scene < 25; ++scene) {
            host.Reset();
            BuildScene(variety);
            for (const world_positions::Report& report : Measure()) {
                EXPECT_THAT(report.problems, testing::IsEmpty());
                EXPECT_EQ(report.points, 120u);
                EXPECT_LE(report.exactError, 1e-5) << report.exactWorst;
                EXPECT_LE(report.ruleError, 1e-5) << report.ruleWorst;
                EXPECT_EQ(report.degenerateNodes, 0u);
                exact += report.exactNodes;
                byRules += report.ruleNodes;
            }
        }
        return {exact, byRules};
    }

private:
    std::mt19937 m_Random{20090321};
};

constexpr std::size_t kAllNodes = 2 * 25 * 40;

TEST_F(WorldPositionsTest, UniformScalesAreExactWithScaleRemoved)
{
    EXPECT_EQ(ExpectInPlace({}), std::pair(kAllNodes, std::size_t{0}));
}

TEST_F(WorldPositionsTest, UniformScalesAreExactWithScaleKept)
{
    options.SetRemoveScale(false);
    EXPECT_EQ(ExpectInPlace({}), std::pair(kAllNodes, std::size_t{0}));
}

// But for those few whose local transform, found again from two world matrices of single
// precision, is noisier than the measure allows.
TEST_F(WorldPositionsTest, UnequalScalesAreExactWithScaleKept)
{
    options.SetRemoveScale(false);
    const auto [exact, byRules] = ExpectInPlace({.unequalScale = true});
    EXPECT_EQ(exact + byRules, kAllNodes);
    EXPECT_GT(exact, kAllNodes * 95 / 100);
}

TEST_F(WorldPositionsTest, UnequalScalesShearWhatIsBelowThemWithScaleRemoved)
{
    const auto [exact, byRules] = ExpectInPlace({.unequalScale = true});
    EXPECT_GT(exact, 0u);
    EXPECT_GT(byRules, exact);
}

TEST_F(WorldPositionsTest, MirroredLeavesAreExactWithScaleRemoved)
{
    EXPECT_EQ(ExpectInPlace({.mirroredLeaves = true}), std::pair(kAllNodes, std::size_t{0}));
}

TEST_F(WorldPositionsTest, JointsAreExactWithScaleRemoved)
{
    EXPECT_EQ(ExpectInPlace({.joints = true}), std::pair(kAllNodes, std::size_t{0}));
}

TEST_F(WorldPositionsTest, ScaleFactorScalesTheWholeScene)
{
    options.SetScaleFactor(0.0254f);
    EXPECT_EQ(ExpectInPlace({}), std::pair(kAllNodes, std::size_t{0}));
    options.SetRemoveScale(false);
    EXPECT_EQ(ExpectInPlace({}), std::pair(kAllNodes, std::size_t{0}));
}

TEST_F(WorldPositionsTest, MirrorsFollowTheRulesWithScaleKept)
{
    options.SetRemoveScale(false);
    const auto [exact, byRules] = ExpectInPlace({.mirroredLeaves = true});
    EXPECT_GT(exact, 0u);
    EXPECT_GT(byRules, 0u);
}

TEST_F(WorldPositionsTest, JointsBelowScaledParentsFollowTheRulesWithScaleKept)
{
    options.SetRemoveScale(false);
    const auto [exact, byRules] = ExpectInPlace({.joints = true});
    EXPECT_GT(exact, 0u);
    EXPECT_GT(byRules, 0u);
}

TEST_F(WorldPositionsTest, ShearAndInheritedMirrorsFollowTheRules)
{
    for (const bool removeScale : {true, false}) {
        options.SetRemoveScale(removeScale);
        const auto [exact, byRules] = ExpectInPlace({.unequalScale = true, .mirrors = true, .joints = true});
        EXPECT_LT(exact, byRules);
    }
}

TEST_F(WorldPositionsTest, CurrentPoseFollowsTheRules)
{
    options.SetUseCurrentPoseAsBindpose(true);
    const auto [exact, byRules] = ExpectInPlace({.unequalScale = true});
    EXPECT_EQ(exact, 0u);
    EXPECT_EQ(byRules, kAllNodes);
}

// The measure itself: it sees a point that is out of place, and says how far.
TEST_F(WorldPositionsTest, MeasureSeesAMovedPoint)
{
    MakeNode("a", MakeTriangle({Point3(0, 0, 0), Point3(10, 0, 0), Point3(0, 10, 0)}));
    ExportScene();
    VKT::XVector3Array points = MeshOf("a")->GetPoints();
    points[1].z += 1.0f;
    MeshOf("a")->SetPoints(points);
    const world_positions::Report report = world_positions::Compare(Root(), model, {});
    EXPECT_EQ(report.size, 10.0);
    EXPECT_NEAR(report.exactError, 0.1, 1e-6);
    EXPECT_EQ(report.exactWorst, "a");
}

TEST_F(WorldPositionsTest, MeasureCountsSharedAndDegenerateNodes)
{
    TriObject* shared = MakeTriangle();
    MakeNode("first", shared);
    MakeNode("second", shared);
    MakeNode("third", shared);
    INode* flat = MakeNode("flat", MakeTriangle());
    maxhost::SetScale(*flat, Point3(1, 0, 1));
    ExportScene();
    const world_positions::Report report = world_positions::Compare(Root(), model, {});
    EXPECT_EQ(report.sharedNodes, 2u);
    EXPECT_EQ(report.exactNodes, 1u);
    EXPECT_EQ(report.degenerateNodes, 1u);
    EXPECT_EQ(report.ruleNodes, 0u);
}

TEST_F(WorldPositionsTest, MeasureReportsMissingBonesAndPoints)
{
    MakeNode("a", MakeTriangle());
    ExportScene();
    MeshOf("a")->SetPoints({{0, 0, 0, 0}});
    MakeNode("later");
    const world_positions::Report report = world_positions::Compare(Root(), model, {});
    EXPECT_THAT(report.problems, testing::UnorderedElementsAre("no bone for later", "number of points of a"));
}

}  // namespace
}  // namespace VKTMax
