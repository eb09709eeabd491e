#include "host/io/Track.h"

#include <gtest/gtest.h>

#include <cmath>

namespace maxhost::io {
namespace {

NeutralTrack Line(Interpolation interpolation)
{
    NeutralTrack track;
    track.interpolation = interpolation;
    track.times = {1.0, 3.0};
    track.values = {0, 0, 0, 4, 8, -2};
    return track;
}

TEST(Track, HoldsStillBeforeItsFirstAndBehindItsLastKey)
{
    const NeutralTrack track = Line(Interpolation::Linear);
    EXPECT_EQ(SampleVector(track, -5.0).x, 0.0);
    EXPECT_EQ(SampleVector(track, 3.0).y, 8.0);
    EXPECT_EQ(SampleVector(track, 99.0).z, -2.0);
}

TEST(Track, LinearKeysAreJoinedByLines)
{
    EXPECT_EQ(SampleVector(Line(Interpolation::Linear), 1.5).x, 1.0);
}

TEST(Track, StepsHoldUntilTheNextKey)
{
    const NeutralTrack track = Line(Interpolation::Step);
    EXPECT_EQ(SampleVector(track, 2.999).y, 0.0);
    EXPECT_EQ(SampleVector(track, 3.0).y, 8.0);
}

TEST(Track, CubicKeysFollowTheirTangents)
{
    NeutralTrack track;
    track.interpolation = Interpolation::Cubic;
    track.times = {0.0, 2.0};
    // In-tangent, value, out-tangent of either key; x leaves at 3 a second.
    track.values = {9, 9, 9, 1, 0, 0, 3, 0, 0, /**/ 0, 0, 0, 5, 0, 0, 9, 9, 9};
    EXPECT_EQ(SampleVector(track, 0.0).x, 1.0);
    EXPECT_EQ(SampleVector(track, 2.0).x, 5.0);
    // h00 + h01 halve the way, h10 at 1/2 is 1/8: 3 + 3 * 2 / 8.
    EXPECT_DOUBLE_EQ(SampleVector(track, 1.0).x, 3.75);
    EXPECT_NEAR((SampleVector(track, 1e-6).x - 1.0) / 1e-6, 3.0, 1e-4);
}

TEST(Track, RotationsTurnEvenlyAndStayUnit)
{
    NeutralTrack track;
    track.path = TrackPath::Rotation;
    track.width = 4;
    track.times = {0.0, 1.0};
    track.values = {0, 0, 0, 1, 0, 0, std::sqrt(0.5), std::sqrt(0.5)};
    const Quaternion q = SampleRotation(track, 1.0 / 3.0);
    EXPECT_NEAR(2.0 * std::atan2(q.z, q.w), std::acos(-1.0) / 6.0, 1e-12);
}

}  // namespace
}  // namespace maxhost::io
