#include "VKT/shading/EnvMap.h"

namespace VKT {

bool XEnvMap::NodeDeath(u32 id)
{
    if (m_Placement == id)
        m_Placement = 0;
    return XNodeClass::NodeDeath(id);
}

XBodyTable XEnvMap::BinaryBody()
{
    static constexpr XBodyRow rows[] = {{"placement", NodeId(&XEnvMap::m_Placement)}};
    return {".\\src\\VKT\\EnvMap", rows};
}

XPropertyTable XEnvMap::Properties()
{
    static constexpr XPropertyInfo rows[] = {
        NodeField<&XEnvMap::m_Placement, kFnTexPlacement3D>(1, "placement"),
    };
    return rows;
}

}  // namespace VKT
