// Scenes that are very deep or very wide take a time that grows with their size, and a
// constant part of the stack. A quadratic walk would not come back within the time that
// tests are given.

#include "exporter/walk/BoneTree.h"
#include "scenes/ExportScenes.h"

namespace VKTMax {
namespace {

using namespace export_scenes;

constexpr int kNodes = 100000;

// Counts messages and keeps none: a recursive build logs one for each bone.
class LogCounter final : public VKT::XLogger {
public:
    void LogString(VKT::XLogLevel, const VKT::XString&) override { ++messages; }
    std::size_t messages = 0;
};

class LargeSceneTest : public ExportTest {
protected:
    void SetUp() override
    {
        ExportTest::SetUp();
        VKT::SetLogger(&counter);
    }
    void BuildChain()
    {
        INode* node = nullptr;
        for (int i = 0; i < kNodes; ++i) {
            node = maxhost::MakeNode(NumberedName(i), nullptr, node);
            nodes.push_back(node);
        }
    }
    void BuildFan()
    {
        for (int i = 0; i < kNodes; ++i)
            nodes.push_back(maxhost::MakeNode(NumberedName(i)));
    }
    void SelectAll()
    {
        for (INode* node : nodes)
            host.GetInterface().SelectNode(node, 0);
    }

    std::vector<INode*> nodes;
    LogCounter counter;
};

TEST_F(LargeSceneTest, DeepSceneIsWalked)
{
    BuildChain();
    ExportScene();
    EXPECT_EQ(model.GetNodes().size(), kNodes + 1u);
    EXPECT_EQ(counter.messages, std::size_t{kNodes});
    EXPECT_EQ(ChildNamesOf(BoneOf("n99998")), std::vector<std::string>{"n99999"});
}

TEST_F(LargeSceneTest, WideSceneIsWalked)
{
    BuildFan();
    ExportScene();
    EXPECT_EQ(model.GetNodes().size(), kNodes + 1u);
    EXPECT_EQ(ChildNamesOf(BoneOf("Scene_Root")).size(), std::size_t{kNodes});
}

TEST_F(LargeSceneTest, DeepSelectionIsWalked)
{
    BuildChain();
    SelectAll();
    ExportSelection();
    EXPECT_EQ(model.GetNodes().size(), std::size_t{kNodes});
    EXPECT_EQ(counter.messages, 0u);
    EXPECT_EQ(ChildNamesOf(BoneOf("n99998")), std::vector<std::string>{"n99999"});
}

TEST_F(LargeSceneTest, WideSelectionIsWalked)
{
    BuildFan();
    SelectAll();
    host.GetInterface().SelectNode(Root(), 0);
    ExportSelection();
    EXPECT_GE(model.GetNodes().size(), std::size_t{kNodes});
}

TEST_F(LargeSceneTest, BonesMadeOneByOneFromTheBottom)
{
    BuildChain();
    VKTExportCore core(model, false);
    for (auto node = nodes.rbegin(); node != nodes.rend(); ++node)
        ASSERT_TRUE(CreateBoneTree(core, *node, false));
    EXPECT_EQ(ChildNamesOf(BoneOf("n0")), std::vector<std::string>{"n1"});
}

TEST_F(LargeSceneTest, BonesMadeOneByOneFromTheTop)
{
    BuildChain();
    VKTExportCore core(model, false);
    for (INode* node : nodes)
        ASSERT_TRUE(CreateBoneTree(core, node, false));
    EXPECT_EQ(ChildNamesOf(BoneOf("n0")), std::vector<std::string>{"n1"});
}

}  // namespace
}  // namespace VKTMax
