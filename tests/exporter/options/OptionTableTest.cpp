#include "exporter/options/OptionTable.h"

#include <gtest/gtest.h>

#include <map>
#include <string>
#include <tuple>
#include <vector>

namespace VKTMax {
namespace {

// The columns of the table, written a second time. The presets have their own tests.

TEST(OptionTable, FileHoldsOptionsInThisOrderSinceTheseVersions)
{
    const std::vector<std::pair<std::string, i32>> expected = {
        {"IncludeMaterials", 4},
        {"IncludeTextures", 4},
        {"IncludeExtraAttributes", 4},
        {"IncludeCameras", 4},
        {"IncludeLights", 4},
        {"IncludeGizmos", 4},
        {"IncludeMeshes", 4},
        {"IncludeNurbsCurves", 4},
        {"IncludeNurbsSurfaces", 4},
        {"IncludeSkinning", 4},
        {"IncludeBlendShapes", 4},
        {"IncludeNonLinearDeformers", 4},
        {"IncludeLattices", 4},
        {"IncludeAnimation", 4},
        {"UseTimeline", 4},
        {"IncludeProperties", 4},
        {"StartFrame", 4},
        {"EndFrame", 4},
        {"Yup", 5},
        {"Zup", 5},
        {"ScaleFactor", 6},
        {"RemoveScale", 6},
        {"ReservedOption", 7},
        {"IncludeDummies", 8},
        {"IncludeModifiers", 8},
        {"IncludeTexCoords", 8},
        {"IncludeVertexNormals", 8},
        {"IncludeVertexColours", 8},
        {"UseXMesh", 8},
        {"UseXAnimCycle", 8},
        {"ExportAscii", 8},
        {"FrameRate", 9},
        {"IncludeDependentTransforms", 10},
        {"IncludeBipedMeshes", 11},
        {"UseCurrentPoseAsBindpose", 12},
    };
    std::vector<std::pair<std::string, i32>> read;
    for (const ExportOption& option : ListExportOptions())
        if (option.since != kNotInFile)
            read.emplace_back(option.name, option.since);
    EXPECT_EQ(read, expected);
    EXPECT_EQ(ListExportOptions().size(), 43u);
}

using Ids = std::map<std::string, std::vector<i32>>;

Ids IdsOf(ControlKind kind)
{
    Ids ids;
    for (const ExportOption& option : ListExportOptions())
        if (const DialogControl& control = option.control; control.kind == kind) {
            ids[option.name] = {control.id};
            if (control.partner)
                ids[option.name].push_back(control.partner);
        }
    return ids;
}

TEST(OptionTable, CheckBoxes)
{
    EXPECT_EQ(IdsOf(ControlKind::Check), (Ids{
                                             {"RemoveScale", {1026}},
                                             {"IncludeMaterials", {1007}},
                                             {"IncludeTextures", {1008}},
                                             {"IncludeCameras", {1010}},
                                             {"IncludeLights", {1011}},
                                             {"IncludeGizmos", {1000}},
                                             {"IncludeDummies", {1013}},
                                             {"IncludeMeshes", {1014}},
                                             {"IncludeNurbsCurves", {1015}},
                                             {"IncludeNurbsSurfaces", {1016}},
                                             {"IncludeBipedMeshes", {1017}},
                                             {"UseXMesh", {1030}},
                                             {"IncludeTexCoords", {1027}},
                                             {"IncludeVertexNormals", {1028}},
                                             {"IncludeVertexColours", {1029}},
                                             {"IncludeModifiers", {1019}},
                                             {"IncludeSkinning", {1020}},
                                             {"IncludeBlendShapes", {1021}},
                                             {"IncludeNonLinearDeformers", {1022}},
                                             {"IncludeLattices", {1025}},
                                             {"UseCurrentPoseAsBindpose", {1038}},
                                             {"IncludeAnimation", {1033}},
                                             {"UseXAnimCycle", {1034}},
                                             {"IncludeTextureAnims", {1041}},
                                             {"IncludeMaterialAnims", {1042}},
                                             {"IncludeCameraAnims", {1044}},
                                             {"IncludeGeometryAnims", {1043}},
                                             {"IncludeLightAnims", {1045}},
                                             {"UseTimeline", {1035}},
                                             {"IncludeDependentTransforms", {1053}},
                                         }));
}

TEST(OptionTable, OtherControls)
{
    EXPECT_EQ(IdsOf(ControlKind::Radio), (Ids{{"ExportAscii", {1031, 1032}}}));
    EXPECT_EQ(IdsOf(ControlKind::List), (Ids{{"AnimTakeOptions", {1049}}}));
    EXPECT_EQ(IdsOf(ControlKind::Spinner), (Ids{
                                               {"ScaleFactor", {1496, 1490}},
                                               {"StartFrame", {1497, 1491}},
                                               {"EndFrame", {1498, 1492}},
                                               {"FrameRate", {1499, 1493}},
                                           }));
    EXPECT_EQ(IdsOf(ControlKind::None), (Ids{
                                            {"IncludeExtraAttributes", {0}},
                                            {"IncludeProperties", {0}},
                                            {"StaticFrame", {0}},
                                            {"Yup", {0}},
                                            {"Zup", {0}},
                                            {"IncludeDeformerAnims", {0}},
                                            {"ReservedOption", {0}},
                                        }));
}

TEST(OptionTable, RangesOfSpinners)
{
    std::map<std::string, std::pair<f32, f32>> ranges;
    for (const ExportOption& option : ListExportOptions())
        if (option.control.kind == ControlKind::Spinner)
            ranges[option.name] = {option.control.low, option.control.high};
    EXPECT_EQ(ranges, (std::map<std::string, std::pair<f32, f32>>{
                          {"ScaleFactor", {0.0f, 100000.0f}},
                          {"StartFrame", {-1000000000.0f, 1000000000.0f}},
                          {"EndFrame", {-1000000000.0f, 1000000000.0f}},
                          {"FrameRate", {1.0f, 1000000000.0f}},
                      }));
}

TEST(OptionTable, ScriptProperties)
{
    // Numbers of get and set, and the host's number of the type.
    const std::map<std::string, std::tuple<i32, i32, i32>> expected = {
        {"IncludeMaterials", {23, 0, 46}},
        {"IncludeTextures", {24, 1, 46}},
        {"IncludeExtraAttributes", {25, 2, 46}},
        {"IncludeCameras", {26, 3, 46}},
        {"IncludeLights", {27, 4, 46}},
        {"IncludeGizmos", {28, 5, 46}},
        {"IncludeMeshes", {29, 6, 46}},
        {"IncludeNurbsCurves", {30, 7, 46}},
        {"IncludeNurbsSurfaces", {31, 8, 46}},
        {"IncludeSkinning", {32, 9, 46}},
        {"IncludeBlendShapes", {33, 10, 46}},
        {"IncludeNonLinearDeformers", {34, 11, 46}},
        {"IncludeLattices", {35, 12, 46}},
        {"IncludeProperties", {36, 13, 46}},
        {"IncludeAnimation", {37, 14, 46}},
        {"UseTimeline", {38, 15, 46}},
        {"StartFrame", {39, 16, 1}},
        {"EndFrame", {40, 17, 1}},
        {"StaticFrame", {41, 18, 12}},
        {"Yup", {42, 19, 46}},
        {"Zup", {43, 20, 46}},
        {"ScaleFactor", {44, 21, 0}},
        {"RemoveScale", {45, 22, 46}},
        {"IncludeDummies", {46, 54, 46}},
        {"IncludeModifiers", {47, 55, 46}},
        {"IncludeTexCoords", {48, 56, 46}},
        {"IncludeVertexNormals", {49, 57, 46}},
        {"IncludeVertexColours", {50, 58, 46}},
        {"UseXMesh", {51, 59, 46}},
        {"UseXAnimCycle", {52, 60, 46}},
        {"ExportAscii", {53, 61, 46}},
        {"IncludeTextureAnims", {62, 69, 46}},
        {"IncludeMaterialAnims", {63, 70, 46}},
        {"IncludeLightAnims", {64, 71, 46}},
        {"IncludeCameraAnims", {65, 72, 46}},
        {"IncludeGeometryAnims", {66, 73, 46}},
        {"IncludeDeformerAnims", {67, 74, 46}},
        {"AnimTakeOptions", {68, 75, 1}},
    };
    std::map<std::string, std::tuple<i32, i32, i32>> read;
    for (const ExportOption& option : ListExportOptions())
        if (option.property)
            read[option.name] = {option.property->get, option.property->set,
                                 static_cast<i32>(option.property->type)};
    EXPECT_EQ(read, expected);
}

// A property's type must be able to hold what the option holds.
TEST(OptionTable, PropertiesHaveTheTypesOfTheirOptions)
{
    for (const ExportOption& option : ListExportOptions()) {
        if (!option.property)
            continue;
        const PropertyType type = option.property->type;
        const bool isBool = std::holds_alternative<OptionAccess<bool>>(option.access);
        const bool isFloat = std::holds_alternative<OptionAccess<f32>>(option.access);
        EXPECT_EQ(type == PropertyType::Bool, isBool) << option.name;
        EXPECT_EQ(type == PropertyType::Float, isFloat) << option.name;
    }
}

}  // namespace
}  // namespace VKTMax
