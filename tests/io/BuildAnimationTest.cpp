#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>

#include "host/app/HeadlessHost.h"
#include "host/build/SceneBuilder.h"
#include "host/io/BuildScene.h"
#include "host/io/SceneReader.h"
#include "host/io/Track.h"
#include "units.h"

namespace maxhost::io {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

class BuildAnimationTest : public testing::Test {
protected:
    ~BuildAnimationTest() override { HeadlessHost::Get().Reset(); }

    NeutralTrack& AddTrack(TrackPath path, std::vector<double> times, std::vector<double> values,
                           Interpolation interpolation = Interpolation::Linear)
    {
        if (scene.animations.empty())
            scene.animations.emplace_back();
        NeutralTrack track;
        track.node = 0;
        track.path = path;
        track.interpolation = interpolation;
        track.width = path == TrackPath::Rotation ? 4 : 3;
        track.times = std::move(times);
        track.values = std::move(values);
        scene.animations.back().tracks.push_back(std::move(track));
        return scene.animations.back().tracks.back();
    }

    // Z-up with one node.
    NeutralScene scene = [] {
        NeutralScene one;
        one.up = {0, 0, 1};
        one.nodes.emplace_back();
        one.nodes[0].name = "n";
        return one;
    }();
};

int KeyCount(INode& node, Track track)
{
    Control* const control = GetTrack(node, track);
    return static_cast<IKeyControl*>(control->GetInterface(I_KEYCONTROL))->GetNumKeys();
}

// The largest distance between where the host and the source take the corners of a
// frame, over `steps` times of the animation range.
double WorstDistance(const NeutralScene& scene, const BuildReport& report, int steps)
{
    const Interval range = GetCOREInterface()->GetAnimRange();
    const Matrix turn = RotationMatrix(TurnBetween(scene.up, {0, 0, 1}));
    double worst = 0.0;
    for (int step = 0; step <= steps; ++step) {
        const TimeValue t =
            range.Start() + static_cast<int>(double(range.End() - range.Start()) * step / steps);
        std::vector<Transform> locals;
        for (const NeutralNode& node : scene.nodes)
            locals.push_back(node.local);
        for (const NeutralTrack& track : scene.animations.front().tracks) {
            Transform& local = locals[static_cast<std::size_t>(track.node)];
            if (track.path == TrackPath::Translation)
                local.translation = SampleVector(track, t / 4800.0);
            else if (track.path == TrackPath::Rotation)
                local.rotation = SampleRotation(track, t / 4800.0);
            else if (track.path == TrackPath::Scale)
                local.scale = SampleVector(track, t / 4800.0);
        }
        std::vector<Matrix> world;
        for (std::size_t i = 0; i < locals.size(); ++i) {
            const int parent = scene.nodes[i].parent;
            world.push_back((parent < 0 ? turn : world[static_cast<std::size_t>(parent)]) *
                            ToMatrix(locals[i]));
            const Matrix3 tm = report.nodes[i]->GetNodeTM(t);
            for (const Vector& v : {Vector{0, 0, 0}, Vector{1, 0, 0}, Vector{0, 1, 0}, Vector{0, 0, 1}}) {
                const Point3 p = tm.PointTransform(
                    Point3(static_cast<float>(v.x), static_cast<float>(v.y), static_cast<float>(v.z)));
                worst = std::max(worst, Length(MapPoint(world.back(), v) - Vector{p.x, p.y, p.z}));
            }
        }
    }
    return worst;
}

TEST_F(BuildAnimationTest, PositionsKeepTheirKeys)
{
    AddTrack(TrackPath::Translation, {0.0, 0.5, 1.0}, {0, 0, 5, 1, 2, 5, 3, 2, 5});
    const BuildReport report = BuildScene(scene);
    EXPECT_EQ(KeyCount(*report.nodes[0], Track::PositionX), 3);
    EXPECT_EQ(KeyCount(*report.nodes[0], Track::PositionY), 3);
    EXPECT_EQ(KeyCount(*report.nodes[0], Track::PositionZ), 0);  // holds still
    const Point3 between = report.nodes[0]->GetNodeTM(3600).GetTrans();
    EXPECT_FLOAT_EQ(between.x, 2.0f);
    EXPECT_FLOAT_EQ(between.z, 5.0f);
    EXPECT_EQ(GetCOREInterface()->GetAnimRange().End(), 4800);
}

TEST_F(BuildAnimationTest, CubicKeysKeepTheirCurve)
{
    AddTrack(TrackPath::Translation, {0.0, 1.0, 2.0},
             {0, 0, 0, 0, 0, 0, 9, 0, -4, /**/ 2, 0, 1, 3, 8, 0, 2, -5, 1, /**/ 7, 0, 3, 1, 1, 1, 0, 0, 0},
             Interpolation::Cubic);
    const BuildReport report = BuildScene(scene);
    EXPECT_EQ(KeyCount(*report.nodes[0], Track::PositionX), 3);
    EXPECT_LT(WorstDistance(scene, report, 48), 1e-5);
}

TEST_F(BuildAnimationTest, StepsHoldUntilTheNextKey)
{
    AddTrack(TrackPath::Translation, {0.0, 1.0}, {0, 0, 0, 4, 0, 0}, Interpolation::Step);
    AddTrack(TrackPath::Rotation, {0.0, 1.0}, {0, 0, 0, 1, 0, 0, 1, 0}, Interpolation::Step);
    const BuildReport report = BuildScene(scene);
    EXPECT_EQ(KeyCount(*report.nodes[0], Track::RotationZ), 2);
    EXPECT_EQ(report.nodes[0]->GetNodeTM(4799).GetTrans().x, 0.0f);
    EXPECT_FLOAT_EQ(report.nodes[0]->GetNodeTM(4799).GetRow(0).x, 1.0f);
    EXPECT_EQ(report.nodes[0]->GetNodeTM(4800).GetTrans().x, 4.0f);
    EXPECT_FLOAT_EQ(report.nodes[0]->GetNodeTM(4800).GetRow(0).x, -1.0f);
}

TEST_F(BuildAnimationTest, HalfTurnsPerKeyAreFollowedAllTheWay)
{
    // Twice 180 degrees about y, the one turn that Euler angles fold over.
    AddTrack(TrackPath::Rotation, {0.0, 1.0, 2.0}, {0, 0, 0, 1, 0, 1, 0, 0, 0, 0, 0, -1});
    const BuildReport report = BuildScene(scene);
    EXPECT_LT(WorstDistance(scene, report, 100), 1e-5);
    EXPECT_LT(report.largestRotationError, 1e-6);
}

TEST_F(BuildAnimationTest, RotationsThroughUprightStayWithinTheTolerance)
{
    // About an axis that takes x past straight up.
    const Quaternion ends[] = {
        {0, 0, 0, 1}, Normalized({0.30, 0.55, 0.35, 0.7}), Normalized({0.9, -0.2, 0.3, 0.1})};
    std::vector<double> values;
    for (const Quaternion& q : ends)
        values.insert(values.end(), {q.x, q.y, q.z, q.w});
    AddTrack(TrackPath::Rotation, {0.0, 0.4, 1.0}, values);
    const BuildReport report = BuildScene(scene);
    EXPECT_LT(WorstDistance(scene, report, 997), 2e-3);
    EXPECT_GT(report.largestRotationError, 0.0);
    EXPECT_EQ(report.worstRotation, "n");
}

TEST_F(BuildAnimationTest, ScalesGetAControllerOfThreeFloats)
{
    AddTrack(TrackPath::Scale, {0.0, 1.0}, {1, 1, 1, 2, 4, 1});
    const BuildReport report = BuildScene(scene);
    EXPECT_EQ(KeyCount(*report.nodes[0], Track::ScaleY), 2);
    EXPECT_EQ(KeyCount(*report.nodes[0], Track::ScaleZ), 0);
    EXPECT_FLOAT_EQ(report.nodes[0]->GetNodeTM(2400).GetRow(1).y, 2.5f);
    EXPECT_FLOAT_EQ(report.nodes[0]->GetNodeTM(2400).GetRow(2).z, 1.0f);
}

TEST_F(BuildAnimationTest, TopNodesOfYUpFilesAreTurnedAtEveryKey)
{
    scene.up = {0, 1, 0};
    scene.nodes.emplace_back();
    scene.nodes[1].name = "below";
    scene.nodes[1].parent = 0;
    scene.nodes[1].local.translation = {0, 1, 0};
    AddTrack(TrackPath::Translation, {0.0, 1.0}, {0, 0, 0, 9, 0, 0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 1, 1, 1},
             Interpolation::Cubic);
    AddTrack(TrackPath::Rotation, {0.0, 1.0}, {0, 0, 0, 1, 0.6, 0, 0, 0.8});
    const BuildReport report = BuildScene(scene);
    EXPECT_LT(WorstDistance(scene, report, 50), 2e-3);
    const Point3 end = report.nodes[0]->GetNodeTM(4800).GetTrans();
    EXPECT_NEAR(end.x, 7.0f, 1e-5f);
    EXPECT_NEAR(end.y, -9.0f, 1e-5f);
    EXPECT_NEAR(end.z, 8.0f, 1e-5f);
}

TEST_F(BuildAnimationTest, AFileWithARateSetsTheHosts)
{
    scene.framesPerSecond = 25.0;
    EXPECT_THAT(BuildScene(scene).warnings, testing::IsEmpty());
    EXPECT_EQ(GetTicksPerFrame(), 192);
}

TEST_F(BuildAnimationTest, ARateThatTheHostDoesNotHaveIsReported)
{
    scene.framesPerSecond = 23.976;
    EXPECT_THAT(BuildScene(scene).warnings, ElementsAre("the frame rate 23.976000 became 24.000000"));
    EXPECT_EQ(GetTicksPerFrame(), 200);
}

TEST_F(BuildAnimationTest, AnimationsOfDifferentNodesAreBuiltTogether)
{
    scene.nodes.emplace_back();
    scene.nodes[1].name = "m";
    AddTrack(TrackPath::Translation, {0.0, 1.0}, {0, 0, 0, 1, 0, 0});
    scene.animations.emplace_back().name = "second";
    AddTrack(TrackPath::Translation, {0.0, 2.0}, {0, 0, 0, 2, 0, 0}).node = 1;
    scene.animations.emplace_back().name = "third";
    AddTrack(TrackPath::Translation, {0.0, 3.0}, {0, 0, 0, 3, 0, 0});
    const BuildReport report = BuildScene(scene);
    EXPECT_EQ(KeyCount(*report.nodes[0], Track::PositionX), 2);
    EXPECT_EQ(KeyCount(*report.nodes[1], Track::PositionX), 2);
    EXPECT_EQ(GetCOREInterface()->GetAnimRange().End(), 9600);
    EXPECT_THAT(report.warnings,
                ElementsAre("animation \"third\" is left out: it drives nodes that an earlier one drives"));
}

TEST_F(BuildAnimationTest, OneAnimationCanBeChosenByName)
{
    AddTrack(TrackPath::Translation, {0.0, 1.0}, {0, 0, 0, 1, 0, 0});
    scene.animations.emplace_back().name = "run";
    AddTrack(TrackPath::Translation, {0.0, 2.0}, {0, 0, 0, 2, 0, 0});
    EXPECT_EQ(BuildScene(scene, {"run"}).nodes[0]->GetNodeTM(9600).GetTrans().x, 2.0f);
    EXPECT_THAT(BuildScene(scene, {"walk"}).warnings, ElementsAre("there is no animation \"walk\""));
}

TEST_F(BuildAnimationTest, KeysYearsApartDoNotFillTheMemory)
{
    AddTrack(TrackPath::Rotation, {0.0, 1e9}, {0, 0, 0, 1, 0, 0, 1, 0});
    const BuildReport report = BuildScene(scene);
    EXPECT_LT(KeyCount(*report.nodes[0], Track::RotationZ), 1'000'003);
    EXPECT_THAT(report.warnings, ElementsAre(HasSubstr("too long for a key at every frame")));
}

TEST_F(BuildAnimationTest, AMotionFilePlaysInTheHostAsInTheFile)
{
    const std::filesystem::path path = "/usr/share/assimp/models/BVH/01_01.bvh";
    if (!std::filesystem::exists(path))
        GTEST_SKIP() << "assimp-testmodels is not installed";
    const ReadResult result = ReadSceneFile(path);
    ASSERT_EQ(result.error, "");
    const BuildReport report = BuildScene(result.scene);
    EXPECT_EQ(GetTicksPerFrame(), 40);
    EXPECT_EQ(GetCOREInterface()->GetAnimRange().End(), 2751 * 40);
    // The file's frame is not quite a 120th of a second: its keys move by up to half a
    // tick, while the hands move by 40 units a second.
    EXPECT_LT(WorstDistance(result.scene, report, 2751), 5e-3);
}

}  // namespace
}  // namespace maxhost::io
