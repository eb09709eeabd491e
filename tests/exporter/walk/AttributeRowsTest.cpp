#include "exporter/walk/AttributeRows.h"

#include "scenes/ExportScenes.h"

namespace VKTMax {
namespace {

struct HostLamp {
    bool isOn = true;
    i32 mode = 3;
    f32 range = 2.5f;
    VKT::XColour colour{0.25f, 0.5f, 0.75f, 1.0f};
};
constexpr AttributeRow<HostLamp> kLamp[] = {
    {"range", &HostLamp::range},
    {"on", &HostLamp::isOn},
    {"mode", &HostLamp::mode},
    {"colour", &HostLamp::colour},
};

class AttributeRowsTest : public export_scenes::ExportTest {};

template <class T>
T ValueOf(VKT::XBase& node, const char* name)
{
    T value{};
    const VKT::XAttribute* found = node.GetExtraAttribute(name);
    EXPECT_TRUE(found && found->Get(value)) << name;
    return value;
}

TEST_F(AttributeRowsTest, EachRowIsAnAttributeOfItsType)
{
    VKT::XBase& node = *model.CreateNode(VKT::kFnBone);
    WriteAttributes<HostLamp>(node, HostLamp(), kLamp);
    VKT::XStringList names;
    node.ListExtraAttributes(names);
    EXPECT_EQ(names, (VKT::XStringList{"range", "on", "mode", "colour"}));
    EXPECT_EQ(ValueOf<f32>(node, "range"), 2.5f);
    EXPECT_EQ(ValueOf<bool>(node, "on"), true);
    EXPECT_EQ(ValueOf<i32>(node, "mode"), 3);
    EXPECT_EQ(ValueOf<VKT::XColour>(node, "colour"), (VKT::XColour{0.25f, 0.5f, 0.75f, 1.0f}));
}

TEST_F(AttributeRowsTest, AttributeOfThatNameStays)
{
    VKT::XBase& node = *model.CreateNode(VKT::kFnBone);
    node.CreateExtraAttribute("mode")->Set(i32{7});
    WriteAttributes<HostLamp>(node, HostLamp(), kLamp);
    EXPECT_EQ(ValueOf<i32>(node, "mode"), 7);
}

}  // namespace
}  // namespace VKTMax
