#include "host/io/BuildAnimation.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <set>

#include "host/build/SceneBuilder.h"
#include "host/io/EulerAngles.h"
#include "host/io/Track.h"
#include "units.h"

namespace maxhost::io {

namespace {

constexpr double kTicksPerSecond = TIME_TICKSPERSEC;
// Times beyond this (29 hours) would not fit the host's clock with a frame to spare.
constexpr double kLastTick = 5e8;
// In radians: what Euler keys may leave a rotation track by between two of them.
constexpr double kRotationTolerance = 1e-3;
// Keys that may be made in addition to the file's: two keys a day apart must not fill
// the memory with frames.
constexpr std::size_t kMostAddedKeys = 1'000'000;

TimeValue ToTicks(double seconds)
{
    return static_cast<TimeValue>(std::llround(std::clamp(seconds * kTicksPerSecond, -kLastTick, kLastTick)));
}

using Axes = std::array<Track, 3>;
constexpr Axes kPosition{Track::PositionX, Track::PositionY, Track::PositionZ};
constexpr Axes kRotation{Track::RotationX, Track::RotationY, Track::RotationZ};
constexpr Axes kScale{Track::ScaleX, Track::ScaleY, Track::ScaleZ};

double Component(const Vector& v, std::size_t axis)
{
    return axis == 0 ? v.x : axis == 1 ? v.y : v.z;
}

// A key of three floats; tangents as change per second.
struct Key {
    TimeValue time = 0;
    Vector value, arriving, leaving;
};

int TangentKind(Interpolation interpolation)
{
    return interpolation == Interpolation::Step    ? BEZKEY_STEP
           : interpolation == Interpolation::Cubic ? BEZKEY_USER
                                                   : BEZKEY_LINEAR;
}

class AnimationBuilder {
public:
    AnimationBuilder(const NeutralScene& scene, const Quaternion& turn, BuildReport& report)
        : m_Scene(scene), m_Turn(turn), m_Report(report)
    {
    }

    void SetFrameRate();
    std::vector<const NeutralTrack*> ChooseTracks(const std::string& only);
    void Build(const NeutralTrack& track);
    void SetRange();

private:
    INode& NodeOf(const NeutralTrack& track) { return *m_Report.nodes[static_cast<std::size_t>(track.node)]; }
    const NeutralNode& Source(const NeutralTrack& track) const
    {
        return m_Scene.nodes[static_cast<std::size_t>(track.node)];
    }
    Quaternion TurnOf(const NeutralTrack& track) const
    {
        return Source(track).parent < 0 ? m_Turn : Quaternion{};
    }

    std::vector<Key> VectorKeys(const NeutralTrack& track, const Quaternion& turn) const;
    std::vector<Key> SteppedRotationKeys(const NeutralTrack& track) const;
    std::vector<Key> RotationKeys(const NeutralTrack& track);
    std::vector<TimeValue> SampleTimes(const NeutralTrack& track);
    bool MayAddKeys(double count);
    void PutKeys(INode& node, const Axes& axes, const std::vector<Key>& keys, Interpolation interpolation);

