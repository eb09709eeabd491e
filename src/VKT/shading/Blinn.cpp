#include "VKT/shading/Blinn.h"

namespace VKT {

bool XBlinn::DoData(XFileIO& file)
{
    if (!XNodeClass::DoData(file))
        return false;
    if (!file.IsMeasuring())  // a measure changes nothing
        DeriveShininess();
    return true;
}

bool XBlinn::ReadFields(XTextReader& in)
{
    if (!XNodeClass::ReadFields(in))
        return false;
    DeriveShininess();
    return true;
}

XBodyTable XBlinn::TextBody()
{
    static constexpr XBodyRow rows[] = {
        {"\teccentricity ", &XBlinn::m_Eccentricity},
        {"\tspecular_roll_off ", &XBlinn::m_SpecularRollOff},
    };
    return {".\\src\\VKT\\Blinn", rows};
}

XPropertyTable XBlinn::Properties()
{
    static constexpr XPropertyInfo rows[] = {
        Field<&XBlinn::m_Eccentricity>(10, "eccentricity", kAnimatable),
        Field<&XBlinn::m_SpecularRollOff>(11, "specular_roll_off", kAnimatable),
    };
    return rows;
}

}  // namespace VKT
