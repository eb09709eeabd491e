#pragma once

#include <array>
#include <string>
#include <vector>

#include "dummy.h"
#include "istdplug.h"
#include "max.h"
#include "modstack.h"
#include "stdmat.h"

// Functions that build a scene in a few lines. They use what the SDK offers and add
// no powers of their own, but for what the SDK leaves to dialogs.
namespace maxhost {

using Triangle = std::array<int, 3>;
using Polygon = std::vector<int>;

CoreExport TriObject* MakeTriangles(const std::vector<Point3>& points,
                                    const std::vector<Triangle>& triangles);
CoreExport PolyObject* MakePolygons(const std::vector<Point3>& points, const std::vector<Polygon>& polygons);
// A box around the origin, from -size / 2 to size / 2: 8 points, 6 polygons.
CoreExport PolyObject* MakeBox(const Point3& size);

// Map channel `channel` (0: vertex colours), with a face like each of the mesh's. A
// face whose number of corners differs from the mesh's gets vertex 0 in all corners.
CoreExport void SetMapChannel(TriObject& object, int channel, const std::vector<UVVert>& values,
                              const std::vector<Triangle>& faces);
CoreExport void SetMapChannel(PolyObject& object, int channel, const std::vector<UVVert>& values,
                              const std::vector<Polygon>& faces);

// An instance of a class of the directory, null when it isn't known.
CoreExport Object* MakeObject(SClass_ID superClass, Class_ID classID);

// A node below `parent`, or below the root. Its local transform is the identity.
CoreExport INode* MakeNode(const std::string& name, Object* object = nullptr, INode* parent = nullptr);
CoreExport void SetName(INode& node, const std::string& name);

// The local transform at every time. Angles are Euler XYZ in radians; a matrix is
// taken apart into position, rotation and scale.
CoreExport void SetPosition(INode& node, const Point3& position);
CoreExport void SetRotation(INode& node, const Point3& angles);
CoreExport void SetScale(INode& node, const Point3& scale);
CoreExport void SetLocalTM(INode& node, const Matrix3& local);

// The float controllers below a node's transform controller.
enum class Track { PositionX, PositionY, PositionZ, RotationX, RotationY, RotationZ, ScaleX, ScaleY, ScaleZ };
// Null where the controllers have no such part: a new node's scale has none before
// UseScaleXYZ.
CoreExport Control* GetTrack(INode& node, Track track);
// Gives the node a scale controller of three floats, with the scale it had at time 0.
CoreExport void UseScaleXYZ(INode& node);
// Replaces all keys. The order doesn't matter.
CoreExport void SetKeys(Control& track, const std::vector<IBezFloatKey>& keys);
// A key whose tangents on both sides are of one kind, BEZKEY_LINEAR and so on.
CoreExport IBezFloatKey MakeKey(TimeValue time, float value, int tangents = BEZKEY_LINEAR);
CoreExport void AddKey(INode& node, Track track, TimeValue time, float value, int tangents = BEZKEY_LINEAR);

// Puts a modifier on top of the node's stack; the context is copied. With a class id,
// an instance of that class of the directory; null when it isn't known.
CoreExport void AddModifier(INode& node, Modifier& modifier, ModContext* context = nullptr);
CoreExport Modifier* AddModifier(INode& node, Class_ID classID, ModContext* context = nullptr);

CoreExport StdMat2* MakeMaterial(const std::string& name, const Color& diffuse = Color(0.5f, 0.5f, 0.5f));
CoreExport MultiMtl* MakeMultiMaterial(const std::string& name, const std::vector<Mtl*>& materials);
CoreExport BitmapTex* MakeBitmap(const std::string& name, const std::string& fileName);

// How a bitmap lies on the surface; angles and the rest through BitmapTex::GetUVGen.
CoreExport void SetPlacement(BitmapTex& bitmap, int mapChannel, int axis, int tiling = U_WRAP | V_WRAP);

}  // namespace maxhost
