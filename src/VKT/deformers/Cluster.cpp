#include "VKT/deformers/Cluster.h"

#include "VKT/document/Model.h"

namespace VKT {

bool XCluster::NodeDeath(u32 id)
{
    if (id != 0 && id == m_JointId)
        return false;
    return XPointCluster::NodeDeath(id);
}

void XCluster::PreDelete(std::set<u32>& ids)
{
    XPointCluster::PreDelete(ids);
    if (m_JointId != 0 && GetModel()->GetDeleteFlags().Test(DeleteDeformerInputs))
        ids.insert(m_JointId);
}

bool XCluster::ReadFields(XTextReader& in)
{
    return XPointCluster::ReadFields(in) && ReadPoints(in, ".\\src\\VKT\\Cluster");
}

XPropertyTable XCluster::Properties()
{
    static constexpr XPropertyInfo rows[] = {
        Field<&XCluster::m_Weights>(3, "weights", kList),
        AsInteger<&XCluster::m_Points>(4, "indices", kList),
        NodeField<&XCluster::m_JointId, kFnBone>(5, "influence"),
    };
    return rows;
}

}  // namespace VKT
