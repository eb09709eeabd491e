#include "VKT/document/UserCounts.h"

#include <unordered_set>

#include "VKT/document/Model.h"
#include "VKT/shading/ShadingNode.h"

namespace VKT {

XUserCounts::XUserCounts(const XModel& model)
{
    for (const auto& [name, node] : model.GetNodes())
        if (const XShadingNode* user = XCast<XShadingNode>(static_cast<const XBase*>(node)))
            for (const XShaderInput* input : user->GetInputs())
                ++m_Inputs[input->input];

    std::unordered_set<u64, XIdHash> covered;  // material and shape
    XInstanceList instances;
    model.ListInstances(instances);
    for (const XInstance* instance : instances) {
        const auto cover = [&](u32 material) {
            if (covered.insert(u64{material} << 32 | instance->GetShapeId()).second)
                ++m_Shapes[material];
        };
        cover(instance->GetMaterial());
        for (const auto& group : instance->GetMaterialGroups())
            cover(group->m_Material);
    }
}

}  // namespace VKT
