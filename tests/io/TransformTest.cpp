#include "host/io/Transform.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>

namespace maxhost::io {
namespace {

void ExpectNear(const Vector& a, const Vector& b, double tolerance)
{
    EXPECT_NEAR(a.x, b.x, tolerance);
    EXPECT_NEAR(a.y, b.y, tolerance);
    EXPECT_NEAR(a.z, b.z, tolerance);
}

void ExpectNear(const Matrix& a, const Matrix& b, double tolerance)
{
    ExpectNear(a.x, b.x, tolerance);
    ExpectNear(a.y, b.y, tolerance);
    ExpectNear(a.z, b.z, tolerance);
    ExpectNear(a.origin, b.origin, tolerance);
}

const double kHalf = std::sqrt(0.5);

TEST(Transform, ProductLetsTheRightSideActFirst)
{
    const Matrix quarterAboutZ = RotationMatrix({0.0, 0.0, kHalf, kHalf});
    const Matrix move{{1, 0, 0}, {0, 1, 0}, {0, 0, 1}, {5, 0, 0}};
    ExpectNear(MapPoint(quarterAboutZ * move, {1, 0, 0}), {0, 6, 0}, 1e-12);
    ExpectNear(MapPoint(move * quarterAboutZ, {1, 0, 0}), {5, 1, 0}, 1e-12);
}

TEST(Transform, MirroredMatrixGetsThreeNegativeScales)
{
    const Transform t = ToTransform({{-0.1, 0, 0}, {0, -0.1, 0}, {0, 0, -0.1}, {1, 2, 3}});
    ExpectNear(t.scale, {-0.1, -0.1, -0.1}, 1e-12);
    EXPECT_DOUBLE_EQ(t.rotation.w, 1.0);
    EXPECT_FALSE(HasShear(t));
}

TEST(Transform, SquareMatrixHasNoScaleAxes)
{
    const Matrix m =
        RotationMatrix(Normalized({0.1, -0.7, 0.3, 0.4})) * Matrix{{2, 0, 0}, {0, 3, 0}, {0, 0, 0.5}, {}};
    const Transform t = ToTransform(m);
    EXPECT_FALSE(HasShear(t));
    ExpectNear(t.scale, {2, 3, 0.5}, 1e-12);
    ExpectNear(ToMatrix(t), m, 1e-12);
}

TEST(Transform, ShearIsKeptAsAScaleAlongTurnedAxes)
{
    const Matrix m{{1, 0, 0}, {0.5, 1, 0}, {0, 0, 1}, {4, 5, 6}};
    const Transform t = ToTransform(m);
    EXPECT_TRUE(HasShear(t));
    ExpectNear(ToMatrix(t), m, 1e-9);
}

TEST(Transform, EveryMatrixComesBack)
{
    std::mt19937 random(1);
    std::uniform_real_distribution<double> number(-2.0, 2.0);
    const auto vector = [&] { return Vector{number(random), number(random), number(random)}; };
    for (int i = 0; i < 2000; ++i) {
        const Matrix m{vector(), vector(), vector(), vector()};
        ExpectNear(ToMatrix(ToTransform(m)), m, 1e-6);
    }
}

TEST(Transform, CollapsedAxesStillGiveARotation)
{
    const Matrix matrices[] = {{{2, 0, 0}, {0, 0, 0}, {0, 0, 3}, {}},
                               {{0, 0, 0}, {0, 0, 0}, {0, 1, 0}, {}},
                               {{0, 0, 0}, {0, 0, 0}, {0, 0, 0}, {1, 1, 1}},
                               {{1, 0, 0}, {1, 0, 0}, {1, 0, 0}, {}}};
    for (const Matrix& m : matrices) {
        const Transform t = ToTransform(m);
        EXPECT_NEAR(Determinant(RotationMatrix(t.rotation)), 1.0, 1e-9);
        ExpectNear(ToMatrix(t), m, 1e-6);
    }
}

TEST(Transform, TurnBetweenTakesTheShortestWay)
{
    const Quaternion up = TurnBetween({0, 1, 0}, {0, 0, 1});
    ExpectNear(MapDirection(RotationMatrix(up), {1, 2, 3}), {1, -3, 2}, 1e-12);
    const Quaternion over = TurnBetween({0, 0, -1}, {0, 0, 1});
    ExpectNear(MapDirection(RotationMatrix(over), {0, 0, -1}), {0, 0, 1}, 1e-12);
    EXPECT_DOUBLE_EQ(TurnBetween({0, 0, 1}, {0, 0, 1}).w, 1.0);
}

TEST(Transform, SlerpTakesTheShorterWayAndEndsOnItsEnds)
{
    const Quaternion a{0, 0, 0, 1}, b{0, 0, -kHalf, -kHalf};  // the second is a quarter turn, negated
    EXPECT_NEAR(AngleBetween(Slerp(a, b, 0.5), a), std::acos(-1.0) / 4, 1e-12);
    EXPECT_NEAR(AngleBetween(Slerp(a, b, 1.0), b), 0.0, 1e-12);
    EXPECT_NEAR(AngleBetween(Slerp(a, a, 0.3), a), 0.0, 1e-12);
}

TEST(Transform, NullAndNaNQuaternionsBecomeTheIdentity)
{
    EXPECT_EQ(Normalized({0, 0, 0, 0}).w, 1.0);
    EXPECT_EQ(Normalized({std::nan(""), 0, 0, 1}).w, 1.0);
    EXPECT_EQ(Normalized({std::nan(""), 0, 0, 1}).x, 0.0);
}

}  // namespace
}  // namespace maxhost::io
