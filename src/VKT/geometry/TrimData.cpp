#include "VKT/geometry/TrimData.h"

#include <algorithm>
#include <iterator>

#include "VKT/base/Logger.h"
#include "VKT/stream/FileIO.h"
#include "VKT/stream/TextSyntax.h"
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

bool ReadCount(const char* key, int line, XTextReader& in, u32& count)
{
    if (!Expect(key, in, kSource, line))
        return false;
    in.Read(count);
    return true;
}

bool ReadKnots(XTextReader& in, i32& degree, XRealList& knots)
{
    if (!Expect("degree", in, kSource, 10))
        return false;
    in.Read(degree);
    u32 count = 0;
    if (!ReadCount("knots", 11, in, count))
        return false;
    in.ReadNumbers(knots, count);
    return true;
}

bool ReadCurve(XTextReader& in, XTrimCurve& curve)
{
    u32 count = 0;
    if (!Expect("TRIM_CURVE", in, kSource, 8) || !Expect("{", in, kSource, 2) ||
        !Expect("2d_parametric_curve", in, kSource, 9) || !ReadKnots(in, curve.m_Degree2D, curve.m_Knots2D) ||
        !ReadCount("cvs", 12, in, count))
        return false;
    for (u32 i = 0; i < count && in.IsGood(); ++i) {
        in.Read(curve.m_CvsU.emplace_back());
        in.Read(curve.m_CvsV.emplace_back());
    }
    if (!Expect("3d_local_curve", in, kSource, 13) || !ReadKnots(in, curve.m_Degree3D, curve.m_Knots3D) ||
        !ReadCount("cvs", 12, in, count))
        return false;
    in.ReadNumbers(curve.m_Cvs3D, count);
    return Expect("}", in, kSource, 14);
}

bool ReadBoundary(XTextReader& in, XTrimBoundary& boundary)
{
    if (!Expect("BOUNDARY", in, kSource, 5) || !Expect("{", in, kSource, 2) ||
        !Expect("type", in, kSource, 6))
        return false;
    XString word;
    in.ReadToken(word);
    const auto found = std::find(std::begin(kTypeWords), std::end(kTypeWords), word);
    if (found != std::end(kTypeWords))
        boundary.m_Type = static_cast<u32>(found - std::begin(kTypeWords));
    u32 count = 0;
    if (!ReadCount("num_curves", 7, in, count))
        return false;
    for (u32 i = 0; i < count; ++i)
        if (!ReadCurve(in, boundary.m_Curves.emplace_back()))
            return false;
    return Expect("}", in, kSource, 14);
}

bool ReadRegion(XTextReader& in, XTrimRegion& region)
{
    u32 count = 0;
    if (!Expect("REGION", in, kSource, 3) || !Expect("{", in, kSource, 2) ||
        !ReadCount("num_boundaries", 4, in, count))
        return false;
    for (u32 i = 0; i < count; ++i)
        if (!ReadBoundary(in, region.m_Boundaries.emplace_back()))
            return false;
    return Expect("}", in, kSource, 14);
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
    u32 count = 0;
    if (!ReadCount("num_regions", 1, in, count))
        return false;
    for (u32 i = 0; i < count; ++i)
        if (!ReadRegion(in, m_Regions.emplace_back()))
            return false;
    return in.IsGood();
}

}  // namespace VKT
