#include "VKT/shading/SurfaceShader.h"

namespace VKT {

XSurfaceShader::XSurfaceShader(XModel* model) : XNodeClass(model)
{
    Register(m_Transparency);
}

XBodyTable XSurfaceShader::TextBody()
{
    static constexpr XBodyRow rows[] = {&XSurfaceShader::m_Transparency};
    return {".\\src\\VKT\\SurfaceShader", rows};
}

// Below version 4 every material held all channels.
XBodyTable XSurfaceShader::OldTextBody()
{
    static constexpr XBodyRow rows[] = {
        {"ambient_color", DroppedInput()},
        {"color", OldInput(&XSurfaceShader::m_Colour, "colour")},
        {"specular_color", DroppedInput()},
        {"incandescence", DroppedInput()},
        {"transparency", OldInput(&XSurfaceShader::m_Transparency, "transparency")},
        {"bump_map", DroppedNumber()},
        {"env_map", DroppedNumber()},
        {"hw_shader", NodeId(&XSurfaceShader::m_HwShader)},
    };
    return BodyBelow(4, {".\\src\\VKT\\SurfaceShader", rows});
}

// With a shininess behind the colours.
XBodyTable XSurfaceShader::OldBinaryBody()
{
    static constexpr XBodyRow rows[] = {
        {"ambient_color", DroppedInput()},
        {"color", OldInput(&XSurfaceShader::m_Colour, "colour")},
        {"specular_color", DroppedInput()},
        DroppedInput(),  // incandescence
        &XSurfaceShader::m_Transparency,
        DroppedNumber(),
        DroppedNumber(),  // bump map
        DroppedNumber(),  // environment map
        NodeId(&XSurfaceShader::m_HwShader),
    };
    return BodyBelow(4, {".\\src\\VKT\\SurfaceShader", rows});
}

XPropertyTable XSurfaceShader::Properties()
{
    static constexpr XPropertyInfo rows[] = {
        InputColour<&XSurfaceShader::m_Transparency>(3, "transparency", kAnimatable),
    };
    return rows;
}

}  // namespace VKT
