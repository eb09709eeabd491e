#include "VKT/geometry/ParametricSurface.h"

#include "VKT/stream/BlockReader.h"
#include "VKT/stream/TextWriter.h"

namespace VKT {
namespace {

constexpr const char* kSource = ".\\src\\VKT\\ParametricSurface";

}  // namespace

XBodyTable XParametricSurface::BinaryBody()
{
    static constexpr XBodyRow rows[] = {
        {"num_cvs_u", &XParametricSurface::m_NumCvsU},
        {"num_cvs_v", &XParametricSurface::m_NumCvsV},
        {"type_u", &XParametricSurface::m_TypeU},
        {"type_v", &XParametricSurface::m_TypeV},
    };
    return {kSource, rows};
}

bool XParametricSurface::DoData(XFileIO& file)
{
    bool isTrimmed = IsTrimmed();
    if (!XNodeClass::DoData(file) || !file.DoData(isTrimmed))
        return false;
    if (file.IsReading())
        m_TrimData = isTrimmed ? std::make_unique<XTrimData>() : nullptr;
    return !isTrimmed || m_TrimData->DoData(file);
}

void XParametricSurface::DoCopy(const XBase* source)
{
    const XParametricSurface* other = XCast<XParametricSurface>(source);
    if (!other || other == this)
        return;
    XNodeClass::DoCopy(source);
    m_TrimData = other->m_TrimData ? std::make_unique<XTrimData>(*other->m_TrimData) : nullptr;
}

bool XParametricSurface::WriteChunk(XTextWriter& out) const
{
    if (!XParametricBase::WriteChunk(out))
        return false;
    out << "\tis_trimmed " << IsTrimmed() << '\n';
    if (m_TrimData)
        m_TrimData->Write(out);
    return out.IsGood();
}

bool XParametricSurface::ReadFields(XTextReader& in)
{
    i32 isTrimmed = 0;
    if (!XParametricBase::ReadFields(in) || !XBlockReader(in, kSource).Read("is_trimmed", isTrimmed))
        return false;
    m_TrimData = isTrimmed != 0 ? std::make_unique<XTrimData>() : nullptr;
    return !m_TrimData || m_TrimData->Read(in);
}

// Kept on purpose: the vocabulary has the numbers of control vertices as lists of floats.
XPropertyTable XParametricSurface::Properties()
{
    static constexpr XPropertyInfo rows[] = {
        AsInteger<&XParametricSurface::m_TypeU>(4, "type_u"),
        AsInteger<&XParametricSurface::m_TypeV>(5, "type_v"),
        ReportedAs(kPropertyFloatArray, AsInteger<&XParametricSurface::m_NumCvsU>(6, "num_cvs_u")),
        ReportedAs(kPropertyFloatArray, AsInteger<&XParametricSurface::m_NumCvsV>(7, "num_cvs_v")),
    };
    return rows;
}

}  // namespace VKT
