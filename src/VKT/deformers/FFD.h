#pragma once

#include "VKT/geometry/Deformer.h"

namespace VKT {

class XBaseLattice;
class XLattice;

// A free-form deformation: carries geometry from the box of a base lattice into the grid
// of a deformed one. The library stores the three nodes and computes nothing.
class XFFD : public XNodeClass<XFFD, XDeformer, kFnFFD> {
public:
    using XNodeClass::XNodeClass;

    // Null for none.
    XBaseLattice* GetBaseLattice() const;
    void SetBaseLattice(const XBaseLattice* lattice);
    XLattice* GetDeformedLattice() const;
    void SetDeformedLattice(const XLattice* lattice);

    // False when either lattice dies: the three nodes go together.
    bool NodeDeath(u32 id) override;
    void PreDelete(std::set<u32>& ids) override;
    // Tells the deformed lattice whose it is. Of several deformers the first in name order
    // has it.
    void PostLoad() override;

    static XBodyTable TextBody();
    static XBodyTable BinaryBody() { return TextBody(); }
    static XPropertyTable Properties();

private:
    u32 m_BaseLattice = 0;
    u32 m_DeformedLattice = 0;
};

}  // namespace VKT
