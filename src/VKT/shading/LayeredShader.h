#pragma once

#include "VKT/shading/SurfaceShader.h"

namespace VKT {

class XBlockReader;

// A stack of layers, each with three inputs: other shading nodes or plain colours.
class XLayeredShader : public XNodeClass<XLayeredShader, XSurfaceShader, kFnLayeredShader> {
public:
    using XNodeClass::XNodeClass;

    // The inputs of a layer.
    enum Channel : u32 { kColour = 0, kTransparency = 1, kGlow = 2, kNumChannels = 3 };

    u32 GetNumLayers() const { return static_cast<u32>(GetNumOwnedInputs() / kNumChannels); }
    // A layer on top of the others, black, opaque, fed by nothing.
    void AddLayer();
    // How many layers can be set at once; files are bounded by what they hold.
    static constexpr u32 kMaxSetLayers = 1u << 17;
    // Adds such layers, or removes the last ones. False, with a logged error and nothing
    // changed, for more than `kMaxSetLayers`, unless there are as many already.
    bool SetNumLayers(u32 count);

    // What feeds a layer, all three at once; null for nothing. False, and nothing changed,
    // for a node of another document and, with a logged error, for a layer that is none.
    bool SetLayer(u32 layerIndex, const XShadingNode* colour, const XShadingNode* transparency,
                  const XShadingNode* glow);
    // An input of a layer, and the shading node that feeds it. Null, with a logged error, for
    // a layer that is none.
    const XShaderInput* GetInput(u32 layerIndex, Channel channel) const;
    XShaderInput* GetInput(u32 layerIndex, Channel channel);
    XShadingNode* GetNode(u32 layerIndex, Channel channel) const;

    // How layers are put together: 0 for those of a material, else those of a texture. Other
    // numbers are carried along.
    u32 GetCompositingFlag() const { return m_CompositingFlag; }
    void SetCompositingFlag(u32 flag) { m_CompositingFlag = flag; }

    bool DoData(XFileIO& file) override;
    void DoCopy(const XBase* source) override;
    bool WriteChunk(XTextWriter& out) const override;
    bool ReadFields(XTextReader& in) override;

    // Behind the flag both forms hold the layers.
    static XBodyTable TextBody();
    static XBodyTable BinaryBody();
    static XPropertyTable Properties();
    // Kept on purpose: the vocabulary goes on from that of materials and knows no
    // transparency.
    static const XNodeProperties* ClassProperties();

private:
    bool HasLayer(u32 layerIndex) const;
    void Resize(u32 count);
    bool ReadLayers(XBlockReader block);
    bool ReadOldLayers(XBlockReader block);
    bool DoOldLayers(XFileIO& file);
    void TakeOldLayers(const XIndexList (&ids)[kNumChannels]);

    u32 m_CompositingFlag = 0;
};

}  // namespace VKT
