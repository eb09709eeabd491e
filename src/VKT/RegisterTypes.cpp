#include "VKT/AimConstraint.h"
#include "VKT/Air.h"
#include "VKT/AmbientLight.h"
#include "VKT/AnimCycle.h"
#include "VKT/AnimationTake.h"
#include "VKT/Anisotropic.h"
#include "VKT/AreaLight.h"
#include "VKT/BaseLattice.h"
#include "VKT/BezierCurve.h"
#include "VKT/BezierPatch.h"
#include "VKT/BlendShape.h"
#include "VKT/Blinn.h"
#include "VKT/Bone.h"
#include "VKT/BumpMap.h"
#include "VKT/Camera.h"
#include "VKT/Cluster.h"
#include "VKT/CollisionBox.h"
#include "VKT/CollisionCapsule.h"
#include "VKT/CollisionCone.h"
#include "VKT/CollisionCylinder.h"
#include "VKT/CollisionMesh.h"
#include "VKT/CollisionObject.h"
#include "VKT/CollisionSphere.h"
#include "VKT/Constraint.h"
#include "VKT/CubeMap.h"
#include "VKT/Deformer.h"
#include "VKT/DirectionalLight.h"
#include "VKT/DisplayLayer.h"
#include "VKT/Drag.h"
#include "VKT/Emitter.h"
#include "VKT/EnvMap.h"
#include "VKT/ExtendedLight.h"
#include "VKT/FFD.h"
#include "VKT/Field.h"
#include "VKT/FnRegistry.h"
#include "VKT/Geometry.h"
#include "VKT/GeometryConstraint.h"
#include "VKT/Gravity.h"
#include "VKT/HermiteCurve.h"
#include "VKT/HermitePatch.h"
#include "VKT/HwShader.h"
#include "VKT/IkChain.h"
#include "VKT/JiggleDeformer.h"
#include "VKT/Joint.h"
#include "VKT/JointCluster.h"
#include "VKT/Lambert.h"
#include "VKT/Lattice.h"
#include "VKT/LayeredShader.h"
#include "VKT/LayeredTexture.h"
#include "VKT/Light.h"
#include "VKT/Locator.h"
#include "VKT/LookAtConstraint.h"
#include "VKT/Material.h"
#include "VKT/Mesh.h"
#include "VKT/MeshVertexColours.h"
#include "VKT/Newton.h"
#include "VKT/NodeCollection.h"
#include "VKT/NonLinearBend.h"
#include "VKT/NonLinearDeformer.h"
#include "VKT/NonLinearFlare.h"
#include "VKT/NonLinearSine.h"
#include "VKT/NonLinearSquash.h"
#include "VKT/NonLinearTwist.h"
#include "VKT/NonLinearWave.h"
#include "VKT/NormalConstraint.h"
#include "VKT/NurbsCurve.h"
#include "VKT/NurbsSurface.h"
#include "VKT/ObjectSet.h"
#include "VKT/OrientConstraint.h"
#include "VKT/ParametricBase.h"
#include "VKT/ParametricCurve.h"
#include "VKT/ParametricSurface.h"
#include "VKT/ParentConstraint.h"
#include "VKT/ParticleShape.h"
#include "VKT/Phong.h"
#include "VKT/PhongE.h"
#include "VKT/PointConstraint.h"
#include "VKT/PointLight.h"
#include "VKT/PoleVectorConstraint.h"
#include "VKT/PolygonMesh.h"
#include "VKT/Radial.h"
#include "VKT/RampShader.h"
#include "VKT/RenderLayer.h"
#include "VKT/ScaleConstraint.h"
#include "VKT/SculptDeformer.h"
#include "VKT/ShadingNode.h"
#include "VKT/Shape.h"
#include "VKT/SkinCluster.h"
#include "VKT/Specular.h"
#include "VKT/SphereMap.h"
#include "VKT/SpotLight.h"
#include "VKT/SurfaceShader.h"
#include "VKT/TangentConstraint.h"
#include "VKT/TexPlacement2D.h"
#include "VKT/TexPlacement3D.h"
#include "VKT/Texture.h"
#include "VKT/Turbulence.h"
#include "VKT/Uniform.h"
#include "VKT/UseBackgroundShader.h"
#include "VKT/VolumeAxis.h"
#include "VKT/VolumeBox.h"
#include "VKT/VolumeCone.h"
#include "VKT/VolumeCylinder.h"
#include "VKT/VolumeLight.h"
#include "VKT/VolumeObject.h"
#include "VKT/VolumeSphere.h"
#include "VKT/Vortex.h"
#include "VKT/WireDeformer.h"
#include "VKT/WrapDeformer.h"

