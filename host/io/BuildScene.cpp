#include "host/io/BuildScene.h"

#include <array>
#include <charconv>
#include <optional>

#include "host/build/SceneBuilder.h"
#include "host/io/BuildAnimation.h"
#include "host/io/BuildMesh.h"
#include "host/io/EulerAngles.h"

namespace maxhost::io {

namespace {

Point3 ToPoint3(const Vector& v)
{
    return Point3(static_cast<float>(v.x), static_cast<float>(v.y), static_cast<float>(v.z));
}

// The host's quaternions turn the other way round.
Quat ToHostQuat(const Quaternion& q)
{
    return Quat(-q.x, -q.y, -q.z, q.w);
}

ScaleValue ToScaleValue(const Transform& t)
{
    return ScaleValue(ToPoint3(t.scale), ToHostQuat(t.scaleAxes));
}

// A blank, a tab or a "=" would end a key, a line end a value.
std::string Cleaned(std::string text, std::string_view unwanted, char instead)
{
    for (char& c : text)
        if (unwanted.find(c) != std::string_view::npos)
            c = instead;
    return text;
}

// A number with a point or exponent, so that it is not taken for a whole one.
std::string ToText(double value)
{
    std::array<char, 32> buffer;
    const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value).ptr;
    std::string text(buffer.data(), end);
    if (text.find_first_not_of("-0123456789") == std::string::npos)
        text += ".0";
    return text;
}

std::string ToText(const PropertyValue& value)
{
    if (const bool* truth = std::get_if<bool>(&value))
        return *truth ? "true" : "false";
    if (const std::int64_t* whole = std::get_if<std::int64_t>(&value))
        return std::to_string(*whole);
    if (const double* number = std::get_if<double>(&value))
        return ToText(*number);
    return Cleaned(std::get<std::string>(value), "\r\n", ' ');
}

std::string PropertyText(const NeutralNode& node)
{
    std::string text = node.propertyText;
    if (!text.empty() && text.back() != '\n')
        text += "\r\n";
    for (const auto& [key, value] : node.properties)
        text += Cleaned(key, " \t=\r\n", '_') + " = " + ToText(value) + "\r\n";
    return text;
}

class SceneBuilding {
public:
    SceneBuilding(const NeutralScene& scene, const BuildOptions& options)
        : m_Scene(scene), m_Options(options), m_Turn(TurnBetween(scene.up, {0.0, 0.0, 1.0}))
    {
    }

    BuildReport Run();

private:
    void BuildNode(const NeutralNode& source);
    Object* ObjectOf(const NeutralNode& source);
    Mtl* MaterialOf(int material);
    Mtl* MaterialOfMesh(int mesh);
    void SetTransform(INode& node, const NeutralNode& source);
    void SetObjectOffset(INode& node, const NeutralNode& source);
    void ReportUnbuilt(const NeutralNode& source);

