#include "exporter/walk/ExportCore.h"

#include "scenes/ExportScenes.h"

namespace VKTMax {
namespace {

class ExportCoreTest : public export_scenes::ExportTest {
protected:
    VKTExportCore core{model, false};
};

TEST_F(ExportCoreTest, FirstThatAHostObjectWasRememberedWithStays)
{
    VKT::XBase& first = *model.CreateNode(VKT::kFnBone);
    VKT::XBase& second = *model.CreateNode(VKT::kFnBone);
    Object* object = export_scenes::MakeTriangle();
    Mtl* material = maxhost::MakeMaterial("red");
    core.Remember(object, first);
    core.Remember(object, second);
    core.Remember(material, second);
    core.Remember(material, first);
    EXPECT_EQ(core.FindShape(object), &first);
    EXPECT_EQ(core.FindMaterial(material), &second);
}

TEST_F(ExportCoreTest, WhatWasNotMetIsFoundAsNull)
{
    EXPECT_EQ(core.FindShape(export_scenes::MakeTriangle()), nullptr);
    EXPECT_EQ(core.FindShape(nullptr), nullptr);
    EXPECT_EQ(core.FindMaterial(maxhost::MakeMaterial("red")), nullptr);
    EXPECT_EQ(core.FindMaterial(nullptr), nullptr);
}

}  // namespace
}  // namespace VKTMax