namespace VKT {
namespace {

// One row of the table: a class, its type name, and its chunk key, empty when abstract.
struct TypeRow {
    u32 type;
    const char* typeName;
    const char* chunkName;
    XBase* (*create)(XModel*);
    XClassTables (*tables)();
};

// Whether a class declares an operation itself, other than inheriting it or having it
// from `XNodeClass`.
template <class Node>
constexpr bool kHasTextCode =
    std::is_same_v<decltype(&Node::WriteChunk), bool (Node::*)(XTextWriter&) const> ||
    std::is_same_v<decltype(&Node::ReadFields), bool (Node::*)(XTextReader&)>;
template <class Node>
constexpr bool kHasBinaryCode = std::is_same_v<decltype(&Node::DoData), bool (Node::*)(XFileIO&)>;

// Whether a class is one of the table, and so tells of itself. What a base without a type
// of its own does is told by the classes below it.
template <class Node>
constexpr bool IsInTable()
{
    if constexpr (std::is_same_v<Node, XBase>)
        return true;
    else
        return std::is_base_of_v<XNodeClass<Node, typename Node::XParent, Node::kType>, Node>;
}

template <class Node>
XClassTables TablesOf()
{
    if constexpr (std::is_same_v<Node, XBase>) {
        return {kFnBase, {}, {}, {}, {}, XBase::ClassProperties(), true, true};
    } else {
        using Parent = typename Node::XParent;
        constexpr bool isAlone = IsInTable<Parent>();
        return {Parent::kType,
                Node::OwnTextBody(),
                Node::OwnBinaryBody(),
                Node::OwnOldTextBody(),
                Node::OwnOldBinaryBody(),
                Node::ClassProperties(),
                kHasTextCode<Node> || (!isAlone && kHasTextCode<Parent>),
                kHasBinaryCode<Node> || (!isAlone && kHasBinaryCode<Parent>)};
    }
}

template <class Node>
constexpr TypeRow Abstract(const char* typeName)
{
    return {Node::kType, typeName, "", [](XModel*) -> XBase* { return nullptr; }, TablesOf<Node>};
}

template <class Node>
constexpr TypeRow Concrete(const char* typeName, const char* chunkName)
{
    return {Node::kType, typeName, chunkName, [](XModel* model) -> XBase* { return new Node(model); },
            TablesOf<Node>};
}

// The classes in the order of their registration.
constexpr TypeRow kTypes[] = {
    Abstract<XBase>("base"),
    Abstract<XConstraint>("constraint"),
    Abstract<XField>("field"),
    Abstract<XDeformer>("deformer"),
    Abstract<XNonLinearDeformer>("nonLinear"),
    Abstract<XShadingNode>("shadingNode"),
    Abstract<XMaterial>("material"),
    Abstract<XShape>("shape"),
    Abstract<XCollisionObject>("collisionObject"),
    Abstract<XGeometry>("geometry"),
    Abstract<XParametricBase>("parametricBase"),
    Abstract<XParametricCurve>("parametricCurve"),
    Abstract<XParametricSurface>("parametricSurface"),
    Abstract<XLight>("light"),
    Abstract<XExtendedLight>("extendedLight"),
    Abstract<XVolumeObject>("volumeObject"),
    Concrete<XTexture>("texture", "TEXTURE"),
    Abstract<XEnvMap>("envMap"),
    Abstract<XNodeCollection>("nodeCollection"),
    Concrete<XAimConstraint>("aimConstraint", "AIM_CONSTRAINT"),
    Concrete<XAmbientLight>("ambientLight", "AMBIENT_LIGHT"),
    Concrete<XAnisotropic>("anisotropic", "ANISOTROPIC"),
    Concrete<XAnimCycle>("animCycle", "ANIM_CYCLE"),
    Concrete<XAnimationTake>("animationTake", "ANIMATION_TAKE"),
    Concrete<XAir>("air", "AIR_FIELD"),
    Concrete<XAreaLight>("areaLight", "AREA_LIGHT"),
    Concrete<XBaseLattice>("baseLattice", "BASE_LATTICE"),
    Concrete<XBone>("bone", "BONE"),
    Concrete<XBezierCurve>("bezierCurve", "BEZIER_CURVE"),
    Concrete<XBezierPatch>("bezierPatch", "BEZIER_PATCH"),
    Concrete<XBlinn>("blinn", "BLINN"),
    Concrete<XBlendShape>("blendShape", "BLEND_SHAPE"),
    Concrete<XBumpMap>("bumpMap", "BUMP_MAP"),
    Concrete<XCamera>("camera", "CAMERA"),
    Concrete<XCluster>("cluster", "CLUSTER"),
    Concrete<XCollisionBox>("collisionBox", "COLLISION_BOX"),
    Concrete<XCollisionCone>("collisionCone", "COLLISION_CONE"),
    Concrete<XCollisionCapsule>("collisionCapsule", "COLLISION_CAPSULE"),
    Concrete<XCollisionCylinder>("collisionCylinder", "COLLISION_CYLINDER"),
    Concrete<XCollisionMesh>("collisionMesh", "COLLISION_MESH"),
    Concrete<XCollisionSphere>("collisionSphere", "COLLISION_SPHERE"),
    Concrete<XCubeMap>("cubeMap", "CUBE_MAP"),
    Concrete<XDirectionalLight>("directionalLight", "DIRECTIONAL_LIGHT"),
    Concrete<XDisplayLayer>("displayLayer", "DISPLAY_LAYER"),
    Concrete<XDrag>("drag", "DRAG_FIELD"),
    Concrete<XEmitter>("emitter", "EMITTER"),
    Concrete<XFFD>("ffd", "FFD"),
    Concrete<XGeometryConstraint>("geometryConstraint", "GEOMETRY_CONSTRAINT"),
    Concrete<XGravity>("gravity", "GRAVITY_FIELD"),
    Concrete<XHermiteCurve>("hermiteCurve", "HERMITE_CURVE"),
    Concrete<XHermitePatch>("hermitePatch", "HERMITE_PATCH"),
    Concrete<XHwShader>("hwShader", "HW_SHADER"),
    Concrete<XIkChain>("ikChain", "IK_CHAIN"),
    Concrete<XJoint>("joint", "JOINT"),
    Concrete<XJiggleDeformer>("jiggleDeformer", "JIGGLE_DEFORMER"),
    Concrete<XJointCluster>("jointCluster", "JOINT_CLUSTER"),
    Concrete<XLambert>("lambert", "LAMBERT"),
    Concrete<XLattice>("lattice", "LATTICE"),
    Concrete<XLayeredShader>("layeredShader", "LAYERED_SHADER"),
    Concrete<XLayeredTexture>("layeredTexture", "LAYERED_TEXTURE"),
    Concrete<XLocator>("locator", "LOCATOR"),
    Concrete<XLookAtConstraint>("lookAt", "LOOK_AT_CONSTRAINT"),
    Concrete<XMesh>("mesh", "MESH"),
    Concrete<XMeshVertexColours>("mv", "MESH_VTX_COLOURS"),
    Concrete<XNewton>("newton", "NEWTON_FIELD"),
    Concrete<XNonLinearBend>("nonLinearBend", "NONLINEAR_BEND"),
    Concrete<XNonLinearFlare>("nonLinearFlare", "NONLINEAR_FLARE"),
    Concrete<XNonLinearSine>("nonLinearSine", "NONLINEAR_SINE"),
    Concrete<XNonLinearSquash>("nonLinearSquash", "NONLINEAR_SQUASH"),
    Concrete<XNonLinearTwist>("nonLinearTwist", "NONLINEAR_TWIST"),
    Concrete<XNonLinearWave>("nonLinearWave", "NONLINEAR_WAVE"),
    Concrete<XNormalConstraint>("normalConstraint", "NORMAL_CONSTRAINT"),
    Concrete<XNurbsCurve>("nurbsCurve", "NURBS_CURVE"),
    Concrete<XNurbsSurface>("nurbsSurface", "NURBS_SURFACE"),
    Concrete<XObjectSet>("objectSet", "OBJECT_SET"),
    Concrete<XOrientConstraint>("orientConstraint", "ORIENT_CONSTRAINT"),
    Concrete<XParentConstraint>("parentConstraint", "PARENT_CONSTRAINT"),
    Concrete<XParticleShape>("particleShape", "PARTICLE"),
    Concrete<XPhong>("phong", "PHONG"),
    Concrete<XPhongE>("phongE", "PHONGE"),
    Concrete<XPointConstraint>("pointConstraint", "POINT_CONSTRAINT"),
    Concrete<XPointLight>("pointLight", "POINT_LIGHT"),
    Concrete<XPoleVectorConstraint>("poleVectorConstraint", "POLE_VECTOR_CONSTRAINT"),
    Concrete<XPolygonMesh>("polygonMesh", "POLYGON_MESH"),
    Concrete<XRampShader>("rampShader", "RAMP_SHADER"),
    Concrete<XRadial>("radial", "RADIAL_FIELD"),
    Concrete<XRenderLayer>("renderLayer", "RENDER_LAYER"),
    Concrete<XScaleConstraint>("scaleConstraint", "SCALE_CONSTRAINT"),
    Concrete<XSculptDeformer>("sculptDeformer", "SCULPT_DEFORMER"),
    Concrete<XSkinCluster>("skinCluster", "SKIN"),
    Abstract<XSpecular>("specular"),
    Concrete<XSphereMap>("sphereMap", "SPHERE_MAP"),
    Concrete<XSpotLight>("spotLight", "SPOT_LIGHT"),
    Concrete<XSurfaceShader>("surfaceShader", "SURFACE_SHADER"),
    Concrete<XTangentConstraint>("tangentConstraint", "TANGENT_CONSTRAINT"),
    Concrete<XTexPlacement2D>("texturePlacement2D", "TEXTURE_2D"),
    Concrete<XTexPlacement3D>("texturePlacement3D", "TEXTURE_PLACEMENT_3D"),
    Concrete<XTurbulence>("turbulence", "TURBULENCE_FIELD"),
    Concrete<XUniform>("uniformField", "UNIFORM_FIELD"),
    Concrete<XUseBackgroundShader>("useBackground", "USE_BACKGROUND"),
    Concrete<XVolumeAxis>("volumeAxis", "VOLUME_AXIS_FIELD"),
    Concrete<XVolumeBox>("volumeBox", "VOLUME_BOX"),
    Concrete<XVolumeCone>("volumeCone", "VOLUME_CONE"),
    Concrete<XVolumeCylinder>("volumeCylinder", "VOLUME_CYLINDER"),
    Concrete<XVolumeSphere>("volumeSphere", "VOLUME_SPHERE"),
    Concrete<XVolumeLight>("volumeLight", "VOLUME_LIGHT"),
    Concrete<XVortex>("vortex", "VORTEX_FIELD"),
    Concrete<XWireDeformer>("wireDeformer", "WIRE_DEFORMER"),
    Concrete<XWrapDeformer>("wrapDeformer", "WRAP_DEFORMER"),
};

class RowInfo final : public XFnInfo {
public:
    explicit RowInfo(const TypeRow& row) : m_Row(row) {}
    u32 GetType() const override { return m_Row.type; }
    XString GetTypeName() const override { return m_Row.typeName; }
    XString GetChunkName() const override { return m_Row.chunkName; }
    XBase* Create(XModel* model) const override { return m_Row.create(model); }
    XClassTables GetTables() const override { return m_Row.tables(); }

private:
    const TypeRow& m_Row;
};

}  // namespace

bool XRegisterTypes(XLogger* logger)
{
    XFnInitialise(logger);
    for (const TypeRow& row : kTypes) {
        auto info = std::make_unique<RowInfo>(row);
        if (XFnRegister(info.get()))
            info.release();
        else
            GetLogger()->LogFormat(kError, "Registering failed %s", row.typeName);
    }
    return true;
}

}  // namespace VKT
