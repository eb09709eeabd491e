#pragma once

#include "VKT/base/Lists.h"

namespace VKT {

class XFileIO;
class XTextReader;
class XTextWriter;

// One curve of a boundary, twice: in the parameter space of the surface, and in its local
// space.
struct XTrimCurve {
    XRealList m_CvsU;  // of the 2D control points, and
    XRealList m_CvsV;  // of the same length
    XRealList m_Knots2D;
    i32 m_Degree2D = 0;
    XVector3Array m_Cvs3D;
    XRealList m_Knots3D;
    i32 m_Degree3D = 0;
};

// What a boundary is. The numbers stand in binary files.
enum XTrimBoundaryType : u32 {
    kInnerBoundary = 0,          // clockwise
    kOuterBoundary = 1,          // anti-clockwise
    kBoundarySegment = 2,        // a curve on the face
    kClosedBoundarySegment = 3,  // a closed curve on the face
};

struct XTrimBoundary {
    u32 m_Type = kInnerBoundary;
    XVector<XTrimCurve> m_Curves;
};

struct XTrimRegion {
    XVector<XTrimBoundary> m_Boundaries;
};

// Which parts of a surface are cut away: regions, of boundaries, of curves. Copied by
// value, whole.
struct XTrimData {
    XVector<XTrimRegion> m_Regions;

    // A sub-block of a surface's chunk. The readers answer false after a failure and leave
    // what came.
    void Write(XTextWriter& out) const;
    bool Read(XTextReader& in);
    // Both directions. Control points stand in front of knots, other than in text.
    bool DoData(XFileIO& file);
};

}  // namespace VKT
