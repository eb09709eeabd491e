// Makes a scene of one quad under a bone, saves it as text, and reads it back.

#include <cstdio>

#include "VKT/document/Model.h"
#include "VKT/geometry/PolygonMesh.h"
#include "VKT/hierarchy/Bone.h"
#include "VKT/node/FnRegistry.h"
#include "VKT/shading/Lambert.h"

int main(int argc, char** argv)
{
    const char* path = argc > 1 ? argv[1] : "quad.vkt";
    VKT::XRegisterTypes(nullptr);

    VKT::XModel scene;
    auto* table = scene.CreateNode<VKT::XBone>();
    table->SetName("table");
    table->SetTranslate({0, 0, 1, 0});
    table->SetBindFromCurrent();

    auto* top = scene.CreateNode<VKT::XPolygonMesh>();
    top->SetName("top");
    top->SetPolygons({4}, {0, 1, 2, 3});
    top->SetPoints({{-1, -1, 0, 0}, {1, -1, 0, 0}, {1, 1, 0, 0}, {-1, 1, 0, 0}});

    auto* wood = scene.CreateNode<VKT::XLambert>();
    wood->SetName("wood");
    wood->GetColour().SetColour(0.5f, 0.25f, 0.125f, 1.0f);
    scene.CreateInstance(table, top)->SetMaterial(wood->GetID());

    if (scene.Save(path) != VKT::FileOk)
        return 1;

    VKT::XModel copy;
    if (copy.Load(path) != VKT::FileOk)
        return 1;
    const auto* mesh = VKT::XCast<VKT::XPolygonMesh>(copy.FindNode("top"));
    const auto* bone = VKT::XCast<VKT::XBone>(copy.FindNode("table"));
    if (!mesh || !bone)
        return 1;
    const VKT::XVector3 corner = VKT::TransformPoint(bone->GetWorld(false), mesh->GetPoints()[0]);
    std::printf("%s: %u points, the first one at %g %g %g\n", path, mesh->GetNumPoints(), corner.x, corner.y,
                corner.z);
    return VKT::XFnShutdown() ? 0 : 1;
}
