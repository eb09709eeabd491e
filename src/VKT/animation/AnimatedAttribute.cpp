#include "VKT/animation/AnimatedAttribute.h"

#include <algorithm>

#include "VKT/animation/AnimationTake.h"
#include "VKT/animation/FCurveStream.h"
#include "VKT/animation/PoseStream.h"
#include "VKT/animation/SampledStream.h"
#include "VKT/base/Logger.h"
#include "VKT/node/Attribute.h"
#include "VKT/stream/BlockReader.h"
#include "VKT/stream/FileIO.h"
#include "VKT/stream/NodeName.h"
#include "VKT/stream/TextWriter.h"

namespace VKT {
namespace {

// By their types.
constexpr const char* kStreamWords[] = {"POSE_KEY", "SAMPLED_KEYS", "FCURVE_STREAM"};

// Kept on purpose: what a text file gives to arrays of vectors. It has no name and no
// elements.
constexpr XStreamKind kVectorArray{7};

// The kind of an attribute that is read from a text file. Kept on purpose: it differs
// from that of `XAnimatedNode::CreateAttribute` for arrays.
XStreamKind TextKindOf(XPropertyType type)
{
    switch (type) {
        case kPropertyVector:
            return kVector3;
        case kPropertyMatrix:
            return kMatrix;
        case kPropertyColour:
            return kVector4;
        case kPropertyQuaternion:
            return kQuaternion;
        case kPropertyFloatArray:
            return kFloatArray;
        case kPropertyVectorArray:
            return kVectorArray;
        default:
            return kScalar;
    }
}

}  // namespace

XAnimatedAttribute::XAnimatedAttribute(XAnimatedNode& node, u32 attributeId)
    : m_AttributeId(attributeId), m_Node(&node)
{
}

XAnimatedAttribute::XAnimatedAttribute(XAnimatedNode& node, u32 attributeId, XStreamKind kind)
    : m_Kind(kind), m_ElementsPerSample(GetElementCount(kind)), m_AttributeId(attributeId), m_Node(&node)
{
}

XAttribute* XAnimatedAttribute::GetExtraAttribute() const
{
    const XBase* const node = GetNode();
    return node && !m_ExtraAttribute.empty() ? node->GetExtraAttribute(m_ExtraAttribute.c_str()) : nullptr;
}

XString XAnimatedAttribute::GetName() const
{
    if (GetExtraAttribute())
        return m_ExtraAttribute;
    const XBase* const node = GetNode();
    return node ? node->GetPropertyName(m_AttributeId) : XString();
}

XAnimationTake& XAnimatedAttribute::GetTake() const
{
    return m_Node->GetTake();
}

XBase* XAnimatedAttribute::GetNode() const
{
    return m_Node->GetNode();
}

void XAnimatedAttribute::GetCurrentArray(XFloatArray& out) const
{
    out.clear();
    if (const XBase* node = GetNode())
        node->GetNodeProperties()->GetFloatArray(node, m_AttributeId, out);
}

XAnimationStream* XAnimatedAttribute::GetStream(u32 i) const
{
    return i < m_Streams.size() ? m_Streams[i].get() : nullptr;
}

template <class Stream>
Stream* XAnimatedAttribute::Find(XStreamType type) const
{
    const auto found = std::find_if(m_Streams.begin(), m_Streams.end(),
                                    [=](const auto& stream) { return stream->GetStreamType() == type; });
    return found == m_Streams.end() ? nullptr : static_cast<Stream*>(found->get());
}

template <class Stream>
Stream* XAnimatedAttribute::Add(std::unique_ptr<Stream> stream)
{
    Stream* const added = stream.get();
    m_Streams.push_back(std::move(stream));
    return added;
}

XPoseStream* XAnimatedAttribute::CreatePoseStream()
{
    if (auto* found = Find<XPoseStream>(kPoseStream))
        return found;
    return Add(std::make_unique<XPoseStream>(*this, m_Kind));
}

XSampledStream* XAnimatedAttribute::CreateSampledStream()
{
    if (auto* found = Find<XSampledStream>(kSampledStream))
        return found;
    auto stream =
        std::make_unique<XSampledStream>(*this, m_Kind, GetElementCount(m_Kind), GetTake().GetNumFrames());
    FillWithCurrent(*stream);
    return Add(std::move(stream));
}

XFCurveStream* XAnimatedAttribute::CreateFCurveStream()
{
    if (auto* found = GetFCurveStream())
        return found;
    return Add(std::make_unique<XFCurveStream>(*this, m_Kind));
}

XFCurveStream* XAnimatedAttribute::GetFCurveStream() const
{
    return Find<XFCurveStream>(kFCurveStream);
}

void XAnimatedAttribute::FillWithCurrent(XSampledStream& stream) const
{
    const XBase* const node = GetNode();
    if (!node)
        return;
    const XNodeProperties& properties = *node->GetNodeProperties();
    const auto fill = [&](const auto& value) {
        for (u32 i = 0; i < stream.GetNumSamples(); ++i)
            stream.SetSample(i, value);
    };
    f32 number = 0;
    bool flag = false;
    u32 count = 0;
    XVector3 vector{};
    XColour colour{};
    XQuaternion rotation{};
    if (properties.GetFloat(node, m_AttributeId, number))
        fill(number);
    else if (properties.GetBool(node, m_AttributeId, flag))
        fill(flag ? 1.0f : 0.0f);
    else if (properties.GetUnsigned(node, m_AttributeId, count))
        fill(static_cast<f32>(count));
    else if (properties.GetVector(node, m_AttributeId, vector))
        fill(vector);
    else if (properties.GetColour(node, m_AttributeId, colour))
        fill(XQuaternion{colour.r, colour.g, colour.b, colour.a});
    else if (properties.GetQuaternion(node, m_AttributeId, rotation))
        fill(rotation);
}

bool XAnimatedAttribute::ReadChunk(XBlockReader block)
{
    XString name;
    if (!block.Read("ATTR", name))
        return false;
    const XBase* const node = GetNode();
    if (!node)
        return false;
    SetTarget(*node, name);
    u32 count = 0;
    if (!block.Expect("{") || !block.Read("num_streams", count) ||
        !block.Read("elements_per_sample", m_ElementsPerSample))
        return false;
    for (u32 i = 0; i < count; ++i)
        if (!ReadStream(block))
            return false;
    return block.Expect("}");
}

void XAnimatedAttribute::SetTarget(const XBase& node, const XString& word)
{
    m_AttributeId = node.GetPropertyId(word.c_str());
    m_Kind = TextKindOf(node.GetPropertyType(m_AttributeId));
    if (m_AttributeId == 0 && node.GetExtraAttribute(word.c_str()))
        m_ExtraAttribute = word;
}

bool XAnimatedAttribute::ReadStream(XBlockReader block)
{
    XTextReader& in = block.In();
    XString word;
    in.ReadToken(word);
    u32 type = 0;
    if (!FindWord(word, kStreamWords, type))
        return block.Refuse("FCURVE_STREAM", word);
    block.NextRow();
    std::unique_ptr<XAnimationStream> stream = MakeStream(type, m_Kind);
    return block.Expect("{") && stream->ReadChunk(in) && block.Expect("}") && Add(std::move(stream));
}

// An empty stream as files hold it, null for a number that is no type.
std::unique_ptr<XAnimationStream> XAnimatedAttribute::MakeStream(u32 type, XStreamKind kind)
{
    switch (type) {
        case kPoseStream:
            return std::make_unique<XPoseStream>(*this, kind);
        case kSampledStream:
            return std::make_unique<XSampledStream>(*this, kind, m_ElementsPerSample);
        case kFCurveStream:
            return std::make_unique<XFCurveStream>(*this, kind);
        default:
            return nullptr;
    }
}

bool XAnimatedAttribute::WriteChunk(XTextWriter& out) const
{
    out << "\t\tATTR " << NameAsToken(GetName()) << "\n\t\t{\n";
    out << "\t\t\tnum_streams " << GetNumStreams() << '\n';
    out << "\t\t\telements_per_sample " << m_ElementsPerSample << '\n';
    for (const auto& stream : m_Streams)
        stream->WriteChunk(out);
    out << "\t\t}\n";
    return out.IsGood();
}

// Not a list as others: a number that comes short does not end the body.
bool XAnimatedAttribute::DoData(XFileIO& file)
{
    u32 count = GetNumStreams();
    file.DoData(m_AttributeId);
    file.DoData(m_ElementsPerSample);
    file.DoData(count);
    for (u32 i = 0; i < count && !file.IsAtEnd(); ++i)
        if (!(file.IsReading() ? ReadStream(file) : WriteStream(file, *m_Streams[i])))
            return false;
    return true;
}

bool XAnimatedAttribute::ReadStream(XFileIO& file)
{
    u32 type = kPoseStream;
    u32 kind = kScalar;
    file.DoData(type);
    file.DoData(kind);
    std::unique_ptr<XAnimationStream> stream = MakeStream(type, XStreamKind{kind});
    if (!stream) {
        GetLogger()->LogFormat(kError, "%d is no type of a key stream", static_cast<int>(type));
        return false;
    }
    return Add(std::move(stream))->DoData(file);
}

bool XAnimatedAttribute::WriteStream(XFileIO& file, XAnimationStream& stream)
{
    u32 type = stream.GetStreamType();
    u32 kind = stream.GetKind();
    file.DoData(type);
    file.DoData(kind);
    return stream.DoData(file);
}

}  // namespace VKT
