#pragma once

#include <optional>
#include <string>

#include "VKT/base/Types.h"
#include "max/RowMatrix.h"

class Interface;
class INode;
class Mtl;
class Object;

namespace VKTMax {

// The border to the host: every question that the exporter asks of nodes, objects,
// materials and controllers, one small function each. Behind it host objects are
// opaque pointers, kept as keys of maps and handed back here.
//
// Times are in ticks of the host. Pointers must not be null unless a function says so.

using VKT::f32;
using VKT::i32;
using VKT::u32;

// A class of the host, by both words of its id.
struct HostClass {
    u32 a;
    u32 b;
    bool operator==(const HostClass&) const = default;
};

inline constexpr HostClass kBipedPart{0x9125, 0};
inline constexpr HostClass kBoneObject{0x28BF6E8D, 0x2ECCA840};
inline constexpr HostClass kTriObject{0x9, 0};
inline constexpr HostClass kPolyObject{0x5D21369A, 0};
inline constexpr HostClass kPhysique{0x100, 0};
inline constexpr HostClass kSkin{0x95C723, 0x15666};
inline constexpr HostClass kMorpher{0x17BB6854, 0xA5CBA2A3};

// What `SuperClassOf` answers.
inline constexpr u32 kSuperDerived = 0x2;
inline constexpr u32 kSuperGeometry = 0x10;

// The application.
INode* RootNodeOf(Interface* application);
void* ActiveWindow();
// The folder of the plug-ins' configuration files, without a separator at its end.
std::string PluginConfigFolder();

// Hierarchy and state of a node.
std::string NameOf(INode* node);
INode* ParentOf(INode* node);  // null for the root
int NumChildrenOf(INode* node);
INode* ChildOf(INode* node, int i);
bool IsSelected(INode* node);
bool IsHidden(INode* node);
f32 VisibilityOf(INode* node, i32 ticks);  // 1 opaque, 0 transparent
bool IsBoneSwitchedOn(INode* node);
u32 WireColourOf(INode* node);  // red in the lowest byte, then green, then blue

// What a user wrote on a node: lines "name = value". Numbers read as 0 where there is no
// line of that name.
std::string UserPropertyText(INode* node);
i32 UserPropertyInt(INode* node, const std::string& name);
f32 UserPropertyFloat(INode* node, const std::string& name);

// World matrix of the pivot frame.
RowMatrix NodeMatrix(INode* node, i32 ticks);
// From the space of the object to the pivot frame.
RowMatrix ObjectOffset(INode* node);

// The object with all modifiers applied; null when the node has none.
Object* EvaluatedObject(INode* node, i32 ticks);
// The top of the stack of modifiers; null when the node has none.
Object* ObjectReference(INode* node);
u32 SuperClassOf(Object* object);
bool IsSubClassOf(Object* object, HostClass type);

// Of a derived object, that is of super class `kSuperDerived`: what lies below it, and
// its modifiers, the top one first.
Object* ObjectBelow(Object* derived);
int NumModifiersOf(Object* derived);
HostClass ModifierClass(Object* derived, int i);

// Materials. A node may have none, a list of sub-materials may have gaps: null then.
Mtl* MaterialOf(INode* node);
bool IsMultiMaterial(Mtl* material);
int NumSubMaterialsOf(Mtl* material);
Mtl* SubMaterialOf(Mtl* material, int i);

// The values of the single-axis controllers that make up a part of a node's transform.
struct AxisValues {
    std::optional<f32> x, y, z;  // none where there is no such controller
};
bool HasTransformController(INode* node);
AxisValues PositionTracks(INode* node, i32 ticks);
AxisValues RotationTracks(INode* node, i32 ticks);  // Euler angles in radians
AxisValues ScaleTracks(INode* node, i32 ticks);

}  // namespace VKTMax
