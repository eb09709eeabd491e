#include "max/RowMatrix.h"

#include <gtest/gtest.h>

namespace VKTMax {
namespace {

// Turns x to y by a quarter, scales by 2, 3 and 4 before that, and moves by (5, 6, 7).
const RowMatrix kMatrix{{{0, 2, 0, 0}, {-3, 0, 0, 0}, {0, 0, 4, 0}, {5, 6, 7, 1}}};

void ExpectPoint(const Vector3d& point, double x, double y, double z)
{
    EXPECT_DOUBLE_EQ(point.x, x);
    EXPECT_DOUBLE_EQ(point.y, y);
    EXPECT_DOUBLE_EQ(point.z, z);
}

TEST(RowMatrix, PointsAreRows)
{
    ExpectPoint(TransformPoint({1, 0, 0}, kMatrix), 5, 8, 7);
    ExpectPoint(TransformPoint({0, 1, 1}, kMatrix), 2, 6, 11);
}

TEST(RowMatrix, FirstFactorActsFirst)
{
    const RowMatrix move{{{1, 0, 0, 0}, {0, 1, 0, 0}, {0, 0, 1, 0}, {1, 0, 0, 1}}};
    ExpectPoint(TransformPoint({0, 0, 0}, move * kMatrix), 5, 8, 7);
    ExpectPoint(TransformPoint({0, 0, 0}, kMatrix * move), 6, 6, 7);
}

TEST(RowMatrix, LengthsAreThoseOfTheRows)
{
    ExpectPoint(RowLengths(kMatrix), 2, 3, 4);
}

TEST(RowMatrix, DeterminantIsNegativeForAMirror)
{
    EXPECT_DOUBLE_EQ(Determinant(kMatrix), 24);
    RowMatrix mirrored = kMatrix;
    mirrored.m[2][2] = -4;
    EXPECT_DOUBLE_EQ(Determinant(mirrored), -24);
}

TEST(RowMatrix, InverseLeadsBack)
{
    const RowMatrix back = AffineInverse(kMatrix);
    const Vector3d there = TransformPoint({1, 2, 3}, kMatrix);
    const Vector3d here = TransformPoint(there, back);
    EXPECT_NEAR(here.x, 1, 1e-12);
    EXPECT_NEAR(here.y, 2, 1e-12);
    EXPECT_NEAR(here.z, 3, 1e-12);
}

TEST(RowMatrix, InverseOfAFlatMatrixIsTheIdentity)
{
    RowMatrix flat = kMatrix;
    flat.m[2][2] = 0;
    ExpectPoint(TransformPoint({1, 2, 3}, AffineInverse(flat)), 1, 2, 3);
}

}  // namespace
}  // namespace VKTMax
