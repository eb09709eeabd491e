#pragma once

#include "VKT/animation/AnimationTake.h"
#include "VKT/animation/FCurveStream.h"
#include "VKT/animation/PoseStream.h"
#include "VKT/animation/SampledStream.h"
#include "VKT/deformers/BlendShape.h"
#include "VKT/hierarchy/Bone.h"
#include "VKT/support/NodeTest.h"

namespace VKT::Test {

// Numbers of a bone's attributes.
inline constexpr u32 kRotation = 1;
inline constexpr u32 kScale = 2;
inline constexpr u32 kTranslate = 3;
inline constexpr u32 kVisible = 4;

// A bone of id 1, a take of id 2 over three frames, and its entry for the bone.
class AnimationTest : public NodeTest {
protected:
    AnimationTest()
    {
        m_Take.SetStartTime(10);
        m_Take.SetEndTime(12);
        m_Take.SetNumFrames(3);
    }

    // The text of a take that animates one attribute of the bone.
    static std::string TakeText(const std::string& attribute, const std::string& streams, int numStreams = 1,
                                int elements = 3)
    {
        return "start_time 10 end_time 12 fps 24 current_time 0 num_animated_nodes 1 num_event_tracks 0\n"
               "ANIM_NODE 1 { num_animated_attrs 1 num_animated_attrs_user 0 ATTR " +
               attribute + " { num_streams " + std::to_string(numStreams) + " elements_per_sample " +
               std::to_string(elements) + "\n" + streams + " } }\n";
    }
    // Reads that text; the attribute, or null when the take did not read.
    XAnimatedAttribute* ReadAttribute(const std::string& attribute, const std::string& streams,
                                      int elements = 3)
    {
        if (!ReadText(m_Take, TakeText(attribute, streams, 1, elements)))
            return nullptr;
        return m_Take.GetAnimatedNode(0)->GetAttribute(0);
    }

    XBone& m_Bone = *m_Model.CreateNode<XBone>();
    XAnimationTake& m_Take = *m_Model.CreateNode<XAnimationTake>();
    XAnimatedNode& m_Entry = *m_Take.CreateNodeAnimation(&m_Bone);
};

inline std::string BlockOf(const XAnimationStream& stream)
{
    XTextWriter out;
    stream.WriteChunk(out);
    return out.TakeText();
}

// The stream's part of a binary file behind type and kind.
inline std::string DataOf(XAnimationStream& stream)
{
    const TempFile file(".bin");
    {
        XFileIO out(file.Path(), false);
        stream.DoData(out);
    }
    return file.Bytes();
}

}  // namespace VKT::Test
