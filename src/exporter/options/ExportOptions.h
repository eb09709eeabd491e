#pragma once

#include "VKT/base/Types.h"

namespace VKTMax {

using VKT::f32;
using VKT::i32;

// What steers an export. One store serves the process: the dialog, the configuration
// file and scripts write it, the exporter reads it and keeps no copy, and values stay
// from one export to the next. Nothing is checked: a setter stores what it is given.
// What an option means stands with its member below.
//
// Used on the host's main thread alone.
class ExportOptions {
public:
    bool GetExportAscii() const { return m_ExportAscii; }
    void SetExportAscii(bool on) { m_ExportAscii = on; }

    bool GetIncludeMaterials() const { return m_IncludeMaterials; }
    void SetIncludeMaterials(bool on) { m_IncludeMaterials = on; }
    bool GetIncludeTextures() const { return m_IncludeTextures; }
    void SetIncludeTextures(bool on) { m_IncludeTextures = on; }
    bool GetIncludeExtraAttributes() const { return m_IncludeExtraAttributes; }
    void SetIncludeExtraAttributes(bool on) { m_IncludeExtraAttributes = on; }
    bool GetIncludeProperties() const { return m_IncludeProperties; }
    void SetIncludeProperties(bool on) { m_IncludeProperties = on; }
    bool GetIncludeCameras() const { return m_IncludeCameras; }
    void SetIncludeCameras(bool on) { m_IncludeCameras = on; }
    bool GetIncludeLights() const { return m_IncludeLights; }
    void SetIncludeLights(bool on) { m_IncludeLights = on; }
    bool GetIncludeGizmos() const { return m_IncludeGizmos; }
    void SetIncludeGizmos(bool on) { m_IncludeGizmos = on; }
    bool GetIncludeDummies() const { return m_IncludeDummies; }
    void SetIncludeDummies(bool on) { m_IncludeDummies = on; }
    bool GetIncludeMeshes() const { return m_IncludeMeshes; }
    void SetIncludeMeshes(bool on) { m_IncludeMeshes = on; }
    bool GetIncludeBipedMeshes() const { return m_IncludeBipedMeshes; }
    void SetIncludeBipedMeshes(bool on) { m_IncludeBipedMeshes = on; }
    bool GetIncludeNurbsCurves() const { return m_IncludeNurbsCurves; }
    void SetIncludeNurbsCurves(bool on) { m_IncludeNurbsCurves = on; }
    bool GetIncludeNurbsSurfaces() const { return m_IncludeNurbsSurfaces; }
    void SetIncludeNurbsSurfaces(bool on) { m_IncludeNurbsSurfaces = on; }

    bool GetIncludeTexCoords() const { return m_IncludeTexCoords; }
    void SetIncludeTexCoords(bool on) { m_IncludeTexCoords = on; }
    bool GetIncludeVertexNormals() const { return m_IncludeVertexNormals; }
    void SetIncludeVertexNormals(bool on) { m_IncludeVertexNormals = on; }
    bool GetIncludeVertexColours() const { return m_IncludeVertexColours; }
    void SetIncludeVertexColours(bool on) { m_IncludeVertexColours = on; }
    bool GetUseXMesh() const { return m_UseXMesh; }
    void SetUseXMesh(bool on) { m_UseXMesh = on; }

    bool GetIncludeModifiers() const { return m_IncludeModifiers; }
    void SetIncludeModifiers(bool on) { m_IncludeModifiers = on; }
    bool GetIncludeSkinning() const { return m_IncludeSkinning; }
    void SetIncludeSkinning(bool on) { m_IncludeSkinning = on; }
    bool GetIncludeBlendShapes() const { return m_IncludeBlendShapes; }
    void SetIncludeBlendShapes(bool on) { m_IncludeBlendShapes = on; }
    bool GetIncludeNonLinearDeformers() const { return m_IncludeNonLinearDeformers; }
    void SetIncludeNonLinearDeformers(bool on) { m_IncludeNonLinearDeformers = on; }
    bool GetIncludeLattices() const { return m_IncludeLattices; }
    void SetIncludeLattices(bool on) { m_IncludeLattices = on; }
    bool GetIncludeDependentTransforms() const { return m_IncludeDependentTransforms; }
    void SetIncludeDependentTransforms(bool on) { m_IncludeDependentTransforms = on; }
    bool GetUseCurrentPoseAsBindpose() const { return m_UseCurrentPoseAsBindpose; }
    void SetUseCurrentPoseAsBindpose(bool on) { m_UseCurrentPoseAsBindpose = on; }

    bool GetYup() const { return !m_Zup; }
    void SetYup(bool on) { m_Zup = !on; }
    bool GetZup() const { return m_Zup; }
    void SetZup(bool on) { m_Zup = on; }
    f32 GetScaleFactor() const { return m_ScaleFactor; }
    void SetScaleFactor(f32 factor) { m_ScaleFactor = factor; }
    bool GetRemoveScale() const { return m_RemoveScale; }
    void SetRemoveScale(bool on) { m_RemoveScale = on; }

