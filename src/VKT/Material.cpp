#include "VKT/Material.h"

#include <algorithm>
#include <set>

#include "VKT/Model.h"

namespace VKT {

XMaterial::XMaterial(XModel* model) : XNodeClass(model)
{
    Register(m_Colour);
}

bool XMaterial::SetHwShader(const XBase* node)
{
    if (!node || node->GetModel() != GetModel() || !node->HasFn(kFnHwShader))
        return false;
    m_HwShader = node->GetID();
    return true;
}

XBase* XMaterial::GetHwShader() const
{
    XBase* node = GetModel()->FindNode(m_HwShader);
    return node ? node->HasFn(kFnHwShader) : nullptr;
}

u32 XMaterial::GetNumUsers() const
{
    XInstanceList instances;
    GetModel()->ListInstances(instances);
    std::set<u32> shapes;
    for (const XInstance* instance : instances) {
        const auto& groups = instance->GetMaterialGroups();
        const bool covers = std::any_of(groups.begin(), groups.end(),
                                        [this](const auto& group) { return group->m_Material == GetID(); });
        if (covers || instance->GetMaterial() == GetID())
            shapes.insert(instance->GetShapeId());
    }
    return static_cast<u32>(shapes.size());
}

XBodyTable XMaterial::TextBody()
{
    static constexpr XBodyRow rows[] = {
        {"\thw_shader ", NodeId(&XMaterial::m_HwShader)},
        &XMaterial::m_Colour,
    };
    return {".\\src\\VKT\\Material", rows};
}

// Kept on purpose: the vocabulary says `hardwareShader` and `diffuse` where files say
// `hw_shader` and `colour`.
XPropertyTable XMaterial::Properties()
{
    static constexpr XPropertyRow rows[] = {
        Computed<XBase*>(
            1, "hardwareShader", 0,
            [](const XBase& node, XBase*& value) {
                value = As<XMaterial>(node).GetHwShader();
                return true;
            },
            [](XBase& node, XBase* const& value) { return As<XMaterial>(node).SetHwShader(value); }),
        InputColour<&XMaterial::m_Colour>(2, "diffuse", kAnimatable),
    };
    return rows;
}

}  // namespace VKT
