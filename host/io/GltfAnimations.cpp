#include "host/io/GltfAnimations.h"

#include <algorithm>
#include <cmath>
#include <optional>

#include "host/io/Refusal.h"

namespace maxhost::io {

namespace {

std::optional<TrackPath> PathOf(const std::string& name)
{
    if (name == "translation")
        return TrackPath::Translation;
    if (name == "rotation")
        return TrackPath::Rotation;
    if (name == "scale")
        return TrackPath::Scale;
    if (name == "weights")
        return TrackPath::Weights;
    return std::nullopt;
}

Interpolation InterpolationOf(const std::string& name)
{
    if (name == "STEP")
        return Interpolation::Step;
    return name == "CUBICSPLINE" ? Interpolation::Cubic : Interpolation::Linear;
}

bool RisesStrictly(const std::vector<double>& times)
{
    return std::ranges::all_of(times, [](double t) { return std::isfinite(t); }) &&
           std::ranges::adjacent_find(times, std::ranges::greater_equal()) == times.end();
}

class AnimationReader {
public:
    AnimationReader(const tinygltf::Animation& animation, std::string label,
                    const std::vector<int>& neutralOfNode, GltfAccessors& accessors, NeutralScene& scene)
        : m_Animation(animation),
          m_Label(std::move(label)),
          m_NeutralOfNode(neutralOfNode),
          m_Accessors(accessors),
          m_Scene(scene)
    {
    }

    NeutralAnimation Read();

private:
    void Warn(std::size_t channel, const std::string& text);
    std::optional<NeutralTrack> ReadChannel(std::size_t index);
    std::uint32_t WidthOf(const NeutralTrack& track) const;

    const tinygltf::Animation& m_Animation;
    const std::string m_Label;
    const std::vector<int>& m_NeutralOfNode;
    GltfAccessors& m_Accessors;
    NeutralScene& m_Scene;
};

void AnimationReader::Warn(std::size_t channel, const std::string& text)
{
    m_Scene.warnings.push_back(m_Label + ", channel " + std::to_string(channel) + ": " + text);
}

std::uint32_t AnimationReader::WidthOf(const NeutralTrack& track) const
{
    if (track.path == TrackPath::Rotation)
        return 4;
    if (track.path != TrackPath::Weights)
        return 3;
    const int mesh = m_Scene.nodes[static_cast<std::size_t>(track.node)].mesh;
    return mesh < 0
               ? 0
               : static_cast<std::uint32_t>(m_Scene.meshes[static_cast<std::size_t>(mesh)].targets.size());
}

std::optional<NeutralTrack> AnimationReader::ReadChannel(std::size_t index)
{
    const tinygltf::AnimationChannel& channel = m_Animation.channels[index];
    const auto path = PathOf(channel.target_path);
    if (!path || channel.target_node < 0) {
        Warn(index, "\"" + channel.target_path + "\" can't be animated here and is left out");
        return std::nullopt;
    }
    if (static_cast<std::size_t>(channel.target_node) >= m_NeutralOfNode.size())
        throw Refusal(m_Label + " names a node that does not exist");
    if (channel.sampler < 0 || static_cast<std::size_t>(channel.sampler) >= m_Animation.samplers.size())
        throw Refusal(m_Label + " names a sampler that does not exist");
    const tinygltf::AnimationSampler& sampler =
        m_Animation.samplers[static_cast<std::size_t>(channel.sampler)];

    NeutralTrack track;
    track.path = *path;
    track.node = m_NeutralOfNode[static_cast<std::size_t>(channel.target_node)];
    if (track.node < 0) {
        Warn(index, "its node stands outside the scene");
        return std::nullopt;
    }
    track.interpolation = InterpolationOf(sampler.interpolation);
    track.width = WidthOf(track);
    const GltfNumbers& times = m_Accessors.Numbers(sampler.input, 1);
    const GltfNumbers& values =
        m_Accessors.Numbers(sampler.output, track.path == TrackPath::Weights ? 1 : track.width);
    m_Accessors.Charge(times.values.size() + values.values.size());
    track.times.assign(times.values.begin(), times.values.end());
    track.values.assign(values.values.begin(), values.values.end());
    const std::size_t perKey =
        std::size_t{track.width} * (track.interpolation == Interpolation::Cubic ? 3 : 1);
    if (perKey == 0 || track.times.empty() || track.values.size() != track.times.size() * perKey) {
        Warn(index, "the numbers of times and of values do not fit; left out");
        return std::nullopt;
    }
    if (!RisesStrictly(track.times)) {
        Warn(index, "the times do not rise; left out");
        return std::nullopt;
    }
    if (!std::ranges::all_of(track.values, [](double v) { return std::isfinite(v); })) {
        Warn(index, "holds values that are no numbers; left out");
        return std::nullopt;
    }
    return track;
}

NeutralAnimation AnimationReader::Read()
{
    NeutralAnimation result;
    result.name = m_Animation.name;
    for (std::size_t i = 0; i < m_Animation.channels.size(); ++i)
        if (auto track = ReadChannel(i))
            result.tracks.push_back(std::move(*track));
    return result;
}

}  // namespace

void ReadGltfAnimations(const GltfFile& file, const std::vector<int>& neutralOfNode, GltfAccessors& accessors,
                        NeutralScene& scene)
{
    const auto& animations = file.model.animations;
    for (std::size_t i = 0; i < animations.size(); ++i) {
        const std::string label = "animation " + std::to_string(i) + " \"" + animations[i].name + "\"";
        const std::size_t claimed = i < file.channelCounts.size() ? file.channelCounts[i] : 0;
        if (claimed > animations[i].channels.size())
            scene.warnings.push_back(label + ": " + std::to_string(claimed - animations[i].channels.size()) +
                                     " channels that drive no node are left out");
        scene.animations.push_back(
            AnimationReader(animations[i], label, neutralOfNode, accessors, scene).Read());
    }
}

}  // namespace maxhost::io
