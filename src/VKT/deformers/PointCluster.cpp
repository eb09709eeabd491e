#include "VKT/deformers/PointCluster.h"

#include "VKT/document/Model.h"
#include "VKT/hierarchy/Bone.h"
#include "VKT/stream/BlockReader.h"
#include "VKT/stream/TextWriter.h"

namespace VKT {

XBone* XPointCluster::GetBone() const
{
    return XCast<XBone>(GetModel()->FindNode(m_JointId));
}

void XPointCluster::SetBone(const XBone* bone)
{
    m_JointId = bone ? bone->GetID() : 0;
}

XBodyTable XPointCluster::BinaryBody()
{
    static constexpr XBodyRow rows[] = {
        NodeId(&XPointCluster::m_JointId),
        &XPointCluster::m_Points,
        &XPointCluster::m_Weights,
    };
    return {nullptr, rows};
}

bool XPointCluster::DoData(XFileIO& file)
{
    return XDeformer::DoData(file) && DoBinaryBody(*this, XPointCluster::BinaryBody(), file);
}

void XPointCluster::DoCopy(const XBase* source)
{
    XDeformer::DoCopy(source);
    CopyBody(*this, *source, XPointCluster::BinaryBody());
}

// A point without a weight, which only a damaged binary file holds, has the weight 0.
bool XPointCluster::WriteChunk(XTextWriter& out) const
{
    if (m_Affected.empty())
        return true;
    if (!XDeformer::WriteChunk(out))
        return false;
    out << "\tjoint_id " << XNodeId{m_JointId} << "\n\t\tnum_weights " << static_cast<u32>(m_Points.size())
        << '\n';
    for (std::size_t i = 0; i < m_Points.size(); ++i)
        out << "\t\t\t" << m_Points[i] << ' ' << (i < m_Weights.size() ? m_Weights[i] : 0.0f) << '\n';
    return out.IsGood();
}

bool XPointCluster::ReadPoints(XTextReader& in, const char* sourceName)
{
    XBlockReader block(in, sourceName);
    u32 count = 0;
    if (!block.Read("joint_id", m_JointId) || !block.Read("num_weights", count))
        return false;
    m_Points.clear();
    m_Weights.clear();
    for (u32 i = 0; i < count; ++i) {
        u32 point = 0;
        f32 weight = 0;
        if (!in.Read(point) || !in.Read(weight))
            return false;
        m_Points.push_back(point);
        m_Weights.push_back(weight);
    }
    return true;
}

}  // namespace VKT
