#include "VKT/ShadingNode.h"

#include "VKT/Model.h"

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

// Textures are deliberately not taken along by `DeleteTextures`.
void XShadingNode::PreDelete(std::set<u32>& ids)
{
    XBase::PreDelete(ids);
    if (!GetModel()->GetDeleteFlags().Test(DeleteMaterials))
        return;
    for (const XShaderInput* input : m_Inputs) {
        const XBase* node = GetModel()->FindNode(input->input);
        if (node && node->HasFn(kFnMaterial) && CountUsersOf(input->input) == 0)
            ids.insert(input->input);
    }
}

// Inputs of other nodes that the node `id` feeds; those of the node itself don't count.
u32 XShadingNode::CountUsersOf(u32 id) const
{
    u32 users = GetModel()->CountUsers()->GetInputsFedBy(id);
    const auto leaveOut = [&](const XShadingNode& node) {
        for (const XShaderInput* input : node.m_Inputs)
            users -= input->input == id;
    };
    leaveOut(*this);
    const XShadingNode* feeder = XCast<XShadingNode>(GetModel()->FindNode(id));
    if (feeder && feeder != this)
        leaveOut(*feeder);
    return users;
}

}  // namespace VKT
