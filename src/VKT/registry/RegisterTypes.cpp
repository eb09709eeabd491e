#include "VKT/animation/AnimCycle.h"
#include "VKT/animation/AnimationTake.h"
#include "VKT/deformers/BaseLattice.h"
#include "VKT/deformers/BlendShape.h"
#include "VKT/deformers/Cluster.h"
#include "VKT/deformers/FFD.h"
#include "VKT/deformers/JiggleDeformer.h"
#include "VKT/deformers/JointCluster.h"
#include "VKT/deformers/Lattice.h"
#include "VKT/deformers/NonLinearBend.h"
#include "VKT/deformers/NonLinearDeformer.h"
#include "VKT/deformers/NonLinearFlare.h"
#include "VKT/deformers/NonLinearSine.h"
#include "VKT/deformers/NonLinearSquash.h"
#include "VKT/deformers/NonLinearTwist.h"
#include "VKT/deformers/NonLinearWave.h"
#include "VKT/deformers/SculptDeformer.h"
#include "VKT/deformers/SkinCluster.h"
#include "VKT/deformers/WireDeformer.h"
#include "VKT/deformers/WrapDeformer.h"
#include "VKT/dynamics/Air.h"
#include "VKT/dynamics/CollisionBox.h"
#include "VKT/dynamics/CollisionCapsule.h"
#include "VKT/dynamics/CollisionCone.h"
#include "VKT/dynamics/CollisionCylinder.h"
#include "VKT/dynamics/CollisionMesh.h"
#include "VKT/dynamics/CollisionObject.h"
#include "VKT/dynamics/CollisionSphere.h"
#include "VKT/dynamics/Drag.h"
#include "VKT/dynamics/Emitter.h"
#include "VKT/dynamics/Field.h"
#include "VKT/dynamics/Gravity.h"
#include "VKT/dynamics/Newton.h"
#include "VKT/dynamics/ParticleShape.h"
#include "VKT/dynamics/Radial.h"
#include "VKT/dynamics/Turbulence.h"
#include "VKT/dynamics/Uniform.h"
#include "VKT/dynamics/VolumeAxis.h"
#include "VKT/dynamics/VolumeBox.h"
#include "VKT/dynamics/VolumeCone.h"
#include "VKT/dynamics/VolumeCylinder.h"
#include "VKT/dynamics/VolumeObject.h"
#include "VKT/dynamics/VolumeSphere.h"
#include "VKT/dynamics/Vortex.h"
#include "VKT/geometry/BezierCurve.h"
#include "VKT/geometry/BezierPatch.h"
#include "VKT/geometry/Deformer.h"
#include "VKT/geometry/Geometry.h"
#include "VKT/geometry/HermiteCurve.h"
#include "VKT/geometry/HermitePatch.h"
#include "VKT/geometry/Mesh.h"
#include "VKT/geometry/MeshVertexColours.h"
#include "VKT/geometry/NurbsCurve.h"
#include "VKT/geometry/NurbsSurface.h"
#include "VKT/geometry/ParametricBase.h"
#include "VKT/geometry/ParametricCurve.h"
#include "VKT/geometry/ParametricSurface.h"
#include "VKT/geometry/PolygonMesh.h"
#include "VKT/hierarchy/Bone.h"
#include "VKT/hierarchy/Joint.h"
#include "VKT/hierarchy/Locator.h"
#include "VKT/hierarchy/Shape.h"
#include "VKT/lights/AmbientLight.h"
#include "VKT/lights/AreaLight.h"
#include "VKT/lights/Camera.h"
#include "VKT/lights/DirectionalLight.h"
#include "VKT/lights/ExtendedLight.h"
#include "VKT/lights/Light.h"
#include "VKT/lights/PointLight.h"
#include "VKT/lights/SpotLight.h"
#include "VKT/lights/VolumeLight.h"
#include "VKT/node/FnRegistry.h"
#include "VKT/registry/UserNode.h"
#include "VKT/rigging/AimConstraint.h"
#include "VKT/rigging/Constraint.h"
#include "VKT/rigging/DisplayLayer.h"
#include "VKT/rigging/GeometryConstraint.h"
#include "VKT/rigging/IkChain.h"
#include "VKT/rigging/LookAtConstraint.h"
#include "VKT/rigging/NodeCollection.h"
#include "VKT/rigging/NormalConstraint.h"
#include "VKT/rigging/ObjectSet.h"
#include "VKT/rigging/OrientConstraint.h"
#include "VKT/rigging/ParentConstraint.h"
#include "VKT/rigging/PointConstraint.h"
#include "VKT/rigging/PoleVectorConstraint.h"
#include "VKT/rigging/RenderLayer.h"
#include "VKT/rigging/ScaleConstraint.h"
#include "VKT/rigging/TangentConstraint.h"
#include "VKT/shading/Anisotropic.h"
#include "VKT/shading/Blinn.h"
#include "VKT/shading/BumpMap.h"
#include "VKT/shading/CubeMap.h"
#include "VKT/shading/EnvMap.h"
#include "VKT/shading/HwShader.h"
#include "VKT/shading/Lambert.h"
#include "VKT/shading/LayeredShader.h"
#include "VKT/shading/LayeredTexture.h"
#include "VKT/shading/Material.h"
#include "VKT/shading/Phong.h"
#include "VKT/shading/PhongE.h"
#include "VKT/shading/RampShader.h"
#include "VKT/shading/ShadingNode.h"
#include "VKT/shading/Specular.h"
#include "VKT/shading/SphereMap.h"
#include "VKT/shading/SurfaceShader.h"
#include "VKT/shading/TexPlacement2D.h"
#include "VKT/shading/TexPlacement3D.h"
#include "VKT/shading/Texture.h"
#include "VKT/shading/UseBackgroundShader.h"

