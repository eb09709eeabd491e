#include "VKT/deformers/NonLinearSine.h"

namespace VKT {

XBodyTable XNonLinearSine::TextBody()
{
    static constexpr XBodyRow rows[] = {
        {"\tlow_bound ", &XNonLinearSine::m_LowBound},  {"\thigh_bound ", &XNonLinearSine::m_HighBound},
        {"\tamplitude ", &XNonLinearSine::m_Amplitude}, {"\twavelength ", &XNonLinearSine::m_Wavelength},
        {"\tdropoff ", &XNonLinearSine::m_Dropoff},     {"\toffset ", &XNonLinearSine::m_Offset},
    };
    return {kNonLinearSource, rows};
}

XPropertyTable XNonLinearSine::Properties()
{
    static constexpr XPropertyInfo rows[] = {
        Field<&XNonLinearSine::m_LowBound>(4, "low_bound", kAnimatable),
        Field<&XNonLinearSine::m_HighBound>(5, "high_bound", kAnimatable),
        Field<&XNonLinearSine::m_Amplitude>(6, "amplitude", kAnimatable),
        Field<&XNonLinearSine::m_Wavelength>(7, "wavelength", kAnimatable),
        Field<&XNonLinearSine::m_Dropoff>(8, "dropoff", kAnimatable),
        Field<&XNonLinearSine::m_Offset>(9, "offset", kAnimatable),
    };
    return rows;
}

}  // namespace VKT
