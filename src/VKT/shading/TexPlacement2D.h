#pragma once

#include "VKT/shading/ShadingNode.h"

namespace VKT {

// An image on a surface: the file, and how it is laid out over the surface's uv
// coordinates. Angles are radians, all other values are stored as they stand. The
// library applies none of them.
class XTexPlacement2D : public XNodeClass<XTexPlacement2D, XShadingNode, kFnTexPlacement2D> {
public:
    using XNodeClass::XNodeClass;

    // The id of an image in the document's table, 0 for none.
    u32 GetImage() const { return m_Image; }
    void SetImage(u32 id) { m_Image = id; }
    // The frame is the part of the surface that the image covers.
    f32 GetTranslateFrameU() const { return m_TranslateFrameU; }
    f32 GetTranslateFrameV() const { return m_TranslateFrameV; }
    void SetTranslateFrame(f32 u, f32 v) { m_TranslateFrameU = u, m_TranslateFrameV = v; }
    f32 GetRotateFrame() const { return m_RotateFrame; }
    void SetRotateFrame(f32 radians) { m_RotateFrame = radians; }
    // What happens to repetitions of the image: mirrored, shifted from row to row, or none.
    bool IsMirroredU() const { return m_MirrorU; }
    void SetMirrorU(bool mirror) { m_MirrorU = mirror; }
    bool IsMirroredV() const { return m_MirrorV; }
    void SetMirrorV(bool mirror) { m_MirrorV = mirror; }
    bool IsStaggered() const { return m_Stagger; }
    void SetStagger(bool stagger) { m_Stagger = stagger; }
    bool IsWrappedU() const { return m_WrapU; }
    void SetWrapU(bool wrap) { m_WrapU = wrap; }
    bool IsWrappedV() const { return m_WrapV; }
    void SetWrapV(bool wrap) { m_WrapV = wrap; }
    // Within the frame.
    f32 GetRepeatU() const { return m_RepeatU; }
    f32 GetRepeatV() const { return m_RepeatV; }
    void SetRepeat(f32 u, f32 v) { m_RepeatU = u, m_RepeatV = v; }
    f32 GetOffsetU() const { return m_OffsetU; }
    f32 GetOffsetV() const { return m_OffsetV; }
    void SetOffset(f32 u, f32 v) { m_OffsetU = u, m_OffsetV = v; }
    f32 GetRotateUV() const { return m_RotateUV; }
    void SetRotateUV(f32 radians) { m_RotateUV = radians; }
    f32 GetNoiseU() const { return m_NoiseU; }
    f32 GetNoiseV() const { return m_NoiseV; }
    void SetNoise(f32 u, f32 v) { m_NoiseU = u, m_NoiseV = v; }

    // The path of the image file, as it was given.
    const XString& GetFileTextureName() const { return m_FileTextureName; }
    void SetFileTextureName(const XString& path) { m_FileTextureName = path; }
    // A number that the library passes on.
    u32 GetFilterType() const { return m_FilterType; }
    void SetFilterType(u32 type) { m_FilterType = type; }
    f32 GetFilterAmount() const { return m_FilterAmount; }
    void SetFilterAmount(f32 amount) { m_FilterAmount = amount; }
    bool IsPreFiltered() const { return m_PreFilter; }
    void SetPreFilter(bool filter) { m_PreFilter = filter; }
    f32 GetPreFilterRadius() const { return m_PreFilterRadius; }
    void SetPreFilterRadius(f32 radius) { m_PreFilterRadius = radius; }

    static XBodyTable TextBody();
    static XBodyTable BinaryBody() { return TextBody(); }
    static XPropertyTable Properties();

private:
    u32 m_Image = 0;
    f32 m_TranslateFrameU = 0.0f;
    f32 m_TranslateFrameV = 0.0f;
    f32 m_RotateFrame = 0.0f;
    bool m_MirrorU = false;
    bool m_MirrorV = false;
    bool m_Stagger = false;
    bool m_WrapU = false;
    bool m_WrapV = false;
    f32 m_RepeatU = 1.0f;
    f32 m_RepeatV = 1.0f;
    f32 m_OffsetU = 0.0f;
    f32 m_OffsetV = 0.0f;
    f32 m_RotateUV = 0.0f;
    f32 m_NoiseU = 0.0f;
    f32 m_NoiseV = 0.0f;
    XString m_FileTextureName;
    u32 m_FilterType = 0;
    f32 m_FilterAmount = 1.0f;
    bool m_PreFilter = false;
    f32 m_PreFilterRadius = 2.0f;
};

}  // namespace VKT
