#include "scenes/ExportScenes.h"

#include <fstream>
#include <iterator>
#include <random>

#include "exporter/walk/BindPose.h"
#include "exporter/walk/SceneWalk.h"

namespace export_scenes {

TriObject* MakeTriangle(const std::vector<Point3>& points)
{
    return maxhost::MakeTriangles(points, {{0, 1, 2}});
}

OddMesh* MakeOddMesh(Class_ID type)
{
    OddMesh* object = maxhost::SceneObjects::Adopt(new OddMesh(type));
    object->mesh.setNumVerts(3);
    object->mesh.setVert(0, Point3(0, 0, 0));
    object->mesh.setVert(1, Point3(1, 0, 0));
    object->mesh.setVert(2, Point3(0, 1, 0));
    object->mesh.setNumFaces(1);
    object->mesh.faces[0].setVerts(0, 1, 2);
    return object;
}

void ExportTest::SetUp()
{
    host.Reset();
    options = VKTMax::ExportOptions();
    folder =
        std::filesystem::temp_directory_path() / ("vkt-export-" + std::to_string(std::random_device{}()));
    ASSERT_TRUE(std::filesystem::create_directory(folder));
    host.SetDirectory(APP_PLUGCFG_DIR, folder.string());
    VKT::XRegisterTypes(&log);
}

void ExportTest::TearDown()
{
    VKT::SetLogger(nullptr);
    VKT::XFnShutdown();
    host.Reset();
    std::filesystem::remove_all(folder);
}

void ExportTest::ExportScene()
{
    VKTMax::VKTExportCore core(model, false);
    ASSERT_TRUE(VKTMax::ExportAllNodes(core, Root(), {}));
    VKTMax::ApplyBindPose(core);
}

void ExportTest::ExportSelection()
{
    VKTMax::VKTExportCore core(model, true);
    ASSERT_TRUE(VKTMax::ExportSelectedNodes(core, Root(), {}));
    VKTMax::ApplyBindPose(core);
}

VKT::XBone* ExportTest::BoneOf(const std::string& name)
{
    VKT::XBone* bone = VKT::XCast<VKT::XBone>(model.FindNode(name));
    EXPECT_NE(bone, nullptr) << name;
    return bone;
}

VKT::XPolygonMesh* ExportTest::MeshOf(const std::string& name)
{
    VKT::XInstanceList instances;
    VKT::XBone* bone = BoneOf(name);
    if (!bone || !bone->ListInstances(instances))
        return nullptr;
    return VKT::XCast<VKT::XPolygonMesh>(instances.front()->GetShape());
}

std::string NumberedName(int number)
{
    std::string name = std::to_string(number);
    name.insert(name.begin(), 'n');
    return name;
}

std::vector<std::string> NamesOf(const VKT::XBoneList& bones)
{
    std::vector<std::string> names;
    for (const VKT::XBone* bone : bones)
        names.push_back(bone->GetName());
    return names;
}

std::vector<std::string> ChildNamesOf(const VKT::XBone* bone)
{
    VKT::XBoneList children;
    bone->ListChildren(children);
    return NamesOf(children);
}

std::vector<unsigned char> BytesOf(const std::string& path)
{
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

void WriteBytes(const std::string& path, const std::vector<unsigned char>& bytes)
{
    std::ofstream file(path, std::ios::binary);
    for (unsigned char byte : bytes)
        file.put(static_cast<char>(byte));
}

}  // namespace export_scenes
