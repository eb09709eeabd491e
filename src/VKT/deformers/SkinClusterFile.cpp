// The two forms of a skin in files.

#include <algorithm>

#include "VKT/deformers/SkinCluster.h"
#include "VKT/document/Model.h"
#include "VKT/stream/BlockReader.h"
#include "VKT/stream/TextWriter.h"

namespace VKT {
namespace {

constexpr const char* kSource = ".\\src\\VKT\\SkinCluster";

// Points that memory is kept ready for before any came, where the file's length is not
// known and a claim cannot be held against it.
constexpr u32 kMostReserved = 1 << 20;

// Weights of one point that are read at a time.
constexpr u32 kPiece = 4096;

bool WritePoint(XFileIO& file, std::span<XBoneWeight> weights)
{
    u32 count = static_cast<u32>(weights.size());
    return file.DoData(count) && file.DoData(weights.data(), count) == count;
}

}  // namespace

bool XSkinCluster::DoData(XFileIO& file)
{
    return XNodeClass::DoData(file) && file.DoIds(m_Influences) && DoWeights(file);
}

bool XSkinCluster::DoWeights(XFileIO& file)
{
    u32 numPoints = 0;
    if (!file.DoCount(numPoints, m_Weights.GetNumPoints(), sizeof(u32)))
        return false;
    if (file.IsReading()) {
        m_Weights.Clear();
        m_Weights.Reserve(std::min(numPoints, kMostReserved));
    }
    for (u32 point = 0; point < numPoints; ++point)
        if (!(file.IsReading() ? ReadPoint(file) : WritePoint(file, m_Weights[point])))
            return false;
    return true;
}

// Takes the weights piece by piece, so that no memory is taken for a claim alone.
bool XSkinCluster::ReadPoint(XFileIO& file)
{
    u32 count = 0;
    if (!file.DoData(count))
        return false;
    m_Weights.AddPoint();
    while (count > 0) {
        const u32 part = std::min(count, kPiece);
        if (!file.DoData(m_Weights.Grow(m_Weights.GetNumPoints() - 1, part).data(), part))
            return false;
        count -= part;
    }
    return true;
}

bool XSkinCluster::WriteChunk(XTextWriter& out) const
{
    if (!XNodeClass::WriteChunk(out))
        return false;
    out << "\tnum_influences " << GetNumInfluences() << '\n';
    out.WriteIds(m_Influences, {"\t\t", true});
    out << "\tnum_points " << m_Weights.GetNumPoints() << "\n\tweights\n";
    for (u32 point = 0; point < m_Weights.GetNumPoints(); ++point) {
        const std::span<const XBoneWeight> weights = m_Weights[point];
        out << "\t\t" << static_cast<u32>(weights.size()) << '\t';
        for (const XBoneWeight& weight : weights)
            out << ' ' << weight.m_Influence << ' ' << weight.m_Weight;
        out << '\n';
    }
    return out.IsGood();
}

bool XSkinCluster::ReadFields(XTextReader& in)
{
    if (!XNodeClass::ReadFields(in))
        return false;
    XBlockReader block(in, kSource);
    u32 count = 0;
    if (!block.Read("num_influences", count))
        return false;
    in.ReadNumbers(m_Influences, count);
    return ReadWeights(block);
}

bool XSkinCluster::ReadWeights(XBlockReader& block)
{
    XTextReader& in = block.In();
    u32 numPoints = 0;
    if (!block.Read("num_points", numPoints))
        return false;
    if (!in.CanHold(numPoints))
        in.SetFailed();
    if (!block.Expect("weights"))
        return false;
    m_Weights.Clear();
    m_Weights.Reserve(std::min(numPoints, kMostReserved));
    for (u32 point = 0; point < numPoints; ++point)
        if (!ReadPoint(in))
            return false;
    return in.IsGood();
}

// As from a binary file; what fails to come reads as 0.
bool XSkinCluster::ReadPoint(XTextReader& in)
{
    const u32 point = m_Weights.GetNumPoints();
    m_Weights.AddPoint();
    u32 count = 0;
    in.Read(count);
    while (count > 0 && in.IsGood()) {
        const u32 part = std::min(count, kPiece);
        in.ReadArray(m_Weights.Grow(point, part).data(), part);
        count -= part;
    }
    Normalise(m_Weights[point]);
    return in.IsGood();
}

}  // namespace VKT
