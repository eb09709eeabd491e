#include "exporter/walk/SceneWalk.h"

#include "exporter/geometry/MeshExport.h"
#include "exporter/walk/BoneTree.h"
#include "exporter/walk/NodeAttributes.h"
#include "exporter/walk/TreeWalk.h"
#include "max/HostClasses.h"

namespace VKTMax {
namespace {

// Sends the object of a node to where its shape is built. Of nodes that share an object,
// the first alone gets its shape. Cameras, lights, helpers and materials are not exported
// yet.
bool ExportNodeContent(VKTExportCore& core, INode* node, const WalkScope& scope)
{
    if (!scope.shape)
        return true;
    const HostNode read = ReadNode(node);
    if (!read.object || core.FindShape(read.object.handle))
        return true;
    if (read.object.superClass == kSuperGeometry)
        ExportGeometry(core, read);
    return true;
}

// Without children the node alone is entered and left.
template <class Enter, class Leave>
bool Walk(INode* node, const WalkScope& scope, Enter enter, Leave leave)
{
    if (!scope.children)
        return enter(node) && leave(node);
    const auto visit = [&](INode* met) { return enter(met) ? Visit::Descend : Visit::Stop; };
    return WalkTree(node, visit, leave);
}

}  // namespace

bool ExportAllNodes(VKTExportCore& core, INode* node, const WalkScope& scope)
{
    const auto isWanted = [&](INode* met) { return !core.IsSelectedOnly() || IsSelected(met); };
    const auto exportBones = [&](INode* met) {
        if (!isWanted(met))
            return true;
        if (!CreateBoneTree(core, met, scope.children))
            return false;
        WriteNodeAttributes(core, met);
        return true;
    };
    const auto exportContent = [&](INode* met) {
        return !isWanted(met) || ExportNodeContent(core, met, scope);
    };
    return Walk(node, scope, exportBones, exportContent);
}

bool ExportSelectedNodes(VKTExportCore& core, INode* node, const WalkScope& scope)
{
    const auto exportNode = [&](INode* met) {
        if (!CreateSelectedBone(core, met))
            return false;
        if (!IsSelected(met))
            return true;
        WriteNodeAttributes(core, met);
        return ExportNodeContent(core, met, scope);
    };
    return Walk(node, scope, exportNode, [](INode*) { return true; });
}

}  // namespace VKTMax
