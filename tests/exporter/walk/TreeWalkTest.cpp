#include "exporter/walk/TreeWalk.h"

#include "scenes/ExportScenes.h"

namespace VKTMax {
namespace {

using namespace export_scenes;
using maxhost::MakeNode;

class TreeWalkTest : public ExportTest {
protected:
    void SetUp() override
    {
        ExportTest::SetUp();
        a = MakeNode("a");
        INode* a1 = MakeNode("a1", nullptr, a);
        MakeNode("a11", nullptr, a1);
        MakeNode("a2", nullptr, a);
    }
    // Walks from `a` and answers what was visited: "+" entered, "-" left. Skips and stops at
    // the nodes of those names.
    std::string Walk(const std::string& skipped, const std::string& stopped, const std::string& stoppedBehind)
    {
        std::string visits;
        const auto enter = [&](INode* node) {
            const std::string name = node->GetName();
            visits += "+" + name;
            return name == stopped ? Visit::Stop : name == skipped ? Visit::Skip : Visit::Descend;
        };
        const auto leave = [&](INode* node) {
            visits += std::string("-") + node->GetName();
            return node->GetName() != stoppedBehind;
        };
        visits += WalkTree(a, enter, leave) ? "" : " stopped";
        return visits;
    }

    INode* a = nullptr;
};

TEST_F(TreeWalkTest, ChildrenComeBetweenEnterAndLeave)
{
    EXPECT_EQ(Walk("", "", ""), "+a+a1+a11-a11-a1+a2-a2-a");
}

TEST_F(TreeWalkTest, SkippedNodeIsNeitherDescendedNorLeft)
{
    EXPECT_EQ(Walk("a1", "", ""), "+a+a1+a2-a2-a");
    EXPECT_EQ(Walk("a", "", ""), "+a");
}

TEST_F(TreeWalkTest, StopEndsTheWalk)
{
    EXPECT_EQ(Walk("", "a11", ""), "+a+a1+a11 stopped");
    EXPECT_EQ(Walk("", "a", ""), "+a stopped");
    EXPECT_EQ(Walk("", "", "a1"), "+a+a1+a11-a11-a1 stopped");
}

}  // namespace
}  // namespace VKTMax
