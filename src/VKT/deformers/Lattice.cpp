#include "VKT/deformers/Lattice.h"

#include "VKT/deformers/BaseLattice.h"
#include "VKT/deformers/FFD.h"

namespace VKT {

void XLattice::GetDivisions(u32& s, u32& t, u32& u) const
{
    s = m_DivisionsS;
    t = m_DivisionsT;
    u = m_DivisionsU;
}

void XLattice::SetDivisions(u32 s, u32 t, u32 u)
{
    m_DivisionsS = s;
    m_DivisionsT = t;
    m_DivisionsU = u;
}

bool XLattice::NodeDeath(u32 id)
{
    if (id != 0 && (id == m_BaseLatticeId || id == m_FFDId))
        return false;
    return XGeometry::NodeDeath(id);
}

bool XLattice::DoData(XFileIO& file)
{
    file.NoteId(m_FFDId);
    file.NoteId(m_BaseLatticeId);
    return XNodeClass::DoData(file);
}

XBodyTable XLattice::TextBody()
{
    static constexpr XBodyRow rows[] = {
        {"\tdivisions_s ", &XLattice::m_DivisionsS},
        {"\tdivisions_t ", &XLattice::m_DivisionsT},
        {"\tdivisions_u ", &XLattice::m_DivisionsU},
    };
    return {".\\src\\VKT\\Lattice", rows};
}

// Kept on purpose: `ffd` and `base_lattice` have the numbers of two divisions.
XPropertyTable XLattice::Properties()
{
    static constexpr XPropertyInfo rows[] = {
        AsInteger<&XLattice::m_DivisionsS>(4, "divisions_s"),
        AsInteger<&XLattice::m_DivisionsT>(5, "divisions_t"),
        AsInteger<&XLattice::m_DivisionsU>(6, "divisions_u"),
        NodeField<&XLattice::m_FFDId, kFnFFD>(5, "ffd", kReadOnly),
        NodeField<&XLattice::m_BaseLatticeId, kFnBaseLattice>(6, "base_lattice", kReadOnly),
    };
    return rows;
}

}  // namespace VKT
