#include "VKT/shading/ShadingNode.h"

#include <algorithm>
#include <unordered_map>

#include "VKT/document/Model.h"
#include "VKT/shading/Material.h"

namespace VKT {

XShadingNode* XShadingNode::GetConnected(const XShaderInput& input) const
{
    return XCast<XShadingNode>(GetModel()->FindNode(input.input));
}

bool XShadingNode::Connect(XShaderInput& input, const XBase* node)
{
    if (!node || node->GetModel() != GetModel())
        return false;
    input.input = node->GetID();
    return true;
}

bool XShadingNode::NodeDeath(u32 id)
{
    for (XShaderInput* input : m_Inputs)
        if (input->input == id)
            input->input = 0;
    return XBase::NodeDeath(id);
}

// Textures are deliberately not taken along by `DeleteTextures`. Inputs of this node and of
// the material itself are no reason for it to stay.
void XShadingNode::PreDelete(std::set<u32>& ids)
{
    XBase::PreDelete(ids);
    if (!GetModel()->GetDeleteFlags().Test(DeleteMaterials))
        return;
    std::unordered_map<u32, u32> inputs;  // of this node, by the node that feeds them
    for (const XShaderInput* input : m_Inputs)
        ++inputs[input->input];
    const auto counts = GetModel()->CountUsers();
    for (const auto& [id, count] : inputs) {
        const XMaterial* material = XCast<XMaterial>(GetModel()->FindNode(id));
        if (!material)
            continue;
        const u32 ofItsOwn = material == this ? 0 : material->CountInputsFedBy(id);
        if (counts->GetInputsFedBy(id) == count + ofItsOwn)
            ids.insert(id);
    }
}

u32 XShadingNode::CountInputsFedBy(u32 id) const
{
    return static_cast<u32>(std::count_if(m_Inputs.begin(), m_Inputs.end(),
                                          [id](const XShaderInput* input) { return input->input == id; }));
}

XShaderInput& XShadingNode::AddOwnedInput(const char* name)
{
    m_OwnedInputs.push_back(std::make_unique<XShaderInput>(name));
    m_Inputs.push_back(m_OwnedInputs.back().get());
    return *m_OwnedInputs.back();
}

void XShadingNode::KeepOwnedInputs(std::size_t count)
{
    m_Inputs.resize(m_Inputs.size() - m_OwnedInputs.size() + count);
    m_OwnedInputs.resize(count);
}

}  // namespace VKT
