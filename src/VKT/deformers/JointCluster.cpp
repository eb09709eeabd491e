#include "VKT/deformers/JointCluster.h"

namespace VKT {

bool XJointCluster::ReadFields(XTextReader& in)
{
    return XPointCluster::ReadFields(in) && ReadPoints(in, ".\\src\\VKT\\JointCluster");
}

// Kept on purpose: the vocabulary calls all three float arrays.
XPropertyTable XJointCluster::Properties()
{
    // Only what is reported as a node says what it must answer to.
    static constexpr XPropertyInfo joint = [] {
        XPropertyInfo row = NodeField<&XJointCluster::m_JointId, kFnBone>(5, "influence_joint");
        row.nodeType = 0;
        return ReportedAs(kPropertyFloatArray, row);
    }();
    static constexpr XPropertyInfo rows[] = {
        Field<&XJointCluster::m_Weights>(3, "weights"),
        ReportedAs(kPropertyFloatArray, AsInteger<&XJointCluster::m_Points>(4, "indices")),
        joint,
    };
    return rows;
}

}  // namespace VKT