    const NeutralScene& m_Scene;
    const BuildOptions& m_Options;
    const Quaternion m_Turn;
    std::vector<std::optional<Mtl*>> m_MeshMaterials;  // by mesh; what nodes of it bear
    BuildReport m_Report;
};

Mtl* SceneBuilding::MaterialOf(int material)
{
    if (material < 0)
        return nullptr;
    Mtl*& built = m_Report.materials[static_cast<std::size_t>(material)];
    if (!built) {
        const NeutralMaterial& source = m_Scene.materials[static_cast<std::size_t>(material)];
        built = source.diffuse ? MakeMaterial(source.name,
                                              Color(source.diffuse->x, source.diffuse->y, source.diffuse->z))
                               : MakeMaterial(source.name);
    }
    return built;
}

Mtl* SceneBuilding::MaterialOfMesh(int mesh)
{
    std::optional<Mtl*>& built = m_MeshMaterials[static_cast<std::size_t>(mesh)];
    if (built)
        return *built;
    const NeutralMesh& source = m_Scene.meshes[static_cast<std::size_t>(mesh)];
    std::vector<Mtl*> parts;
    for (const int material : MaterialsOf(source))
        parts.push_back(MaterialOf(material));
    built = parts.empty()       ? nullptr
            : parts.size() == 1 ? parts.front()
                                : MakeMultiMaterial(source.name, parts);
    return *built;
}

Object* SceneBuilding::ObjectOf(const NeutralNode& source)
{
    if (source.mesh >= 0) {
        const NeutralMesh& mesh = m_Scene.meshes[static_cast<std::size_t>(source.mesh)];
        Object*& object = m_Report.objects[static_cast<std::size_t>(source.mesh)];
        if (!object && !mesh.cornerCounts.empty())
            object = BuildMesh(mesh, m_Report.warnings);
        if (object)
            return object;
    }
    return source.isBone ? MakeObject(GEOMOBJECT_CLASS_ID, BONE_OBJ_CLASSID)
                         : MakeObject(HELPER_CLASS_ID, Class_ID(DUMMY_CLASS_ID, 0));
}

void SceneBuilding::SetTransform(INode& node, const NeutralNode& source)
{
    Transform local = source.local;
    if (source.parent < 0) {
        local.translation = MapDirection(RotationMatrix(m_Turn), local.translation);
        local.rotation = m_Turn * local.rotation;
    }
    SetPosition(node, ToPoint3(local.translation));
    SetRotation(node, ToPoint3(EulerAnglesNear(Normalized(local.rotation), {})));
    if (!HasShear(local)) {
        SetScale(node, ToPoint3(local.scale));
        return;
    }
    ScaleValue scale = ToScaleValue(local);
    node.GetTMController()->GetScaleController()->SetValue(0, &scale);
    m_Report.warnings.push_back("node \"" + source.name +
                                "\" is sheared: it is scaled along axes that are not its own");
}

void SceneBuilding::SetObjectOffset(INode& node, const NeutralNode& source)
{
    if (IsIdentity(source.objectOffset))
        return;
    node.SetObjOffsetPos(ToPoint3(source.objectOffset.translation));
    node.SetObjOffsetRot(ToHostQuat(source.objectOffset.rotation));
    node.SetObjOffsetScale(ToScaleValue(source.objectOffset));
    if (HasShear(source.objectOffset))
        m_Report.warnings.push_back("node \"" + source.name + "\": its object offset is sheared");
}

// What the scene holds and the host's scene does not get yet.
void SceneBuilding::ReportUnbuilt(const NeutralNode& source)
{
    const auto report = [&](const char* what) {
        m_Report.warnings.push_back("node \"" + source.name + "\": " + what + " left out");
    };
    if (source.camera >= 0)
        report("its camera is");
    if (source.light >= 0)
        report("its light is");
    if (source.skin >= 0)
        report("its skin is");
    if (source.mesh >= 0 && !m_Scene.meshes[static_cast<std::size_t>(source.mesh)].targets.empty())
        report("its morph targets are");
}

void SceneBuilding::BuildNode(const NeutralNode& source)
{
    INode* const parent =
        source.parent < 0 ? nullptr : m_Report.nodes[static_cast<std::size_t>(source.parent)];
    INode* const node = MakeNode(source.name, ObjectOf(source), parent);
    m_Report.nodes.push_back(node);
    SetTransform(*node, source);
    SetObjectOffset(*node, source);
    if (source.mesh >= 0)
        node->SetMtl(MaterialOfMesh(source.mesh));
    if (source.isBone)
        node->SetBoneNodeOnOff(TRUE, 0);
    if (!source.visible)
        node->Hide(TRUE);
    const std::string properties = PropertyText(source);
    if (!properties.empty())
        node->SetUserPropBuffer(properties.c_str());
    ReportUnbuilt(source);
}

BuildReport SceneBuilding::Run()
{
    m_Report.objects.resize(m_Scene.meshes.size());
    m_Report.materials.resize(m_Scene.materials.size());
    m_MeshMaterials.resize(m_Scene.meshes.size());
    for (const NeutralNode& node : m_Scene.nodes)
        BuildNode(node);
    BuildAnimation(m_Scene, m_Options, m_Turn, m_Report);
    return std::move(m_Report);
}

}  // namespace

BuildReport BuildScene(const NeutralScene& scene, const BuildOptions& options)
{
    return SceneBuilding(scene, options).Run();
}

}  // namespace maxhost::io
