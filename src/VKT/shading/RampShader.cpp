#include "VKT/shading/RampShader.h"

#include <algorithm>

#include "VKT/stream/BlockReader.h"
#include "VKT/stream/TextWriter.h"

namespace VKT {
namespace {

constexpr const char* kSource = ".\\src\\VKT\\RampShader";
constexpr const char* kRampNames[] = {
    "colour_ramp",      "specular_ramp",          "transparency_ramp", "emission_ramp",
    "environment_ramp", "specular_roll_off_ramp", "reflectivity_ramp",
};
constexpr const char* kWords[] = {"kNone", "kLinear", "kSmooth", "kSpline", "kInvalid"};
constexpr u32 kInvalid = 4;

}  // namespace

std::span<const XRampShader::Key> XRampShader::GetKeys(u32 ramp) const
{
    return ramp < kNumRamps ? m_Ramps[ramp] : std::span<const Key>();
}

XShaderInput* XRampShader::AddInputKey(u32 ramp, f32 position, u32 interpolation)
{
    if (!HoldsInputs(ramp))
        return nullptr;
    Key& key = AddKey(ramp);
    key.position = position;
    key.interpolation = interpolation;
    return key.input;
}

bool XRampShader::AddFloatKey(u32 ramp, f32 position, u32 interpolation, f32 value)
{
    if (HoldsInputs(ramp) || ramp >= kNumRamps)
        return false;
    m_Ramps[ramp].push_back({position, interpolation, value});
    return true;
}

XRampShader::Key& XRampShader::AddKey(u32 ramp)
{
    Key& key = m_Ramps[ramp].emplace_back();
    if (HoldsInputs(ramp))
        key.input = &AddOwnedInput("value");
    return key;
}

void XRampShader::Clear()
{
    for (auto& keys : m_Ramps)
        keys.clear();
    KeepOwnedInputs(0);
}

void XRampShader::DoCopy(const XBase* source)
{
    const XRampShader* other = XCast<XRampShader>(source);
    if (!other || other == this)
        return;
    XNodeClass::DoCopy(source);
    Clear();
    for (u32 ramp = 0; ramp < kNumRamps; ++ramp)
        for (const Key& from : other->m_Ramps[ramp]) {
            Key& key = AddKey(ramp);
            XShaderInput* const input = key.input;
            if (input)
                *input = *from.input;
            key = from;
            key.input = input;
        }
}

bool XRampShader::WriteChunk(XTextWriter& out) const
{
    if (!XNodeClass::WriteChunk(out))
        return false;
    for (u32 ramp = 0; ramp < kNumRamps; ++ramp) {
        if (ramp > 0)
            out << '\n';
        WriteRamp(ramp, out);
    }
    return out.IsGood();
}

void XRampShader::WriteRamp(u32 ramp, XTextWriter& out) const
{
    out << '\t' << kRampNames[ramp] << ' ' << static_cast<u32>(m_Ramps[ramp].size()) << '\n';
    bool isFirst = true;
    for (const Key& key : m_Ramps[ramp]) {
        if (!isFirst)
            out << '\n';
        isFirst = false;
        if (key.input)
            key.input->Write(out);
        else
            out << "\t\tvalue " << key.value;
        out << "\n\t\tposition " << key.position;
        out << "\n\t\tinterp_type " << WordOf(std::min(key.interpolation, kInvalid), kWords) << '\n';
    }
}

// Below version 4 a shader held no ramps.
bool XRampShader::ReadFields(XTextReader& in)
{
    if (!XNodeClass::ReadFields(in))
        return false;
    Clear();
    XBlockReader block(in, kSource);
    for (u32 ramp = 0; ramp < kNumRamps && !in.IsBelow(4); ++ramp)
        if (!ReadRamp(ramp, block))
            return false;
    return true;
}

bool XRampShader::ReadRamp(u32 ramp, XBlockReader& block)
{
    u32 count = 0;
    if (!block.Read(kRampNames[ramp], count))
        return false;
    for (u32 i = 0; i < count; ++i)
        if (!ReadKey(ramp, block))
            return false;
    return true;
}

bool XRampShader::ReadKey(u32 ramp, XBlockReader block)
{
    Key& key = AddKey(ramp);
    XString word;
    if (!(key.input ? key.input->Read(block.In(), kSource, block.NextRow())
                    : block.Read("value", key.value)) ||
        !block.Read("position", key.position) || !block.Read("interp_type", word))
        return false;
    // Kept on purpose: "kSpline" is not asked for, every other word means it.
    key.interpolation = kSpline;
    FindWord(word, XWordList(kWords).first(kSpline), key.interpolation);
    return true;
}

bool XRampShader::DoData(XFileIO& file)
{
    if (!XNodeClass::DoData(file))
        return false;
    if (file.IsReading())
        Clear();
    if (file.IsReading() && file.IsBelow(4))
        return true;
    for (u32 ramp = 0; ramp < kNumRamps; ++ramp)
        if (!DoRamp(ramp, file))
            return false;
    return true;
}

bool XRampShader::DoRamp(u32 ramp, XFileIO& file)
{
    constexpr u64 kLeastInputBytes = 22;
    constexpr u64 kFloatBytes = 4;
    u32 count = 0;
    if (!file.DoCount(count, m_Ramps[ramp].size(), (HoldsInputs(ramp) ? kLeastInputBytes : kFloatBytes) + 8))
        return false;
    for (u32 i = 0; i < count; ++i) {
        Key& key = file.IsReading() ? AddKey(ramp) : m_Ramps[ramp][i];
        if (!(key.input ? key.input->DoData(file) : file.DoData(key.value) != 0) ||
            !file.DoData(key.position) || !file.DoData(key.interpolation))
            return false;
    }
    return true;
}

}  // namespace VKT
