#include "max/Node.h"

#include <max.h>

#include "max/Matrix.h"
#include "max/Text.h"

namespace VKTMax {
namespace {

constexpr TimeValue kTime = 0;

// The host's colour word holds red in its lowest byte, then green, then blue.
VKT::XColour ToColour(COLORREF colour)
{
    const auto channel = [colour](int shift) { return static_cast<f32>((colour >> shift & 0xFF) / 255.0); };
    return {channel(0), channel(8), channel(16), 1.0f};
}

RowMatrix ObjectOffset(INode& node)
{
    Matrix3 offset;
    offset.IdentityMatrix();
    offset.PreTranslate(node.GetObjOffsetPos());
    PreRotateMatrix(offset, node.GetObjOffsetRot());
    ApplyScaling(offset, node.GetObjOffsetScale());
    return ToRowMatrix(offset);
}

}  // namespace

HostNode ReadNode(INode* node)
{
    return {.handle = node,
            .name = TextOrEmpty(node->GetName()),
            .object = ReadObject(node->EvalWorldState(kTime, TRUE).obj),
            .material = node->GetMtl(),
            .isHidden = node->IsHidden() != 0,
            .visibility = node->GetVisibility(kTime),
            .isBone = node->GetBoneNodeOnOff() != 0,
            .wireColour = ToColour(node->GetWireColor()),
            .world = WorldMatrix(node, kTime),
            .objectOffset = ObjectOffset(*node)};
}

INode* ParentOf(INode* node)
{
    return node->GetParentNode();
}

std::vector<INode*> ChildrenOf(INode* node)
{
    std::vector<INode*> children;
    const int count = node->NumberOfChildren();
    for (int i = 0; i < count; ++i)
        children.push_back(node->GetChildNode(i));
    return children;
}

bool IsSelected(INode* node)
{
    return node->Selected() != 0;
}

RowMatrix WorldMatrix(INode* node, i32 ticks)
{
    return ToRowMatrix(node->GetNodeTM(ticks));
}

}  // namespace VKTMax
