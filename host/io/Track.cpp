#include "host/io/Track.h"

#include <algorithm>
#include <array>

namespace maxhost::io {

namespace {

std::span<const double> Third(const NeutralTrack& track, std::size_t key, std::size_t part)
{
    return std::span(track.values).subspan((3 * key + part) * track.width, track.width);
}

void Normalize(std::span<double> q)
{
    const Quaternion unit = Normalized({q[0], q[1], q[2], q[3]});
    q[0] = unit.x;
    q[1] = unit.y;
    q[2] = unit.z;
    q[3] = unit.w;
}

void SampleCubic(const NeutralTrack& track, std::size_t left, double length, double u, std::span<double> out)
{
    const double uu = u * u, uuu = uu * u;
    const auto from = Third(track, left, 1), to = Third(track, left + 1, 1);
    const auto leaving = Third(track, left, 2), arriving = Third(track, left + 1, 0);
    for (std::size_t i = 0; i < track.width; ++i)
        out[i] = (2.0 * uuu - 3.0 * uu + 1.0) * from[i] + (uuu - 2.0 * uu + u) * length * leaving[i] +
                 (3.0 * uu - 2.0 * uuu) * to[i] + (uuu - uu) * length * arriving[i];
}

}  // namespace

std::span<const double> KeyValue(const NeutralTrack& track, std::size_t index)
{
    if (track.interpolation == Interpolation::Cubic)
        return Third(track, index, 1);
    return std::span(track.values).subspan(index * track.width, track.width);
}

void Sample(const NeutralTrack& track, double seconds, std::span<double> out)
{
    const auto& times = track.times;
    const auto next = std::upper_bound(times.begin(), times.end(), seconds);
    const bool outside = next == times.begin() || next == times.end();
    const std::size_t right = static_cast<std::size_t>(next - times.begin());
    if (outside || track.interpolation == Interpolation::Step) {
        std::ranges::copy(KeyValue(track, right == 0 ? 0 : right - 1), out.begin());
    } else {
        const double length = times[right] - times[right - 1];
        const double u = (seconds - times[right - 1]) / length;
        const auto from = KeyValue(track, right - 1), to = KeyValue(track, right);
        if (track.interpolation == Interpolation::Cubic) {
            SampleCubic(track, right - 1, length, u, out);
        } else if (track.path == TrackPath::Rotation) {
            const Quaternion q = Slerp({from[0], from[1], from[2], from[3]}, {to[0], to[1], to[2], to[3]}, u);
            const std::array<double, 4> value{q.x, q.y, q.z, q.w};
            std::ranges::copy(value, out.begin());
        } else {
            for (std::size_t i = 0; i < track.width; ++i)
                out[i] = from[i] + u * (to[i] - from[i]);
        }
    }
    if (track.path == TrackPath::Rotation)
        Normalize(out);
}

Vector SampleVector(const NeutralTrack& track, double seconds)
{
    std::array<double, 3> v;
    Sample(track, seconds, v);
    return {v[0], v[1], v[2]};
}

Quaternion SampleRotation(const NeutralTrack& track, double seconds)
{
    std::array<double, 4> v;
    Sample(track, seconds, v);
    return {v[0], v[1], v[2], v[3]};
}

}  // namespace maxhost::io