    const NeutralScene& m_Scene;
    const Quaternion m_Turn;
    BuildReport& m_Report;
    TimeValue m_First = 0;
    TimeValue m_Last = 0;
    std::size_t m_KeysLeft = kMostAddedKeys;
    bool m_LackedKeys = false;
};

void AnimationBuilder::SetFrameRate()
{
    if (!m_Scene.framesPerSecond)
        return;
    const double ticks = std::clamp(kTicksPerSecond / *m_Scene.framesPerSecond, 1.0, kTicksPerSecond);
    const int whole = static_cast<int>(std::lround(ticks));
    SetTicksPerFrame(whole);
    if (std::abs(kTicksPerSecond / whole - *m_Scene.framesPerSecond) > 1e-3)
        m_Report.warnings.push_back("the frame rate " + std::to_string(*m_Scene.framesPerSecond) +
                                    " became " + std::to_string(kTicksPerSecond / whole));
}

std::vector<const NeutralTrack*> AnimationBuilder::ChooseTracks(const std::string& only)
{
    std::vector<const NeutralTrack*> chosen;
    std::set<std::pair<int, TrackPath>> driven;
    bool found = only.empty();
    for (const NeutralAnimation& animation : m_Scene.animations) {
        if (!only.empty() && (found || animation.name != only))
            continue;
        found = true;
        const auto isDriven = [&](const NeutralTrack& track) {
            return driven.contains({track.node, track.path});
        };
        if (std::ranges::any_of(animation.tracks, isDriven)) {
            m_Report.warnings.push_back("animation \"" + animation.name +
                                        "\" is left out: it drives nodes that an earlier one drives");
            continue;
        }
        for (const NeutralTrack& track : animation.tracks)
            if (driven.insert({track.node, track.path}).second)
                chosen.push_back(&track);
    }
    if (!found)
        m_Report.warnings.push_back("there is no animation \"" + only + "\"");
    return chosen;
}

std::vector<Key> AnimationBuilder::VectorKeys(const NeutralTrack& track, const Quaternion& turn) const
{
    const Matrix turned = RotationMatrix(turn);
    const auto vectorAt = [&](std::size_t index) {
        const double* v = &track.values[3 * index];
        return MapDirection(turned, {v[0], v[1], v[2]});
    };
    std::vector<Key> keys;
    for (std::size_t i = 0; i < track.times.size(); ++i) {
        Key key;
        key.time = ToTicks(track.times[i]);
        if (track.interpolation == Interpolation::Cubic) {
            key.arriving = vectorAt(3 * i);
            key.value = vectorAt(3 * i + 1);
            key.leaving = vectorAt(3 * i + 2);
        } else {
            key.value = vectorAt(i);
        }
        // Keys that fall on one tick: the later one counts.
        if (!keys.empty() && keys.back().time == key.time)
            keys.pop_back();
        keys.push_back(key);
    }
    return keys;
}

std::vector<Key> AnimationBuilder::SteppedRotationKeys(const NeutralTrack& track) const
{
    std::vector<Key> keys;
    for (const double seconds : track.times) {
        const Vector near = keys.empty() ? Vector{} : keys.back().value;
        Key key;
        key.time = ToTicks(seconds);
        key.value = EulerAnglesNear(TurnOf(track) * SampleRotation(track, seconds), near);
        if (!keys.empty() && keys.back().time == key.time)
            keys.pop_back();
        keys.push_back(key);
    }
    return keys;
}

bool AnimationBuilder::MayAddKeys(double count)
{
    if (count > static_cast<double>(m_KeysLeft)) {
        m_LackedKeys = true;
        return false;
    }
    m_KeysLeft -= static_cast<std::size_t>(count);
    return true;
}

// Every key, and the frames of every stretch over which the rotation changes.
std::vector<TimeValue> AnimationBuilder::SampleTimes(const NeutralTrack& track)
{
    const int frame = GetTicksPerFrame();
    std::vector<TimeValue> times;
    for (std::size_t i = 0; i < track.times.size(); ++i) {
        const TimeValue key = ToTicks(track.times[i]);
        const bool moves = i > 0 && (track.interpolation == Interpolation::Cubic ||
                                     !std::ranges::equal(KeyValue(track, i - 1), KeyValue(track, i)));
        if (moves) {
            const double firstFrame = (std::floor(static_cast<double>(times.back()) / frame) + 1.0) * frame;
            if (MayAddKeys(std::max(0.0, std::ceil((key - firstFrame) / frame))))
                for (double t = firstFrame; t < key; t += frame)
                    times.push_back(static_cast<TimeValue>(t));
        }
        if (times.empty() || times.back() < key)
            times.push_back(key);
    }
    return times;
}

std::vector<Key> AnimationBuilder::RotationKeys(const NeutralTrack& track)
{
    const Quaternion turn = TurnOf(track);
    const auto rotationAt = [&](double ticks) {
        return turn * SampleRotation(track, ticks / kTicksPerSecond);
    };
    const auto keyAt = [&](TimeValue time, const Vector& near) {
        Key key;
        key.time = time;
        key.value = EulerAnglesNear(rotationAt(time), near);
        return key;
    };
    const auto errorBetween = [&](const Key& a, const Key& b) {
        double error = 0.0;
        for (const double part : {0.25, 0.5, 0.75}) {
            const double time = a.time + part * (static_cast<double>(b.time) - a.time);
            const Quaternion straight = FromEulerAngles(a.value + (b.value - a.value) * part);
            error = std::max(error, AngleBetween(straight, rotationAt(time)));
        }
        return error;
    };

    const std::vector<TimeValue> times = SampleTimes(track);
    std::vector<Key> keys{keyAt(times.front(), {})};
    std::vector<TimeValue> pending;  // the next time on top
    for (std::size_t i = 1; i < times.size(); ++i) {
        pending.push_back(times[i]);
        while (!pending.empty()) {
            const Key from = keys.back();
            const Key to = keyAt(pending.back(), from.value);
            const double error = errorBetween(from, to);
            if (error > kRotationTolerance && to.time - from.time >= 2 && MayAddKeys(1)) {
                pending.push_back(from.time + (to.time - from.time) / 2);
                continue;
            }
            pending.pop_back();
            keys.push_back(to);
            if (error > m_Report.largestRotationError) {
                m_Report.largestRotationError = error;
                m_Report.worstRotation = Source(track).name;
            }
        }
    }
    return keys;
}

void AnimationBuilder::PutKeys(INode& node, const Axes& axes, const std::vector<Key>& keys,
                               Interpolation interpolation)
{
    const int tangents = TangentKind(interpolation);
    for (std::size_t axis = 0; axis < 3; ++axis) {
        Control& control = *GetTrack(node, axes[axis]);
        const auto holdsStill = [&](const Key& key) {
            return static_cast<float>(Component(key.value, axis)) ==
                       static_cast<float>(Component(keys.front().value, axis)) &&
                   Component(key.arriving, axis) == 0.0 && Component(key.leaving, axis) == 0.0;
        };
        if (std::ranges::all_of(keys, holdsStill)) {
            float value = static_cast<float>(Component(keys.front().value, axis));
            control.SetValue(0, &value);
            continue;
        }
        std::vector<IBezFloatKey> result;
        result.reserve(keys.size());
        for (const Key& key : keys) {
            result.push_back(MakeKey(key.time, static_cast<float>(Component(key.value, axis)), tangents));
            // The host's tangents lead away from the key on both sides.
            result.back().intan = static_cast<float>(-Component(key.arriving, axis) / kTicksPerSecond);
            result.back().outtan = static_cast<float>(Component(key.leaving, axis) / kTicksPerSecond);
        }
        SetKeys(control, result);
    }
    m_First = std::min(m_First, keys.front().time);
    m_Last = std::max(m_Last, keys.back().time);
}

void AnimationBuilder::Build(const NeutralTrack& track)
{
    INode& node = NodeOf(track);
    switch (track.path) {
        case TrackPath::Translation:
            PutKeys(node, kPosition, VectorKeys(track, TurnOf(track)), track.interpolation);
            break;
        case TrackPath::Rotation:
            if (track.interpolation == Interpolation::Step)
                PutKeys(node, kRotation, SteppedRotationKeys(track), Interpolation::Step);
            else
                PutKeys(node, kRotation, RotationKeys(track), Interpolation::Linear);
            break;
        case TrackPath::Scale:
            if (HasShear(Source(track).local))
                m_Report.warnings.push_back("node \"" + Source(track).name +
                                            "\": its scale is animated, so the axes it lies along are lost");
            UseScaleXYZ(node);
            PutKeys(node, kScale, VectorKeys(track, {}), track.interpolation);
            break;
        case TrackPath::Weights:
            m_Report.warnings.push_back("node \"" + Source(track).name +
                                        "\": its morph animation is left out");
            break;
    }
}

void AnimationBuilder::SetRange()
{
    if (m_Last > m_First)
        GetCOREInterface()->SetAnimRange(Interval(m_First, m_Last));
    if (m_LackedKeys)
        m_Report.warnings.push_back(
            "the animation is too long for a key at every frame; rotations have fewer");
    if (m_Report.largestRotationError > kRotationTolerance)
        m_Report.warnings.push_back(
            "rotations became Euler keys; between them \"" + m_Report.worstRotation + "\" is off by up to " +
            std::to_string(m_Report.largestRotationError * 57.29577951308232) + " degrees");
}

}  // namespace

void BuildAnimation(const NeutralScene& scene, const BuildOptions& options, const Quaternion& turn,
                    BuildReport& report)
{
    AnimationBuilder builder(scene, turn, report);
    builder.SetFrameRate();
    for (const NeutralTrack* track : builder.ChooseTracks(options.animation))
        builder.Build(*track);
    builder.SetRange();
}

}  // namespace maxhost::io
