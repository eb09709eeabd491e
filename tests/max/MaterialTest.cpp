#include "max/Material.h"

#include "scenes/ExportScenes.h"

namespace VKTMax {
namespace {

class MaterialBorderTest : public export_scenes::ExportTest {};

TEST_F(MaterialBorderTest, PlainMaterialHasNoSubMaterials)
{
    Mtl* red = maxhost::MakeMaterial("red");
    const HostMaterial read = ReadMaterial(red);
    EXPECT_EQ(read.handle, red);
    EXPECT_FALSE(read.isMulti);
    EXPECT_TRUE(read.subMaterials.empty());
}

TEST_F(MaterialBorderTest, MultiMaterialKeepsItsGaps)
{
    Mtl* red = maxhost::MakeMaterial("red");
    Mtl* blue = maxhost::MakeMaterial("blue");
    const HostMaterial read = ReadMaterial(maxhost::MakeMultiMaterial("multi", {red, nullptr, blue}));
    EXPECT_TRUE(read.isMulti);
    EXPECT_EQ(read.subMaterials, (std::vector<Mtl*>{red, nullptr, blue}));
    EXPECT_TRUE(ReadMaterial(maxhost::MakeMultiMaterial("none", {})).isMulti);
}

TEST_F(MaterialBorderTest, NoneIsEmpty)
{
    EXPECT_FALSE(ReadMaterial(nullptr));
    EXPECT_FALSE(ReadMaterial(nullptr).isMulti);
}

}  // namespace
}  // namespace VKTMax
