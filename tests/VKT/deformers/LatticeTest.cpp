#include "VKT/deformers/Lattice.h"

#include "VKT/deformers/BaseLattice.h"
#include "VKT/deformers/FFD.h"
#include "VKT/hierarchy/Bone.h"
#include "VKT/support/NodeTest.h"

// The three nodes of a free-form deformation.

using namespace VKT;
using namespace VKT::Test;

namespace {

class Lattice : public NodeTest {
protected:
    // Writes the document and reads it back, so that its nodes get linked.
    void Reload() { ASSERT_EQ(LoadText(m_Model, SaveText(m_Model)), FileOk); }
    // "ffd" deforms "grid" from "box", as a load leaves them.
    void LinkTheThree()
    {
        m_FFD.SetBaseLattice(&m_Base);
        m_FFD.SetDeformedLattice(&m_Lattice);
        m_FFD.SetName("ffd");
        m_Lattice.SetName("grid");
        m_Base.SetName("box");
        Reload();
    }
    template <class Node>
    Node& Find(const char* name)
    {
        return *XCast<Node>(m_Model.FindNode(name));
    }

    XLattice& m_Lattice = *m_Model.CreateNode<XLattice>();
    XBaseLattice& m_Base = *m_Model.CreateNode<XBaseLattice>();
    XFFD& m_FFD = *m_Model.CreateNode<XFFD>();
};

constexpr const char kLatticeText[] =
    "\tpoints 1\n"
    "\t\t1 2 3\n"
    "\tdeformer_queue 1 9\n"
    "\tintermediate_object 1\n"
    "\tdivisions_s 4\n"
    "\tdivisions_t 5\n"
    "\tdivisions_u 6\n";
constexpr const char kLatticeBytes[] =
    "05 00 6e 6f 64 65 31 01 00 00 00 "
    "01 00 00 00 00 00 80 3f 00 00 00 40 00 00 40 40 01 00 00 00 09 00 00 00 01 "
    "04 00 00 00 05 00 00 00 06 00 00 00";
constexpr const char kFFDText[] =
    "\taffected 1 9\n"
    "\tenvelope_weight 0.5\n"
    "\tbase 2\n"
    "\tdeformed 1\n";
constexpr const char kFFDBytes[] =
    "05 00 6e 6f 64 65 33 03 00 00 00 01 00 00 00 09 00 00 00 00 00 00 3f "
    "02 00 00 00 01 00 00 00";
constexpr const char kBaseBytes[] =
    "05 00 6e 6f 64 65 32 02 00 00 00 00 00 80 3f 00 00 00 40 00 00 40 40";  // 1, 2, 3

TEST_F(Lattice, FreshOnesWriteTheirDefaults)
{
    EXPECT_EQ(TextOf(m_Lattice),
              "\tpoints 0\n\tdeformer_queue 0\n\tintermediate_object 0\n"
              "\tdivisions_s 0\n\tdivisions_t 0\n\tdivisions_u 0\n");
    EXPECT_EQ(TextOf(m_Base), "\tx_size 1\n\ty_size 1\n\tz_size 1\n");
    EXPECT_EQ(TextOf(m_FFD), "\taffected 0 \n\tenvelope_weight 1\n\tbase 0\n\tdeformed 0\n");
    EXPECT_EQ(m_Lattice.GetDataSize(), 14u + 5 + 4 + 4 + 1 + 12);
    EXPECT_EQ(m_Base.GetDataSize(), 14u + 5 + 12);
    EXPECT_EQ(m_FFD.GetDataSize(), 14u + 5 + 8 + 8);
}

TEST_F(Lattice, EachAnswersForItsBases)
{
    for (const u32 type : {27u, 26u, 25u, 0u})
        EXPECT_EQ(m_Lattice.HasFn(type), &m_Lattice) << type;
    for (const u32 type : {48u, 25u, 0u})
        EXPECT_EQ(m_Base.HasFn(type), &m_Base) << type;
    EXPECT_EQ(m_Base.HasFn(26), nullptr);
    for (const u32 type : {118u, 114u, 0u})
        EXPECT_EQ(m_FFD.HasFn(type), &m_FFD) << type;
}

TEST_F(Lattice, BothFormsReadBack)
{
    EXPECT_TRUE(ReadText(m_Lattice, kLatticeText));
    EXPECT_EQ(TextOf(m_Lattice), kLatticeText);
    EXPECT_EQ(Hex(BodyOf(m_Lattice)), kLatticeBytes);
    EXPECT_TRUE(ReadText(m_FFD, kFFDText));
    EXPECT_EQ(TextOf(m_FFD), kFFDText);
    EXPECT_EQ(Hex(BodyOf(m_FFD)), kFFDBytes);
    XLattice& lattice = *m_Model.CreateNode<XLattice>();
    EXPECT_TRUE(ReadBody(lattice, Bytes(kLatticeBytes)));
    EXPECT_EQ(TextOf(lattice), kLatticeText);
    XFFD& ffd = *m_Model.CreateNode<XFFD>();
    EXPECT_TRUE(ReadBody(ffd, Bytes(kFFDBytes)));
    EXPECT_EQ(TextOf(ffd), kFFDText);
}

TEST_F(Lattice, BaseRepeatsXInTextAndKeepsAllSizesInBytes)
{
    m_Base.SetXSize(1);
    m_Base.SetYSize(2);
    m_Base.SetZSize(3);
    EXPECT_EQ(TextOf(m_Base), "\tx_size 1\n\ty_size 1\n\tz_size 1\n");
    EXPECT_EQ(Hex(BodyOf(m_Base)), kBaseBytes);
    XBaseLattice& other = *m_Model.CreateNode<XBaseLattice>();
    EXPECT_TRUE(ReadBody(other, Bytes(kBaseBytes)));
    EXPECT_EQ(other.GetXSize(), 1);
    EXPECT_EQ(other.GetYSize(), 2);
    EXPECT_EQ(other.GetZSize(), 3);
}

TEST_F(Lattice, BaseTakesEachKeyOfATextForWhatItSays)
{
    EXPECT_TRUE(ReadText(m_Base, "\tx_size 4\n\ty_size 5\n\tz_size 6\n"));
    EXPECT_EQ(m_Base.GetXSize(), 4);
    EXPECT_EQ(m_Base.GetYSize(), 5);
    EXPECT_EQ(m_Base.GetZSize(), 6);
}

TEST_F(Lattice, OlderBaseHasNoSizesInEitherFormAndDirection)
{
    MakeOlder();
    XBaseLattice& base = *m_Model.CreateNode<XBaseLattice>();
    base.SetXSize(7);
    EXPECT_EQ(TextOf(base), "");
    EXPECT_EQ(Hex(BodyOf(base)), "05 00 6e 6f 64 65 31 01 00 00 00");
    EXPECT_EQ(base.GetDataSize(), 14u + 5 + 12);  // whatever the version
    XBaseLattice& other = *m_Model.CreateNode<XBaseLattice>();
    EXPECT_TRUE(ReadText(other, ""));
    EXPECT_TRUE(ReadBody(other, BodyOf(base)));
    EXPECT_EQ(other.GetXSize(), 1);
    EXPECT_EQ(other.GetYSize(), 1);
    EXPECT_EQ(other.GetZSize(), 1);
}

TEST_F(Lattice, OlderFFDLacksTheWeightOfTheDeformer)
{
    MakeOlder();
    XFFD& ffd = *m_Model.CreateNode<XFFD>();
    EXPECT_TRUE(ReadText(ffd, "\taffected 1 9\n\tbase 2\n\tdeformed 1\n"));
    EXPECT_EQ(TextOf(ffd), Replaced(kFFDText, "0.5", "1"));
    XFFD& bytes = *m_Model.CreateNode<XFFD>();
    EXPECT_TRUE(ReadBody(bytes, Bytes(Replaced(kFFDBytes, "00 00 00 3f ", ""))));
    EXPECT_EQ(TextOf(bytes), Replaced(kFFDText, "0.5", "1"));
    XLattice& lattice = *m_Model.CreateNode<XLattice>();
    EXPECT_TRUE(ReadText(lattice, Replaced(kLatticeText, "\tintermediate_object 1\n", "")));
    EXPECT_EQ(TextOf(lattice), Replaced(kLatticeText, "object 1", "object 0"));
    EXPECT_TRUE(ReadBody(lattice, Bytes(kLatticeBytes)));
    EXPECT_EQ(TextOf(lattice), kLatticeText);
}

TEST_F(Lattice, WrongKeysAreLogged)
{
    for (const char* const key : {"divisions_s", "divisions_t", "divisions_u"})
        EXPECT_FALSE(ReadText(m_Lattice, Replaced(kLatticeText, key, "wrong")));
    for (const char* const key : {"base", "deformed"})
        EXPECT_FALSE(ReadText(m_FFD, Replaced(kFFDText, key, "wrong")));
    for (const char* const key : {"x_size", "y_size", "z_size"})
        EXPECT_FALSE(ReadText(m_Base, Replaced("\tx_size 4\n\ty_size 5\n\tz_size 6\n", key, "wrong")));
    EXPECT_EQ(m_Log.Text(),
              "Error : Expected divisions_s got wrong [.\\src\\VKT\\Lattice:1]\n"
              "Error : Expected divisions_t got wrong [.\\src\\VKT\\Lattice:2]\n"
              "Error : Expected divisions_u got wrong [.\\src\\VKT\\Lattice:3]\n"
              "Error : Expected base got wrong [.\\src\\VKT\\FFD:1]\n"
              "Error : Expected deformed got wrong [.\\src\\VKT\\FFD:2]\n"
              "Error : Expected x_size got wrong [.\\src\\VKT\\BaseLattice:1]\n"
              "Error : Expected y_size got wrong [.\\src\\VKT\\BaseLattice:2]\n"
              "Error : Expected z_size got wrong [.\\src\\VKT\\BaseLattice:3]\n");
}

TEST_F(Lattice, EveryCutOfTheBytesFails)
{
    const auto expectCuts = [](XBase& node, const std::string& bytes) {
        for (std::size_t length = 0; length < bytes.size(); ++length)
            EXPECT_FALSE(ReadBody(node, bytes.substr(0, length))) << length;
    };
    expectCuts(m_Lattice, Bytes(kLatticeBytes));
    expectCuts(m_Base, Bytes(kBaseBytes));
    expectCuts(m_FFD, Bytes(kFFDBytes));
}

TEST_F(Lattice, AccessorsReachTheirFields)
{
    m_Lattice.SetDivisions(4, 5, 6);
    u32 s = 0;
    u32 t = 0;
    u32 u = 0;
    m_Lattice.GetDivisions(s, t, u);
    EXPECT_EQ(s, 4u);
    EXPECT_EQ(t, 5u);
    EXPECT_EQ(u, 6u);
    EXPECT_NE(TextOf(m_Lattice).find("\tdivisions_s 4\n\tdivisions_t 5\n\tdivisions_u 6\n"),
              std::string::npos);

    EXPECT_EQ(m_FFD.GetBaseLattice(), nullptr);
    EXPECT_EQ(m_FFD.GetDeformedLattice(), nullptr);
    m_FFD.SetBaseLattice(&m_Base);
    m_FFD.SetDeformedLattice(&m_Lattice);
    EXPECT_EQ(m_FFD.GetBaseLattice(), &m_Base);
    EXPECT_EQ(m_FFD.GetDeformedLattice(), &m_Lattice);
    ASSERT_TRUE(ReadText(m_FFD, "affected 0 envelope_weight 1 base 1 deformed 2"));  // of wrong types
    EXPECT_EQ(m_FFD.GetBaseLattice(), nullptr);
    EXPECT_EQ(m_FFD.GetDeformedLattice(), nullptr);
    m_FFD.SetBaseLattice(nullptr);
    m_FFD.SetDeformedLattice(nullptr);
    EXPECT_EQ(TextOf(m_FFD), "\taffected 0 \n\tenvelope_weight 1\n\tbase 0\n\tdeformed 0\n");
}

TEST_F(Lattice, LoadLinksALatticeToTheFirstDeformerThatNamesIt)
{
    m_Lattice.SetName("grid");
    m_Base.SetName("box");
    m_Model.CreateNode<XLattice>()->SetName("lonely");
    m_FFD.SetName("b_second");
    m_FFD.SetDeformedLattice(&m_Lattice);
    XFFD& first = *m_Model.CreateNode<XFFD>();
    first.SetName("a_first");
    first.SetDeformedLattice(&m_Lattice);
    first.SetBaseLattice(&m_Base);
    EXPECT_EQ(m_Lattice.GetFFDId(), 0u);
    Reload();
    EXPECT_EQ(Find<XLattice>("grid").GetFFDId(), m_Model.FindNode("a_first")->GetID());
    EXPECT_EQ(Find<XLattice>("grid").GetBaseLatticeId(), m_Model.FindNode("box")->GetID());
    EXPECT_EQ(Find<XLattice>("lonely").GetFFDId(), 0u);
    EXPECT_EQ(Find<XLattice>("lonely").GetBaseLatticeId(), 0u);
}

TEST_F(Lattice, LinkWithoutABaseThatResolvesHasNone)
{
    m_Lattice.SetName("grid");
    m_FFD.SetDeformedLattice(&m_Lattice);
    ASSERT_TRUE(ReadText(m_FFD, "affected 0 envelope_weight 1 base 99 deformed 1"));
    Reload();
    EXPECT_NE(Find<XLattice>("grid").GetFFDId(), 0u);
    EXPECT_EQ(Find<XLattice>("grid").GetBaseLatticeId(), 0u);
}

TEST_F(Lattice, TheThreeGoTogether)
{
    LinkTheThree();
    XLattice& lattice = Find<XLattice>("grid");
    XFFD& ffd = Find<XFFD>("ffd");
    const u32 base = Find<XBaseLattice>("box").GetID();
    EXPECT_FALSE(lattice.NodeDeath(base));
    EXPECT_FALSE(lattice.NodeDeath(ffd.GetID()));
    EXPECT_TRUE(lattice.NodeDeath(99));
    EXPECT_FALSE(ffd.NodeDeath(base));
    EXPECT_FALSE(ffd.NodeDeath(lattice.GetID()));

    std::set<u32> ids;
    m_Model.GetDeleteFlags().Clear(DeleteDeformerInputs);
    ffd.PreDelete(ids);
    EXPECT_TRUE(ids.empty());
    m_Model.GetDeleteFlags().Set(DeleteDeformerInputs);
    ffd.PreDelete(ids);
    EXPECT_EQ(ids, (std::set<u32>{base, lattice.GetID()}));
}

// Without the flag the deformer asks for nobody: the others are told of the death.
TEST_F(Lattice, DeathOfTheBaseTakesTheOthersAlongWithoutTheFlag)
{
    LinkTheThree();
    m_Model.GetDeleteFlags().Clear(DeleteDeformerInputs);
    EXPECT_EQ(m_Model.DeleteNodes({Find<XBaseLattice>("box").GetID()}), 3u);
    EXPECT_EQ(m_Model.GetNodes().size(), 0u);
}

TEST_F(Lattice, DeathOfTheDeformerTakesTheLatticeAlongWithoutTheFlag)
{
    LinkTheThree();
    m_Model.GetDeleteFlags().Clear(DeleteDeformerInputs);
    EXPECT_EQ(m_Model.DeleteNodes({Find<XFFD>("ffd").GetID()}), 2u);
    EXPECT_EQ(m_Model.FindNode("grid"), nullptr);
    EXPECT_NE(m_Model.FindNode("box"), nullptr);
}

TEST_F(Lattice, DeathOfOneTakesAllAlongUnderTheFlag)
{
    LinkTheThree();
    const std::string text = SaveText(m_Model);
    for (const char* const name : {"box", "grid", "ffd"}) {
        ASSERT_EQ(LoadText(m_Model, text), FileOk);
        EXPECT_EQ(m_Model.DeleteNodes({m_Model.FindNode(name)->GetID()}), 3u) << name;
    }
}

TEST_F(Lattice, NoneIsNoNodeThatDies)
{
    EXPECT_TRUE(m_Lattice.NodeDeath(0));
    m_FFD.AddAffected(&m_Lattice);
    EXPECT_TRUE(m_FFD.NodeDeath(0));
    std::set<u32> ids;
    m_FFD.PreDelete(ids);
    EXPECT_TRUE(ids.empty());
}

TEST_F(Lattice, ClonesHaveAllValuesAndNoLink)
{
    m_FFD.SetBaseLattice(&m_Base);
    m_FFD.SetDeformedLattice(&m_Lattice);
    m_FFD.SetName("ffd");
    m_Lattice.SetName("grid");
    m_Lattice.SetDivisions(4, 5, 6);
    m_Base.SetYSize(5);
    Reload();
    const XLattice& lattice = Find<XLattice>("grid");
    const XLattice& copy = *XCast<XLattice>(lattice.Clone());
    EXPECT_EQ(TextOf(copy), TextOf(lattice));
    EXPECT_EQ(copy.GetFFDId(), 0u);
    const XFFD& ffd = Find<XFFD>("ffd");
    EXPECT_EQ(TextOf(*ffd.Clone()), TextOf(ffd));
    XBaseLattice& base = *m_Model.CreateNode<XBaseLattice>();
    base.SetYSize(5);
    base.SetZSize(6);
    const XBaseLattice& other = *XCast<XBaseLattice>(base.Clone());
    EXPECT_EQ(other.GetYSize(), 5);
    EXPECT_EQ(other.GetZSize(), 6);
}

TEST_F(Lattice, PropertiesReachTheFields)
{
    const XNodeProperties& ffd = *m_FFD.GetNodeProperties();
    EXPECT_EQ(ffd.GetNumProperties(), 4u);
    EXPECT_TRUE(ffd.SetNode(&m_FFD, 3, &m_Base));
    EXPECT_TRUE(ffd.SetNode(&m_FFD, 4, &m_Lattice));
    EXPECT_FALSE(ffd.SetNode(&m_FFD, 3, &m_Lattice));
    EXPECT_FALSE(ffd.SetNode(&m_FFD, 4, &m_Base));
    EXPECT_EQ(m_FFD.GetBaseLattice(), &m_Base);
    EXPECT_EQ(m_FFD.GetDeformedLattice(), &m_Lattice);

    const XNodeProperties& base = *m_Base.GetNodeProperties();
    EXPECT_EQ(base.GetNumProperties(), 3u);
    for (u32 id = 1; id <= 3; ++id)
        EXPECT_TRUE(base.SetFloat(&m_Base, id, static_cast<f32>(id + 4)));
    EXPECT_EQ(m_Base.GetXSize(), 5);
    EXPECT_EQ(m_Base.GetYSize(), 6);
    EXPECT_EQ(m_Base.GetZSize(), 7);
}

TEST_F(Lattice, LinksShareTheNumbersOfDivisionsAndAreReadOnly)
{
    const XNodeProperties& properties = *m_Lattice.GetNodeProperties();
    EXPECT_EQ(properties.GetNumProperties(), 8u);
    for (i32 id = 4; id <= 6; ++id)
        EXPECT_TRUE(properties.SetInteger(&m_Lattice, static_cast<u32>(id), id));
    EXPECT_NE(TextOf(m_Lattice).find("\tdivisions_s 4\n\tdivisions_t 5\n\tdivisions_u 6\n"),
              std::string::npos);
    EXPECT_EQ(properties.GetPropertyId("ffd"), 5u);
    EXPECT_EQ(properties.GetPropertyName(5), "divisions_t");
    EXPECT_EQ(properties.GetPropertyId("base_lattice"), 6u);
    EXPECT_EQ(properties.GetPropertyName(6), "divisions_u");
    EXPECT_FALSE(properties.SetNode(&m_Lattice, 5, &m_FFD));
    XBase* ffd = &m_FFD;
    EXPECT_TRUE(properties.GetNode(&m_Lattice, 5, ffd));
    EXPECT_EQ(ffd, nullptr);
    m_FFD.SetDeformedLattice(&m_Lattice);
    m_Lattice.SetName("grid");
    Reload();
    XLattice& lattice = Find<XLattice>("grid");
    EXPECT_TRUE(properties.GetNode(&lattice, 5, ffd));
    EXPECT_EQ(ffd->GetID(), lattice.GetFFDId());
}

}  // namespace
