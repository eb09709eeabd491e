#include "VKT/shading/Lambert.h"

#include "VKT/document/Model.h"
#include "VKT/shading/BumpMap.h"
#include "VKT/shading/EnvMap.h"

namespace VKT {

XLambert::XLambert(XModel* model) : XNodeClass(model)
{
    for (XShaderInput* input : {&m_AmbientColour, &m_Incandescence, &m_Transparency, &m_BumpMap, &m_EnvMap})
        Register(*input);
}

bool XLambert::SetBumpMap(const XBase* node)
{
    return node && node->HasFn(kFnBumpMap) && Connect(m_BumpMap, node);
}

XBumpMap* XLambert::GetBumpMap() const
{
    return XCast<XBumpMap>(GetModel()->FindNode(m_BumpMap.input));
}

bool XLambert::SetEnvMap(const XBase* node)
{
    return node && node->HasFn(kFnEnvMap) && Connect(m_EnvMap, node);
}

XEnvMap* XLambert::GetEnvMap() const
{
    return XCast<XEnvMap>(GetModel()->FindNode(m_EnvMap.input));
}

XBodyTable XLambert::TextBody()
{
    static constexpr XBodyRow rows[] = {
        &XLambert::m_AmbientColour,     //
        &XLambert::m_Incandescence,     //
        &XLambert::m_Transparency,      //
        InputId(&XLambert::m_BumpMap),  //
        InputId(&XLambert::m_EnvMap),
    };
    return {".\\src\\VKT\\Lambert", rows};
}

// The whole body of files below version 4, with the spellings of then.
XBodyTable XLambert::OldTextBody()
{
    static constexpr XBodyRow rows[] = {
        {"ambient_color", OldInput(&XLambert::m_AmbientColour, "ambient_colour")},
        {"color", OldInput(&XLambert::m_Colour, "colour")},
        {"incandescence", OldInput(&XLambert::m_Incandescence, "incandescence")},
        {"transparency", OldInput(&XLambert::m_Transparency, "transparency")},
        InputId(&XLambert::m_BumpMap),
        InputId(&XLambert::m_EnvMap),
        {"hw_shader", NodeId(&XLambert::m_HwShader)},
    };
    return BodyBelow(4, {".\\src\\VKT\\Lambert", rows});
}

// The binary body of then had a specular colour and a shininess too, which are dropped.
XBodyTable XLambert::OldBinaryBody()
{
    static constexpr XBodyRow rows[] = {
        {"ambient_color", OldInput(&XLambert::m_AmbientColour, "ambient_colour")},
        {"color", OldInput(&XLambert::m_Colour, "colour")},
        {"specular_color", DroppedInput()},
        &XLambert::m_Incandescence,
        &XLambert::m_Transparency,
        DroppedNumber(),
        InputId(&XLambert::m_BumpMap),
        InputId(&XLambert::m_EnvMap),
        NodeId(&XLambert::m_HwShader),
    };
    return BodyBelow(4, {".\\src\\VKT\\Lambert", rows});
}

// Kept on purpose: `ambient` and `emission` stand for what files call `ambient_colour`
// and `incandescence`.
XPropertyTable XLambert::Properties()
{
    static constexpr XPropertyInfo rows[] = {
        InputColour<&XLambert::m_AmbientColour>(3, "ambient", kAnimatable),
        InputColour<&XLambert::m_Incandescence>(4, "emission", kAnimatable),
        InputColour<&XLambert::m_Transparency>(5, "transparency", kAnimatable),
        InputNode<&XLambert::m_BumpMap, kFnBumpMap>(6, "bump_map"),
        InputNode<&XLambert::m_EnvMap, kFnEnvMap>(7, "env_map"),
    };
    return rows;
}

}  // namespace VKT
