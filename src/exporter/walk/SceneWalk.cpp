// Which nodes are exported, and in which order.

#include "exporter/geometry/MeshExport.h"
#include "exporter/walk/ExportCore.h"

namespace VKTMax {
namespace {

// Visits a node and, with `children`, all below it, depth first, children in order:
// `enter` before the children of a node, `leave` after them. Ends with false at the
// first visit that answers false.
template <class Enter, class Leave>
bool WalkTree(INode* root, bool children, Enter enter, Leave leave)
{
    struct Step {
        INode* node;
        int nextChild;
    };
    std::vector<Step> path{{root, 0}};
    if (!enter(root))
        return false;
    while (!path.empty()) {
        Step& step = path.back();
        if (children && step.nextChild < NumChildrenOf(step.node)) {
            INode* child = ChildOf(step.node, step.nextChild++);
            if (!enter(child))
                return false;
            path.push_back({child, 0});
        } else {
            INode* left = step.node;
            path.pop_back();
            if (!leave(left))
                return false;
        }
    }
    return true;
}

}  // namespace

bool VKTExportCore::ExportAllNodes(INode* node, const WalkScope& scope)
{
    const auto isWanted = [this](INode* met) { return !m_SelectedOnly || IsSelected(met); };
    const auto exportBones = [&](INode* met) {
        if (!isWanted(met))
            return true;
        if (!CreateBoneTree(met, scope.children))
            return false;
        WriteWireColour(met);
        WriteUserProperties(met);
        return true;
    };
    const auto exportShape = [&](INode* met) {
        return !isWanted(met) || !scope.shape || ExportNodeContent(met, scope);
    };
    return WalkTree(node, scope.children, exportBones, exportShape);
}

bool VKTExportCore::ExportSelectedNodes(INode* node, const WalkScope& scope)
{
    const auto exportNode = [&](INode* met) {
        if (!CreateSelectedBone(met))
            return false;
        if (!IsSelected(met))
            return true;
        WriteWireColour(met);
        WriteUserProperties(met);
        return !scope.shape || ExportNodeContent(met, scope);
    };
    return WalkTree(node, scope.children, exportNode, [](INode*) { return true; });
}

// Of nodes that share an object, the first alone gets its shape. Cameras, lights, helpers
// and materials are not exported yet.
bool VKTExportCore::ExportNodeContent(INode* node, const WalkScope&)
{
    Object* object = EvaluatedObject(node, 0);
    if (!object || shapes.contains(object))
        return true;
    if (SuperClassOf(object) == kSuperGeometry)
        ExportGeometry(*this, node, object);
    return true;
}

}  // namespace VKTMax
