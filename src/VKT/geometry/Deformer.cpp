#include "VKT/geometry/Deformer.h"

#include <algorithm>

#include "VKT/document/Model.h"
#include "VKT/geometry/Geometry.h"

namespace VKT {

XBase* XDeformer::GetAffected(u32 i) const
{
    return i < m_Affected.size() ? GetModel()->FindNode(m_Affected[i]) : nullptr;
}

bool XDeformer::AddAffected(XBase* geometry)
{
    if (!XCast<XGeometry>(geometry) ||
        std::find(m_Affected.begin(), m_Affected.end(), geometry->GetID()) != m_Affected.end())
        return false;
    m_Affected.push_back(geometry->GetID());
    return true;
}

bool XDeformer::RemoveAffected(u32 i)
{
    if (i >= m_Affected.size())
        return false;
    m_Affected.erase(m_Affected.begin() + i);
    return true;
}

bool XDeformer::NodeDeath(u32 id)
{
    EraseFirst(m_Affected, id);
    if (m_Affected.empty())
        return false;
    XBase::NodeDeath(id);
    return true;
}

XBodyTable XDeformer::TextBody()
{
    static constexpr XBodyRow rows[] = {
        {"\taffected ", NodeIds(&XDeformer::m_Affected)},
        Since(4, {"\tenvelope_weight ", &XDeformer::m_EnvelopeWeight}),
    };
    return {".\\src\\VKT\\Deformer", rows};
}

// `affected` is one node to the vocabulary, the first; setting it replaces the list.
XPropertyTable XDeformer::Properties()
{
    static constexpr XPropertyInfo rows[] = {
        Computed<XBase*>(
            1, "affected", 0,
            [](const XBase& node, XBase*& value) {
                value = As<XDeformer>(node).GetAffected(0);
                return true;
            },
            [](XBase& node, XBase* const& value) {
                if (!value || !AcceptsNode(node, value, kFnGeometry))
                    return false;
                As<XDeformer>(node).m_Affected.assign(1, value->GetID());
                return true;
            },
            kFnGeometry),
        Field<&XDeformer::m_EnvelopeWeight>(2, "envelope_weight", kAnimatable),
    };
    return rows;
}

}  // namespace VKT
