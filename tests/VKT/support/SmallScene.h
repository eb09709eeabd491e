#pragma once

#include "VKT/deformers/NonLinearWave.h"
#include "VKT/geometry/PolygonMesh.h"
#include "VKT/hierarchy/Bone.h"
#include "VKT/hierarchy/Joint.h"
#include "VKT/lights/SpotLight.h"
#include "VKT/shading/Lambert.h"
#include "VKT/support/TestModel.h"

namespace VKT::Test {

// A small scene with one node of every group of a file, created in another order than
// that of the groups: a root with a triangle, whose faces have a material, a joint below
// it that shows the triangle again and a light, and a wave that deforms the triangle.
inline void BuildSmallScene(XModel& model)
{
    XNonLinearWave* const wave = model.CreateNode<XNonLinearWave>();
    XBone* const root = model.CreateNode<XBone>();
    XJoint* const joint = model.CreateNode<XJoint>();
    XPolygonMesh* const mesh = model.CreateNode<XPolygonMesh>();
    XSpotLight* const light = model.CreateNode<XSpotLight>();
    XLambert* const lambert = model.CreateNode<XLambert>();
    model.SetName(wave, "wave");
    model.SetName(root, "root");
    model.SetName(joint, "joint");
    model.SetName(mesh, "mesh");
    model.SetName(light, "light");
    model.SetName(lambert, "lambert");

    mesh->SetPolygons({3}, {0, 1, 2});
    mesh->SetPoints({{0, 0, 0, 0}, {1, 0, 0, 0}, {0, 1, 0, 0}});
    XVertexSet* const uvs = mesh->AddVertexSet("uv", 1, 2, kTexCoord);
    uvs->SetElement(0, XVector2{0.5f, 0.25f});
    uvs->SetIndexSet(mesh->GetIndexSets()[0].get());
    wave->AddAffected(mesh);
    mesh->SetDeformerQueue({wave});

    root->AddChild(joint);
    joint->SetTranslate({0, 2, 0, 0}, true);
    XInstance* const parts = model.CreateInstance(root, mesh);
    parts->SetNumMaterialGroups(1);
    parts->SetMaterial(lambert->GetID(), 0);
    parts->AddFaces(0, {0});
    model.CreateInstance(joint, mesh)->SetMaterial(lambert->GetID());
    model.CreateInstance(joint, light);
}

}  // namespace VKT::Test
