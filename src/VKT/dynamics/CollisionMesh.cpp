#include "VKT/dynamics/CollisionMesh.h"

#include "VKT/base/Logger.h"
#include "VKT/stream/BlockReader.h"
#include "VKT/stream/TextWriter.h"

namespace VKT {
namespace {

constexpr const char* kSource = ".\\src\\VKT\\CollisionMesh";

}  // namespace

bool XCollisionMesh::DoData(XFileIO& file)
{
    return XNodeClass::DoData(file) && file.DoData(m_Points) && file.DoData(m_Indices);
}

void XCollisionMesh::DoCopy(const XBase* source)
{
    const XCollisionMesh* other = XCast<XCollisionMesh>(source);
    if (!other)
        return;
    XNodeClass::DoCopy(source);
    m_Points = other->m_Points;
    m_Indices = other->m_Indices;
}

bool XCollisionMesh::WriteChunk(XTextWriter& out) const
{
    if (!XNodeClass::WriteChunk(out))
        return false;
    out << "\tnum_points " << static_cast<u32>(m_Points.size()) << "\n\tnum_indices "
        << static_cast<u32>(m_Indices.size()) << "\n\tpoints\n";
    out.WriteRows(m_Points, {"\t\t"});
    out << "\tindices\n";
    out.WriteRows(m_Indices, 1, {"\t\t"});
    return out.IsGood();
}

bool XCollisionMesh::ReadFields(XTextReader& in)
{
    if (!XNodeClass::ReadFields(in))
        return false;
    XBlockReader block(in, kSource);
    u32 numPoints = 0;
    u32 numIndices = 0;
    if (!block.Read("num_points", numPoints) || !block.Read("num_indices", numIndices) ||
        !block.Expect("points"))
        return false;
    if (!in.ReadNumbers(m_Points, numPoints)) {
        GetLogger()->Log(
            kError, "VKT::XCollisionMesh::ReadChunk >> unexpected File-IO error whilst reading vertex data");
        return false;
    }
    if (!block.Expect("indices"))
        return false;
    if (!in.ReadNumbers(m_Indices, numIndices)) {
        GetLogger()->Log(kError,
                         "VKT::XCollisionMesh::ReadChunk >> unexpected File-IO error whilst reading indices");
        return false;
    }
    return true;
}

XPropertyTable XCollisionMesh::Properties()
{
    static constexpr XPropertyInfo rows[] = {
        Field<&XCollisionMesh::m_Points>(3, "points", kList),
        AsInteger<&XCollisionMesh::m_Indices>(4, "indices", kList),
    };
    return rows;
}

}  // namespace VKT