    bool GetIncludeAnimation() const { return m_IncludeAnimation; }
    void SetIncludeAnimation(bool on) { m_IncludeAnimation = on; }
    bool GetUseTimeline() const { return m_UseTimeline; }
    void SetUseTimeline(bool on) { m_UseTimeline = on; }
    i32 GetStartFrame() const { return m_StartFrame; }
    void SetStartFrame(i32 value) { m_StartFrame = value; }
    i32 GetEndFrame() const { return m_EndFrame; }
    void SetEndFrame(i32 value) { m_EndFrame = value; }
    i32 GetFrameRate() const { return m_FrameRate; }
    void SetFrameRate(i32 value) { m_FrameRate = value; }
    bool GetUseXAnimCycle() const { return m_UseXAnimCycle; }
    void SetUseXAnimCycle(bool on) { m_UseXAnimCycle = on; }
    i32 GetAnimTakeOptions() const { return m_AnimTakeOptions; }
    void SetAnimTakeOptions(i32 value) { m_AnimTakeOptions = value; }
    bool GetIncludeTextureAnims() const { return m_IncludeTextureAnims; }
    void SetIncludeTextureAnims(bool on) { m_IncludeTextureAnims = on; }
    bool GetIncludeMaterialAnims() const { return m_IncludeMaterialAnims; }
    void SetIncludeMaterialAnims(bool on) { m_IncludeMaterialAnims = on; }
    bool GetIncludeLightAnims() const { return m_IncludeLightAnims; }
    void SetIncludeLightAnims(bool on) { m_IncludeLightAnims = on; }
    bool GetIncludeCameraAnims() const { return m_IncludeCameraAnims; }
    void SetIncludeCameraAnims(bool on) { m_IncludeCameraAnims = on; }
    bool GetIncludeGeometryAnims() const { return m_IncludeGeometryAnims; }
    void SetIncludeGeometryAnims(bool on) { m_IncludeGeometryAnims = on; }
    bool GetIncludeDeformerAnims() const { return m_IncludeDeformerAnims; }
    void SetIncludeDeformerAnims(bool on) { m_IncludeDeformerAnims = on; }
    i32 GetStaticFrame() const { return m_StaticFrame; }
    void SetStaticFrame(i32 value) { m_StaticFrame = value; }

    i32 GetReservedOption() const { return m_ReservedOption; }
    void SetReservedOption(i32 value) { m_ReservedOption = value; }

private:
    // The form of the file.
    bool m_ExportAscii = true;  // text, else binary

    // Which kinds of things are exported. Those marked as stored are kept for the
    // dialog, the configuration file and scripts; nothing reads them.
    bool m_IncludeMaterials = true;
    bool m_IncludeTextures = true;         // with materials
    bool m_IncludeExtraAttributes = true;  // stored
    bool m_IncludeProperties = true;       // user property text as extra attributes
    bool m_IncludeCameras = true;
    bool m_IncludeLights = true;
    bool m_IncludeGizmos = true;   // stored
    bool m_IncludeDummies = true;  // stored
    bool m_IncludeMeshes = true;   // all geometry but biped parts
    bool m_IncludeBipedMeshes = false;
    bool m_IncludeNurbsCurves = true;    // stored
    bool m_IncludeNurbsSurfaces = true;  // stored

    // What polygon meshes hold.
    bool m_IncludeTexCoords = true;
    bool m_IncludeVertexNormals = true;  // stored
    bool m_IncludeVertexColours = true;
    bool m_UseXMesh = false;  // the older mesh class

    // Modifiers. `IncludeModifiers` is handed down the walk and nothing acts on it: the four
    // kinds decide alone.
    bool m_IncludeModifiers = true;
    bool m_IncludeSkinning = true;
    bool m_IncludeBlendShapes = true;
    bool m_IncludeNonLinearDeformers = true;
    bool m_IncludeLattices = true;
    bool m_IncludeDependentTransforms = false;  // bones that a skin needs, though not selected
    bool m_UseCurrentPoseAsBindpose = false;    // the pose at time 0, not that of the skin

    // Space. `Yup` and `Zup` are one setting seen from two sides; nothing reads it, as
    // documents keep the host's frame. The factor multiplies translations and vertex positions.
    bool m_Zup = true;
    f32 m_ScaleFactor = 1.0f;
    bool m_RemoveScale = true;  // a parent's scale moves into its children's offsets

    // Animation. Frames are the host's; the rate is in frames per second.
    bool m_IncludeAnimation = true;
    bool m_UseTimeline = true;  // the host's range, not the two frames
    i32 m_StartFrame = 0;
    i32 m_EndFrame = 24;
    i32 m_FrameRate = 30;
    bool m_UseXAnimCycle = false;  // the older animation class
    i32 m_AnimTakeOptions = 0;     // 0 sample keys, 1 function curves, 2 both
    bool m_IncludeTextureAnims = true;
    bool m_IncludeMaterialAnims = true;
    bool m_IncludeLightAnims = true;
    bool m_IncludeCameraAnims = true;
    bool m_IncludeGeometryAnims = true;
    bool m_IncludeDeformerAnims = true;
    i32 m_StaticFrame = 0;  // stored, in ticks

    // A word of the configuration file that has no meaning here and is carried along.
    i32 m_ReservedOption = 4;
};

// The store of the process.
ExportOptions& GetExportOptions();

}  // namespace VKTMax
