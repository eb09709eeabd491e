#include "VKT/shading/LayeredTexture.h"

#include "VKT/stream/BlockReader.h"
#include "VKT/stream/TextWriter.h"

namespace VKT {
namespace {

constexpr const char* kSource = ".\\src\\VKT\\LayeredTexture";
constexpr const char* kModes[] = {
    "none",       "over",    "in",     "out",      "add",        "subtract",   "multiply",
    "difference", "lighten", "darken", "saturate", "desaturate", "illuminate",
};
constexpr u64 kLeastInputBytes = 22;

}  // namespace

XShaderInput& XLayeredTexture::AddLayer(u32 mode)
{
    m_Modes.push_back(mode);
    return AddOwnedInput("texture");
}

void XLayeredTexture::Clear()
{
    m_Modes.clear();
    KeepOwnedInputs(0);
}

const XShaderInput* XLayeredTexture::GetInput(u32 layer) const
{
    return layer < GetNumLayers() ? &GetOwnedInput(layer) : nullptr;
}

XShaderInput* XLayeredTexture::GetInput(u32 layer)
{
    return layer < GetNumLayers() ? &GetOwnedInput(layer) : nullptr;
}

// Modes and inputs are two lists. Should a damaged file hold fewer modes than inputs, the
// missing ones are none; surplus ones are dropped.
bool XLayeredTexture::DoData(XFileIO& file)
{
    if (!XNodeClass::DoData(file))
        return false;
    XU32Array modes = m_Modes;
    u32 count = 0;
    if (!file.DoData(modes) || !file.DoCount(count, GetNumLayers(), kLeastInputBytes))
        return false;
    if (file.IsReading())
        Clear();
    for (u32 layer = 0; layer < count; ++layer) {
        if (file.IsReading())
            AddLayer(layer < modes.size() ? modes[layer] : u32{kNone});
        if (!GetOwnedInput(layer).DoData(file))
            return false;
    }
    return true;
}

void XLayeredTexture::DoCopy(const XBase* source)
{
    const XLayeredTexture* other = XCast<XLayeredTexture>(source);
    if (!other || other == this)
        return;
    XNodeClass::DoCopy(source);
    Clear();
    for (u32 layer = 0; layer < other->GetNumLayers(); ++layer)
        AddLayer(other->m_Modes[layer]) = other->GetOwnedInput(layer);
}

bool XLayeredTexture::WriteChunk(XTextWriter& out) const
{
    if (!XNodeClass::WriteChunk(out))
        return false;
    out << "inputs " << GetNumLayers() << '\n';
    for (u32 layer = 0; layer < GetNumLayers(); ++layer) {
        out << '\t';
        GetOwnedInput(layer).Write(out);
        out << " mode " << WordOf(m_Modes[layer], kModes) << '\n';
    }
    return out.IsGood();
}

bool XLayeredTexture::ReadFields(XTextReader& in)
{
    if (!XNodeClass::ReadFields(in))
        return false;
    Clear();
    XBlockReader block(in, kSource);
    u32 count = 0;
    if (!block.Read("inputs", count))
        return false;
    for (u32 layer = 0; layer < count; ++layer)
        if (!ReadLayer(block))
            return false;
    return true;
}

// A word that is no mode means none.
bool XLayeredTexture::ReadLayer(XBlockReader block)
{
    XShaderInput input("texture");
    XString word;
    if (!input.Read(block.In(), kSource, block.NextRow()) || !block.Read("mode", word))
        return false;
    u32 mode = kNone;
    FindWord(word, kModes, mode);
    AddLayer(mode) = input;
    return true;
}

}  // namespace VKT
