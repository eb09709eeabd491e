#include "max/Stack.h"

#include <modstack.h>

#include "scenes/ExportScenes.h"

namespace VKTMax {
namespace {

using namespace export_scenes;
using maxhost::MakeNode;

class StackTest : public ExportTest {
protected:
    // A part of a stack over `below`, with modifiers of those numbers, the top one first.
    IDerivedObject* MakePart(Object* below, const std::vector<u32>& modifiers)
    {
        IDerivedObject* part = CreateDerivedObject(below);
        for (auto number = modifiers.rbegin(); number != modifiers.rend(); ++number)
            part->AddModifier(maxhost::SceneObjects::Adopt(new NamedModifier(Class_ID(*number, 0))));
        return part;
    }
    static std::vector<u32> NumbersOf(const std::vector<StackModifier>& stack)
    {
        std::vector<u32> numbers;
        for (const StackModifier& modifier : stack)
            numbers.push_back(modifier.type.a);
        return numbers;
    }
};

TEST_F(StackTest, ModifiersComeFromTheTopDownWithWhatLiesBelowThem)
{
    TriObject* base = MakeTriangle();
    IDerivedObject* lower = MakePart(base, {7, 8});
    const std::vector<StackModifier> stack = ReadStack(MakeNode("a", MakePart(lower, {5, 6})));
    ASSERT_EQ(NumbersOf(stack), (std::vector<u32>{5, 6, 7, 8}));
    EXPECT_EQ(stack[0].below.handle, lower);
    EXPECT_EQ(stack[1].below.handle, lower);
    EXPECT_EQ(stack[2].below.handle, base);
    EXPECT_EQ(stack[3].below.handle, base);
    EXPECT_EQ(stack[3].below.superClass, GEOMOBJECT_CLASS_ID);
}

TEST_F(StackTest, NodesWithoutModifiersHaveNone)
{
    EXPECT_TRUE(ReadStack(MakeNode("a", MakeTriangle())).empty());
    EXPECT_TRUE(ReadStack(MakeNode("b")).empty());
}

}  // namespace
}  // namespace VKTMax
