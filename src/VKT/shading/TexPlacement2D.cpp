#include "VKT/shading/TexPlacement2D.h"

#include "VKT/base/Logger.h"

namespace VKT {
namespace {

// What stands between the next two quotes, all of it on one line.
bool ReadFileName(XTextReader& in, XString& name)
{
    name.clear();
    for (int quotes = 0; quotes < 2;) {
        const int next = in.Get();
        if (next < 0)
            return false;
        if (next == '\n') {
            GetLogger()->Log(kError, "Found newline in file_texture_name string.");
            return false;
        }
        if (next == '"')
            ++quotes;
        else if (quotes == 1)
            name += static_cast<char>(next);
    }
    return true;
}

}  // namespace

XBodyTable XTexPlacement2D::TextBody()
{
    // clang-format off
    static constexpr XBodyRow rows[] = {
        { "\timage ",           &XTexPlacement2D::m_Image },
        { "\ttranslate_frame ", &XTexPlacement2D::m_TranslateFrameU, " " },
        { "",                   &XTexPlacement2D::m_TranslateFrameV },
        { "\trotate_frame ",    &XTexPlacement2D::m_RotateFrame },
        { "\tmirror_u ",        &XTexPlacement2D::m_MirrorU },
        { "\tmirror_v ",        &XTexPlacement2D::m_MirrorV },
        { "\tstagger ",         &XTexPlacement2D::m_Stagger },
        { "\twrap_u ",          &XTexPlacement2D::m_WrapU },
        { "\twrap_v ",          &XTexPlacement2D::m_WrapV },
        { "\trepeat_uv ",       &XTexPlacement2D::m_RepeatU, " " },
        { "",                   &XTexPlacement2D::m_RepeatV },
        { "\toffset_uv ",       &XTexPlacement2D::m_OffsetU, " " },
        { "",                   &XTexPlacement2D::m_OffsetV },
        { "\trotate_uv ",       &XTexPlacement2D::m_RotateUV },
        { "\tnoise_uv ",        &XTexPlacement2D::m_NoiseU, " " },
        { "",                   &XTexPlacement2D::m_NoiseV },
        ReadSince(4, { "\tfile_texture_name ", Quoted(&XTexPlacement2D::m_FileTextureName, ReadFileName) }),
        ReadSince(4, { "\tfilter_type ",       &XTexPlacement2D::m_FilterType }),
        ReadSince(4, { "\tfilter_amount ",     &XTexPlacement2D::m_FilterAmount }),
        ReadSince(4, { "\tpre_filter ",        &XTexPlacement2D::m_PreFilter }),
        ReadSince(4, { "\tpre_filter_radius ", &XTexPlacement2D::m_PreFilterRadius }),
    };
    // clang-format on
    return {".\\src\\VKT\\TexPlacement2D", rows};
}

// Kept on purpose: the filter type is stored unsigned and reported as an integer.
XPropertyTable XTexPlacement2D::Properties()
{
    static constexpr auto getFilterType = [](const XBase& node, i32& value) {
        value = static_cast<i32>(As<XTexPlacement2D>(node).m_FilterType);
        return true;
    };
    static constexpr auto setFilterType = [](XBase& node, const i32& value) {
        As<XTexPlacement2D>(node).m_FilterType = static_cast<u32>(value);
        return true;
    };
    static constexpr XPropertyInfo rows[] = {
        Field<&XTexPlacement2D::m_TranslateFrameU>(1, "translate_frame_u", kAnimatable),
        Field<&XTexPlacement2D::m_TranslateFrameV>(2, "translate_frame_v", kAnimatable),
        Field<&XTexPlacement2D::m_RotateFrame>(3, "rotate_frame", kAnimatable),
        Field<&XTexPlacement2D::m_RepeatU>(4, "repeat_u", kAnimatable),
        Field<&XTexPlacement2D::m_RepeatV>(5, "repeat_v", kAnimatable),
        Field<&XTexPlacement2D::m_OffsetU>(6, "offset_u", kAnimatable),
        Field<&XTexPlacement2D::m_OffsetV>(7, "offset_v", kAnimatable),
        Field<&XTexPlacement2D::m_RotateUV>(8, "rotate_uv", kAnimatable),
        Field<&XTexPlacement2D::m_NoiseU>(9, "noise_u", kAnimatable),
        Field<&XTexPlacement2D::m_NoiseV>(10, "noise_v", kAnimatable),
        Field<&XTexPlacement2D::m_FileTextureName>(11, "file_texture_name"),
        Computed<i32>(12, "filter_type", 0, getFilterType, setFilterType),
        Field<&XTexPlacement2D::m_FilterAmount>(13, "filter_amount"),
        Field<&XTexPlacement2D::m_PreFilter>(14, "pre_filter"),
        Field<&XTexPlacement2D::m_PreFilterRadius>(15, "pre_filter_radius"),
        Field<&XTexPlacement2D::m_MirrorU>(16, "is_mirrored_u"),
        Field<&XTexPlacement2D::m_MirrorV>(17, "is_mirrored_v"),
        Field<&XTexPlacement2D::m_Stagger>(18, "is_staggered"),
        Field<&XTexPlacement2D::m_WrapU>(19, "is_wrapped_u"),
        Field<&XTexPlacement2D::m_WrapV>(20, "is_wrapped_v"),
    };
    return rows;
}

}  // namespace VKT