namespace VKT {
namespace {

// One row of the table: a class, its type name, and its chunk key, empty when abstract.
struct TypeRow {
    u32 type;
    const char* typeName;
    const char* chunkName;
    std::unique_ptr<XBase> (*create)(XModel*);
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
    return {Node::kType, typeName, "", [](XModel*) -> std::unique_ptr<XBase> { return nullptr; },
            TablesOf<Node>};
}

template <class Node>
constexpr TypeRow Concrete(const char* typeName, const char* chunkName)
{
    return {Node::kType, typeName, chunkName,
            [](XModel* model) -> std::unique_ptr<XBase> { return std::make_unique<Node>(model); },
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

// What the instances of each family of user-defined node types are.
struct FamilyRow {
    XNodeFamily family;
    XUserNodeCreator create;
};

template <class Node>
constexpr FamilyRow Family(XNodeFamily family)
{
    return {family, [](const XNewNode& definition, XModel* model) -> std::unique_ptr<XBase> {
                return std::make_unique<Node>(model, definition);
            }};
}

constexpr FamilyRow kFamilies[] = {
    Family<XNewBase>(kFamilyNone),          //
    Family<XNewMaterial>(kFamilyMaterial),  //
    Family<XNewShape>(kFamilyObject),       //
    Family<XNewLight>(kFamilyLight),        //
    Family<XNewBone>(kFamilyTransform),     //
    Family<XNewEmitter>(kFamilyEmitter),    //
    Family<XNewField>(kFamilyField),        //
    Family<XNewDeformer>(kFamilyDeformer),  //
    Family<XNewAnim>(kFamilyAnim),          //
    Family<XNewHwShader>(kFamilyHwShader),
};

class RowInfo final : public XFnInfo {
public:
    explicit RowInfo(const TypeRow& row) : m_Row(row) {}
    u32 GetType() const override { return m_Row.type; }
    XString GetTypeName() const override { return m_Row.typeName; }
    XString GetChunkName() const override { return m_Row.chunkName; }
    std::unique_ptr<XBase> Create(XModel* model) const override { return m_Row.create(model); }
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
    for (const FamilyRow& row : kFamilies)
        XFnRegisterFamily(row.family, row.create);
    return true;
}

}  // namespace VKT
