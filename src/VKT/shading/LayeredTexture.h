#pragma once

#include "VKT/shading/Texture.h"

namespace VKT {

class XBlockReader;

// A stack of textures, each of which is blended with those below it.
class XLayeredTexture : public XNodeClass<XLayeredTexture, XTexture, kFnLayeredTexture> {
public:
    using XNodeClass::XNodeClass;

    // Binary files may hold other numbers, which are carried along and mean none.
    enum BlendMode : u32 {
        kNone = 0,
        kOver = 1,
        kIn = 2,
        kOut = 3,
        kAdd = 4,
        kSubtract = 5,
        kMultiply = 6,
        kDifference = 7,
        kLighten = 8,
        kDarken = 9,
        kSaturate = 10,
        kDesaturate = 11,
        kIlluminate = 12
    };

    u32 GetNumLayers() const { return static_cast<u32>(GetNumOwnedInputs()); }
    // A layer on top of the others; its input is black and fed by nothing.
    XShaderInput& AddLayer(u32 mode);
    // Null for a layer that is none.
    const XShaderInput* GetInput(u32 layer) const;
    XShaderInput* GetInput(u32 layer);
    // None for a layer that is none.
    u32 GetMode(u32 layer) const { return layer < GetNumLayers() ? m_Modes[layer] : kNone; }

    bool DoData(XFileIO& file) override;
    void DoCopy(const XBase* source) override;
    bool WriteChunk(XTextWriter& out) const override;
    bool ReadFields(XTextReader& in) override;

private:
    void Clear();
    bool ReadLayer(XBlockReader block);

    XU32Array m_Modes;  // one per owned input
};

}  // namespace VKT
