#pragma once

#include "VKT/shading/SurfaceShader.h"

namespace VKT {

class XBlockReader;

// A shader of seven ramps. The library stores them and never evaluates them: positions and
// values are those of the file, whatever their range, and nothing orders the keys.
class XRampShader : public XNodeClass<XRampShader, XSurfaceShader, kFnRampShader> {
public:
    using XNodeClass::XNodeClass;

    // The ramps in the order of the file. Values of the first five are inputs, of the other
    // two floats.
    enum Ramp : u32 {
        kColourRamp = 0,
        kSpecularRamp = 1,
        kTransparencyRamp = 2,
        kEmissionRamp = 3,
        kEnvironmentRamp = 4,
        kSpecularRollOffRamp = 5,
        kReflectivityRamp = 6,
        kNumRamps = 7
    };
    // How a ramp goes from a key to the next one. Other numbers are carried along.
    enum Interpolation : u32 { kNone = 0, kLinear = 1, kSmooth = 2, kSpline = 3 };
    struct Key {
        f32 position = 0;
        u32 interpolation = kNone;
        f32 value = 0;                  // of a ramp of floats
        XShaderInput* input = nullptr;  // of a ramp of inputs; the shader's
    };

    // The keys in the order in which they came; none for a number that is no ramp.
    std::span<const Key> GetKeys(u32 ramp) const;
    // Add a key behind the others. Null, or false, and nothing changed for a ramp of the other
    // kind of values, and for a number that is none.
    XShaderInput* AddInputKey(u32 ramp, f32 position, u32 interpolation);
    bool AddFloatKey(u32 ramp, f32 position, u32 interpolation, f32 value);

    bool DoData(XFileIO& file) override;
    void DoCopy(const XBase* source) override;
    bool WriteChunk(XTextWriter& out) const override;
    bool ReadFields(XTextReader& in) override;

private:
    static bool HoldsInputs(u32 ramp) { return ramp <= kEnvironmentRamp; }
    void Clear();
    Key& AddKey(u32 ramp);
    void WriteRamp(u32 ramp, XTextWriter& out) const;
    bool ReadRamp(u32 ramp, XBlockReader& block);
    bool ReadKey(u32 ramp, XBlockReader block);
    bool DoRamp(u32 ramp, XFileIO& file);

    XVector<Key> m_Ramps[kNumRamps];
};

}  // namespace VKT
