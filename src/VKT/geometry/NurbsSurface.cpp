#include "VKT/geometry/NurbsSurface.h"

namespace VKT {
namespace {

constexpr const char* kSource = ".\\src\\VKT\\NurbsSurface";

}  // namespace

XBodyTable XNurbsSurface::TextBody()
{
    static constexpr XBodyRow rows[] = {
        {"\tdegree_u ", &XNurbsSurface::m_DegreeU},
        {"\tdegree_v ", &XNurbsSurface::m_DegreeV},
        {"\tnum_cvs_u ", &XNurbsSurface::m_NumCvsU},
        {"\tnum_cvs_v ", &XNurbsSurface::m_NumCvsV},
        {"\ttype_u ", &XNurbsSurface::m_TypeU},
        {"\ttype_v ", &XNurbsSurface::m_TypeV},
        {"\tknots_u ", InOneLine(&XNurbsSurface::m_KnotsU)},
        {"\tknots_v ", InOneLine(&XNurbsSurface::m_KnotsV)},
    };
    return {kSource, rows};
}

// The numbers of control vertices and the kinds stand in the bytes of the base class.
XBodyTable XNurbsSurface::BinaryBody()
{
    static constexpr XBodyRow rows[] = {
        &XNurbsSurface::m_DegreeU,
        &XNurbsSurface::m_DegreeV,
        InOneLine(&XNurbsSurface::m_KnotsU),
        InOneLine(&XNurbsSurface::m_KnotsV),
    };
    return {kSource, rows};
}

// Kept on purpose: both degrees have the name of the first, so that 9 is known by its
// number alone.
XPropertyTable XNurbsSurface::Properties()
{
    static constexpr XPropertyInfo rows[] = {
        AsInteger<&XNurbsSurface::m_DegreeU>(8, "degree_u"),
        AsInteger<&XNurbsSurface::m_DegreeV>(9, "degree_u"),
        Field<&XNurbsSurface::m_KnotsU>(10, "knots_u", kList),
        Field<&XNurbsSurface::m_KnotsV>(11, "knots_v", kList),
    };
    return rows;
}

}  // namespace VKT
