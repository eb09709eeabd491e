#pragma once

#include <gtest/gtest.h>
#include <max.h>

#include <filesystem>
#include <string>
#include <vector>

#include "VKT/document/Model.h"
#include "VKT/geometry/PolygonMesh.h"
#include "VKT/hierarchy/Bone.h"
#include "VKT/node/FnRegistry.h"
#include "VKT/support/LogCatcher.h"
#include "exporter/options/ExportOptions.h"
#include "exporter/walk/ExportCore.h"
#include "host/app/HeadlessHost.h"
#include "host/build/SceneBuilder.h"

namespace export_scenes {

// A class of its own over a triangle mesh: what the exporter tells apart by class id.
class OddMesh final : public TriObject {
public:
    explicit OddMesh(Class_ID type) : m_Type(type) {}
    Class_ID ClassID() override { return m_Type; }
    BOOL IsSubClassOf(Class_ID type) override { return type == m_Type || TriObject::IsSubClassOf(type); }

private:
    Class_ID m_Type;
};

// A modifier that changes nothing and only stands for its class.
class NamedModifier final : public Modifier {
public:
    explicit NamedModifier(Class_ID type) : m_Type(type) {}
    Class_ID ClassID() override { return m_Type; }
    RefResult NotifyRefChanged(Interval, RefTargetHandle, PartID&, RefMessage) override
    {
        return REF_SUCCEED;
    }
    void ModifyObject(TimeValue, ModContext&, ObjectState*, INode*) override {}

private:
    Class_ID m_Type;
};

// A triangle object with one face over the three given or usual points.
TriObject* MakeTriangle(const std::vector<Point3>& points = {Point3(0, 0, 0), Point3(1, 0, 0),
                                                             Point3(0, 1, 0)});
// The same as an object of another class.
OddMesh* MakeOddMesh(Class_ID type);

// An empty scene, options at their defaults, a folder for files, and the registry up with
// a logger that keeps messages. All of it ends with the test.
class ExportTest : public testing::Test {
protected:
    void SetUp() override;
    void TearDown() override;

    INode* Root() { return host.GetInterface().GetRootNode(); }
    // A path in the folder of the test.
    std::string PathOf(const std::string& name) const { return (folder / name).string(); }

    // Walks the whole scene, or the selection, into `model` and fixes the pose.
    void ExportScene();
    void ExportSelection();
    // The bone of a name; fails the test when there is none.
    VKT::XBone* BoneOf(const std::string& name);
    // The mesh shown under that bone, null when there is none.
    VKT::XPolygonMesh* MeshOf(const std::string& name);

    maxhost::HeadlessHost& host = maxhost::HeadlessHost::Get();
    VKTMax::ExportOptions& options = VKTMax::GetExportOptions();
    std::filesystem::path folder;
    LogCatcher log;
    VKT::XModel model;
};

// "n0", "n1", ...
std::string NumberedName(int number);
// The names of bones in their order.
std::vector<std::string> NamesOf(const VKT::XBoneList& bones);
std::vector<std::string> ChildNamesOf(const VKT::XBone* bone);

std::vector<unsigned char> BytesOf(const std::string& path);
void WriteBytes(const std::string& path, const std::vector<unsigned char>& bytes);

}  // namespace export_scenes
