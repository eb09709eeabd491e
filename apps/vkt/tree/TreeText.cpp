#include "tree/TreeText.h"

#include <algorithm>
#include <unordered_set>
#include <vector>

#include "VKT/document/Model.h"
#include "VKT/geometry/Deformer.h"
#include "VKT/geometry/Geometry.h"
#include "VKT/hierarchy/Bone.h"
#include "common/NodeNames.h"
#include "common/TerminalText.h"

namespace tool {
namespace {

using VKT::XBase;
using VKT::XBone;

constexpr std::size_t kDeepestIndent = 32;

std::string Indent(std::size_t depth)
{
    if (depth <= kDeepestIndent)
        return std::string(2 * depth, ' ');
    return std::string(2 * kDeepestIndent, ' ') + "[" + std::to_string(depth) + "] ";
}

// "red", "none", or what is wrong.
std::string NameOf(const VKT::XModel& model, VKT::u32 id)
{
    if (id == 0)
        return "none";
    const XBase* node = model.FindNode(id);
    return node ? CleanText(node->GetName()) : "missing node " + std::to_string(id);
}

std::string DescribeMaterials(const VKT::XInstance& instance)
{
    const VKT::XModel& model = *instance.GetModel();
    if (instance.GetMaterial() != 0)
        return ", material " + NameOf(model, instance.GetMaterial());
    std::string out;
    for (const auto& group : instance.GetMaterialGroups())
        out += (out.empty() ? ", materials " : ", ") + NameOf(model, group->m_Material) + " on " +
               Counted(group->m_Faces.size(), "face");
    return out;
}

class TreeDrawing {
public:
    explicit TreeDrawing(const VKT::XModel& model) : m_Model(model) {}

    std::string Draw()
    {
        VKT::XBoneList roots;
        m_Model.ListRootBones(roots);
        for (const XBone* root : roots)
            DrawFrom(*root, 0);
        DrawUnreached();
        DrawOthers();
        return std::move(m_Text);
    }

private:
    struct Step {
        const XBone* bone;
        std::size_t depth;
    };

    void DrawFrom(const XBone& top, std::size_t topDepth)
    {
        std::vector<Step> pending{{&top, topDepth}};
        while (!pending.empty()) {
            const Step step = pending.back();
            pending.pop_back();
            const bool isNew = m_Drawn.insert(step.bone).second;
            m_Text += Indent(step.depth) + NameAndType(*step.bone) + (isNew ? "\n" : ", shown above\n");
            if (!isNew)
                continue;
            DrawShapes(*step.bone, step.depth + 1);
            VKT::XBoneList children;
            step.bone->ListChildren(children);
            for (auto child = children.rbegin(); child != children.rend(); ++child)
                pending.push_back({*child, step.depth + 1});
        }
    }

    void DrawShapes(const XBone& bone, std::size_t depth)
    {
        VKT::XInstanceList instances;
        bone.ListInstances(instances);
        for (const VKT::XInstance* instance : instances) {
            const XBase* shape = m_Model.FindNode(instance->GetShapeId());
            m_Text += Indent(depth) + "shape " +
                      (shape ? NameAndType(*shape) : NameOf(m_Model, instance->GetShapeId())) +
                      DescribeMaterials(*instance) + "\n";
            // Once for a shape that many bones show: its queue may be as long as they are many.
            if (shape && m_Drawn.insert(shape).second)
                DrawDeformers(VKT::XCast<VKT::XGeometry>(shape), depth + 1);
        }
    }

    void DrawDeformers(const VKT::XGeometry* geometry, std::size_t depth)
    {
        VKT::XDeformerList queue;
        if (geometry)
            geometry->GetDeformerQueue(queue);
        for (const VKT::XDeformer* deformer : queue) {
            m_Drawn.insert(deformer);
            m_Text += Indent(depth) + "deformer " + NameAndType(*deformer) + "\n";
        }
    }

    // Bones whose parents are missing or do not list them, then those of rings.
    void DrawUnreached()
    {
        std::vector<const XBone*> unreached;
        std::unordered_set<const XBone*> listed;
        for (const auto& [name, node] : m_Model.GetNodes()) {
            const XBone* bone = VKT::XCast<XBone>(node);
            if (!bone || m_Drawn.contains(bone))
                continue;
            unreached.push_back(bone);
            VKT::XBoneList children;
            bone->ListChildren(children);
            listed.insert(children.begin(), children.end());
        }
        if (unreached.empty())
            return;
        m_Text += "reached from no root:\n";
        std::stable_partition(unreached.begin(), unreached.end(),
                              [&](const XBone* bone) { return !listed.contains(bone); });
        for (const XBone* bone : unreached)
            if (!m_Drawn.contains(bone))
                DrawFrom(*bone, 1);
    }

    void DrawOthers()
    {
        std::vector<const XBase*> others;
        for (const auto& [name, node] : m_Model.GetNodes())
            if (!m_Drawn.contains(node))
                others.push_back(node);
        if (others.empty())
            return;
        std::stable_sort(others.begin(), others.end(),
                         [](const XBase* a, const XBase* b) { return a->GetApiType() < b->GetApiType(); });
        m_Text += "outside of the hierarchy:\n";
        for (const XBase* node : others)
            m_Text += Indent(1) + NameAndType(*node) + "\n";
    }

    const VKT::XModel& m_Model;
    std::unordered_set<const XBase*> m_Drawn;
    std::string m_Text;
};

}  // namespace

std::string DrawTree(const VKT::XModel& model)
{
    return TreeDrawing(model).Draw();
}

}  // namespace tool
