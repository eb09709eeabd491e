#include "max/HostAccess.h"

#include <max.h>
// The umbrella header leaves these out.
#include <imtl.h>
#include <modstack.h>

namespace VKTMax {
namespace {

RowMatrix ToRowMatrix(const Matrix3& matrix)
{
    RowMatrix out;
    for (int row = 0; row < 4; ++row) {
        const Point3 values = matrix.GetRow(row);
        out.m[row][0] = values.x;
        out.m[row][1] = values.y;
        out.m[row][2] = values.z;
    }
    return out;
}

IDerivedObject* AsDerived(Object* object)
{
    return static_cast<IDerivedObject*>(object);
}

// Only a float controller may be read into a float.
std::optional<f32> FloatOf(Control* controller, i32 ticks)
{
    if (!controller || controller->SuperClassID() != CTRL_FLOAT_CLASS_ID)
        return std::nullopt;
    f32 value = 0.0f;
    Interval valid = FOREVER;
    controller->GetValue(ticks, &value, valid);
    return value;
}

AxisValues TracksOf(INode* node, Control* (Control::*part)(), i32 ticks)
{
    Control* transform = node->GetTMController();
    Control* vector = transform ? (transform->*part)() : nullptr;
    if (!vector)
        return {};
    return {FloatOf(vector->GetXController(), ticks), FloatOf(vector->GetYController(), ticks),
            FloatOf(vector->GetZController(), ticks)};
}

}  // namespace

INode* RootNodeOf(Interface* application)
{
    return application->GetRootNode();
}

void* ActiveWindow()
{
    return GetActiveWindow();
}

std::string PluginConfigFolder()
{
    return GetCOREInterface()->GetDir(APP_PLUGCFG_DIR);
}

std::string NameOf(INode* node)
{
    return node->GetName();
}

INode* ParentOf(INode* node)
{
    return node->GetParentNode();
}

int NumChildrenOf(INode* node)
{
    return node->NumberOfChildren();
}

INode* ChildOf(INode* node, int i)
{
    return node->GetChildNode(i);
}

bool IsSelected(INode* node)
{
    return node->Selected() != 0;
}

bool IsHidden(INode* node)
{
    return node->IsHidden() != 0;
}

f32 VisibilityOf(INode* node, i32 ticks)
{
    return node->GetVisibility(ticks);
}

bool IsBoneSwitchedOn(INode* node)
{
    return node->GetBoneNodeOnOff() != 0;
}

u32 WireColourOf(INode* node)
{
    return node->GetWireColor();
}

std::string UserPropertyText(INode* node)
{
    MSTR text;
    node->GetUserPropBuffer(text);
    return text.data();
}

i32 UserPropertyInt(INode* node, const std::string& name)
{
    const MSTR key(name.c_str());
    int value = 0;
    node->GetUserPropInt(key, value);
    return value;
}

f32 UserPropertyFloat(INode* node, const std::string& name)
{
    const MSTR key(name.c_str());
    float value = 0.0f;
    node->GetUserPropFloat(key, value);
    return value;
}

RowMatrix NodeMatrix(INode* node, i32 ticks)
{
    return ToRowMatrix(node->GetNodeTM(ticks));
}

RowMatrix ObjectOffset(INode* node)
{
    Matrix3 offset;
    offset.IdentityMatrix();
    offset.PreTranslate(node->GetObjOffsetPos());
    PreRotateMatrix(offset, node->GetObjOffsetRot());
    ApplyScaling(offset, node->GetObjOffsetScale());
    return ToRowMatrix(offset);
}

Object* EvaluatedObject(INode* node, i32 ticks)
{
    return node->EvalWorldState(ticks, TRUE).obj;
}

Object* ObjectReference(INode* node)
{
    return node->GetObjectRef();
}

u32 SuperClassOf(Object* object)
{
    return object->SuperClassID();
}

bool IsSubClassOf(Object* object, HostClass type)
{
    return object->IsSubClassOf(Class_ID(type.a, type.b)) != 0;
}

Object* ObjectBelow(Object* derived)
{
    return AsDerived(derived)->GetObjRef();
}

int NumModifiersOf(Object* derived)
{
    return AsDerived(derived)->NumModifiers();
}

HostClass ModifierClass(Object* derived, int i)
{
    Class_ID type = AsDerived(derived)->GetModifier(i)->ClassID();
    return {static_cast<u32>(type.PartA()), static_cast<u32>(type.PartB())};
}

Mtl* MaterialOf(INode* node)
{
    return node->GetMtl();
}

bool IsMultiMaterial(Mtl* material)
{
    return material->IsMultiMtl() != 0;
}

int NumSubMaterialsOf(Mtl* material)
{
    return material->NumSubMtls();
}

Mtl* SubMaterialOf(Mtl* material, int i)
{
    return material->GetSubMtl(i);
}

bool HasTransformController(INode* node)
{
    return node->GetTMController() != nullptr;
}

AxisValues PositionTracks(INode* node, i32 ticks)
{
    return TracksOf(node, &Control::GetPositionController, ticks);
}

AxisValues RotationTracks(INode* node, i32 ticks)
{
    return TracksOf(node, &Control::GetRotationController, ticks);
}

AxisValues ScaleTracks(INode* node, i32 ticks)
{
    return TracksOf(node, &Control::GetScaleController, ticks);
}

}  // namespace VKTMax
