#include "exporter/walk/ExportCore.h"

#include "VKT/hierarchy/Bone.h"
#include "exporter/options/ExportOptions.h"

namespace VKTMax {

using VKT::XBase;
using VKT::XBone;

ScaleRules CurrentScaleRules()
{
    return {GetExportOptions().GetScaleFactor(), GetExportOptions().GetRemoveScale()};
}

XBone* VKTExportCore::FindBone(INode* node) const
{
    const auto found = m_Nodes.find(node);
    return found == m_Nodes.end() ? nullptr : VKT::XCast<XBone>(found->second);
}

INode* VKTExportCore::FindNode(const XBone* bone) const
{
    const auto found = m_NodesByBone.find(bone);
    return found == m_NodesByBone.end() ? nullptr : found->second;
}

TransformParts VKTExportCore::GetLocalTransform(INode* node, i32 ticks) const
{
    INode* parent = ParentOf(node);
    return DecomposeTransform(NodeMatrix(node, ticks), parent ? NodeMatrix(parent, ticks) : RowMatrix(),
                              CurrentScaleRules());
}

Vector3d VKTExportCore::GetVertexScale(INode* node, i32 ticks) const
{
    return VertexScale(NodeMatrix(node, ticks), CurrentScaleRules());
}

RowMatrix VKTExportCore::GetBindMatrix(INode* node) const
{
    if (!node)
        return {};
    const auto bound = bindTransforms.find(node);
    return bound == bindTransforms.end() ? NodeMatrix(node, 0) : bound->second;
}

}  // namespace VKTMax
