#include "VKT/geometry/TrimData.h"

#include <algorithm>
#include <iterator>

#include "VKT/base/Logger.h"
#include "VKT/stream/BlockReader.h"
#include "VKT/stream/FileIO.h"
#include "VKT/stream/TextWriter.h"

namespace VKT {
namespace {

constexpr const char* kSource = ".\\src\\VKT\\TrimData";

constexpr const char* kTypeWords[] = {"InnerBoundary_ClockWise", "OuterBoundary_AntiClockWise",
                                      "BoundarySegment_CurveOnFace",
                                      "ClosedBoundarySegment_ClosedCurveOnFace"};

// Binary.

bool DoCurve(XFileIO& file, XTrimCurve& curve)
{
    return file.DoData(curve.m_CvsU) && file.DoData(curve.m_CvsV) && file.DoData(curve.m_Knots2D) &&
           file.DoData(curve.m_Degree2D) && file.DoData(curve.m_Cvs3D) && file.DoData(curve.m_Knots3D) &&
           file.DoData(curve.m_Degree3D);
}

bool DoBoundary(XFileIO& file, XTrimBoundary& boundary)
{
    constexpr u64 kLeastBytes = 28;  // five empty lists and two degrees
    return file.DoEach(boundary.m_Curves, kLeastBytes, [&](XTrimCurve& curve) {
        return DoCurve(file, curve);
    }) && file.DoData(boundary.m_Type);
}

bool DoRegion(XFileIO& file, XTrimRegion& region)
{
    constexpr u64 kLeastBytes = 8;  // an empty list and a type
    return file.DoEach(region.m_Boundaries, kLeastBytes,
                       [&](XTrimBoundary& boundary) { return DoBoundary(file, boundary); });
}

// Text.

void WriteKnots(i32 degree, const XRealList& knots, XTextWriter& out)
{
    out << "\t\t\t\tdegree " << degree << "\n\t\t\t\tknots " << static_cast<u32>(knots.size()) << '\n';
    out.WriteRow(knots, {"\t\t\t\t", true});
}

void WriteCurve(const XTrimCurve& curve, XTextWriter& out)
{
    if (curve.m_CvsU.size() != curve.m_CvsV.size())
        GetLogger()->LogFormat(kWarning, "a trim curve has %d u and %d v: written with as many v as u",
                               static_cast<int>(curve.m_CvsU.size()), static_cast<int>(curve.m_CvsV.size()));
    out << "\t\t\tTRIM_CURVE {\n\t\t\t\t2d_parametric_curve\n";
    WriteKnots(curve.m_Degree2D, curve.m_Knots2D, out);
    out << "\t\t\t\tcvs " << static_cast<u32>(curve.m_CvsU.size()) << '\n';
    for (std::size_t i = 0; i < curve.m_CvsU.size(); ++i)
        out << "\t\t\t\t\t" << curve.m_CvsU[i] << ' ' << (i < curve.m_CvsV.size() ? curve.m_CvsV[i] : 0.0f)
            << '\n';
    out << "\t\t\t\t3d_local_curve\n";
    WriteKnots(curve.m_Degree3D, curve.m_Knots3D, out);
    out << "\t\t\t\tcvs " << static_cast<u32>(curve.m_Cvs3D.size()) << '\n';
    out.WriteRows(curve.m_Cvs3D, {"\t\t\t\t\t"});
    out << "\t\t\t}\n";
}

void WriteBoundary(const XTrimBoundary& boundary, XTextWriter& out)
{
    // Kept on purpose: a type outside the table has no word, and its file does not read back.
    const char* const word = boundary.m_Type < std::size(kTypeWords) ? kTypeWords[boundary.m_Type] : "";
    out << "\t\tBOUNDARY {\n\t\t\ttype " << word << "\n\t\t\tnum_curves "
        << static_cast<u32>(boundary.m_Curves.size()) << '\n';
    for (const XTrimCurve& curve : boundary.m_Curves)
        WriteCurve(curve, out);
    out << "\t\t}\n";
}

bool ReadKnots(XBlockReader& block, i32& degree, XRealList& knots)
{
    u32 count = 0;
    if (!block.Read("degree", degree) || !block.Read("knots", count))
        return false;
    block.In().ReadNumbers(knots, count);
    return true;
}

bool ReadCurve(XBlockReader block, XTrimCurve& curve)
{
    XTextReader& in = block.In();
    u32 count = 0;
    if (!block.Expect("TRIM_CURVE") || !block.Expect("{") || !block.Expect("2d_parametric_curve") ||
        !ReadKnots(block, curve.m_Degree2D, curve.m_Knots2D) || !block.Read("cvs", count))
        return false;
    for (u32 i = 0; i < count && in.IsGood(); ++i) {
        in.Read(curve.m_CvsU.emplace_back());
        in.Read(curve.m_CvsV.emplace_back());
    }
    if (!block.Expect("3d_local_curve") || !ReadKnots(block, curve.m_Degree3D, curve.m_Knots3D) ||
        !block.Read("cvs", count))
        return false;
    in.ReadNumbers(curve.m_Cvs3D, count);
    return block.Expect("}");
}

bool ReadBoundary(XBlockReader block, XTrimBoundary& boundary)
{
    XString word;
    if (!block.Expect("BOUNDARY") || !block.Expect("{") || !block.Read("type", word))
        return false;
    FindWord(word, kTypeWords, boundary.m_Type);
    u32 count = 0;
    if (!block.Read("num_curves", count))
        return false;
    for (u32 i = 0; i < count; ++i)
        if (!ReadCurve(block, boundary.m_Curves.emplace_back()))
            return false;
    return block.Expect("}");
}

bool ReadRegion(XBlockReader block, XTrimRegion& region)
{
    u32 count = 0;
    if (!block.Expect("REGION") || !block.Expect("{") || !block.Read("num_boundaries", count))
        return false;
    for (u32 i = 0; i < count; ++i)
        if (!ReadBoundary(block, region.m_Boundaries.emplace_back()))
            return false;
    return block.Expect("}");
}

}  // namespace

bool XTrimData::DoData(XFileIO& file)
{
    constexpr u64 kLeastBytes = 4;  // an empty list
    return file.DoEach(m_Regions, kLeastBytes, [&](XTrimRegion& region) { return DoRegion(file, region); });
}

void XTrimData::Write(XTextWriter& out) const
{
    out << "\tnum_regions " << static_cast<u32>(m_Regions.size()) << '\n';
    for (const XTrimRegion& region : m_Regions) {
        out << "\tREGION {\n\t\tnum_boundaries " << static_cast<u32>(region.m_Boundaries.size()) << '\n';
        for (const XTrimBoundary& boundary : region.m_Boundaries)
            WriteBoundary(boundary, out);
        out << "\t}\n";
    }
}

bool XTrimData::Read(XTextReader& in)
{
    m_Regions.clear();
    XBlockReader block(in, kSource);
    u32 count = 0;
    if (!block.Read("num_regions", count))
        return false;
    for (u32 i = 0; i < count; ++i)
        if (!ReadRegion(block, m_Regions.emplace_back()))
            return false;
    return in.IsGood();
}

}  // namespace VKT
