#include "VKT/shading/Material.h"

#include "VKT/document/Model.h"
#include "VKT/shading/HwShader.h"

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

XHwShader* XMaterial::GetHwShader() const
{
    return XCast<XHwShader>(GetModel()->FindNode(m_HwShader));
}

u32 XMaterial::GetNumUsers() const
{
    return GetModel()->CountUsers()->GetShapesCoveredBy(GetID());
}

bool XMaterial::NodeDeath(u32 id)
{
    if (m_HwShader == id)
        m_HwShader = 0;
    return XNodeClass::NodeDeath(id);
}

// Below version 4 there was no body that all materials share: each class held everything in
// one of its own.
XBodyTable XMaterial::TextBody()
{
    static constexpr XBodyRow rows[] = {
        ReadSince(4, {"\thw_shader ", NodeId(&XMaterial::m_HwShader)}),
        ReadSince(4, &XMaterial::m_Colour),
    };
    return {".\\src\\VKT\\Material", rows};
}

// Kept on purpose: the vocabulary says `hardwareShader` and `diffuse` where files say
// `hw_shader` and `colour`.
XPropertyTable XMaterial::Properties()
{
    static constexpr XPropertyInfo rows[] = {
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
