#include "VKT/deformers/NonLinearWave.h"

namespace VKT {

// In files the largest radius comes first, in the vocabulary the smallest.
XBodyTable XNonLinearWave::TextBody()
{
    static constexpr XBodyRow rows[] = {
        {"\tmax_radius ", &XNonLinearWave::m_MaxRadius},
        {"\tmin_radius ", &XNonLinearWave::m_MinRadius},
        {"\tamplitude ", &XNonLinearWave::m_Amplitude},
        {"\twavelength ", &XNonLinearWave::m_Wavelength},
        {"\tdropoff ", &XNonLinearWave::m_Dropoff},
        {"\tdropoff_position ", &XNonLinearWave::m_DropoffPosition},
        {"\toffset ", &XNonLinearWave::m_Offset},
    };
    return {kNonLinearSource, rows};
}

XPropertyTable XNonLinearWave::Properties()
{
    static constexpr XPropertyInfo rows[] = {
        Field<&XNonLinearWave::m_MinRadius>(4, "min_radius", kAnimatable),
        Field<&XNonLinearWave::m_MaxRadius>(5, "max_radius", kAnimatable),
        Field<&XNonLinearWave::m_Amplitude>(6, "amplitude", kAnimatable),
        Field<&XNonLinearWave::m_Wavelength>(7, "wavelength", kAnimatable),
        Field<&XNonLinearWave::m_Dropoff>(8, "dropoff", kAnimatable),
        Field<&XNonLinearWave::m_DropoffPosition>(9, "dropoff_position", kAnimatable),
        Field<&XNonLinearWave::m_Offset>(10, "offset", kAnimatable),
    };
    return rows;
}

}  // namespace VKT
