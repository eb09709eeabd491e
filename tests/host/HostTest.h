#pragma once

#include <gtest/gtest.h>

#include <string>

#include "host/app/HeadlessHost.h"
#include "host/build/SceneBuilder.h"

// Starts with an empty scene and closes it behind each test.
class HostTest : public ::testing::Test {
protected:
    HostTest() { Host().Reset(); }
    ~HostTest() override { Host().Reset(); }

    static maxhost::HeadlessHost& Host() { return maxhost::HeadlessHost::Get(); }
    static Interface& Core() { return *GetCOREInterface(); }
};

inline void ExpectNear(const Point3& actual, const Point3& expected, float tolerance = 1e-5f)
{
    EXPECT_NEAR(actual.x, expected.x, tolerance);
    EXPECT_NEAR(actual.y, expected.y, tolerance);
    EXPECT_NEAR(actual.z, expected.z, tolerance);
}

inline void ExpectNear(const Matrix3& actual, const Matrix3& expected, float tolerance = 1e-5f)
{
    for (int row = 0; row < 4; ++row) {
        SCOPED_TRACE("row " + std::to_string(row));
        ExpectNear(actual.GetRow(row), expected.GetRow(row), tolerance);
    }
}
