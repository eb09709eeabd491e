#pragma once

#include "VKT/base/Lists.h"

namespace VKT {

class XFileIO;
class XTextReader;
class XTextWriter;

// The pose of one bone in each frame of a cycle, relative to its parent.
class XSampledBoneAnim {
public:
    // Sizes all three tables; new frames have the scale 1, no translation and the
    // identity rotation.
    void SetNumFrames(u32 frames);
    XVector3Array& GetScale() { return m_Scale; }
    const XVector3Array& GetScale() const { return m_Scale; }
    XVector3Array& GetTranslate() { return m_Translate; }
    const XVector3Array& GetTranslate() const { return m_Translate; }
    XVector<XQuaternion>& GetRotate() { return m_Rotate; }
    const XVector<XQuaternion>& GetRotate() const { return m_Rotate; }
    // Frames that all three tables hold.
    u32 GetNumFrames() const;

    // That many frame lines: rotation, translation, scale. Missing frames are written as
    // new ones. A read stops at the first number that does not come.
    void ReadFrames(XTextReader& in, u32 frames);
    void WriteFrames(XTextWriter& out, u32 frames) const;
    // Scale, translation, rotation, each with a count of its own; in both directions.
    bool DoData(XFileIO& file);

private:
    XVector3Array m_Scale;
    XVector3Array m_Translate;
    XVector<XQuaternion> m_Rotate;
};

}  // namespace VKT
