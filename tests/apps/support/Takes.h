#pragma once

#include <string>
#include <vector>

#include "apps/support/Documents.h"

// Chunks of animation to build documents from.

inline std::string Joined(const std::vector<std::string>& parts)
{
    std::string text;
    for (const std::string& part : parts)
        text += part;
    return text;
}

// `rows` are the samples, `"\n1 2 3 "` for one of three floats.
inline std::string Samples(const std::string& rows)
{
    return "\t\t\tSAMPLED_KEYS\n\t\t\t{\n" + rows + "\n\t\t\t}\n";
}

inline std::string Pose(const std::string& values)
{
    return "\t\t\tPOSE_KEY\n\t\t\t{\n\t\t\t\t" + values + " \n\t\t\t}\n";
}

// A curve of a component; `keys` are rows like those of samples.
inline std::string Curve(int component, const std::string& interpolation, int numKeys,
                         const std::string& keys)
{
    return "\t\t\t\tANIM_CURVE \n\t\t\t\t{\n\t\t\t\t\tinterpolation " + interpolation +
           "\n\t\t\t\t\tnum_keys " + std::to_string(numKeys) +
           "\n\t\t\t\t\tpre_infinity kInfinityConstant\n\t\t\t\t\tpost_infinity kInfinityConstant\n"
           "\t\t\t\t\tcomponent " +
           std::to_string(component) + "\n\t\t\t\t\tindex -1" + keys + "\n\t\t\t\t}\n";
}

inline std::string Curves(const std::vector<std::string>& curves)
{
    return "\t\t\tFCURVE_STREAM\n\t\t\t{\n\t\t\t\tnum_fcurves " + std::to_string(curves.size()) + "\n" +
           Joined(curves) + "\t\t\t}\n";
}

inline std::string Animated(const std::string& attribute, int elements,
                            const std::vector<std::string>& streams)
{
    return "\t\tATTR " + attribute + "\n\t\t{\n\t\t\tnum_streams " + std::to_string(streams.size()) +
           "\n\t\t\telements_per_sample " + std::to_string(elements) + "\n" + Joined(streams) + "\t\t}\n";
}

inline std::string AnimatedNode(int id, const std::vector<std::string>& attributes)
{
    return "\tANIM_NODE " + std::to_string(id) + "\n\t{\n\t\tnum_animated_attrs " +
           std::to_string(attributes.size()) + "\n\t\tnum_animated_attrs_user 0\n" + Joined(attributes) +
           "\t}\n";
}

// Start and end are in frames.
inline std::string Take(const std::string& name, int id, const std::vector<std::string>& nodes,
                        const std::string& start = "0", const std::string& end = "24",
                        const std::string& rate = "24")
{
    return "ANIMATION_TAKE " + name + "\n{\n\tid " + std::to_string(id) + "\n\tstart_time " + start +
           "\n\tend_time " + end + "\n\tfps " + rate + "\n\tcurrent_time 0\n\tnum_animated_nodes " +
           std::to_string(nodes.size()) + "\n\tnum_event_tracks 0\n" + Joined(nodes) + "}\n";
}
