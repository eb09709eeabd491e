#pragma once

#include "VKT/hierarchy/Shape.h"

namespace VKT {

// The undeformed box of a free-form deformation; its sizes are in scene units.
class XBaseLattice : public XNodeClass<XBaseLattice, XShape, kFnBaseLattice> {
public:
    using XNodeClass::XNodeClass;

    f32 GetXSize() const { return m_XSize; }
    void SetXSize(f32 size) { m_XSize = size; }
    f32 GetYSize() const { return m_YSize; }
    void SetYSize(f32 size) { m_YSize = size; }
    f32 GetZSize() const { return m_ZSize; }
    void SetZSize(f32 size) { m_ZSize = size; }

    static XBodyTable TextBody();
    static XBodyTable BinaryBody();
    static XPropertyTable Properties();

private:
    static void WriteXSize(const XBase& node, XTextWriter& out);
    template <f32 XBaseLattice::*Size>
    static bool ReadSize(XBase& node, XTextReader& in);

    f32 m_XSize = 1.0f;
    f32 m_YSize = 1.0f;
    f32 m_ZSize = 1.0f;
};

}  // namespace VKT
