#include "VKT/base/Matrix.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

namespace VKT {
namespace {

constexpr f32 kHalf = 0.70710678f;  // sine and cosine of 45 degrees
constexpr XQuaternion kQuarterTurnAboutZ{0, 0, kHalf, kHalf};

void ExpectNear(const XVector3& a, const XVector3& b)
{
    EXPECT_NEAR(a.x, b.x, 1e-5f);
    EXPECT_NEAR(a.y, b.y, 1e-5f);
    EXPECT_NEAR(a.z, b.z, 1e-5f);
    EXPECT_EQ(a.w, 0.0f);
}

void ExpectNear(const XMatrix& a, const XMatrix& b, f32 tolerance = 1e-5f)
{
    for (std::size_t i = 0; i < 16; ++i)
        EXPECT_NEAR(a[i], b[i], tolerance) << "element " << i;
}

// Different numbers everywhere, determinant far from 0.
constexpr XMatrix kGeneral{{2, -1, 3, 5, 7, 4, -2, 1, 6, 8, 9, -3, 11, -7, 10, 12}};

TEST(Matrix, TranslationsAddWhicheverActsFirst)
{
    const XMatrix a = TranslationMatrix({1, 2, 3, 0});
    const XMatrix b = TranslationMatrix({10, 20, 30, 0});
    EXPECT_EQ(a * b, TranslationMatrix({11, 22, 33, 0}));
    EXPECT_EQ(b * a, TranslationMatrix({11, 22, 33, 0}));
}

TEST(Matrix, TheRightFactorActsFirst)
{
    const XMatrix t = TranslationMatrix({10, 0, 0, 0});
    const XMatrix r = RotationMatrix(kQuarterTurnAboutZ);
    ExpectNear(TransformPoint(t * r, {1, 0, 0, 0}), {10, 1, 0, 0});
    ExpectNear(TransformPoint(r * t, {1, 0, 0, 0}), {0, 11, 0, 0});
}

TEST(Matrix, TranslationStandsInElements12To14)
{
    EXPECT_EQ(TranslationMatrix({5, 6, 7, 0}), (XMatrix{{1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 5, 6, 7, 1}}));
    EXPECT_EQ(ScaleMatrix({5, 6, 7, 0}), (XMatrix{{5, 0, 0, 0, 0, 6, 0, 0, 0, 0, 7, 0, 0, 0, 0, 1}}));
}

// out[c][r] = sum over k of a[k][r] x b[c][k], over small whole numbers, so exactly.
TEST(Matrix, TheGeneralProductMultipliesAllSixteenElements)
{
    const XMatrix a{{1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16}};
    const XMatrix b{{17, 18, 19, 20, 21, 22, 23, 24, 25, 26, 27, 28, 29, 30, 31, 32}};
    XMatrix out;
    MatrixMultiply(out, a, b);
    EXPECT_EQ(out, (XMatrix{{538, 612, 686, 760, 650, 740, 830, 920,  //
                             762, 868, 974, 1080, 874, 996, 1118, 1240}}));
}

TEST(Matrix, TheAffineProductTakesAndWritesTheLastRowAsZeroZeroZeroOne)
{
    const XMatrix a{{1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16}};
    const XMatrix b{{17, 18, 19, 20, 21, 22, 23, 24, 25, 26, 27, 28, 29, 30, 31, 32}};
    XMatrix out;
    MatrixMultiplyAffine(out, a, b);
    EXPECT_EQ(out, (XMatrix{{278, 332, 386, 0, 338, 404, 470, 0,  //
                             398, 476, 554, 0, 471, 562, 653, 1}}));
}

TEST(Matrix, BothProductsAgreeOnTransforms)
{
    const XMatrix a = TranslationMatrix({1, 2, 3, 0}) * RotationMatrix(kQuarterTurnAboutZ);
    const XMatrix b = ScaleMatrix({2, 3, 4, 0}) * TranslationMatrix({5, 6, 7, 0});
    XMatrix general;
    MatrixMultiply(general, a, b);
    EXPECT_EQ(general, a * b);
}

TEST(Matrix, OfAQuaternion)
{
    // Half a turn about x swaps the signs of y and z.
    EXPECT_EQ(RotationMatrix({1, 0, 0, 0}), (XMatrix{{1, 0, 0, 0, 0, -1, 0, 0, 0, 0, -1, 0, 0, 0, 0, 1}}));
    EXPECT_EQ(RotationMatrix(kIdentityQuaternion), kIdentityMatrix);
    // A quarter about z carries x to y: the first column is y.
    ExpectNear(RotationMatrix(kQuarterTurnAboutZ), {{0, 1, 0, 0, -1, 0, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1}});
    // All four parts different, each place of the formula different.
    const XMatrix m = RotationMatrix({0.1f, 0.2f, 0.3f, 0.9f});
    ExpectNear(m, {{0.74f, 0.58f, -0.3f, 0, -0.5f, 0.8f, 0.3f, 0, 0.42f, -0.06f, 0.9f, 0, 0, 0, 0, 1}},
               1e-6f);
}

TEST(Matrix, TransposedSwapsColumnsAndRows)
{
    EXPECT_EQ(Transposed(kGeneral), (XMatrix{{2, 7, 6, 11, -1, 4, 8, -7, 3, -2, 9, 10, 5, 1, -3, 12}}));
}

TEST(Matrix, InverseOfAGeneralMatrixUndoesItOnBothSides)
{
    XMatrix inverse;
    ASSERT_TRUE(XMatrixInverse(inverse, kGeneral));
    XMatrix product;
    MatrixMultiply(product, inverse, kGeneral);
    ExpectNear(product, kIdentityMatrix);
    MatrixMultiply(product, kGeneral, inverse);
    ExpectNear(product, kIdentityMatrix);
}

TEST(Matrix, InverseOfScaleAndTranslationIsExact)
{
    XMatrix inverse;
    ASSERT_TRUE(XMatrixInverse(inverse, TranslationMatrix({3, 4, 5, 0}) * ScaleMatrix({2, 4, 8, 0})));
    EXPECT_EQ(inverse, ScaleMatrix({0.5f, 0.25f, 0.125f, 0}) * TranslationMatrix({-3, -4, -5, 0}));
}

TEST(Matrix, InverseOfAZeroScaleFailsAndLeavesTheResult)
{
    XMatrix out = kGeneral;
    EXPECT_FALSE(XMatrixInverse(out, ScaleMatrix({0, 1, 1, 0})));
    EXPECT_EQ(out, kGeneral);
}

TEST(Matrix, InverseStopsBelowADeterminantOf0005)
{
    XMatrix out = kGeneral;
    EXPECT_FALSE(XMatrixInverse(out, ScaleMatrix({0.000499f, 1, 1, 0})));
    EXPECT_FALSE(XMatrixInverse(out, ScaleMatrix({-0.000499f, 1, 1, 0})));
    EXPECT_EQ(out, kGeneral);
    EXPECT_TRUE(XMatrixInverse(out, ScaleMatrix({0.0005f, 1, 1, 0})));
    EXPECT_TRUE(XMatrixInverse(out, ScaleMatrix({-0.0005f, 1, 1, 0})));
}

TEST(Matrix, InverseMayBeWrittenOverItsInput)
{
    XMatrix m = kGeneral;
    XMatrix apart;
    ASSERT_TRUE(XMatrixInverse(apart, m));
    ASSERT_TRUE(XMatrixInverse(m, m));
    EXPECT_EQ(m, apart);
}

TEST(Matrix, ValuesAreAlignedTo16Bytes)
{
    EXPECT_EQ(alignof(XMatrix), 16u);
    EXPECT_EQ(alignof(XQuaternion), 16u);
    EXPECT_EQ(alignof(XVector3), 16u);
    EXPECT_EQ(sizeof(XMatrix), 64u);
}

TEST(Matrix, VectorArithmeticKeepsTheFourthFloatZero)
{
    const XVector3 a{1, 2, 3, 9};
    const XVector3 b{10, 20, 30, 9};
    EXPECT_EQ(a + b, (XVector3{11, 22, 33, 0}));
    EXPECT_EQ(b - a, (XVector3{9, 18, 27, 0}));
    EXPECT_EQ(-a, (XVector3{-1, -2, -3, 0}));
    EXPECT_EQ(a * 2, (XVector3{2, 4, 6, 0}));
}

}  // namespace
}  // namespace VKT
