#include "VKT/geometry/Geometry.h"

#include <algorithm>

#include "VKT/base/Logger.h"
#include "VKT/document/Model.h"
#include "VKT/geometry/Deformer.h"
#include "VKT/stream/BlockReader.h"
#include "VKT/stream/TextWriter.h"

namespace VKT {
namespace {

constexpr const char* kSource = ".\\src\\VKT\\Geometry";

bool SavesDeformers(const XBase& node)
{
    return node.GetModel()->GetSaveFlags().Test(SaveDeformers);
}

}  // namespace

bool XGeometry::GetDeformerQueue(XDeformerList& out) const
{
    for (const u32 id : m_DeformerQueue)
        if (XDeformer* deformer = XCast<XDeformer>(GetModel()->FindNode(id)))
            out.push_back(deformer);
    return !out.empty();
}

void XGeometry::SetDeformerQueue(const XDeformerList& queue)
{
    m_DeformerQueue.clear();
    for (const XDeformer* deformer : queue)
        if (deformer)
            m_DeformerQueue.push_back(deformer->GetID());
}

bool XGeometry::NodeDeath(u32 id)
{
    return EraseFirst(m_DeformerQueue, id) || XShape::NodeDeath(id);
}

void XGeometry::PreDelete(std::set<u32>& ids)
{
    XShape::PreDelete(ids);
    if (!GetModel()->GetDeleteFlags().Test(DeleteDeformers))
        return;
    XDeformerList queue;
    GetDeformerQueue(queue);
    for (const XDeformer* deformer : queue)
        if (deformer->GetNumAffected() < 2)
            ids.insert(deformer->GetID());
}

bool XGeometry::DoData(XFileIO& file)
{
    if (!XNodeClass::DoData(file) || !file.DoData(m_Points))
        return false;
    XIndexList none;
    const bool isWhole = file.IsReading() || file.IsListing() || SavesDeformers(*this);
    XIndexList& queue = isWhole ? m_DeformerQueue : none;
    // The flag stands in binary files of every version, other than in text files.
    return file.DoIds(queue) && file.DoData(m_IntermediateObject);
}

void XGeometry::DoCopy(const XBase* source)
{
    const XGeometry* other = XCast<XGeometry>(source);
    if (!other)
        return;
    if (other != this)
        m_Points = other->m_Points;
    m_IntermediateObject = other->m_IntermediateObject;
    if (GetModel()->GetCopyFlags().Test(CopyDeformers)) {
        XDeformerList queue;
        other->GetDeformerQueue(queue);
        XDeformerList clones;
        for (const XDeformer* deformer : queue)
            if (XDeformer* clone = XCast<XDeformer>(deformer->Clone())) {
                clone->AddAffected(this);
                clones.push_back(clone);
            }
        SetDeformerQueue(clones);
    }
    XNodeClass::DoCopy(source);
}

bool XGeometry::WriteChunk(XTextWriter& out) const
{
    out << "\tpoints " << GetNumPoints() << '\n';
    out.WriteRows(m_Points, {"\t\t"});
    out << "\tdeformer_queue ";
    if (SavesDeformers(*this)) {
        out << static_cast<u32>(m_DeformerQueue.size());
        for (const u32 id : m_DeformerQueue)
            out << ' ' << XNodeId{id};
        out << '\n';
    } else {
        out << "0\n";
    }
    out << "\tintermediate_object " << m_IntermediateObject << '\n';
    return out.IsGood();
}

bool XGeometry::ReadFields(XTextReader& in)
{
    XBlockReader block(in, kSource);
    // Particle shapes had no points and no deformers in older files.
    if (!in.IsBelow(4) || GetApiType() != kFnParticleShape) {
        i32 numPoints = 0;
        if (!block.Read("points", numPoints))
            return false;
        if (numPoints > 0 && !in.ReadNumbers(m_Points, static_cast<u32>(numPoints))) {
            GetLogger()->Log(kError, "UnExpected file-IO error");
            return false;
        }
        u32 numDeformers = 0;
        if (!block.Read("deformer_queue", numDeformers))
            return false;
        in.ReadNumbers(m_DeformerQueue, numDeformers);  // too few are seen at the next key
    }
    return in.IsBelow(4) || block.Read("intermediate_object", m_IntermediateObject);
}

XPropertyTable XGeometry::Properties()
{
    static constexpr XPropertyInfo rows[] = {
        Field<&XGeometry::m_Points>(1, "points", kAnimatable | kList),
        Computed<XNodeList>(
            2, "deformer_queue", kList,
            [](const XBase& node, XNodeList& value) {
                XDeformerList queue;
                As<XGeometry>(node).GetDeformerQueue(queue);
                value.assign(queue.begin(), queue.end());
                return true;
            },
            [](XBase& node, const XNodeList& value) {
                XDeformerList queue;
                for (XBase* entry : value) {
                    if (!entry || !AcceptsNode(node, entry, kFnDeformer))
                        return false;
                    queue.push_back(XCast<XDeformer>(entry));
                }
                As<XGeometry>(node).SetDeformerQueue(queue);
                return true;
            },
            kFnDeformer),
        Field<&XGeometry::m_IntermediateObject>(3, "intermediate_object"),
    };
    return rows;
}

}  // namespace VKT
