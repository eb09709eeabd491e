#include "VKT/document/Model.h"
#include "VKT/hierarchy/Bone.h"

// The vocabulary of a bone: the current pose, and the limits channel by channel.

namespace VKT {
namespace {

// A limit that is not set answers the number that files hold for it.
template <XLimitPair XBone::*Limits>
constexpr XPropertyInfo LowerLimit(u32 id, const char* name)
{
    return Computed<f32>(
        id, name, 0,
        [](const XBase& node, f32& value) {
            value = (As<XBone>(node).*Limits).lower;
            return true;
        },
        [](XBase& node, const f32& value) {
            (As<XBone>(node).*Limits).lower = value;
            return true;
        });
}

template <XLimitPair XBone::*Limits>
constexpr XPropertyInfo UpperLimit(u32 id, const char* name)
{
    return Computed<f32>(
        id, name, 0,
        [](const XBase& node, f32& value) {
            value = (As<XBone>(node).*Limits).upper;
            return true;
        },
        [](XBase& node, const f32& value) {
            (As<XBone>(node).*Limits).upper = value;
            return true;
        });
}

template <XLimitPair XBone::*Limits>
constexpr XPropertyInfo HasLowerLimit(u32 id, const char* name)
{
    return Computed<bool>(
        id, name, kReadOnly,
        [](const XBase& node, bool& value) {
            value = !IsNoLowerLimit((As<XBone>(node).*Limits).lower);
            return true;
        },
        nullptr);
}

template <XLimitPair XBone::*Limits>
constexpr XPropertyInfo HasUpperLimit(u32 id, const char* name)
{
    return Computed<bool>(
        id, name, kReadOnly,
        [](const XBase& node, bool& value) {
            value = !IsNoUpperLimit((As<XBone>(node).*Limits).upper);
            return true;
        },
        nullptr);
}

}  // namespace

XPropertyTable XBone::Properties()
{
    static constexpr auto getChildren = [](const XBase& node, XNodeList& value) {
        XBoneList children;
        As<XBone>(node).ListChildren(children);
        value.assign(children.begin(), children.end());
        return true;
    };
    static constexpr auto setChildren = [](XBase& node, const XNodeList& value) {
        XBoneList children;
        for (XBase* child : value)
            children.push_back(XCast<XBone>(child));
        return As<XBone>(node).AddChildren(children);
    };
    static constexpr auto getParent = [](const XBase& node, XBase*& value) {
        value = As<XBone>(node).GetParent();
        return true;
    };
    static constexpr auto getOrder = [](const XBase& node, i32& value) {
        value = static_cast<i32>(As<XBone>(node).m_RotationOrder);
        return true;
    };
    static constexpr auto setOrder = [](XBase& node, const i32& value) {
        As<XBone>(node).m_RotationOrder = static_cast<u32>(value);
        return true;
    };
    // clang-format off
    static constexpr XPropertyInfo rows[] = {
        Field<&XBone::m_Rotation>(1, "rotation", kAnimatable),
        Field<&XBone::m_Scale>(2, "scale", kAnimatable),
        Field<&XBone::m_Translate>(3, "translate", kAnimatable),
        Field<&XBone::m_Visible>(4, "visible", kAnimatable),
        Field<&XBone::m_JointOrient>(5, "joint_orient"),
        Field<&XBone::m_RotationOrient>(6, "rotation_orient"),
        Field<&XBone::m_RotatePivot>(7, "rotate_pivot"),
        Field<&XBone::m_ScalePivot>(8, "scale_pivot"),
        Field<&XBone::m_MinBound>(9, "min_bound", kReadOnly),
        Field<&XBone::m_MaxBound>(10, "max_bound", kReadOnly),
        Field<&XBone::m_Local>(11, "local", kReadOnly),
        Field<&XBone::m_World>(12, "world", kReadOnly),
        Field<&XBone::m_InverseWorld>(13, "inverse", kReadOnly),
        Field<&XBone::m_InverseTransposeWorld>(14, "inverse_transpose", kReadOnly),
        Computed<XNodeList>(15, "children", kList, getChildren, setChildren, kFnBone),
        Computed<XBase*>(16, "parent", kReadOnly, getParent, nullptr, kFnBone),
        Field<&XBone::m_Shearing>(17, "shearing", kAnimatable),
        // Kept on purpose: the numbers of these two stand in swapped order.
        Computed<i32>(19, "rotate_order", 0, getOrder, setOrder),
        Field<&XBone::m_InheritsTransform>(18, "inherits_transform"),
        HasLowerLimit<&XBone::m_TranslateLimitX>(20, "has_min_translateX_limit"),
        HasLowerLimit<&XBone::m_TranslateLimitY>(21, "has_min_translateY_limit"),
        HasLowerLimit<&XBone::m_TranslateLimitZ>(22, "has_min_translateZ_limit"),
        HasUpperLimit<&XBone::m_TranslateLimitX>(29, "has_max_translateX_limit"),
        HasUpperLimit<&XBone::m_TranslateLimitY>(30, "has_max_translateY_limit"),
        HasUpperLimit<&XBone::m_TranslateLimitZ>(31, "has_max_translateZ_limit"),
        HasLowerLimit<&XBone::m_RotateLimitX>(26, "has_min_rotateX_limit"),
        HasLowerLimit<&XBone::m_RotateLimitY>(27, "has_min_rotateY_limit"),
        HasLowerLimit<&XBone::m_RotateLimitZ>(28, "has_min_rotateZ_limit"),
        HasUpperLimit<&XBone::m_RotateLimitX>(35, "has_max_rotateX_limit"),
        HasUpperLimit<&XBone::m_RotateLimitY>(36, "has_max_rotateY_limit"),
        HasUpperLimit<&XBone::m_RotateLimitZ>(37, "has_max_rotateZ_limit"),
        HasLowerLimit<&XBone::m_ScaleLimitX>(23, "has_min_scaleX_limit"),
        HasLowerLimit<&XBone::m_ScaleLimitY>(24, "has_min_scaleY_limit"),
        HasLowerLimit<&XBone::m_ScaleLimitZ>(25, "has_min_scaleZ_limit"),
        HasUpperLimit<&XBone::m_ScaleLimitX>(32, "has_max_scaleX_limit"),
        HasUpperLimit<&XBone::m_ScaleLimitY>(33, "has_max_scaleY_limit"),
        HasUpperLimit<&XBone::m_ScaleLimitZ>(34, "has_max_scaleZ_limit"),
        LowerLimit<&XBone::m_TranslateLimitX>(38, "min_translateX_limit"),
        LowerLimit<&XBone::m_TranslateLimitY>(39, "min_translateY_limit"),
        LowerLimit<&XBone::m_TranslateLimitZ>(40, "min_translateZ_limit"),
        UpperLimit<&XBone::m_TranslateLimitX>(47, "max_translateX_limit"),
        UpperLimit<&XBone::m_TranslateLimitY>(48, "max_translateY_limit"),
        UpperLimit<&XBone::m_TranslateLimitZ>(49, "max_translateZ_limit"),
        LowerLimit<&XBone::m_RotateLimitX>(44, "min_rotateX_limit"),
        LowerLimit<&XBone::m_RotateLimitY>(45, "min_rotateY_limit"),
        LowerLimit<&XBone::m_RotateLimitZ>(46, "min_rotateZ_limit"),
        UpperLimit<&XBone::m_RotateLimitX>(53, "max_rotateX_limit"),
        UpperLimit<&XBone::m_RotateLimitY>(54, "max_rotateY_limit"),
        UpperLimit<&XBone::m_RotateLimitZ>(55, "max_rotateZ_limit"),
        LowerLimit<&XBone::m_ScaleLimitX>(41, "min_scaleX_limit"),
        LowerLimit<&XBone::m_ScaleLimitY>(42, "min_scaleY_limit"),
        LowerLimit<&XBone::m_ScaleLimitZ>(43, "min_scaleZ_limit"),
        UpperLimit<&XBone::m_ScaleLimitX>(50, "max_scaleX_limit"),
        UpperLimit<&XBone::m_ScaleLimitY>(51, "max_scaleY_limit"),
        UpperLimit<&XBone::m_ScaleLimitZ>(52, "max_scaleZ_limit"),
    };
    // clang-format on
    return rows;
}

}  // namespace VKT
