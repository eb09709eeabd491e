#include "host/io/AssimpAnimations.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <set>

#include "host/io/Track.h"

namespace maxhost::io {

namespace {

// Frames a second, of files that do not say it; the host's own rate at the start.
constexpr double kAssumedRate = 30.0;

// Keys in file order into a track; one that does not come later than the one before
// is dropped, and so is one that is no number.
template <class Key, class Append>
void AppendKeys(const Key* keys, unsigned count, double ticksPerSecond, NeutralTrack& track,
                const Append& append)
{
    for (unsigned i = 0; i < count; ++i) {
        const double seconds = keys[i].mTime / ticksPerSecond;
        if (!std::isfinite(seconds) || (!track.times.empty() && seconds <= track.times.back()))
            continue;
        const std::size_t size = track.values.size();
        append(keys[i]);
        const bool finite = std::all_of(track.values.begin() + static_cast<std::ptrdiff_t>(size),
                                        track.values.end(), [](double v) { return std::isfinite(v); });
        if (finite)
            track.times.push_back(seconds);
        else
            track.values.resize(size);
    }
}

NeutralTrack VectorTrack(const aiVectorKey* keys, unsigned count, double ticksPerSecond, int node,
                         TrackPath path)
{
    NeutralTrack track;
    track.node = node;
    track.path = path;
    AppendKeys(keys, count, ticksPerSecond, track, [&](const aiVectorKey& key) {
        track.values.insert(track.values.end(), {key.mValue.x, key.mValue.y, key.mValue.z});
    });
    return track;
}

NeutralTrack RotationTrack(const aiQuatKey* keys, unsigned count, double ticksPerSecond, int node)
{
    NeutralTrack track;
    track.node = node;
    track.path = TrackPath::Rotation;
    track.width = 4;
    AppendKeys(keys, count, ticksPerSecond, track, [&](const aiQuatKey& key) {
        const Quaternion q = Normalized({key.mValue.x, key.mValue.y, key.mValue.z, key.mValue.w});
        track.values.insert(track.values.end(), {q.x, q.y, q.z, q.w});
    });
    return track;
}

// The three tracks of a channel; those without keys are empty.
struct Channel {
    NeutralTrack translation, rotation, scale;
};

Channel ReadChannel(const aiNodeAnim& source, double ticksPerSecond, int node)
{
    return {VectorTrack(source.mPositionKeys, source.mNumPositionKeys, ticksPerSecond, node,
                        TrackPath::Translation),
            RotationTrack(source.mRotationKeys, source.mNumRotationKeys, ticksPerSecond, node),
            VectorTrack(source.mScalingKeys, source.mNumScalingKeys, ticksPerSecond, node, TrackPath::Scale)};
}

Matrix ValueOf(const Channel& channel, const Matrix& otherwise, double seconds)
{
    Transform t = ToTransform(otherwise);
    if (!channel.translation.times.empty())
        t.translation = SampleVector(channel.translation, seconds);
    if (!channel.rotation.times.empty())
        t.rotation = SampleRotation(channel.rotation, seconds);
    if (!channel.scale.times.empty())
        t.scale = SampleVector(channel.scale, seconds);
    return ToMatrix(t);
}

class AnimationReader {
public:
    AnimationReader(const aiAnimation& source, bool isFbx, AssimpNodes& nodes, NeutralScene& scene)
        : m_Source(source), m_IsFbx(isFbx), m_Nodes(nodes), m_Scene(scene)
    {
        m_TicksPerSecond = source.mTicksPerSecond > 0.0 ? source.mTicksPerSecond : kAssumedRate;
        // A file without a frame rate of its own counts in seconds.
        m_FramesPerSecond = m_TicksPerSecond > 1.0 ? m_TicksPerSecond : kAssumedRate;
    }

    NeutralAnimation Read();

private:
    std::string Label() const { return "animation \"" + std::string(m_Source.mName.C_Str()) + "\""; }
    void Take(NeutralTrack track);
    void BakeHelpers(int node, const std::map<std::string, Channel>& channels);
    void FindMorphedNodes();
    void ReadWeights(const aiMeshMorphAnim& source);
    void ReportLostTangents();

