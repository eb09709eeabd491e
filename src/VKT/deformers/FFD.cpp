#include "VKT/deformers/FFD.h"

#include "VKT/deformers/BaseLattice.h"
#include "VKT/deformers/Lattice.h"
#include "VKT/document/Model.h"

namespace VKT {

XBaseLattice* XFFD::GetBaseLattice() const
{
    return XCast<XBaseLattice>(GetModel()->FindNode(m_BaseLattice));
}

void XFFD::SetBaseLattice(const XBaseLattice* lattice)
{
    m_BaseLattice = lattice ? lattice->GetID() : 0;
}

XLattice* XFFD::GetDeformedLattice() const
{
    return XCast<XLattice>(GetModel()->FindNode(m_DeformedLattice));
}

void XFFD::SetDeformedLattice(const XLattice* lattice)
{
    m_DeformedLattice = lattice ? lattice->GetID() : 0;
}

bool XFFD::NodeDeath(u32 id)
{
    if (id != 0 && (id == m_BaseLattice || id == m_DeformedLattice))
        return false;
    return XDeformer::NodeDeath(id);
}

void XFFD::PreDelete(std::set<u32>& ids)
{
    XDeformer::PreDelete(ids);
    if (!GetModel()->GetDeleteFlags().Test(DeleteDeformerInputs))
        return;
    for (const u32 id : {m_BaseLattice, m_DeformedLattice})
        if (id != 0)
            ids.insert(id);
}

// The link is made from this side, so that no lattice scans the document.
void XFFD::PostLoad()
{
    XDeformer::PostLoad();
    XLattice* const lattice = GetDeformedLattice();
    if (!lattice || lattice->m_FFDId != 0)
        return;
    lattice->m_FFDId = GetID();
    const XBaseLattice* const base = GetBaseLattice();
    lattice->m_BaseLatticeId = base ? base->GetID() : 0;
}

XBodyTable XFFD::TextBody()
{
    static constexpr XBodyRow rows[] = {
        {"\tbase ", NodeId(&XFFD::m_BaseLattice)},
        {"\tdeformed ", NodeId(&XFFD::m_DeformedLattice)},
    };
    return {".\\src\\VKT\\FFD", rows};
}

XPropertyTable XFFD::Properties()
{
    static constexpr XPropertyInfo rows[] = {
        NodeField<&XFFD::m_BaseLattice, kFnBaseLattice>(3, "base_lattice"),
        NodeField<&XFFD::m_DeformedLattice, kFnLattice>(4, "deform_lattice"),
    };
    return rows;
}

}  // namespace VKT
