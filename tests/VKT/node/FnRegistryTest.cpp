#include "VKT/node/FnRegistry.h"

#include <gtest/gtest.h>

#include <memory>
#include <tuple>

#include "VKT/hierarchy/Bone.h"
#include "VKT/support/LogCatcher.h"
#include "VKT/support/RegistryRows.h"
#include "VKT/support/TestModel.h"

namespace VKT {
namespace {

using Test::kRegistryRows;
using Test::RegistryRow;
using Test::RegistryScope;

// A class that a developer adds.
class TestInfo final : public XFnInfo {
public:
    TestInfo(u32 type, XString typeName, XString chunkName = "TEST")
        : m_Type(type), m_TypeName(std::move(typeName)), m_ChunkName(std::move(chunkName))
    {
    }
    u32 GetType() const override { return m_Type; }
    XString GetTypeName() const override { return m_TypeName; }
    XString GetChunkName() const override { return m_ChunkName; }
    std::unique_ptr<XBase> Create(XModel* model) const override { return std::make_unique<XBone>(model); }

private:
    u32 m_Type;
    XString m_TypeName;
    XString m_ChunkName;
};

class FnRegistryTest : public testing::Test {
protected:
    LogCatcher m_Log;
    RegistryScope m_Registry;
    XModel m_Model;
};

TEST_F(FnRegistryTest, TheTable)
{
    const std::vector<const XFnInfo*> types = XFnListTypes();
    ASSERT_EQ(types.size(), std::size(kRegistryRows));
    for (std::size_t i = 0; i < types.size(); ++i) {
        EXPECT_EQ(types[i]->GetType(), kRegistryRows[i].type) << i;
        EXPECT_EQ(types[i]->GetTypeName(), kRegistryRows[i].typeName) << i;
        EXPECT_EQ(types[i]->GetChunkName(), kRegistryRows[i].chunkName) << i;
    }
    EXPECT_EQ(m_Log.Text(), "");
}

TEST_F(FnRegistryTest, EveryRowIsFoundByEachOfItsColumns)
{
    for (const RegistryRow& row : kRegistryRows) {
        SCOPED_TRACE(row.typeName);
        EXPECT_EQ(XFnTypeName(row.type), row.typeName);
        EXPECT_EQ(XFnChunkName(row.type), row.chunkName);
        ASSERT_NE(XFnFindByName(row.typeName), nullptr);
        EXPECT_EQ(XFnFindByName(row.typeName)->GetType(), row.type);
        const std::unique_ptr<XBase> byType(XFnCreate(row.type, &m_Model));
        EXPECT_EQ(byType == nullptr, *row.chunkName == '\0');
        if (!byType)
            continue;
        EXPECT_EQ(byType->GetApiType(), row.type);
        EXPECT_EQ(byType->GetID(), 0u);
        EXPECT_FALSE(m_Model.Holds(*byType));
        EXPECT_EQ(XFnTypeFromChunk(row.chunkName), row.type);
        const std::unique_ptr<XBase> byChunk(XFnCreateFromChunk(row.chunkName, &m_Model));
        ASSERT_NE(byChunk, nullptr);
        EXPECT_EQ(byChunk->GetApiType(), row.type);
    }
}

TEST_F(FnRegistryTest, InfoHasAChunkKeyAndNoEntry)
{
    EXPECT_EQ(XFnChunkName(162), "INFO");
    EXPECT_EQ(XFnTypeName(162), "");
    EXPECT_EQ(XFnTypeFromChunk("INFO"), 0u);
    EXPECT_EQ(XFnCreate(162, &m_Model), nullptr);
}

TEST_F(FnRegistryTest, AbstractAndUnknownTypesCreateNothing)
{
    EXPECT_EQ(XFnChunkName(25), "");
    EXPECT_EQ(XFnCreate(25, &m_Model), nullptr);
    EXPECT_EQ(XFnCreate(1, &m_Model), nullptr);
    EXPECT_EQ(XFnChunkName(1), "");
    EXPECT_EQ(XFnTypeName(1), "");
    EXPECT_EQ(XFnCreateFromChunk("", &m_Model), nullptr);  // the first abstract entry has this key
    EXPECT_EQ(XFnCreateFromChunk("NO_SUCH_CHUNK", &m_Model), nullptr);
    EXPECT_EQ(XFnCreateFromChunk("bone", &m_Model), nullptr);  // keys are exact
    EXPECT_EQ(XFnTypeFromChunk("NO_SUCH_CHUNK"), 0u);
    EXPECT_EQ(XFnTypeFromChunk(""), 0u);
    EXPECT_EQ(XFnFindByName("BONE"), nullptr);
    EXPECT_EQ(XFnFindByName(""), nullptr);
    EXPECT_EQ(m_Log.Text(), "");
}

TEST_F(FnRegistryTest, ATypeOfItsOwnIsTakenBehindTheOthers)
{
    XFnInfo* const info = new TestInfo(1000, "mine", "MINE");
    ASSERT_TRUE(XFnRegister(info));
    EXPECT_EQ(XFnListTypes().back(), info);
    EXPECT_EQ(XFnTypeFromChunk("MINE"), 1000u);
    EXPECT_EQ(XFnFindByName("mine"), info);
    EXPECT_EQ(std::unique_ptr<XBase>(XFnCreate(1000, &m_Model))->GetApiType(), kFnBone);
}

TEST_F(FnRegistryTest, ATypeWithAnIdOrANameThatExistsIsRefused)
{
    TestInfo sameName(1000, "bone");
    EXPECT_FALSE(XFnRegister(&sameName));
    EXPECT_EQ(m_Log.Text(), "Error : Type info clashes with previous entry \n");
    m_Log.Clear();
    TestInfo sameId(86, "anotherBone");
    EXPECT_FALSE(XFnRegister(&sameId));
    EXPECT_EQ(m_Log.Text(), "Error : Type info clashes with previous entry \n");
    EXPECT_EQ(XFnListTypes().size(), std::size(kRegistryRows));
    EXPECT_EQ(XFnTypeName(86), "bone");
}

TEST_F(FnRegistryTest, ChunkKeysMayClashAndTheFirstEntryCounts)
{
    ASSERT_TRUE(XFnRegister(new TestInfo(1000, "mine", "BONE")));
    EXPECT_EQ(XFnTypeFromChunk("BONE"), 86u);
    EXPECT_EQ(XFnChunkName(1000), "BONE");
}

TEST_F(FnRegistryTest, RegisteringAgainStartsAfresh)
{
    ASSERT_TRUE(XFnRegister(new TestInfo(1000, "mine")));
    EXPECT_TRUE(XRegisterTypes(&m_Log));
    EXPECT_EQ(XFnListTypes().size(), std::size(kRegistryRows));
    EXPECT_EQ(XFnFindByName("mine"), nullptr);
    EXPECT_EQ(m_Log.Text(), "");
}

TEST_F(FnRegistryTest, AnEmptyRegistryKnowsNoType)
{
    XFnInitialise(&m_Log);
    EXPECT_TRUE(XFnListTypes().empty());
    EXPECT_EQ(XFnTypeName(86), "");
    EXPECT_EQ(XFnTypeFromChunk("BONE"), 0u);
    EXPECT_EQ(XFnCreate(86, &m_Model), nullptr);
}

TEST_F(FnRegistryTest, WithoutARegistryLookUpsAnswerInvalid)
{
    EXPECT_TRUE(XFnShutdown());
    EXPECT_TRUE(XFnShutdown());  // once more does no harm
    EXPECT_EQ(XFnTypeFromChunk("BONE"), 173u);
    EXPECT_EQ(XFnChunkName(86), "invalid");
    EXPECT_EQ(XFnChunkName(162), "invalid");
    EXPECT_EQ(XFnTypeName(86), "invalid");
    EXPECT_EQ(XFnCreate(86, &m_Model), nullptr);
    EXPECT_EQ(XFnCreateFromChunk("BONE", &m_Model), nullptr);
    EXPECT_EQ(XFnFindByName("bone"), nullptr);
    TestInfo info(1000, "mine");
    EXPECT_FALSE(XFnRegister(&info));
    EXPECT_FALSE(XTranslatorLoad("scene.obj", &m_Model));
    EXPECT_EQ(m_Log.Text(), "");
}

TEST_F(FnRegistryTest, TheLoggerStaysThroughAShutdown)
{
    XLogger other;
    XFnInitialise(&other);
    EXPECT_EQ(GetLogger(), &other);
    XFnShutdown();
    EXPECT_EQ(GetLogger(), &other);
    XFnInitialise(nullptr);
    EXPECT_NE(GetLogger(), &other);
    SetLogger(&m_Log);
}

TEST_F(FnRegistryTest, TheSecondHalfOfTheHeader)
{
    EXPECT_EQ(XFileHeaderTail(), "0000#00000000|");
}

TEST_F(FnRegistryTest, NoForeignFileIsLoaded)
{
    EXPECT_FALSE(XTranslatorLoad("scene.obj", &m_Model));
    EXPECT_FALSE(XTranslatorLoad("", &m_Model));
}

TEST_F(FnRegistryTest, TheExtensionIsTheLastThreeCharactersInLowerCase)
{
    EXPECT_EQ(LowerCaseExtension("/a/scene.VkT"), "vkt");
    EXPECT_EQ(LowerCaseExtension("xvkt"), "vkt");
    EXPECT_EQ(LowerCaseExtension("KT"), "kt");
    EXPECT_EQ(LowerCaseExtension(""), "");
}

}  // namespace
}  // namespace VKT
