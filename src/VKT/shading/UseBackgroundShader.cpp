#include "VKT/shading/UseBackgroundShader.h"

namespace VKT {

// Below version 4 every material held all channels.
XBodyTable XUseBackgroundShader::OldTextBody()
{
    static constexpr XBodyRow rows[] = {
        {"ambient_color", DroppedInput()},  {"color", OldInput(&XUseBackgroundShader::m_Colour, "colour")},
        {"specular_color", DroppedInput()}, {"incandescence", DroppedInput()},
        {"transparency", DroppedInput()},   {"bump_map", DroppedNumber()},
        {"env_map", DroppedNumber()},       {"hw_shader", NodeId(&XUseBackgroundShader::m_HwShader)},
    };
    return BodyBelow(4, {".\\src\\VKT\\UseBackgroundShader", rows});
}

// With a shininess behind the colours.
XBodyTable XUseBackgroundShader::OldBinaryBody()
{
    static constexpr XBodyRow rows[] = {
        {"ambient_color", DroppedInput()},
        {"color", OldInput(&XUseBackgroundShader::m_Colour, "colour")},
        {"specular_color", DroppedInput()},
        DroppedInput(),  // incandescence
        DroppedInput(),  // transparency
        DroppedNumber(),
        DroppedNumber(),  // bump map
        DroppedNumber(),  // environment map
        NodeId(&XUseBackgroundShader::m_HwShader),
    };
    return BodyBelow(4, {".\\src\\VKT\\UseBackgroundShader", rows});
}

}  // namespace VKT
