#pragma once

#include "VKT/node/NodeClass.h"

namespace VKT {

// The base of materials, textures and placements: a node with colour inputs that other
// shading nodes may feed. It knows its inputs, so that deletion needs no code per class.
class XShadingNode : public XNodeClass<XShadingNode, XBase, kFnShadingNode> {
public:
    using XNodeClass::XNodeClass;

    // The inputs in the order of their registration, base class first.
    const XVector<XShaderInput*>& GetInputs() const { return m_Inputs; }

    // The node that feeds an input of this node, as a shading node, or null.
    XShadingNode* GetConnected(const XShaderInput& input) const;
    // Lets `node` feed an input of this node. Null, and a node of another document, is
    // refused, unless a class says otherwise.
    virtual bool Connect(XShaderInput& input, const XBase* node);

    // Disconnects the inputs that the dying node feeds.
    bool NodeDeath(u32 id) override;
    // With `DeleteMaterials`, takes along the materials that feed only this node.
    void PreDelete(std::set<u32>& ids) override;

protected:
    // Called by constructors for each input that is a member of the object.
    void Register(XShaderInput& input) { m_Inputs.push_back(&input); }

    // Inputs that the node owns, for classes with as many as a file says. They stand behind
    // those that are members.
    XShaderInput& AddOwnedInput(const char* name);
    // Deletes all but the first ones.
    void KeepOwnedInputs(std::size_t count);
    std::size_t GetNumOwnedInputs() const { return m_OwnedInputs.size(); }
    XShaderInput& GetOwnedInput(std::size_t i) { return *m_OwnedInputs[i]; }
    const XShaderInput& GetOwnedInput(std::size_t i) const { return *m_OwnedInputs[i]; }

private:
    u32 CountInputsFedBy(u32 id) const;

    XVector<XShaderInput*> m_Inputs;
    XVector<std::unique_ptr<XShaderInput>> m_OwnedInputs;
};

}  // namespace VKT
