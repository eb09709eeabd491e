#include "VKT/animation/SampledBoneAnim.h"

#include <algorithm>
#include <span>

#include "VKT/stream/FileIO.h"
#include "VKT/stream/TextReader.h"
#include "VKT/stream/TextWriter.h"

namespace VKT {
namespace {

constexpr XVector3 kNewScale{1.0f, 1.0f, 1.0f, 0.0f};
constexpr XVector3 kNewTranslate{};
constexpr u32 kFloatsPerFrame = 10;

}  // namespace

void XSampledBoneAnim::SetNumFrames(u32 frames)
{
    m_Scale.resize(frames, kNewScale);
    m_Translate.resize(frames, kNewTranslate);
    m_Rotate.resize(frames, kIdentityQuaternion);
}

u32 XSampledBoneAnim::GetNumFrames() const
{
    return static_cast<u32>(std::min({m_Scale.size(), m_Translate.size(), m_Rotate.size()}));
}

void XSampledBoneAnim::ReadFrames(XTextReader& in, u32 frames)
{
    if (!in.CanHold(u64{frames} * kFloatsPerFrame)) {
        in.SetFailed();
        return;
    }
    SetNumFrames(0);
    if (in.Remaining() != XTextReader::kUnknown) {
        m_Scale.reserve(frames);
        m_Translate.reserve(frames);
        m_Rotate.reserve(frames);
    }
    for (u32 i = 0; i < frames; ++i) {
        f32 f[kFloatsPerFrame];
        if (!in.ReadArray(f, kFloatsPerFrame))
            return;
        m_Rotate.push_back({f[0], f[1], f[2], f[3]});
        m_Translate.push_back({f[4], f[5], f[6], 0.0f});
        m_Scale.push_back({f[7], f[8], f[9], 0.0f});
    }
}

void XSampledBoneAnim::WriteFrames(XTextWriter& out, u32 frames) const
{
    for (u32 i = 0; i < frames; ++i) {
        const XQuaternion& rotate = i < m_Rotate.size() ? m_Rotate[i] : kIdentityQuaternion;
        const XVector3& translate = i < m_Translate.size() ? m_Translate[i] : kNewTranslate;
        const XVector3& scale = i < m_Scale.size() ? m_Scale[i] : kNewScale;
        out.WriteRow(std::span(&rotate.x, 4), {"\t\t", false, "\t"});
        out.WriteRow(std::span(&translate.x, 3), {"", false, "\t"});
        out.WriteRow(std::span(&scale.x, 3), {""});
    }
}

bool XSampledBoneAnim::DoData(XFileIO& file)
{
    return file.DoData(m_Scale) && file.DoData(m_Translate) && file.DoData(m_Rotate);
}

}  // namespace VKT
