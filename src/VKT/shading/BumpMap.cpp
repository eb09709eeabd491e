#include "VKT/shading/BumpMap.h"

namespace VKT {

XBumpMap::XBumpMap(XModel* model) : XNodeClass(model)
{
    SetTextureId(0);
}

XBodyTable XBumpMap::TextBody()
{
    static constexpr XBodyRow rows[] = {
        {"\tbump_depth ", &XBumpMap::m_BumpDepth},
        {"\ttexture_id ", ImageId<0>()},
    };
    return {".\\src\\VKT\\BumpMap", rows};
}

// The base holds the image.
XBodyTable XBumpMap::BinaryBody()
{
    static constexpr XBodyRow rows[] = {&XBumpMap::m_BumpDepth};
    return {".\\src\\VKT\\BumpMap", rows};
}

// Kept on purpose: `placement` is the image's id, as a float.
XPropertyTable XBumpMap::Properties()
{
    static constexpr auto getPlacement = [](const XBase& node, f32& value) {
        value = static_cast<f32>(As<XBumpMap>(node).GetTextureId());
        return true;
    };
    static constexpr auto setPlacement = [](XBase& node, const f32& value) {
        constexpr f32 kIdsEnd = 4294967296.0f;
        if (!(value >= 0.0f && value < kIdsEnd))
            return false;
        As<XBumpMap>(node).SetTextureId(static_cast<u32>(value));
        return true;
    };
    static constexpr XPropertyInfo rows[] = {
        Field<&XBumpMap::m_BumpDepth>(1, "bump_depth", kAnimatable),
        Computed<f32>(2, "placement", 0, getPlacement, setPlacement),
    };
    return rows;
}

}  // namespace VKT
