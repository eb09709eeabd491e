#include "VKT/animation/AnimatedNode.h"

#include <algorithm>
#include <optional>

#include "VKT/animation/AnimationTake.h"
#include "VKT/base/Logger.h"
#include "VKT/document/Model.h"
#include "VKT/stream/BlockReader.h"
#include "VKT/stream/FileIO.h"
#include "VKT/stream/TextWriter.h"

namespace VKT {
namespace {

// The kind of a new attribute; none for types that are not animated.
std::optional<XStreamKind> KindOf(XPropertyType type)
{
    switch (type) {
        case kPropertyBool:
        case kPropertyFloat:
        case kPropertyUnsigned:
        case kPropertyFloatArray:
        case kPropertyIntegerArray:
            return kScalar;
        case kPropertyVector:
        case kPropertyVectorArray:
            return kVector3;
        case kPropertyMatrix:
            return kMatrix;
        case kPropertyColour:
            return kVector4;
        case kPropertyQuaternion:
            return kQuaternion;
        default:
            return std::nullopt;
    }
}

}  // namespace

XBase* XAnimatedNode::GetNode() const
{
    return m_Take->GetModel()->FindNode(m_NodeId);
}

XAnimatedAttribute* XAnimatedNode::GetAttribute(u32 i) const
{
    return i < m_Attributes.size() ? m_Attributes[i].get() : nullptr;
}

XAnimatedAttribute* XAnimatedNode::CreateAttribute(u32 attributeId)
{
    const XBase* const node = GetNode();
    if (!node || !node->IsPropertyAnimated(attributeId))
        return nullptr;
    const auto kind = KindOf(node->GetPropertyType(attributeId));
    if (!kind)
        return nullptr;
    return m_Attributes.emplace_back(std::make_unique<XAnimatedAttribute>(*this, attributeId, *kind)).get();
}

bool XAnimatedNode::ReadChunk(XBlockReader block)
{
    u32 count = 0;
    if (!block.Read("ANIM_NODE", m_NodeId) || !block.Expect("{") ||
        !block.Read("num_animated_attrs", count) ||
        !block.Read("num_animated_attrs_user", m_NumUserAttributes))
        return false;
    for (u32 i = 0; i < count; ++i)
        if (!m_Attributes.emplace_back(std::make_unique<XAnimatedAttribute>(*this, 0))->ReadChunk(block))
            return false;
    return block.Expect("}");
}

bool XAnimatedNode::WriteChunk(XTextWriter& out) const
{
    const auto isNamed = [](const auto& attribute) { return !attribute->GetName().empty(); };
    const auto named = std::count_if(m_Attributes.begin(), m_Attributes.end(), isNamed);
    if (const auto nameless = std::ssize(m_Attributes) - named)
        GetLogger()->LogFormat(kWarning,
                               "take \"%s\": %d animated attributes of \"%s\" have no name and are left out",
                               m_Take->GetName(), static_cast<int>(nameless), GetNode()->GetName());
    out << "\tANIM_NODE " << XNodeId{m_NodeId} << "\n\t{\n";
    out << "\t\tnum_animated_attrs " << static_cast<u32>(named) << '\n';
    out << "\t\tnum_animated_attrs_user " << m_NumUserAttributes << '\n';
    for (const auto& attribute : m_Attributes)
        if (isNamed(attribute))
            attribute->WriteChunk(out);
    out << "\t}\n";
    return out.IsGood();
}

// Not a list as others: a number that comes short does not end the body.
bool XAnimatedNode::DoData(XFileIO& file)
{
    u32 count = GetNumAttributes();
    file.DoId(m_NodeId);
    file.DoData(count);
    file.DoData(m_NumUserAttributes);
    for (u32 i = 0; i < count && !file.IsAtEnd(); ++i) {
        if (file.IsReading())
            m_Attributes.push_back(std::make_unique<XAnimatedAttribute>(*this, 0));
        if (!m_Attributes[i]->DoData(file))
            return false;
    }
    return true;
}

}  // namespace VKT
