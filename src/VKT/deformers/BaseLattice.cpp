#include "VKT/deformers/BaseLattice.h"

#include "VKT/stream/TextReader.h"
#include "VKT/stream/TextWriter.h"

namespace VKT {

void XBaseLattice::WriteXSize(const XBase& node, XTextWriter& out)
{
    out << As<XBaseLattice>(node).m_XSize << '\n';
}

template <f32 XBaseLattice::*Size>
bool XBaseLattice::ReadSize(XBase& node, XTextReader& in)
{
    in.Read(As<XBaseLattice>(node).*Size);
    return true;
}

// Kept on purpose: text files have the size along x under all three keys; only binary
// ones hold the true sizes. Readers take each key for what it says.
XBodyTable XBaseLattice::TextBody()
{
    static constexpr XBodyRow rows[] = {
        SinceBoth(4, {"\tx_size ", &XBaseLattice::m_XSize}),
        SinceBoth(4, {"\ty_size ", XStoredText{WriteXSize, ReadSize<&XBaseLattice::m_YSize>}}),
        SinceBoth(4, {"\tz_size ", XStoredText{WriteXSize, ReadSize<&XBaseLattice::m_ZSize>}}),
    };
    return {".\\src\\VKT\\BaseLattice", rows};
}

XBodyTable XBaseLattice::BinaryBody()
{
    static constexpr XBodyRow rows[] = {
        Since(4, &XBaseLattice::m_XSize),
        Since(4, {"y_size", &XBaseLattice::m_YSize}),
        Since(4, {"z_size", &XBaseLattice::m_ZSize}),
    };
    return {nullptr, rows};
}

XPropertyTable XBaseLattice::Properties()
{
    static constexpr XPropertyInfo rows[] = {
        Field<&XBaseLattice::m_XSize>(1, "x_size"),
        Field<&XBaseLattice::m_YSize>(2, "y_size"),
        Field<&XBaseLattice::m_ZSize>(3, "z_size"),
    };
    return rows;
}

}  // namespace VKT
