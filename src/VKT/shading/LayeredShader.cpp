#include "VKT/shading/LayeredShader.h"

#include "VKT/base/Logger.h"
#include "VKT/stream/BlockReader.h"
#include "VKT/stream/TextWriter.h"

namespace VKT {
namespace {

constexpr const char* kSource = ".\\src\\VKT\\LayeredShader";
constexpr const char* kNames[] = {"colour", "transparency", "glow"};
constexpr const char* kOldKeys[] = {"colour_inputs", "transparency_inputs", "glow_inputs"};
constexpr u64 kLeastLayerBytes = 3 * 22;  // inputs without names

// The materials that feed a channel, one per layer, null where there is none. A list of
// another length than the layers have, or with a node that is no material, is refused.
template <XLayeredShader::Channel channel>
constexpr XPropertyInfo LayerNodes(u32 id, const char* name)
{
    return Computed<XNodeList>(
        id, name, 0,
        [](const XBase& node, XNodeList& value) {
            const XLayeredShader& shader = As<XLayeredShader>(node);
            value.clear();
            for (u32 layer = 0; layer < shader.GetNumLayers(); ++layer)
                value.push_back(FindNodeOfType(node, shader.GetInput(layer, channel)->input, kFnMaterial));
            return true;
        },
        [](XBase& node, const XNodeList& value) {
            XLayeredShader& shader = As<XLayeredShader>(node);
            if (value.size() != shader.GetNumLayers())
                return false;
            for (const XBase* feeder : value)
                if (!AcceptsNode(node, feeder, kFnMaterial))
                    return false;
            for (u32 layer = 0; layer < shader.GetNumLayers(); ++layer)
                shader.GetInput(layer, channel)->input = value[layer] ? value[layer]->GetID() : 0;
            return true;
        },
        kFnMaterial);
}

// A file below version 4 has three lists of one length.
bool IsLengthOfAll(u32 count, u32 length)
{
    if (count == length)
        return true;
    GetLogger()->Log(kError, "Layered Shader inputs are invalid. Aborting the reading of the layered shader");
    return false;
}

}  // namespace

void XLayeredShader::AddLayer()
{
    for (const char* name : kNames)
        AddOwnedInput(name);
}

bool XLayeredShader::SetNumLayers(u32 count)
{
    if (count > kMaxSetLayers && count > GetNumLayers()) {
        GetLogger()->LogFormat(kError, "num_layers %u of \"%s\" is more than can be set, which is %u", count,
                               GetName(), kMaxSetLayers);
        return false;
    }
    Resize(count);
    return true;
}

void XLayeredShader::Resize(u32 count)
{
    if (count < GetNumLayers())
        KeepOwnedInputs(std::size_t{count} * kNumChannels);
    while (count > GetNumLayers())
        AddLayer();
}

bool XLayeredShader::HasLayer(u32 layerIndex) const
{
    if (layerIndex < GetNumLayers())
        return true;
    GetLogger()->Log(kError, "invalid layer_index specified");
    return false;
}

bool XLayeredShader::SetLayer(u32 layerIndex, const XShadingNode* colour, const XShadingNode* transparency,
                              const XShadingNode* glow)
{
    if (!HasLayer(layerIndex))
        return false;
    const XShadingNode* const nodes[] = {colour, transparency, glow};
    for (const XShadingNode* node : nodes)
        if (node && node->GetModel() != GetModel())
            return false;
    for (const Channel channel : {kColour, kTransparency, kGlow})
        GetInput(layerIndex, channel)->input = nodes[channel] ? nodes[channel]->GetID() : 0;
    return true;
}

const XShaderInput* XLayeredShader::GetInput(u32 layerIndex, Channel channel) const
{
    return HasLayer(layerIndex) ? &GetOwnedInput(std::size_t{layerIndex} * kNumChannels + channel) : nullptr;
}

XShaderInput* XLayeredShader::GetInput(u32 layerIndex, Channel channel)
{
    return HasLayer(layerIndex) ? &GetOwnedInput(std::size_t{layerIndex} * kNumChannels + channel) : nullptr;
}

XShadingNode* XLayeredShader::GetNode(u32 layerIndex, Channel channel) const
{
    const XShaderInput* input = GetInput(layerIndex, channel);
    return input ? GetConnected(*input) : nullptr;
}

bool XLayeredShader::DoData(XFileIO& file)
{
    if (!XNodeClass::DoData(file))
        return false;
    if (file.IsReading())
        Resize(0);
    if (file.IsReading() && file.IsBelow(4))
        return DoOldLayers(file);
    u32 count = 0;
    if (!file.DoCount(count, GetNumLayers(), kLeastLayerBytes))
        return false;
    for (std::size_t i = 0; i < std::size_t{count} * kNumChannels; ++i) {
        if (i == GetNumOwnedInputs())
            AddLayer();
        if (!GetOwnedInput(i).DoData(file))
            return false;
    }
    return true;
}

void XLayeredShader::DoCopy(const XBase* source)
{
    const XLayeredShader* other = XCast<XLayeredShader>(source);
    if (!other)
        return;
    XNodeClass::DoCopy(source);
    Resize(other->GetNumLayers());
    for (std::size_t i = 0; i < other->GetNumOwnedInputs(); ++i)
        GetOwnedInput(i) = other->GetOwnedInput(i);
}

bool XLayeredShader::WriteChunk(XTextWriter& out) const
{
    if (!XNodeClass::WriteChunk(out))
        return false;
    out << "inputs " << GetNumLayers() << '\n';
    for (std::size_t i = 0; i < GetNumOwnedInputs(); ++i) {
        if (i > 0 && i % kNumChannels == 0)
            out << '\n';
        out << '\t';
        GetOwnedInput(i).Write(out);
        out << '\n';
    }
    return out.IsGood();
}

bool XLayeredShader::ReadFields(XTextReader& in)
{
    if (!XNodeClass::ReadFields(in))
        return false;
    Resize(0);
    XBlockReader block(in, kSource, TextBody().rows.size());
    return in.IsBelow(4) ? ReadOldLayers(block) : ReadLayers(block);
}

bool XLayeredShader::ReadLayers(XBlockReader block)
{
    u32 count = 0;
    if (!block.Read("inputs", count))
        return false;
    for (u32 layer = 0; layer < count; ++layer) {
        AddLayer();
        XBlockReader inputs = block;
        for (std::size_t i = GetNumOwnedInputs() - kNumChannels; i < GetNumOwnedInputs(); ++i)
            if (!GetOwnedInput(i).Read(inputs.In(), kSource, inputs.NextRow()))
                return false;
    }
    return true;
}

// Below version 4 a layer had no colours: three lists of ids. A count is compared as soon as
// it is there, so that its message comes before any of what the list lacks.
bool XLayeredShader::ReadOldLayers(XBlockReader block)
{
    XIndexList ids[kNumChannels];
    u32 length = 0;
    for (const Channel channel : {kColour, kTransparency, kGlow}) {
        u32 count = 0;
        if (!block.Read(kOldKeys[channel], count))
            return false;
        if (channel == kColour)
            length = count;
        else if (!IsLengthOfAll(count, length))
            return false;
        block.In().ReadNumbers(ids[channel], count);
    }
    if (!block.Expect("compositing_flag"))
        return false;
    TakeOldLayers(ids);
    block.In().Read(m_CompositingFlag);
    return true;
}

// The second and third list take the room of the first, which has come.
bool XLayeredShader::DoOldLayers(XFileIO& file)
{
    XIndexList ids[kNumChannels];
    if (!file.DoIds(ids[kColour]))
        return false;
    const u32 length = static_cast<u32>(ids[kColour].size());
    for (const Channel channel : {kTransparency, kGlow}) {
        u32 count = 0;
        if (!file.DoData(count) || !IsLengthOfAll(count, length))
            return false;
        ids[channel].resize(count);
        if (count > 0 && !file.DoData(ids[channel].data(), count))
            return false;
    }
    TakeOldLayers(ids);
    return file.DoData(m_CompositingFlag);
}

void XLayeredShader::TakeOldLayers(const XIndexList (&ids)[kNumChannels])
{
    for (std::size_t layer = 0; layer < ids[kColour].size(); ++layer)
        for (const Channel channel : {kColour, kTransparency, kGlow})
            AddOwnedInput(kNames[channel]).input = ids[channel][layer];
}

XBodyTable XLayeredShader::TextBody()
{
    static constexpr XBodyRow rows[] = {
        Since(4, {"compositing_flag ", &XLayeredShader::m_CompositingFlag}),
    };
    return {kSource, rows};
}

// Below version 4 the flag stood behind the layers, in either form.
XBodyTable XLayeredShader::BinaryBody()
{
    static constexpr XBodyRow rows[] = {ReadSince(4, &XLayeredShader::m_CompositingFlag)};
    return {kSource, rows};
}

XPropertyTable XLayeredShader::Properties()
{
    static constexpr auto getNumLayers = [](const XBase& node, i32& value) {
        value = static_cast<i32>(As<XLayeredShader>(node).GetNumLayers());
        return true;
    };
    static constexpr auto setNumLayers = [](XBase& node, const i32& value) {
        return value >= 0 && As<XLayeredShader>(node).SetNumLayers(static_cast<u32>(value));
    };
    static constexpr auto getIsTexture = [](const XBase& node, bool& value) {
        value = As<XLayeredShader>(node).m_CompositingFlag != 0;
        return true;
    };
    static constexpr auto setIsTexture = [](XBase& node, const bool& value) {
        As<XLayeredShader>(node).m_CompositingFlag = value;
        return true;
    };
    static constexpr XPropertyInfo rows[] = {
        Computed<i32>(3, "num_layers", 0, getNumLayers, setNumLayers),
        LayerNodes<kGlow>(4, "glow_layers"),
        LayerNodes<kTransparency>(5, "transparency_layers"),
        LayerNodes<kColour>(6, "colour_layers"),
        Computed<bool>(7, "is_texture", 0, getIsTexture, setIsTexture),
    };
    return rows;
}

const XNodeProperties* XLayeredShader::ClassProperties()
{
    static const XNodeProperties properties(kType, Properties(), XMaterial::ClassProperties());
    return &properties;
}

}  // namespace VKT
