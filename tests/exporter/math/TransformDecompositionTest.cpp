#include "exporter/math/TransformDecomposition.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>

namespace VKTMax {
namespace {

constexpr double kPi = 3.14159265358979323846;
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

RowMatrix Rows(std::initializer_list<double> values)
{
    RowMatrix out;
    auto value = values.begin();
    for (auto& row : out.m)
        for (int i = 0; i < 3; ++i)
            row[i] = *value++;
    return out;
}

RowMatrix Scaling(double x, double y, double z)
{
    return Rows({x, 0, 0, 0, y, 0, 0, 0, z, 0, 0, 0});
}
RowMatrix Moving(double x, double y, double z)
{
    return Rows({1, 0, 0, 0, 1, 0, 0, 0, 1, x, y, z});
}

// Right-handed, for row vectors.
RowMatrix Turning(double x, double y, double z, double angle)
{
    const double length = std::sqrt(x * x + y * y + z * z);
    x /= length, y /= length, z /= length;
    const double c = std::cos(angle), s = std::sin(angle), t = 1 - c;
    return Rows({t * x * x + c, t * x * y + s * z, t * x * z - s * y,  //
                 t * x * y - s * z, t * y * y + c, t * y * z + s * x,  //
                 t * x * z + s * y, t * y * z - s * x, t * z * z + c,  //
                 0, 0, 0});
}

// The matrix that a bone with these parts has.
RowMatrix Composed(const TransformParts& parts)
{
    const double x = parts.rotation.x, y = parts.rotation.y, z = parts.rotation.z, w = parts.rotation.w;
    RowMatrix rotation = Rows({1 - 2 * (y * y + z * z), 2 * (x * y + z * w), 2 * (x * z - y * w),  //
                               2 * (x * y - z * w), 1 - 2 * (x * x + z * z), 2 * (y * z + x * w),  //
                               2 * (x * z + y * w), 2 * (y * z - x * w), 1 - 2 * (x * x + y * y),  //
                               0, 0, 0});
    return Scaling(parts.scale.x, parts.scale.y, parts.scale.z) * rotation *
           Moving(parts.translation.x, parts.translation.y, parts.translation.z);
}

void ExpectNear(const RowMatrix& a, const RowMatrix& b, double tolerance)
{
    for (int row = 0; row < 4; ++row)
        for (int column = 0; column < 4; ++column)
            EXPECT_NEAR(a.m[row][column], b.m[row][column], tolerance) << row << ", " << column;
}

constexpr ScaleRules kKeepScale{1.0, false};
constexpr ScaleRules kRemoveScale{1.0, true};

TEST(TransformDecomposition, IdentityStaysIdentity)
{
    const TransformParts parts = DecomposeTransform({}, {}, kRemoveScale);
    EXPECT_EQ(parts.rotation, (VKT::XQuaternion{0, 0, 0, 1}));
    EXPECT_EQ(parts.translation, (VKT::XVector3{0, 0, 0, 0}));
    EXPECT_EQ(parts.scale, (VKT::XVector3{1, 1, 1, 0}));
}

TEST(TransformDecomposition, QuarterTurnIsRightHanded)
{
    const TransformParts parts = DecomposeTransform(Turning(0, 0, 1, kPi / 2), {}, kKeepScale);
    EXPECT_FLOAT_EQ(parts.rotation.z, std::sqrt(0.5f));
    EXPECT_FLOAT_EQ(parts.rotation.w, std::sqrt(0.5f));
    EXPECT_FLOAT_EQ(parts.rotation.x, 0.0f);
    EXPECT_FLOAT_EQ(parts.rotation.y, 0.0f);
}

TEST(TransformDecomposition, SplitsAnyScaleRotationAndTranslation)
{
    std::mt19937 random(7);
    std::uniform_real_distribution<double> any(-1, 1), size(0.1, 10);
    for (int i = 0; i < 2000; ++i) {
        const auto transform = [&] {
            return Scaling(size(random), size(random), size(random)) *
                   Turning(any(random), any(random), any(random), kPi * any(random)) *
                   Moving(10 * any(random), 10 * any(random), 10 * any(random));
        };
        const RowMatrix local = transform();
        const RowMatrix parent = transform();
        ExpectNear(Composed(DecomposeTransform(local * parent, parent, kKeepScale)), local, 2e-5);
    }
}

TEST(TransformDecomposition, RotationOfAShearedMatrixIsWhatGramSchmidtLeaves)
{
    // Row 0 gives the first axis, row 1 what is new in it, row 2 nothing but a side.
    const RowMatrix sheared = Rows({2, 0, 0, 5, 3, 0, 7, 11, 13, 0, 0, 0});
    const TransformParts parts = DecomposeTransform(sheared, {}, kKeepScale);
    EXPECT_EQ(parts.rotation, (VKT::XQuaternion{0, 0, 0, 1}));
    EXPECT_FLOAT_EQ(parts.scale.x, 2.0f);
    EXPECT_FLOAT_EQ(parts.scale.y, std::sqrt(34.0f));
    EXPECT_FLOAT_EQ(parts.scale.z, std::sqrt(339.0f));
}

TEST(TransformDecomposition, MirrorGivesAProperRotationAndPositiveScale)
{
    const RowMatrix mirrored = Scaling(-2, 3, 4) * Turning(1, 2, 3, 0.7);
    const TransformParts parts = DecomposeTransform(mirrored, {}, kKeepScale);
    EXPECT_FLOAT_EQ(parts.scale.x, 2.0f);
    EXPECT_FLOAT_EQ(parts.scale.y, 3.0f);
    EXPECT_FLOAT_EQ(parts.scale.z, 4.0f);
    ExpectNear(Composed(parts), Scaling(2, 3, 4) * Turning(1, 2, 3, 0.7), 1e-6);
}

TEST(TransformDecomposition, MirrorAlongAnotherAxisTurnsUpAsARotation)
{
    // A mirror along y is one along x, turned by half about z.
    const TransformParts parts = DecomposeTransform(Scaling(1, -1, 1), {}, kKeepScale);
    EXPECT_EQ(parts.scale, (VKT::XVector3{1, 1, 1, 0}));
    ExpectNear(Composed(parts), Turning(0, 0, 1, kPi), 1e-6);
}

TEST(TransformDecomposition, ParentsScaleMovesIntoTheOffset)
{
    const RowMatrix parent = Scaling(2, 2, 2);
    const TransformParts parts = DecomposeTransform(Moving(1, 0, 0) * parent, parent, kRemoveScale);
    EXPECT_EQ(parts.translation, (VKT::XVector3{2, 0, 0, 0}));
    EXPECT_EQ(parts.scale, (VKT::XVector3{1, 1, 1, 0}));
}

TEST(TransformDecomposition, KeptScaleLeavesTheOffsetAlone)
{
    const RowMatrix parent = Scaling(2, 3, 4);
    const TransformParts parts =
        DecomposeTransform(Scaling(5, 6, 7) * Moving(1, 1, 1) * parent, parent, kKeepScale);
    EXPECT_EQ(parts.translation, (VKT::XVector3{1, 1, 1, 0}));
    EXPECT_EQ(parts.scale, (VKT::XVector3{5, 6, 7, 0}));
}

TEST(TransformDecomposition, EachAxisOfTheOffsetTakesItsOwnScaleOfTheParent)
{
    const RowMatrix parent = Scaling(2, 3, 4) * Turning(1, 1, 0, 1);
    const TransformParts parts = DecomposeTransform(Moving(1, 1, 1) * parent, parent, kRemoveScale);
    EXPECT_FLOAT_EQ(parts.translation.x, 2.0f);
    EXPECT_FLOAT_EQ(parts.translation.y, 3.0f);
    EXPECT_FLOAT_EQ(parts.translation.z, 4.0f);
}

TEST(TransformDecomposition, FactorMultipliesTranslationAlone)
{
    const TransformParts parts =
        DecomposeTransform(Scaling(3, 3, 3) * Moving(1, 2, 3), {}, {.factor = 0.5, .removeScale = false});
    EXPECT_EQ(parts.translation, (VKT::XVector3{0.5f, 1, 1.5f, 0}));
    EXPECT_EQ(parts.scale, (VKT::XVector3{3, 3, 3, 0}));
}

TEST(TransformDecomposition, SingularParentCountsAsIdentity)
{
    const RowMatrix flat = Scaling(0, 1, 1) * Moving(5, 5, 5);
    const TransformParts parts = DecomposeTransform(Moving(1, 2, 3), flat, kKeepScale);
    EXPECT_EQ(parts.translation, (VKT::XVector3{1, 2, 3, 0}));
    EXPECT_EQ(parts.rotation, (VKT::XQuaternion{0, 0, 0, 1}));
}

TEST(TransformDecomposition, NotANumberBecomesZero)
{
    RowMatrix broken;
    for (auto& row : broken.m)
        for (double& value : row)
            value = kNaN;
    const TransformParts parts = DecomposeTransform(broken, {}, kKeepScale);
    EXPECT_EQ(parts.rotation.x, 0.0f);
    EXPECT_EQ(parts.rotation.y, 0.0f);
    EXPECT_EQ(parts.rotation.z, 0.0f);
    EXPECT_TRUE(std::isnan(parts.rotation.w));
    EXPECT_EQ(parts.translation, (VKT::XVector3{0, 0, 0, 0}));
    EXPECT_EQ(parts.scale, (VKT::XVector3{0, 0, 0, 0}));
}

TEST(TransformDecomposition, NotANumberInTheTranslationTakesAllOfItButNothingElse)
{
    const TransformParts parts = DecomposeTransform(Moving(kNaN, 2, 3), {}, kKeepScale);
    EXPECT_EQ(parts.translation, (VKT::XVector3{0, 0, 0, 0}));
    EXPECT_EQ(parts.rotation, (VKT::XQuaternion{0, 0, 0, 1}));
    EXPECT_EQ(parts.scale, (VKT::XVector3{1, 1, 1, 0}));
}

TEST(TransformDecomposition, MatrixWithoutAxesTurnsHalfAboutX)
{
    const TransformParts parts = DecomposeTransform(Scaling(0, 0, 0), {}, kKeepScale);
    EXPECT_EQ(parts.rotation, (VKT::XQuaternion{1, 0, 0, 0}));
    EXPECT_EQ(parts.scale, (VKT::XVector3{0, 0, 0, 0}));
}

TEST(TransformDecomposition, HalfTurnsAreFoundAboutEveryAxis)
{
    for (const auto& axis : {Vector3d{1, 0, 0}, Vector3d{0, 1, 0}, Vector3d{0, 0, 1}, Vector3d{1, 1, 0},
                             Vector3d{0, 1, 1}, Vector3d{1, 0, 1}, Vector3d{3, 2, 1}, Vector3d{1, 3, 2}}) {
        const RowMatrix turn = Turning(axis.x, axis.y, axis.z, kPi);
        ExpectNear(Composed(DecomposeTransform(turn, {}, kKeepScale)), turn, 1e-6);
    }
}

TEST(TransformDecomposition, ThirdDiagonalWinsOverTheSecondThoughTheFirstIsLargest)
{
    // A half turn about x, tilted a little towards -z: of the two quaternions that mean
    // it, the one comes out whose z, the smallest part that is there, is positive.
    const TransformParts parts = DecomposeTransform(Turning(1, 0, -0.001, kPi), {}, kKeepScale);
    EXPECT_NEAR(parts.rotation.x, -1.0f, 1e-6);
    EXPECT_NEAR(parts.rotation.z, 0.001f, 1e-6);
    EXPECT_NEAR(parts.rotation.y, 0.0f, 1e-6);
    EXPECT_NEAR(parts.rotation.w, 0.0f, 1e-6);

    // Tilted towards -y, the first diagonal leads and x is positive.
    const TransformParts other = DecomposeTransform(Turning(1, -0.001, 0, kPi), {}, kKeepScale);
    EXPECT_NEAR(other.rotation.x, 1.0f, 1e-6);
    EXPECT_NEAR(other.rotation.y, -0.001f, 1e-6);
}

TEST(VertexScale, IsTheFactorWhenBonesKeepScale)
{
    const Vector3d scale = VertexScale(Scaling(-2, 3, 4), {.factor = 0.5, .removeScale = false});
    EXPECT_EQ(scale.x, 0.5);
    EXPECT_EQ(scale.y, 0.5);
    EXPECT_EQ(scale.z, 0.5);
}

TEST(VertexScale, TakesTheNodesScaleWhenBonesLoseIt)
{
    const Vector3d scale =
        VertexScale(Scaling(2, 3, 4) * Moving(9, 9, 9), {.factor = 10, .removeScale = true});
    EXPECT_EQ(scale.x, 20.0);
    EXPECT_EQ(scale.y, 30.0);
    EXPECT_EQ(scale.z, 40.0);
}

TEST(VertexScale, MirrorGoesIntoX)
{
    const Vector3d scale = VertexScale(Scaling(2, 3, -4), {.factor = 1, .removeScale = true});
    EXPECT_EQ(scale.x, -2.0);
    EXPECT_EQ(scale.y, 3.0);
    EXPECT_EQ(scale.z, 4.0);
}

}  // namespace
}  // namespace VKTMax
