#include "VKT/base/Quaternion.h"

#include <gtest/gtest.h>

#include <numbers>

#include "VKT/base/Matrix.h"

namespace VKT {
namespace {

constexpr f32 kPi = std::numbers::pi_v<f32>;
constexpr f32 kHalf = 0.70710678f;  // sine and cosine of 45 degrees

void ExpectNear(const XQuaternion& a, const XQuaternion& b)
{
    EXPECT_NEAR(a.x, b.x, 1e-6f);
    EXPECT_NEAR(a.y, b.y, 1e-6f);
    EXPECT_NEAR(a.z, b.z, 1e-6f);
    EXPECT_NEAR(a.w, b.w, 1e-6f);
}

XQuaternion OfEuler(const XVector3& angles, u32 order)
{
    XQuaternion q{9, 9, 9, 9};
    XEulerToQuaternion(angles, order, q);
    return q;
}

TEST(Quaternion, TheRightFactorActsFirst)
{
    const XQuaternion aboutX{kHalf, 0, 0, kHalf};
    const XQuaternion aboutZ{0, 0, kHalf, kHalf};
    const XMatrix product = RotationMatrix(aboutZ * aboutX);
    const XMatrix apart = RotationMatrix(aboutZ) * RotationMatrix(aboutX);
    for (std::size_t i = 0; i < 16; ++i)
        EXPECT_NEAR(product[i], apart[i], 1e-6f);
    ExpectNear(aboutZ * aboutX, {0.5f, 0.5f, 0.5f, 0.5f});
    ExpectNear(aboutX * aboutZ, {0.5f, -0.5f, 0.5f, 0.5f});
}

TEST(Quaternion, TheIdentityIsNeutral)
{
    const XQuaternion q{0.1f, 0.2f, 0.3f, 0.9f};
    EXPECT_EQ(q * kIdentityQuaternion, q);
    EXPECT_EQ(kIdentityQuaternion * q, q);
}

TEST(EulerToQuaternion, OneAngleTurnsAboutItsAxisWhateverTheOrder)
{
    for (u32 order = 0; order <= 8; ++order) {
        ExpectNear(OfEuler({kPi / 2, 0, 0, 0}, order), {kHalf, 0, 0, kHalf});
        ExpectNear(OfEuler({0, kPi / 2, 0, 0}, order), {0, kHalf, 0, kHalf});
        ExpectNear(OfEuler({0, 0, kPi / 2, 0}, order), {0, 0, kHalf, kHalf});
    }
}

// Each order against the product of three matrices, the first letter on the right.
TEST(EulerToQuaternion, TheFirstLetterActsFirst)
{
    const XVector3 angles{0.3f, 0.7f, -1.1f, 0};
    const XMatrix x = RotationMatrix(OfEuler({angles.x, 0, 0, 0}, 0));
    const XMatrix y = RotationMatrix(OfEuler({0, angles.y, 0, 0}, 0));
    const XMatrix z = RotationMatrix(OfEuler({0, 0, angles.z, 0}, 0));
    const XMatrix expected[] = {z * y * x, y * z * x, z * x * y, x * z * y, y * x * z, x * y * z};
    for (u32 order = 0; order < 6; ++order) {
        const XMatrix turned = RotationMatrix(OfEuler(angles, order));
        for (std::size_t i = 0; i < 16; ++i)
            EXPECT_NEAR(turned[i], expected[order][i], 1e-6f) << "order " << order << " element " << i;
    }
}

// Quarter turns, by hand.
TEST(EulerToQuaternion, QuarterTurnsAboutXAndZ)
{
    ExpectNear(OfEuler({kPi / 2, 0, kPi / 2, 0}, 0), {0.5f, 0.5f, 0.5f, 0.5f});   // xyz: x first
    ExpectNear(OfEuler({kPi / 2, 0, kPi / 2, 0}, 5), {0.5f, -0.5f, 0.5f, 0.5f});  // zyx: z first
}

TEST(EulerToQuaternion, Orders6To8ActLikeTheFirst)
{
    const XVector3 angles{0.3f, 0.7f, -1.1f, 0};
    for (const u32 order : {6u, 7u, 8u})
        EXPECT_EQ(OfEuler(angles, order), OfEuler(angles, 0));
}

TEST(EulerToQuaternion, AnOrderAbove8GivesTheIdentity)
{
    EXPECT_EQ(OfEuler({1, 2, 3, 0}, 9), kIdentityQuaternion);
    EXPECT_EQ(OfEuler({1, 2, 3, 0}, 0xFFFFFFFF), kIdentityQuaternion);
}

}  // namespace
}  // namespace VKT
