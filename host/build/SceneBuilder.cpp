#include "host/build/SceneBuilder.h"

#include "host/app/HeadlessHost.h"
#include "host/controllers/AffineParts.h"
#include "host/controllers/PRSController.h"
#include "host/controllers/XYZController.h"
#include "host/materials/BitmapTexture.h"
#include "host/objects/SolidObject.h"

namespace maxhost {

namespace {

void MakePoly(MNFace& face, Polygon corners)
{
    face.MakePoly(static_cast<int>(corners.size()), corners.data());
}

Control* GetPart(INode& node, int part)
{
    Control* transform = node.GetTMController();
    if (!transform)
        return nullptr;
    return part == 0   ? transform->GetPositionController()
           : part == 1 ? transform->GetRotationController()
                       : transform->GetScaleController();
}

// Sets one of the three parts of a transform at all times.
template <class Value>
void SetPart(INode& node, int part, Value value)
{
    SuspendAnimate();
    if (Control* controller = GetPart(node, part))
        controller->SetValue(0, &value);
    ResumeAnimate();
}

}  // namespace

TriObject* MakeTriangles(const std::vector<Point3>& points, const std::vector<Triangle>& triangles)
{
    TriObject* object = CreateNewTriObject();
    Mesh& mesh = object->mesh;
    mesh.setNumVerts(static_cast<int>(points.size()));
    std::copy(points.begin(), points.end(), mesh.verts);
    mesh.setNumFaces(static_cast<int>(triangles.size()));
    for (std::size_t i = 0; i < triangles.size(); ++i)
        mesh.faces[i].setVerts(triangles[i][0], triangles[i][1], triangles[i][2]);
    return object;
}

PolyObject* MakePolygons(const std::vector<Point3>& points, const std::vector<Polygon>& polygons)
{
    PolyObject* object = SceneObjects::Adopt(new PolyObject);
    MNMesh& mesh = object->mm;
    mesh.setNumVerts(static_cast<int>(points.size()));
    for (int i = 0; i < mesh.numv; ++i)
        mesh.P(i) = points[static_cast<std::size_t>(i)];
    mesh.setNumFaces(static_cast<int>(polygons.size()));
    for (std::size_t i = 0; i < polygons.size(); ++i)
        MakePoly(mesh.f[i], polygons[i]);
    return object;
}

PolyObject* MakeBox(const Point3& size)
{
    PolyObject* object = SceneObjects::Adopt(new PolyObject);
    MakeBoxPolygons(object->mm, Box3(-size / 2.0f, size / 2.0f));
    return object;
}

void SetMapChannel(TriObject& object, int channel, const std::vector<UVVert>& values,
                   const std::vector<Triangle>& faces)
{
    Mesh& mesh = object.mesh;
    mesh.setMapSupport(channel);
    mesh.setNumMapVerts(channel, static_cast<int>(values.size()));
    std::copy(values.begin(), values.end(), mesh.mapVerts(channel));
    for (std::size_t i = 0; i < faces.size(); ++i)
        mesh.mapFaces(channel)[i].setTVerts(faces[i][0], faces[i][1], faces[i][2]);
}

void SetMapChannel(PolyObject& object, int channel, const std::vector<UVVert>& values,
                   const std::vector<Polygon>& faces)
{
    object.mm.InitMap(channel);
    MNMap& map = *object.mm.M(channel);
    map.setNumVerts(static_cast<int>(values.size()));
    std::copy(values.begin(), values.end(), map.v);
    for (std::size_t i = 0; i < faces.size(); ++i) {
        Polygon corners = faces[i];
        if (static_cast<int>(corners.size()) == map.f[i].deg)
            map.f[i].MakePoly(map.f[i].deg, corners.data());
    }
}

Object* MakeObject(SClass_ID superClass, Class_ID classID)
{
    return static_cast<Object*>(HeadlessHost::Get().GetClasses().Create(superClass, classID));
}

INode* MakeNode(const std::string& name, Object* object, INode* parent)
{
    INode* node = GetCOREInterface()->CreateObjectNode(object);
    SetName(*node, name);
    if (parent)
        parent->AttachChild(node, FALSE);
    return node;
}

void SetName(INode& node, const std::string& name)
{
    std::string writable = name;
    node.SetName(writable.data());
}

void SetPosition(INode& node, const Point3& position)
{
    SetPart(node, 0, position);
}

void SetRotation(INode& node, const Point3& angles)
{
    const Track tracks[] = {Track::RotationX, Track::RotationY, Track::RotationZ};
    SuspendAnimate();
    for (int i = 0; i < 3; ++i) {
        float angle = angles[i];
        if (Control* track = GetTrack(node, tracks[i]))
            track->SetValue(0, &angle);
    }
    ResumeAnimate();
}

void SetScale(INode& node, const Point3& scale)
{
    SetPart(node, 2, ScaleValue(scale));
}

void SetLocalTM(INode& node, const Matrix3& local)
{
    const AffineParts parts = TakeApart(local);
    SetPart(node, 0, parts.position);
    SetPart(node, 1, parts.rotation);
    SetPart(node, 2, parts.scale);
}

Control* GetTrack(INode& node, Track track)
{
    const int index = static_cast<int>(track);
    Control* part = GetPart(node, index / 3);
    if (!part)
        return nullptr;
    return index % 3 == 0   ? part->GetXController()
           : index % 3 == 1 ? part->GetYController()
                            : part->GetZController();
}

void UseScaleXYZ(INode& node)
{
    Control* former = GetPart(node, 2);
    if (!former)
        return;
    ScaleValue scale;
    Interval valid = FOREVER;
    former->GetValue(0, &scale, valid);
    node.GetTMController()->SetScaleController(SceneObjects::Adopt(new ScaleXYZ));
    SetScale(node, scale.s);
}

void SetKeys(Control& track, const std::vector<IBezFloatKey>& keys)
{
    auto* control = static_cast<IKeyControl*>(track.GetInterface(I_KEYCONTROL));
    if (!control)
        return;
    control->SetNumKeys(static_cast<int>(keys.size()));
    for (int i = 0; i < control->GetNumKeys(); ++i) {
        IBezFloatKey key = keys[static_cast<std::size_t>(i)];
        control->SetKey(i, &key);
    }
    control->SortKeys();
}

IBezFloatKey MakeKey(TimeValue time, float value, int tangents)
{
    IBezFloatKey key;
    key.time = time;
    key.val = value;
    LevelTangents(key, 1.0f);
    SetInTanType(key.flags, tangents);
    SetOutTanType(key.flags, tangents);
    return key;
}

void AddKey(INode& node, Track track, TimeValue time, float value, int tangents)
{
    Control* controller = GetTrack(node, track);
    auto* keys = controller ? static_cast<IKeyControl*>(controller->GetInterface(I_KEYCONTROL)) : nullptr;
    if (!keys)
        return;
    IBezFloatKey key = MakeKey(time, value, tangents);
    keys->AppendKey(&key);
    keys->SortKeys();
}

void AddModifier(INode& node, Modifier& modifier, ModContext* context)
{
    Object* object = node.GetObjectRef();
    if (!object || object->SuperClassID() != GEN_DERIVOB_CLASS_ID) {
        object = CreateDerivedObject(object);
        node.SetObjectRef(object);
    }
    static_cast<IDerivedObject*>(object)->AddModifier(&modifier, context, 0);
}

Modifier* AddModifier(INode& node, Class_ID classID, ModContext* context)
{
    auto* modifier = static_cast<Modifier*>(HeadlessHost::Get().GetClasses().Create(OSM_CLASS_ID, classID));
    if (modifier)
        AddModifier(node, *modifier, context);
    return modifier;
}

StdMat2* MakeMaterial(const std::string& name, const Color& diffuse)
{
    StdMat2* material = NewDefaultStdMat();
    material->SetName(name.c_str());
    material->SetDiffuse(diffuse, 0);
    return material;
}

MultiMtl* MakeMultiMaterial(const std::string& name, const std::vector<Mtl*>& materials)
{
    MultiMtl* material = NewDefaultMultiMtl();
    material->SetName(name.c_str());
    material->SetNumSubMtls(static_cast<int>(materials.size()));
    for (int i = 0; i < material->NumSubMtls(); ++i)
        material->SetSubMtl(i, materials[static_cast<std::size_t>(i)]);
    return material;
}

BitmapTex* MakeBitmap(const std::string& name, const std::string& fileName)
{
    BitmapTex* bitmap = NewDefaultBitmapTex();
    bitmap->SetName(name.c_str());
    bitmap->SetMapName(fileName.c_str());
    return bitmap;
}

void SetPlacement(BitmapTex& bitmap, int mapChannel, int axis, int tiling)
{
    UVGenerator& placement = *static_cast<BitmapTexture&>(bitmap).GetPlacement();
    placement.SetMapChannel(mapChannel);
    placement.SetAxis(axis);
    placement.SetTextureTiling(tiling);
}

}  // namespace maxhost
