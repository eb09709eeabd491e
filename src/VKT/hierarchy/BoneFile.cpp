#include <algorithm>
#include <memory>
#include <span>

#include "VKT/base/Logger.h"
#include "VKT/document/Model.h"
#include "VKT/hierarchy/Bone.h"
#include "VKT/stream/BlockReader.h"
#include "VKT/stream/TextWriter.h"

// What a bone stores, in both forms.

namespace VKT {
namespace {

constexpr const char* kSource = ".\\src\\VKT\\Bone";

constexpr const char* kRotationOrders[] = {"xyz", "xzy", "yxz", "yzx", "zxy", "zyx"};

void WriteRotationOrder(const XBase& node, XTextWriter& out)
{
    const u32 order = As<XBone>(node).GetRotationOrder();
    out << kRotationOrders[order < std::size(kRotationOrders) ? order : 0] << '\n';
}

// Decided by the first two letters, in either case. A second letter that is missing or
// foreign counts as the later one.
bool ReadRotationOrder(XBase& node, XTextReader& in)
{
    XString word;
    in.ReadToken(word);
    const auto letter = [&](std::size_t i) {
        return i < word.size() ? static_cast<char>(word[i] | 0x20) : ' ';
    };
    XBone& bone = As<XBone>(node);
    switch (letter(0)) {
        case 'x':
            bone.SetRotationOrder(letter(1) == 'y' ? 0 : 1);
            break;
        case 'y':
            bone.SetRotationOrder(letter(1) == 'x' ? 2 : 3);
            break;
        case 'z':
            bone.SetRotationOrder(letter(1) == 'x' ? 4 : 5);
            break;
        default:
            break;
    }
    return true;
}

void WriteChildren(const XBase& node, XTextWriter& out)
{
    const XIndexList& children = As<XBone>(node).GetChildIds();
    out << static_cast<u32>(children.size()) << '\n';
    if (!children.empty())
        out.WriteIds(children, {"\t\t", true});
}

}  // namespace

XBodyTable XBone::TextBody()
{
    static constexpr auto readChildren = [](XBase& node, XTextReader& in) {
        u32 count = 0;
        in.Read(count);
        in.ReadNumbers(As<XBone>(node).m_Children, count);
        node.GetModel()->GetBoneLinks().Invalidate();
        return true;
    };
    static constexpr auto writeInstances = [](const XBase& node, XTextWriter& out) {
        As<XBone>(node).WriteInstances(out);
    };
    static constexpr auto readInstances = [](XBase& node, XTextReader& in) {
        return As<XBone>(node).ReadInstances(in);
    };
    // clang-format off
    static constexpr XBodyRow rows[] = {
        { "\tvisible\t",       &XBone::m_Visible },
        { "\tscale_pivot\t",   &XBone::m_ScalePivot },
        { "\trotate_pivot\t",  &XBone::m_RotatePivot },
        { "\tmin_bound\t",     &XBone::m_MinBound },
        { "\tmax_bound\t",     &XBone::m_MaxBound },
        { "\tscale\t",         &XBone::m_BindScale },
        { "\ttranslate\t",     &XBone::m_BindTranslate },
        { "\trotation_orient\t", &XBone::m_RotationOrient },
        { "\trotation\t",      &XBone::m_BindRotation },
        { "\tjoint_orient\t",  &XBone::m_JointOrient },
        { "\tbind_pose_matrix\n", &XBone::m_BindLocal },
        Since(4, { "\trotation_order ",          XStoredText{WriteRotationOrder, ReadRotationOrder} }),
        Since(4, { "\tinherits_transform ",      &XBone::m_InheritsTransform }),
        Since(4, { "\tshearing ",                &XBone::m_Shearing }),
        Since(4, { "\trotate_pivot_translate\t", &XBone::m_RotatePivotTranslate }),
        Since(4, { "\tscale_pivot_translate\t",  &XBone::m_ScalePivotTranslate }),
        Since(4, { "\ttranslate_limit_x ",       &XBone::m_TranslateLimitX }),
        Since(4, { "\ttranslate_limit_y ",       &XBone::m_TranslateLimitY }),
        Since(4, { "\ttranslate_limit_z ",       &XBone::m_TranslateLimitZ }),
        Since(4, { "\trotate_limit_x ",          &XBone::m_RotateLimitX }),
        Since(4, { "\trotate_limit_y ",          &XBone::m_RotateLimitY }),
        Since(4, { "\trotate_limit_z ",          &XBone::m_RotateLimitZ }),
        Since(4, { "\tscale_limit_x ",           &XBone::m_ScaleLimitX }),
        Since(4, { "\tscale_limit_y ",           &XBone::m_ScaleLimitY }),
        Since(4, { "\tscale_limit_z ",           &XBone::m_ScaleLimitZ }),
        { "\tparent ",         NodeId(&XBone::m_Parent) },
        { "\tchild_joints ",   XStoredText{WriteChildren, readChildren} },
        { "",                  XStoredText{writeInstances, readInstances} },
    };
    // clang-format on
    return {kSource, rows};
}

// Not the text order: the bind pose comes first, rotation ahead of translation and
// scale; the scale pivot's translation stands before the rotate pivot's.
XBodyTable XBone::BinaryBody()
{
    // clang-format off
    static constexpr XBodyRow rows[] = {
        { &XBone::m_BindRotation },
        { &XBone::m_BindTranslate },
        { &XBone::m_BindScale },
        { &XBone::m_Visible },
        { &XBone::m_ScalePivot },
        { &XBone::m_RotatePivot },
        { &XBone::m_MinBound },
        { &XBone::m_MaxBound },
        { &XBone::m_RotationOrient },
        { &XBone::m_JointOrient },
        { &XBone::m_BindLocal },
        Since(4, { "rotation_order", &XBone::m_RotationOrder }),
        Since(4, { &XBone::m_InheritsTransform }),
        Since(4, { &XBone::m_Shearing }),
        Since(4, { &XBone::m_ScalePivotTranslate }),
        Since(4, { &XBone::m_RotatePivotTranslate }),
        Since(4, { &XBone::m_TranslateLimitX }),
        Since(4, { &XBone::m_TranslateLimitY }),
        Since(4, { &XBone::m_TranslateLimitZ }),
        Since(4, { &XBone::m_RotateLimitX }),
        Since(4, { &XBone::m_RotateLimitY }),
        Since(4, { &XBone::m_RotateLimitZ }),
        Since(4, { &XBone::m_ScaleLimitX }),
        Since(4, { &XBone::m_ScaleLimitY }),
        Since(4, { &XBone::m_ScaleLimitZ }),
        NodeId(&XBone::m_Parent),
        { "child_joints", NodeIds(&XBone::m_Children) },
    };
    // clang-format on
    return {kSource, rows};
}

bool XBone::DoData(XFileIO& file)
{
    if (file.IsReading())
        GetModel()->GetBoneLinks().Invalidate();
    return XNodeClass::DoData(file) && DoInstances(file);
}

bool XBone::DoInstances(XFileIO& file)
{
    constexpr u64 kLeastBytes = 11;  // an empty name, the shape, the form and a material
    XInstanceList instances;
    if (file.IsListing() || (file.IsWriting() && GetModel()->GetSaveFlags().Test(SaveShapes)))
        ListInstances(instances);
    u32 count = 0;
    if (!file.DoCount(count, instances.size(), kLeastBytes))
        return false;
    if (file.IsWriting())
        return std::all_of(instances.begin(), instances.end(),
                           [&](XInstance* instance) { return instance->DoData(file); });
    for (u32 i = 0; i < count; ++i) {
        auto instance = std::make_unique<XInstance>(GetModel());
        if (!instance->DoData(file))
            return false;
        instance->m_Parent = GetID();
        m_Instances.push_back(GetModel()->AddInstance(std::move(instance))->GetID());
    }
    return true;
}

void XBone::WriteInstances(XTextWriter& out) const
{
    out << "\tINSTANCE_LIST\n\t{\n";
    XInstanceList instances;
    if (GetModel()->GetSaveFlags().Test(SaveShapes))
        ListInstances(instances);
    for (const XInstance* instance : instances)
        instance->Write(out);
    out << "\t}\n";
}

bool XBone::ReadInstances(XTextReader& in)
{
    XBlockReader block(in, kSource, TextBody().rows.size() - 1);  // the last row of the table
    if (!block.Expect("instance_list") || !block.Expect("{"))
        return false;
    XString token;
    for (u64 depth = 1; depth > 0;) {
        in.ReadToken(token);
        if (token == "}") {
            --depth;
        } else if (token == "{") {
            ++depth;
        } else if (token == "INSTANCE") {
            if (!XInstance::Read(*this, in))
                return false;
        } else {
            GetLogger()->Log(kError, "Unexpected error when reading instance list");
            return false;
        }
    }
    return true;
}

}  // namespace VKT
