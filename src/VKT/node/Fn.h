#pragma once

#include "VKT/base/Types.h"

namespace VKT {

// The type identifiers of nodes. They stand in binary chunks as u16 and are what
// `HasFn` is asked with, so a number is never given anew. The gaps belong to
// attribute types (`XAttributeType`) or to nothing.
enum XFn : u32 {
    kFnBase = 0,
    kFnNewBase = 1,  // user-defined: an instance of a `NEW_NODE` definition
    kFnTexture = 2,
    kFnBumpMap = 3,
    kFnEnvMap = 4,
    kFnCubeMap = 5,
    kFnSphereMap = 6,
    kFnMaterial = 7,
    kFnAnisotropic = 8,
    kFnBlinn = 9,
    kFnLambert = 10,
    kFnPhong = 11,
    kFnPhongE = 12,
    kFnSurfaceShader = 13,
    kFnLayeredShader = 14,
    kFnRampShader = 15,
    kFnUseBackgroundShader = 16,
    kFnNewMaterial = 17,  // user-defined: an instance of a `NEW_NODE` definition
    kFnHwShader = 18,
    kFnNewHwShader = 19,  // user-defined: an instance of a `NEW_NODE` definition
    kFnDisplayLayer = 20,
    kFnRenderLayer = 21,
    kFnObjectSet = 22,
    kFnIkChain = 23,
    kFnShape = 25,
    kFnGeometry = 26,
    kFnLattice = 27,
    kFnMesh = 28,
    kFnParametricBase = 30,
    kFnParametricCurve = 31,
    kFnBezierCurve = 32,
    kFnHermiteCurve = 33,
    kFnNurbsCurve = 34,
    kFnParametricSurface = 36,
    kFnBezierPatch = 37,
    kFnHermitePatch = 38,
    kFnNurbsSurface = 39,
    kFnParticleShape = 40,
    kFnCamera = 43,
    kFnVolumeObject = 44,
    kFnVolumeSphere = 45,
    kFnVolumeBox = 46,
    kFnVolumeCone = 47,
    kFnBaseLattice = 48,
    kFnLocator = 49,
    kFnCollisionObject = 52,
    kFnCollisionBox = 53,
    kFnCollisionCapsule = 54,
    kFnCollisionCone = 55,
    kFnCollisionCylinder = 56,
    kFnCollisionMesh = 57,
    kFnCollisionSphere = 59,
    kFnLight = 76,
    kFnAmbientLight = 77,
    kFnExtendedLight = 78,
    kFnAreaLight = 79,
    kFnPointLight = 80,
    kFnDirectionalLight = 81,
    kFnSpotLight = 82,
    kFnVolumeLight = 83,
    kFnNewLight = 84,  // user-defined: an instance of a `NEW_NODE` definition
    kFnNewShape = 85,  // user-defined: an instance of a `NEW_NODE` definition
    kFnBone = 86,
    kFnJoint = 87,
    kFnNewBone = 88,  // user-defined: an instance of a `NEW_NODE` definition
    kFnTexPlacement2D = 89,
    kFnTexPlacement3D = 90,
    kFnConstraint = 91,
    kFnAimConstraint = 92,
    kFnGeometryConstraint = 93,
    kFnNormalConstraint = 94,
    kFnOrientConstraint = 95,
    kFnParentConstraint = 96,
    kFnPointConstraint = 97,
    kFnScaleConstraint = 98,
    kFnTangentConstraint = 99,
    kFnEmitter = 101,
    kFnNewEmitter = 102,  // user-defined: an instance of a `NEW_NODE` definition
    kFnField = 103,
    kFnNewField = 104,  // user-defined: an instance of a `NEW_NODE` definition
    kFnAir = 105,
    kFnDrag = 106,
    kFnGravity = 107,
    kFnNewton = 108,
    kFnRadial = 109,
    kFnTurbulence = 110,
    kFnUniform = 111,
    kFnVolumeAxis = 112,
    kFnVortex = 113,
    kFnDeformer = 114,
    kFnNewDeformer = 115,  // user-defined: an instance of a `NEW_NODE` definition
    kFnBlendShape = 116,
    kFnCluster = 117,
    kFnFFD = 118,
    kFnSkinCluster = 119,
    kFnJiggleDeformer = 120,
    kFnJointCluster = 121,
    kFnNonLinearDeformer = 122,
    kFnNonLinearBend = 123,
    kFnNonLinearFlare = 124,
    kFnNonLinearSine = 125,
    kFnNonLinearSquash = 126,
    kFnNonLinearTwist = 127,
    kFnNonLinearWave = 128,
    kFnWireDeformer = 129,
    kFnWrapDeformer = 130,
    kFnSculptDeformer = 131,
    kFnAnimCycle = 133,
    kFnNewAnim = 134,  // user-defined: an instance of a `NEW_NODE` definition
    kFnMeshVertexColours = 163,
    kFnVolumeCylinder = 164,
    kFnAnimationTake = 165,
    kFnPolygonMesh = 166,
    kFnNodeCollection = 167,
    kFnShadingNode = 168,
    kFnSpecular = 169,
    kFnLayeredTexture = 170,
    kFnLookAtConstraint = 171,
    kFnPoleVectorConstraint = 172,

    // One past the highest id: what a look-up answers while there is no registry.
    kFnLimit = 173,
};

// Chunks of a binary file that are not nodes of the registry.
enum XChunkType : u32 {
    kChunkInfo = 162,
    kChunkInheritedNode = 4096,        // definition of an inherited node type
    kChunkNewNode = 4097,              // definition of a new node type
    kChunkInheritedInstances = 53248,  // + number of the definition: an instance of it
};

}  // namespace VKT
