#include "VKT/geometry/NurbsCurve.h"

#include "VKT/base/Logger.h"
#include "VKT/stream/TextReader.h"
#include "VKT/stream/TextWriter.h"

namespace VKT {

XBodyTable XNurbsCurve::TextBody()
{
    static constexpr auto writeKnots = [](const XBase& node, XTextWriter& out) {
        const XRealList& knots = As<XNurbsCurve>(node).m_Knots;
        out << static_cast<u32>(knots.size()) << '\n';
        out.WriteRow(knots, {"\t\t", true});
    };
    static constexpr auto readKnots = [](XBase& node, XTextReader& in) {
        u32 count = 0;
        in.Read(count);
        if (in.ReadNumbers(As<XNurbsCurve>(node).m_Knots, count))
            return true;
        GetLogger()->Log(kError,
                         "VKT::XNurbsCurve::ReadChunk >> unexpected File-IO error whilst reading knots");
        return false;
    };
    static constexpr XBodyRow rows[] = {
        {"\tdegree ", &XNurbsCurve::m_Degree},
        {"\tknots ", XStoredText{writeKnots, readKnots}},
    };
    return {".\\src\\VKT\\NurbsCurve", rows};
}

XBodyTable XNurbsCurve::BinaryBody()
{
    static constexpr XBodyRow rows[] = {
        &XNurbsCurve::m_Degree,
        {"knots", InOneLine(&XNurbsCurve::m_Knots)},
    };
    return {".\\src\\VKT\\NurbsCurve", rows};
}

XPropertyTable XNurbsCurve::Properties()
{
    static constexpr XPropertyInfo rows[] = {
        AsInteger<&XNurbsCurve::m_Degree>(5, "degree"),
        Field<&XNurbsCurve::m_Knots>(6, "knots"),
    };
    return rows;
}

}  // namespace VKT
