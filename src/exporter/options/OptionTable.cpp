#include "exporter/options/OptionTable.h"

namespace VKTMax {
namespace {

template <class T>
constexpr OptionAccess<T> Access(T (ExportOptions::*get)() const, void (ExportOptions::*set)(T))
{
    return {get, set};
}

constexpr std::optional<i32> on = 1;
constexpr std::optional<i32> off = 0;
constexpr std::optional<i32> keep = std::nullopt;

constexpr DialogControl kHidden;
constexpr DialogControl Check(i32 id)
{
    return {.kind = ControlKind::Check, .id = id};
}
constexpr DialogControl Radio(i32 first, i32 second)
{
    return {.kind = ControlKind::Radio, .id = first, .partner = second};
}
constexpr DialogControl Spinner(i32 spinner, i32 edit, f32 low, f32 high)
{
    return {ControlKind::Spinner, spinner, edit, low, high};
}
constexpr DialogControl List(i32 id)
{
    return {.kind = ControlKind::List, .id = id};
}

using Property = std::optional<ScriptProperty>;
constexpr Property kUnpublished = std::nullopt;
constexpr Property Bool(i32 get, i32 set)
{
    return ScriptProperty{get, set, PropertyType::Bool};
}
constexpr Property Int(i32 get, i32 set)
{
    return ScriptProperty{get, set, PropertyType::Int};
}
constexpr Property Float(i32 get, i32 set)
{
    return ScriptProperty{get, set, PropertyType::Float};
}
constexpr Property Time(i32 get, i32 set)
{
    return ScriptProperty{get, set, PropertyType::TimeValue};
}

}  // namespace

#define OPTION(name) #name, Access(&ExportOptions::Get##name, &ExportOptions::Set##name)

std::span<const ExportOption> ListExportOptions()
{
    // clang-format off
    static constexpr ExportOption options[] = {
        // name and access                   since       rig   anim. control                           property: get, set
        {OPTION(IncludeMaterials),           4,          off,  off,  Check(1007),                      Bool(23, 0)},
        {OPTION(IncludeTextures),            4,          off,  off,  Check(1008),                      Bool(24, 1)},
        {OPTION(IncludeExtraAttributes),     4,          off,  off,  kHidden,                          Bool(25, 2)},
        {OPTION(IncludeCameras),             4,          off,  off,  Check(1010),                      Bool(26, 3)},
        {OPTION(IncludeLights),              4,          off,  off,  Check(1011),                      Bool(27, 4)},
        {OPTION(IncludeGizmos),              4,          off,  off,  Check(1000),                      Bool(28, 5)},
        {OPTION(IncludeMeshes),              4,          on,   off,  Check(1014),                      Bool(29, 6)},
        {OPTION(IncludeNurbsCurves),         4,          off,  off,  Check(1015),                      Bool(30, 7)},
        {OPTION(IncludeNurbsSurfaces),       4,          off,  off,  Check(1016),                      Bool(31, 8)},
        {OPTION(IncludeSkinning),            4,          on,   off,  Check(1020),                      Bool(32, 9)},
        {OPTION(IncludeBlendShapes),         4,          off,  off,  Check(1021),                      Bool(33, 10)},
        {OPTION(IncludeNonLinearDeformers),  4,          off,  off,  Check(1022),                      Bool(34, 11)},
        {OPTION(IncludeLattices),            4,          off,  off,  Check(1025),                      Bool(35, 12)},
        {OPTION(IncludeAnimation),           4,          off,  on,   Check(1033),                      Bool(37, 14)},
        {OPTION(UseTimeline),                4,          keep, on,   Check(1035),                      Bool(38, 15)},
        {OPTION(IncludeProperties),          4,          off,  off,  kHidden,                          Bool(36, 13)},
        {OPTION(StartFrame),                 4,          keep, keep, Spinner(1497, 1491, -1e9f, 1e9f), Int(39, 16)},
        {OPTION(EndFrame),                   4,          keep, keep, Spinner(1498, 1492, -1e9f, 1e9f), Int(40, 17)},
        {OPTION(Yup),                        5,          keep, keep, kHidden,                          Bool(42, 19)},
        {OPTION(Zup),                        5,          keep, keep, kHidden,                          Bool(43, 20)},
        {OPTION(ScaleFactor),                6,          keep, keep, Spinner(1496, 1490, 0.0f, 1e5f),  Float(44, 21)},
        {OPTION(RemoveScale),                6,          on,   on,   Check(1026),                      Bool(45, 22)},
        {OPTION(ReservedOption),             7,          keep, keep, kHidden,                          kUnpublished},
        {OPTION(IncludeDummies),             8,          off,  off,  Check(1013),                      Bool(46, 54)},
        {OPTION(IncludeModifiers),           8,          on,   off,  Check(1019),                      Bool(47, 55)},
        {OPTION(IncludeTexCoords),           8,          off,  off,  Check(1027),                      Bool(48, 56)},
        {OPTION(IncludeVertexNormals),       8,          off,  off,  Check(1028),                      Bool(49, 57)},
        {OPTION(IncludeVertexColours),       8,          off,  off,  Check(1029),                      Bool(50, 58)},
        {OPTION(UseXMesh),                   8,          off,  keep, Check(1030),                      Bool(51, 59)},
        {OPTION(UseXAnimCycle),              8,          keep, off,  Check(1034),                      Bool(52, 60)},
        {OPTION(ExportAscii),                8,          on,   on,   Radio(1031, 1032),                Bool(53, 61)},
        {OPTION(FrameRate),                  9,          keep, keep, Spinner(1499, 1493, 1.0f, 1e9f),  kUnpublished},
        {OPTION(IncludeDependentTransforms), 10,         on,   off,  Check(1053),                      kUnpublished},
        {OPTION(IncludeBipedMeshes),         11,         off,  off,  Check(1017),                      kUnpublished},
        {OPTION(UseCurrentPoseAsBindpose),   12,         off,  off,  Check(1038),                      kUnpublished},
        {OPTION(IncludeTextureAnims),        kNotInFile, keep, off,  Check(1041),                      Bool(62, 69)},
        {OPTION(IncludeMaterialAnims),       kNotInFile, keep, off,  Check(1042),                      Bool(63, 70)},
        {OPTION(IncludeLightAnims),          kNotInFile, keep, off,  Check(1045),                      Bool(64, 71)},
        {OPTION(IncludeCameraAnims),         kNotInFile, keep, off,  Check(1044),                      Bool(65, 72)},
        {OPTION(IncludeGeometryAnims),       kNotInFile, keep, off,  Check(1043),                      Bool(66, 73)},
        {OPTION(IncludeDeformerAnims),       kNotInFile, keep, off,  kHidden,                          Bool(67, 74)},
        {OPTION(AnimTakeOptions),            kNotInFile, keep, off,  List(1049),                       Int(68, 75)},
        {OPTION(StaticFrame),                kNotInFile, keep, keep, kHidden,                          Time(41, 18)},
    };
    // clang-format on
    return options;
}

#undef OPTION

}  // namespace VKTMax
