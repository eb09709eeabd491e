#include "VKT/animation/PoseStream.h"

#include <algorithm>

#include "VKT/animation/AnimatedAttribute.h"
#include "VKT/stream/FileIO.h"
#include "VKT/stream/TextReader.h"
#include "VKT/stream/TextWriter.h"

namespace VKT {

XPoseStream::XPoseStream(XAnimatedAttribute& attribute, XStreamKind kind)
    : XAnimationStream(kPoseStream, kind, attribute)
{
    if (GetKind() == kFloatArray) {
        attribute.GetCurrentArray(m_Values);
        m_ArrayLength = static_cast<u32>(m_Values.size());
        std::fill(m_Values.begin(), m_Values.end(), 0.0f);
    } else if (GetKind() == kMatrix) {
        m_Values.assign(std::begin(kIdentityMatrix.m), std::end(kIdentityMatrix.m));
    } else {
        m_Values.assign(GetElementCount(GetKind()), 0.0f);
    }
}

void XPoseStream::SetValue(const XVector3& value)
{
    std::copy_n(&value.x, std::min<std::size_t>(3, m_Values.size()), m_Values.begin());
}

void XPoseStream::SetValue(const XQuaternion& value)
{
    std::copy_n(&value.x, std::min<std::size_t>(4, m_Values.size()), m_Values.begin());
}

bool XPoseStream::Evaluate(f32, f32* out) const
{
    std::copy_n(m_Values.begin(), std::min<std::size_t>(GetElementCount(GetKind()), m_Values.size()), out);
    return !m_Values.empty();
}

// Kept on purpose: of a float array only the first entry is in the file.
bool XPoseStream::DoData(XFileIO& file)
{
    const std::size_t count = GetElementCount(GetKind());
    if (file.IsReading()) {
        m_ArrayLength = 0;
        m_Values.assign(count, 0.0f);
        return file.DoData(m_Values.data(), count) == count;
    }
    XFloatArray stored = m_Values;
    stored.resize(count, 0.0f);
    return file.DoData(stored.data(), count) == count;
}

// A number that fails to come is seen at the closing brace.
bool XPoseStream::ReadChunk(XTextReader& in)
{
    XString word;
    if (GetKind() == kFloatArray && in.ReadToken(word)) {
        in.HandBack(word);
        if (!word.starts_with('[')) {  // of an empty array, or what a binary file held of one
            m_ArrayLength = 0;
            m_Values.assign(word == "}" ? 0 : 1, 0.0f);
        }
    }
    if (m_ArrayLength == 0) {
        in.ReadArray(m_Values.data(), m_Values.size());
        return true;
    }
    for (f32& value : m_Values) {
        in.ReadToken(word);  // the entry's number in brackets
        in.Read(value);
    }
    return true;
}

bool XPoseStream::WriteChunk(XTextWriter& out) const
{
    out << "\t\t\tPOSE_KEY\n\t\t\t{\n";
    if (m_ArrayLength > 0) {
        for (u32 i = 0; i < m_ArrayLength; ++i)
            out << "\t\t\t\t[" << i << "] " << m_Values[i] << '\n';
    } else {
        out.WriteRow(m_Values, {"\t\t\t\t", true});
    }
    out << "\t\t\t}\n";
    return out.IsGood();
}

}  // namespace VKT
