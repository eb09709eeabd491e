#include "VKT/shading/Texture.h"

#include <algorithm>

#include "VKT/stream/TextWriter.h"

namespace VKT {

bool XTexture::NodeDeath(u32 id)
{
    std::replace(m_Images.begin(), m_Images.end(), id, u32{0});
    return XNodeClass::NodeDeath(id);
}

void XTexture::SetImage(u32 i, u32 id)
{
    if (i >= m_Images.size())
        m_Images.resize(std::size_t{i} + 1, 0);
    m_Images[i] = id;
}

void XTexture::WriteImage(const XTexture& texture, u32 place, XTextWriter& out)
{
    out << XNodeId{texture.GetImage(place)} << '\n';
}

bool XTexture::ReadImage(XTexture& texture, u32 place, XTextReader& in)
{
    u32 id = 0;
    in.Read(id);
    texture.SetImage(place, id);
    return true;  // a number that fails to come is seen at the next key
}

XBodyTable XTexture::BinaryBody()
{
    static constexpr XBodyRow rows[] = {{"images", NodeIds(&XTexture::m_Images)}};
    return {".\\src\\VKT\\Texture", rows};
}

}  // namespace VKT
