#include "exporter/options/ExportOptions.h"

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

void ApplyPreset(std::optional<i32> ExportOption::*preset)
{
    for (const ExportOption& option : ListExportOptions()) {
        const std::optional<i32> value = option.*preset;
        if (!value)
            continue;
        const auto store = [value]<class T>(OptionAccess<T> access) {
            (GetExportOptions().*access.set)(static_cast<T>(*value));
        };
        std::visit(store, option.access);
    }
}

}  // namespace

ExportOptions& GetExportOptions()
{
    static ExportOptions options;
    return options;
}

#define OPTION(name) #name, Access(&ExportOptions::Get##name, &ExportOptions::Set##name)

std::span<const ExportOption> ListExportOptions()
{
    // clang-format off
    static constexpr ExportOption options[] = {
        // name and access                   since       rig    animation
        {OPTION(IncludeMaterials),           4,          off,  off},
        {OPTION(IncludeTextures),            4,          off,  off},
        {OPTION(IncludeExtraAttributes),     4,          off,  off},
        {OPTION(IncludeCameras),             4,          off,  off},
        {OPTION(IncludeLights),              4,          off,  off},
        {OPTION(IncludeGizmos),              4,          off,  off},
        {OPTION(IncludeMeshes),              4,          on,   off},
        {OPTION(IncludeNurbsCurves),         4,          off,  off},
        {OPTION(IncludeNurbsSurfaces),       4,          off,  off},
        {OPTION(IncludeSkinning),            4,          on,   off},
        {OPTION(IncludeBlendShapes),         4,          off,  off},
        {OPTION(IncludeNonLinearDeformers),  4,          off,  off},
        {OPTION(IncludeLattices),            4,          off,  off},
        {OPTION(IncludeAnimation),           4,          off,  on},
        {OPTION(UseTimeline),                4,          keep, on},
        {OPTION(IncludeProperties),          4,          off,  off},
        {OPTION(StartFrame),                 4,          keep, keep},
        {OPTION(EndFrame),                   4,          keep, keep},
        {OPTION(Yup),                        5,          keep, keep},
        {OPTION(Zup),                        5,          keep, keep},
        {OPTION(ScaleFactor),                6,          keep, keep},
        {OPTION(RemoveScale),                6,          on,   on},
        {OPTION(ReservedOption),             7,          keep, keep},
        {OPTION(IncludeDummies),             8,          off,  off},
        {OPTION(IncludeModifiers),           8,          on,   off},
        {OPTION(IncludeTexCoords),           8,          off,  off},
        {OPTION(IncludeVertexNormals),       8,          off,  off},
        {OPTION(IncludeVertexColours),       8,          off,  off},
        {OPTION(UseXMesh),                   8,          off,  keep},
        {OPTION(UseXAnimCycle),              8,          keep, off},
        {OPTION(ExportAscii),                8,          on,   on},
        {OPTION(FrameRate),                  9,          keep, keep},
        {OPTION(IncludeDependentTransforms), 10,         on,   off},
        {OPTION(IncludeBipedMeshes),         11,         off,  off},
        {OPTION(UseCurrentPoseAsBindpose),   12,         off,  off},
        {OPTION(IncludeTextureAnims),        kNotInFile, keep, off},
        {OPTION(IncludeMaterialAnims),       kNotInFile, keep, off},
        {OPTION(IncludeLightAnims),          kNotInFile, keep, off},
        {OPTION(IncludeCameraAnims),         kNotInFile, keep, off},
        {OPTION(IncludeGeometryAnims),       kNotInFile, keep, off},
        {OPTION(IncludeDeformerAnims),       kNotInFile, keep, off},
        {OPTION(AnimTakeOptions),            kNotInFile, keep, off},
        {OPTION(StaticFrame),                kNotInFile, keep, keep},
    };
    // clang-format on
    return options;
}

#undef OPTION

void ApplyRigPreset()
{
    ApplyPreset(&ExportOption::rig);
}

void ApplyAnimationPreset()
{
    ApplyPreset(&ExportOption::animation);
}

}  // namespace VKTMax
