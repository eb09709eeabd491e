#include "VKT/shading/Specular.h"

namespace VKT {

XSpecular::XSpecular(XModel* model) : XNodeClass(model)
{
    Register(m_SpecularColour);
}

bool XSpecular::Connect(XShaderInput& input, const XBase* node)
{
    if (&input == &m_SpecularColour && !node) {
        input.input = 0;
        return true;
    }
    return XNodeClass::Connect(input, node);
}

void XSpecular::DoCopy(const XBase* source)
{
    XNodeClass::DoCopy(source);
    if (const XSpecular* other = XCast<XSpecular>(source))
        m_Shininess = other->m_Shininess;
}

XBodyTable XSpecular::TextBody()
{
    static constexpr XBodyRow rows[] = {&XSpecular::m_SpecularColour};
    return {".\\src\\VKT\\Specular", rows};
}

XBodyTable XSpecular::OldTextBody()
{
    static constexpr XBodyRow rows[] = {
        {"ambient_color", OldInput(&XSpecular::m_AmbientColour, "ambient_colour")},
        {"color", OldInput(&XSpecular::m_Colour, "colour")},
        {"specular_color", OldInput(&XSpecular::m_SpecularColour, "specular_colour")},
        {"incandescence", OldInput(&XSpecular::m_Incandescence, "incandescence")},
        {"transparency", OldInput(&XSpecular::m_Transparency, "transparency")},
        InputId(&XSpecular::m_BumpMap),
        InputId(&XSpecular::m_EnvMap),
        {"hw_shader", NodeId(&XSpecular::m_HwShader)},
    };
    return BodyBelow(4, {".\\src\\VKT\\Specular", rows});
}

// The binary body of then held the shininess of every class.
XBodyTable XSpecular::OldBinaryBody()
{
    static constexpr XBodyRow rows[] = {
        {"ambient_color", OldInput(&XSpecular::m_AmbientColour, "ambient_colour")},
        {"color", OldInput(&XSpecular::m_Colour, "colour")},
        {"specular_color", OldInput(&XSpecular::m_SpecularColour, "specular_colour")},
        &XSpecular::m_Incandescence,
        &XSpecular::m_Transparency,
        {"shininess", &XSpecular::m_Shininess},
        InputId(&XSpecular::m_BumpMap),
        InputId(&XSpecular::m_EnvMap),
        NodeId(&XSpecular::m_HwShader),
    };
    return BodyBelow(4, {".\\src\\VKT\\Specular", rows});
}

XPropertyTable XSpecular::Properties()
{
    static constexpr XPropertyInfo rows[] = {
        InputColour<&XSpecular::m_SpecularColour>(8, "specular", kAnimatable),
        Field<&XSpecular::m_Shininess>(9, "shininess", kAnimatable),
    };
    return rows;
}

}  // namespace VKT
