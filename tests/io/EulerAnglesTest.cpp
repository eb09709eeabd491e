#include "host/io/EulerAngles.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>
#include <random>

namespace maxhost::io {
namespace {

constexpr double kPi = std::numbers::pi;

TEST(EulerAngles, TurnAboutXFirstAndZLast)
{
    const Quaternion q = FromEulerAngles({kPi / 2, 0, kPi / 2});
    const Vector y = MapDirection(RotationMatrix(q), {0, 1, 0});  // to z, and there it stays
    EXPECT_NEAR(y.z, 1.0, 1e-12);
}

TEST(EulerAngles, GiveTheRotationBack)
{
    std::mt19937 random(2);
    std::uniform_real_distribution<double> angle(-7.0, 7.0);
    for (int i = 0; i < 5000; ++i) {
        const Quaternion q = FromEulerAngles({angle(random), angle(random), angle(random)});
        const Vector near{angle(random), angle(random), angle(random)};
        EXPECT_LT(AngleBetween(FromEulerAngles(EulerAnglesNear(q, near)), q), 1e-9);
    }
}

TEST(EulerAngles, StayNearTheAnglesBefore)
{
    // A turn about Y that goes on through straight up and several whole turns.
    Vector angles;
    for (int step = 1; step <= 400; ++step) {
        const double y = step * 0.05;
        angles = EulerAnglesNear(FromEulerAngles({0, y, 0}), angles);
        EXPECT_NEAR(angles.x, 0.0, 1e-6);
        EXPECT_NEAR(angles.y, y, 1e-6);
        EXPECT_NEAR(angles.z, 0.0, 1e-6);
    }
}

TEST(EulerAngles, KeepTheTurnAboutXWhereYIsUpright)
{
    for (const double y : {kPi / 2, -kPi / 2}) {
        const Quaternion q = FromEulerAngles({0.3, y, 0.9});
        const Vector angles = EulerAnglesNear(q, {0.3, y, 0.8});
        EXPECT_NEAR(angles.x, 0.3, 1e-6);
        EXPECT_NEAR(angles.z, 0.9, 1e-6);
        EXPECT_LT(AngleBetween(FromEulerAngles(angles), q), 1e-6);
    }
}

}  // namespace
}  // namespace maxhost::io
