#include "VKT/animation/SampledStream.h"

#include <algorithm>
#include <cmath>
#include <span>

#include "VKT/animation/AnimationTake.h"
#include "VKT/base/Logger.h"
#include "VKT/document/Model.h"
#include "VKT/stream/FileIO.h"
#include "VKT/stream/TextReader.h"
#include "VKT/stream/TextWriter.h"

namespace VKT {

XSampledStream::XSampledStream(XAnimatedAttribute& attribute, XStreamKind kind, u32 elementsPerSample,
                               u32 numFrames)
    : XAnimationStream(kSampledStream, kind, attribute), m_ElementsPerSample(elementsPerSample)
{
    m_Samples.resize(std::size_t{elementsPerSample} * numFrames, 0.0f);
}

u32 XSampledStream::GetNumSamples() const
{
    return m_ElementsPerSample == 0 ? 0 : static_cast<u32>(m_Samples.size() / m_ElementsPerSample);
}

bool XSampledStream::SetSample(u32 frame, const XVector3& value)
{
    if (m_ElementsPerSample != 3 || frame >= GetNumSamples())
        return false;
    std::copy_n(&value.x, 3, &m_Samples[std::size_t{3} * frame]);
    return true;
}

bool XSampledStream::SetSample(u32 frame, const XQuaternion& value)
{
    if (m_ElementsPerSample != 4 || frame >= GetNumSamples())
        return false;
    std::copy_n(&value.x, 4, &m_Samples[std::size_t{4} * frame]);
    return true;
}

bool XSampledStream::SetSample(u32 index, f32 value)
{
    if (index >= m_Samples.size())
        return false;
    m_Samples[index] = value;
    return true;
}

// Where a time stands in the table, in samples.
f32 XSampledStream::PositionOf(f32 time) const
{
    const XAnimationTake& take = GetAttribute().GetTake();
    const f32 position = std::min(time, take.GetEndTime()) - take.GetStartTime();
    return position > 0.0f ? std::min(position, static_cast<f32>(GetNumSamples() - 1)) : 0.0f;
}

bool XSampledStream::Evaluate(f32 time, f32* out) const
{
    const u32 count = std::min(GetElementCount(GetKind()), m_ElementsPerSample);
    if (GetNumSamples() == 0 || count == 0)
        return false;
    const f32 position = PositionOf(time);
    const std::size_t left = static_cast<std::size_t>(position);
    const std::size_t right = std::min<std::size_t>(left + 1, GetNumSamples() - 1);
    const f32 fraction = position - static_cast<f32>(left);
    const f32* const a = &m_Samples[left * m_ElementsPerSample];
    const f32* const b = &m_Samples[right * m_ElementsPerSample];
    if (GetKind() == kMatrix) {
        std::copy_n(fraction < 0.5f ? a : b, count, out);
    } else if (GetKind() == kQuaternion && count == 4) {
        const XQuaternion q = XSlerp({a[0], a[1], a[2], a[3]}, {b[0], b[1], b[2], b[3]}, fraction);
        std::copy_n(&q.x, 4, out);
    } else {
        for (u32 i = 0; i < count; ++i)
            out[i] = a[i] + (b[i] - a[i]) * fraction;
    }
    return true;
}

bool XSampledStream::DoData(XFileIO& file)
{
    if (!file.DoData(m_Samples))
        return false;
    if (file.IsReading() && m_ElementsPerSample > 0)
        GetAttribute().GetTake().SetNumFrames(GetNumSamples());
    return true;
}

// The table has room for the take's frames. More words make it grow, fewer leave zeroes.
bool XSampledStream::ReadChunk(XTextReader& in)
{
    XAnimationTake& take = GetAttribute().GetTake();
    XLoadReport& report = take.GetModel()->GetLoadReport();
    const u64 claimed = u64{m_ElementsPerSample} * take.GetNumFrames();
    if (claimed > XLoadReport::kMostSamplePadding && !in.CanHold(claimed))
        return report.AllowSamplePadding(claimed);
    m_Samples.resize(static_cast<std::size_t>(claimed));
    const std::size_t came = ReadSamples(in);
    if (in.HasFailed())
        return false;
    if (came < claimed) {
        if (!report.AllowSamplePadding(claimed - came))
            return false;
        std::fill(m_Samples.begin() + static_cast<std::ptrdiff_t>(came), m_Samples.end(), 0.0f);
    }
    if (m_Samples.size() != std::size_t{m_ElementsPerSample} * GetNumSamples())
        return false;  // in silence
    if (m_ElementsPerSample > 0)
        take.SetNumFrames(GetNumSamples());
    return true;
}

// Reads words up to the closing brace, which stays in place, and answers how many came.
// A word that is no number counts as 0.
std::size_t XSampledStream::ReadSamples(XTextReader& in)
{
    const std::size_t claimed = m_Samples.size();
    std::size_t came = 0;
    XString word;
    for (;;) {
        came += in.TakeSome(m_Samples.data() + came, m_Samples.size() - came);
        if (!in.ReadToken(word) || word == "}")
            break;
        if (came == m_Samples.size())
            m_Samples.resize(came + came / 2 + 64);
        XTextReader(word).Read(m_Samples[came++]);
    }
    m_Samples.resize(std::max(came, claimed));
    in.HandBack(word);
    return came;
}

bool XSampledStream::WriteChunk(XTextWriter& out) const
{
    const std::size_t written = std::size_t{m_ElementsPerSample} * GetNumSamples();
    if (written != m_Samples.size())
        GetLogger()->LogFormat(kWarning, "take \"%s\": a table of %d floats is written as %d samples of %d",
                               GetAttribute().GetTake().GetName(), static_cast<int>(m_Samples.size()),
                               static_cast<int>(GetNumSamples()), static_cast<int>(m_ElementsPerSample));
    out << "\t\t\tSAMPLED_KEYS\n\t\t\t{\n";
    out.WriteRows(std::span(m_Samples).first(written), m_ElementsPerSample, {"\n\t\t\t\t", true, ""});
    out << "\n\t\t\t}\n";
    return out.IsGood();
}

XQuaternion XSlerp(const XQuaternion& a, const XQuaternion& b, f32 fraction)
{
    f32 cosine = a.x * b.x + a.y * b.y + a.z * b.z + a.w * b.w;
    const f32 sign = cosine < 0.0f ? -1.0f : 1.0f;
    if (cosine > 1.0f)
        cosine = 0.999999f;
    else if (cosine < -1.0f)
        cosine = -0.999999f;
    const f32 angle = std::acos(cosine);
    f32 weightA = 1.0f - fraction;
    f32 weightB = fraction;
    if (std::fabs(angle) >= 0.0001f) {
        weightA = std::sin(angle * weightA) / std::sin(angle);
        weightB = std::sin(angle * weightB) / std::sin(angle);
    }
    weightB *= sign;
    return {a.x * weightA + b.x * weightB, a.y * weightA + b.y * weightB, a.z * weightA + b.z * weightB,
            a.w * weightA + b.w * weightB};
}

}  // namespace VKT
