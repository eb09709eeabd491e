#pragma once

#include "VKT/geometry/Geometry.h"

namespace VKT {

class XFFD;

// The deformed grid of a free-form deformation. Its points are those of the geometry, the
// divisions say how many of them stand along each axis.
class XLattice : public XNodeClass<XLattice, XGeometry, kFnLattice> {
public:
    using XNodeClass::XNodeClass;

    void GetDivisions(u32& s, u32& t, u32& u) const;
    void SetDivisions(u32 s, u32 t, u32 u);

    // The deformer whose deformed lattice this is, and that deformer's base lattice: what
    // the last load found, in no file; 0 for none.
    u32 GetFFDId() const { return m_FFDId; }
    u32 GetBaseLatticeId() const { return m_BaseLatticeId; }

    // False when the deformer or the base lattice dies: the three go together.
    bool NodeDeath(u32 id) override;
    // Files hold neither the deformer nor the base lattice.
    bool DoData(XFileIO& file) override;

    static XBodyTable TextBody();
    static XBodyTable BinaryBody() { return TextBody(); }
    static XPropertyTable Properties();

private:
    friend class XFFD;  // links itself after a load

    u32 m_BaseLatticeId = 0;
    u32 m_FFDId = 0;
    u32 m_DivisionsS = 0;
    u32 m_DivisionsT = 0;
    u32 m_DivisionsU = 0;
};

}  // namespace VKT
