#pragma once

#include <map>
#include <memory>

#include "VKT/animation/AnimCurveList.h"
#include "VKT/animation/SampledBoneAnim.h"
#include "VKT/node/NodeClass.h"

namespace VKT {

// The older form of animation: a fixed number of frames with a table of poses for each
// bone, and beside it lists of curves for what is no bone. Nothing turns a cycle into a
// take or back.
//
// A document keeps its cycles apart from its nodes, and a cycle writes its own braces and
// no id into text files.
class XAnimCycle final : public XNodeClass<XAnimCycle, XBase, kFnAnimCycle> {
public:
    using XNodeClass::XNodeClass;
    using XBoneAnims = std::map<u32, std::unique_ptr<XSampledBoneAnim>>;

    // Start and end in frames.
    void SetFrameRange(f32 start, f32 end, u32 numFrames);
    f32 GetStart() const { return m_Start; }
    f32 GetEnd() const { return m_End; }
    u32 GetNumFrames() const { return m_NumFrames; }
    f32 GetFramesPerSecond() const { return m_FramesPerSecond; }
    void SetFramesPerSecond(f32 rate) { m_FramesPerSecond = rate; }

    // The table of a bone, made without frames when there is none: `SetNumFrames` sizes it.
    XSampledBoneAnim* AddBoneAnim(u32 boneId);
    // The same table, or null.
    XSampledBoneAnim* FindBoneAnim(u32 boneId) const;
    // By ascending id of the bone.
    const XBoneAnims& GetBoneAnims() const { return m_BoneAnims; }
    // A new list at the end.
    XAnimCurveList* AddCurveList(const XString& name, u32 nodeId);
    const XVector<std::unique_ptr<XAnimCurveList>>& GetCurveLists() const { return m_CurveLists; }

    // Frames that the text form adds to tables which are shorter than the cycle.
    u64 GetTextPadding() const override;

    // Drops the table of the bone, and the first list of curves of that node.
    bool NodeDeath(u32 id) override;
    // A table or list whose read fails is not in the cycle; those ahead of it are. The same
    // holds for text.
    bool DoData(XFileIO& file) override;
    void DoCopy(const XBase* source) override;
    // The whole chunk, header and braces included.
    bool WriteChunk(XTextWriter& out) const override;
    // Starts behind the opening brace and takes the closing one.
    bool ReadFields(XTextReader& in) override;

    static XBodyTable TextBody();
    static XBodyTable BinaryBody() { return TextBody(); }
    static XPropertyTable Properties();

private:
    bool DoCurveLists(XFileIO& file);
    bool DoBoneAnims(XFileIO& file);
    bool ReadBoneAnim(XBlockReader block);
    bool ReadCurveLists(XBlockReader block);
    bool ReadCurveList(XBlockReader block);

    f32 m_Start = 0.0f;
    f32 m_End = 0.0f;
    u32 m_NumFrames = 0;
    f32 m_FramesPerSecond = 0.0f;
    XVector<std::unique_ptr<XAnimCurveList>> m_CurveLists;
    XBoneAnims m_BoneAnims;
};

}  // namespace VKT