    const aiAnimation& m_Source;
    const bool m_IsFbx;
    AssimpNodes& m_Nodes;
    NeutralScene& m_Scene;
    double m_TicksPerSecond;
    double m_FramesPerSecond;
    std::multimap<std::string, int> m_MorphedNodes;  // by the node's name and its mesh's
    NeutralAnimation m_Result;
};

void AnimationReader::Take(NeutralTrack track)
{
    if (!track.times.empty())
        m_Result.tracks.push_back(std::move(track));
}

// Where pivots are animated the local transform is a product of moving matrices: it
// is sampled at every key and every frame between.
void AnimationReader::BakeHelpers(int node, const std::map<std::string, Channel>& channels)
{
    const AssimpNode& entry = m_Nodes[static_cast<std::size_t>(node)];
    std::set<double> times;
    for (const auto& [name, channel] : channels)
        for (const NeutralTrack* track : {&channel.translation, &channel.rotation, &channel.scale})
            times.insert(track->times.begin(), track->times.end());
    if (times.empty())
        return;
    // Frame numbers, not sums of steps: a track of a million frames must not drift.
    constexpr double kMostFrames = 1e6;
    const double first = *times.begin(), last = *times.rbegin();
    if ((last - first) * m_FramesPerSecond < kMostFrames)
        for (double frame = std::ceil(first * m_FramesPerSecond); frame < last * m_FramesPerSecond; ++frame)
            times.insert(frame / m_FramesPerSecond);

    Channel baked;
    for (NeutralTrack* track : {&baked.translation, &baked.rotation, &baked.scale})
        track->node = node;
    baked.rotation.path = TrackPath::Rotation;
    baked.rotation.width = 4;
    baked.scale.path = TrackPath::Scale;
    for (const double seconds : times) {
        if (!baked.translation.times.empty() && seconds - baked.translation.times.back() < 1e-9)
            continue;  // a frame that is a key, but for rounding
        Matrix local;
        for (const aiNode* helper : entry.helpers) {
            const Matrix rest = ToMatrix(helper->mTransformation);
            const auto channel = channels.find(helper->mName.C_Str());
            local = local * (channel == channels.end() ? rest : ValueOf(channel->second, rest, seconds));
        }
        const Transform t = ToTransform(local * ToMatrix(entry.node->mTransformation));
        for (NeutralTrack* track : {&baked.translation, &baked.rotation, &baked.scale})
            track->times.push_back(seconds);
        baked.translation.values.insert(baked.translation.values.end(),
                                        {t.translation.x, t.translation.y, t.translation.z});
        baked.rotation.values.insert(baked.rotation.values.end(),
                                     {t.rotation.x, t.rotation.y, t.rotation.z, t.rotation.w});
        baked.scale.values.insert(baked.scale.values.end(), {t.scale.x, t.scale.y, t.scale.z});
    }
    Take(std::move(baked.translation));
    Take(std::move(baked.rotation));
    Take(std::move(baked.scale));
}

// Named "mesh*0" after the mesh or its node.
void AnimationReader::ReadWeights(const aiMeshMorphAnim& source)
{
    const std::string name = source.mName.C_Str();
    const auto [first, last] = m_MorphedNodes.equal_range(name.substr(0, name.rfind('*')));
    for (auto entry = first; entry != last; ++entry) {
        const NeutralNode& node = m_Scene.nodes[static_cast<std::size_t>(entry->second)];
        const NeutralMesh& mesh = m_Scene.meshes[static_cast<std::size_t>(node.mesh)];
        NeutralTrack track;
        track.node = entry->second;
        track.path = TrackPath::Weights;
        track.width = static_cast<std::uint32_t>(mesh.targets.size());
        AppendKeys(source.mKeys, source.mNumKeys, m_TicksPerSecond, track, [&](const aiMeshMorphKey& key) {
            const std::size_t start = track.values.size();
            track.values.resize(start + track.width, 0.0);
            for (unsigned k = 0; k < key.mNumValuesAndWeights; ++k)
                if (key.mValues[k] < track.width)
                    track.values[start + key.mValues[k]] = key.mWeights[k];
        });
        Take(std::move(track));
    }
    if (first == last)
        m_Scene.warnings.push_back(Label() + ": the morph channel \"" + name + "\" has no targets to drive");
}

void AnimationReader::FindMorphedNodes()
{
    for (std::size_t i = 0; i < m_Scene.nodes.size(); ++i) {
        const NeutralNode& node = m_Scene.nodes[i];
        if (node.mesh < 0)
            continue;
        const NeutralMesh& mesh = m_Scene.meshes[static_cast<std::size_t>(node.mesh)];
        if (mesh.targets.empty())
            continue;
        m_MorphedNodes.emplace(node.name, static_cast<int>(i));
        if (mesh.name != node.name)
            m_MorphedNodes.emplace(mesh.name, static_cast<int>(i));
    }
}

void AnimationReader::ReportLostTangents()
{
    std::size_t tracks = 0;
    std::string example;
    for (const NeutralTrack& track : m_Result.tracks) {
        const double frames = (track.times.back() - track.times.front()) * m_FramesPerSecond;
        if (track.times.size() > 1 && static_cast<double>(track.times.size()) < frames + 0.5) {
            ++tracks;
            if (example.empty())
                example = m_Scene.nodes[static_cast<std::size_t>(track.node)].name;
        }
    }
    if (tracks > 0)
        m_Scene.warnings.push_back(Label() + ": " + std::to_string(tracks) +
                                   " tracks have fewer keys than frames, the first on \"" + example +
                                   "\"; their curves between the keys became straight lines");
}

NeutralAnimation AnimationReader::Read()
{
    m_Result.name = m_Source.mName.C_Str();
    if (!(m_Source.mTicksPerSecond > 0.0))
        m_Scene.warnings.push_back(Label() +
                                   ": the file does not say how long a frame is; 30 a second are assumed");
    std::map<int, std::map<std::string, Channel>> helperChannels;
    std::set<int> withOwnChannel;
    for (unsigned i = 0; i < m_Source.mNumChannels; ++i) {
        const aiNodeAnim& source = *m_Source.mChannels[i];
        const int pivoted = m_Nodes.FindByHelper(source.mNodeName);
        if (pivoted >= 0) {
            helperChannels[pivoted].emplace(source.mNodeName.C_Str(),
                                            ReadChannel(source, m_TicksPerSecond, pivoted));
            continue;
        }
        const int node = m_Nodes.Find(source.mNodeName, m_Scene);
        if (node < 0) {
            m_Scene.warnings.push_back(Label() + ": the channel \"" + source.mNodeName.C_Str() +
                                       "\" has no node and is left out");
            continue;
        }
        if (!withOwnChannel.insert(node).second) {
            m_Scene.warnings.push_back(Label() + ": a second channel for \"" +
                                       std::string(source.mNodeName.C_Str()) + "\" is left out");
            continue;
        }
        // A channel under the node's own name holds the whole local transform, the
        // pivots included.
        Channel channel = ReadChannel(source, m_TicksPerSecond, node);
        Take(std::move(channel.translation));
        Take(std::move(channel.rotation));
        Take(std::move(channel.scale));
    }
    for (const auto& [node, channels] : helperChannels)
        if (!withOwnChannel.contains(node))
            BakeHelpers(node, channels);
    if (m_Source.mNumMorphMeshChannels > 0)
        FindMorphedNodes();
    for (unsigned i = 0; i < m_Source.mNumMorphMeshChannels; ++i)
        ReadWeights(*m_Source.mMorphMeshChannels[i]);
    if (m_IsFbx)
        ReportLostTangents();
    return std::move(m_Result);
}

}  // namespace

void ReadAssimpAnimations(const aiScene& source, bool isFbx, AssimpNodes& nodes, NeutralScene& scene)
{
    for (unsigned i = 0; i < source.mNumAnimations; ++i)
        scene.animations.push_back(AnimationReader(*source.mAnimations[i], isFbx, nodes, scene).Read());
}

}  // namespace maxhost::io
