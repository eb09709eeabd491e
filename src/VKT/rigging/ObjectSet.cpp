#include "VKT/rigging/ObjectSet.h"

#include "VKT/stream/BlockReader.h"
#include "VKT/stream/TextWriter.h"

namespace VKT {

bool XObjectSet::DoData(XFileIO& file)
{
    return XNodeClass::DoData(file) && file.DoData(m_Annotation);
}

void XObjectSet::DoCopy(const XBase* source)
{
    XNodeClass::DoCopy(source);
    if (const XObjectSet* other = XCast<XObjectSet>(source))
        m_Annotation = other->m_Annotation;
}

bool XObjectSet::WriteChunk(XTextWriter& out) const
{
    if (!XNodeClass::WriteChunk(out))
        return false;
    out << "\tannotation \"" << m_Annotation << "\"\n";
    return out.IsGood();
}

bool XObjectSet::ReadFields(XTextReader& in)
{
    if (!XNodeClass::ReadFields(in) ||
        !XBlockReader(in, ".\\src\\VKT\\ObjectSet").Read("annotation", m_Annotation))
        return false;
    if (m_Annotation.starts_with('"'))
        m_Annotation.erase(0, 1);
    if (m_Annotation.ends_with('"'))
        m_Annotation.pop_back();
    return true;
}

XPropertyTable XObjectSet::Properties()
{
    static constexpr XPropertyInfo rows[] = {
        Field<&XObjectSet::m_Annotation>(2, "annotation"),
    };
    return rows;
}

}  // namespace VKT
