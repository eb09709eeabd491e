#include "VKT/deformers/JiggleDeformer.h"

#include "VKT/stream/TextReader.h"
#include "VKT/stream/TextWriter.h"

namespace VKT {

XBodyTable XJiggleDeformer::TextBody()
{
    static constexpr XBodyRow rows[] = {
        {"\tenable ", &XJiggleDeformer::m_Enable},
        {"\tignore_transform ", &XJiggleDeformer::m_IgnoreTransform},
        {"\tforce_along_normal ", &XJiggleDeformer::m_ForceAlongNormal},
        {"\tforce_on_tangent ", &XJiggleDeformer::m_ForceOnTangent},
        {"\tmotion_multiplier ", &XJiggleDeformer::m_MotionMultiplier},
        {"\tstiffness ", &XJiggleDeformer::m_Stiffness},
        {"\tdamping ", &XJiggleDeformer::m_Damping},
        {"\tjiggle_weight ", &XJiggleDeformer::m_JiggleWeight},
        {"\tdirection_bias ", &XJiggleDeformer::m_DirectionBias},
        {"\tpoint_indices ", XStoredText{WritePointIndices, ReadPointIndices}},
    };
    return {".\\src\\VKT\\JiggleDeformer", rows};
}

XBodyTable XJiggleDeformer::BinaryBody()
{
    static constexpr XBodyRow rows[] = {
        &XJiggleDeformer::m_Enable,           &XJiggleDeformer::m_IgnoreTransform,
        &XJiggleDeformer::m_ForceAlongNormal, &XJiggleDeformer::m_ForceOnTangent,
        &XJiggleDeformer::m_MotionMultiplier, &XJiggleDeformer::m_Stiffness,
        &XJiggleDeformer::m_Damping,          &XJiggleDeformer::m_JiggleWeight,
        &XJiggleDeformer::m_DirectionBias,    {"point_indices", &XJiggleDeformer::m_PointIndices},
    };
    return {nullptr, rows};
}

// A blank in front of each index, and so none behind a count of 0.
void XJiggleDeformer::WritePointIndices(const XBase& node, XTextWriter& out)
{
    const XIntList& indices = As<XJiggleDeformer>(node).m_PointIndices;
    out << static_cast<u32>(indices.size());
    for (const i32 index : indices)
        out << ' ' << index;
    out << '\n';
}

// The count is signed: zero or less claims none.
bool XJiggleDeformer::ReadPointIndices(XBase& node, XTextReader& in)
{
    i32 count = 0;
    in.Read(count);
    return in.ReadNumbers(As<XJiggleDeformer>(node).m_PointIndices, static_cast<u32>(std::max(count, 0)));
}

// `enable` is a switch to the vocabulary.
XPropertyTable XJiggleDeformer::Properties()
{
    static constexpr XPropertyInfo rows[] = {
        Field<&XJiggleDeformer::m_MotionMultiplier>(3, "motion_multiplier", kAnimatable),
        Field<&XJiggleDeformer::m_ForceAlongNormal>(4, "force_along_normal", kAnimatable),
        Field<&XJiggleDeformer::m_ForceOnTangent>(5, "force_on_tangent", kAnimatable),
        Field<&XJiggleDeformer::m_Stiffness>(6, "stiffness", kAnimatable),
        Field<&XJiggleDeformer::m_Damping>(7, "damping", kAnimatable),
        Field<&XJiggleDeformer::m_JiggleWeight>(8, "jiggle_weight", kAnimatable),
        Field<&XJiggleDeformer::m_DirectionBias>(9, "direction_bias", kAnimatable),
        Field<&XJiggleDeformer::m_PointIndices>(10, "point_indices"),
        Field<&XJiggleDeformer::m_IgnoreTransform>(11, "ignore_transform"),
        Computed<bool>(
            12, "enable", 0,
            [](const XBase& node, bool& value) {
                value = As<XJiggleDeformer>(node).m_Enable != 0;
                return true;
            },
            [](XBase& node, const bool& value) {
                As<XJiggleDeformer>(node).m_Enable = value;
                return true;
            }),
    };
    return rows;
}

}  // namespace VKT
