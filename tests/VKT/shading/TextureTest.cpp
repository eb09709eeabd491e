#include "VKT/shading/Texture.h"

#include <cmath>

#include "VKT/shading/BumpMap.h"
#include "VKT/shading/CubeMap.h"
#include "VKT/shading/SphereMap.h"
#include "VKT/shading/TexPlacement2D.h"
#include "VKT/shading/TexPlacement3D.h"
#include "VKT/support/NodeTest.h"

// Textures that hold ids of images: the base, bump maps and environment maps.

using namespace VKT;
using namespace VKT::Test;

namespace {

class Texture : public NodeTest {
protected:
    template <class Node>
    Node& New()
    {
        return *m_Model.CreateNode<Node>();
    }
    // What a body of these bytes writes again, in both forms.
    template <class Node>
    void ExpectBytes(const std::string& hex, const std::string& text)
    {
        XModel model;
        Node& node = *model.CreateNode<Node>();
        EXPECT_TRUE(ReadBody(node, Bytes(hex)));
        EXPECT_EQ(Hex(BodyOf(node)), hex);
        EXPECT_EQ(TextOf(node), text);
        EXPECT_EQ(node.GetDataSize(), 8 + Bytes(hex).size());
        for (std::size_t length = 0; length < Bytes(hex).size(); ++length)
            EXPECT_FALSE(ReadBody(*model.CreateNode<Node>(), Bytes(hex).substr(0, length))) << length;
    }
};

constexpr const char kBase[] = "05 00 6e 6f 64 65 31 01 00 00 00 ";

TEST_F(Texture, HoldsItsImagesInBytesAlone)
{
    XTexture& texture = New<XTexture>();
    EXPECT_EQ(ChunkOf(texture), "TEXTURE node1\n{\n\tid 1\n}\n");
    EXPECT_EQ(texture.GetNumImages(), 0u);
    EXPECT_EQ(texture.GetDataSize(), 14u + 5 + 4);
    texture.SetImages({3, 4});
    EXPECT_EQ(TextOf(texture), "");
    EXPECT_EQ(Hex(BodyOf(texture)), std::string(kBase) + "02 00 00 00 03 00 00 00 04 00 00 00");
    EXPECT_EQ(texture.GetNumImages(), 2u);
    EXPECT_EQ(texture.GetImage(1), 4u);
    EXPECT_EQ(texture.GetImage(2), 0u);
    ExpectBytes<XTexture>(std::string(kBase) + "02 00 00 00 03 00 00 00 04 00 00 00", "");
    EXPECT_FALSE(ReadBody(texture, Bytes(std::string(kBase) + "ff ff ff ff 03 00 00 00")));
}

TEST_F(Texture, AnswerForTheirBases)
{
    const struct {
        u32 type;
        std::vector<u32> bases;
    } cases[] = {{2, {168, 0}}, {3, {2, 168, 0}}, {5, {4, 2, 168, 0}}, {6, {4, 2, 168, 0}}};
    for (const auto& [type, bases] : cases) {
        const XBase* node = m_Model.CreateNode(type);
        EXPECT_EQ(node->GetApiType(), type);
        EXPECT_EQ(node->HasFn(type), node);
        for (const u32 base : bases)
            EXPECT_EQ(node->HasFn(base), node) << type << ' ' << base;
        EXPECT_EQ(node->HasFn(7), nullptr);
    }
    EXPECT_EQ(m_Model.CreateNode(kFnEnvMap), nullptr);
    EXPECT_EQ(New<XTexture>().GetNodeProperties()->GetNumProperties(), 0u);
}

TEST_F(Texture, CloneHasTheImages)
{
    XTexture& texture = New<XTexture>();
    texture.SetImages({3, 4});
    EXPECT_EQ(XCast<XTexture>(texture.Clone())->GetImages(), (XIndexList{3, 4}));
    XCubeMap& cube = New<XCubeMap>();
    cube.SetDynamic(true);
    cube.SetBack(7);
    cube.SetPlacement(8);
    const XCubeMap& clone = *XCast<XCubeMap>(cube.Clone());
    EXPECT_TRUE(clone.IsDynamic());
    EXPECT_EQ(clone.GetBack(), 7u);
    EXPECT_EQ(clone.GetPlacement(), 8u);
}

TEST_F(Texture, DeathOfAnImageEmptiesItsPlaces)
{
    XCubeMap& cube = New<XCubeMap>();
    cube.SetImages({3, 4, 3, 5, 6, 7});
    cube.SetPlacement(3);
    EXPECT_TRUE(cube.NodeDeath(3));
    EXPECT_EQ(cube.GetImages(), (XIndexList{0, 4, 0, 5, 6, 7}));
    EXPECT_EQ(cube.GetPlacement(), 0u);
    EXPECT_TRUE(cube.NodeDeath(9));
    EXPECT_EQ(cube.GetImages(), (XIndexList{0, 4, 0, 5, 6, 7}));
}

TEST_F(Texture, DeletedImagesLeaveTheirTextures)
{
    XSphereMap& sphere = New<XSphereMap>();
    XTexPlacement2D& image = New<XTexPlacement2D>();
    XTexPlacement3D& place = New<XTexPlacement3D>();
    sphere.SetImageId(image.GetID());
    sphere.SetPlacement(place.GetID());
    EXPECT_TRUE(m_Model.DeleteNode(image.GetID()));
    EXPECT_EQ(TextOf(sphere), "\timage 0\n\tplacement 3\n");
    EXPECT_TRUE(m_Model.DeleteNode(place.GetID()));
    EXPECT_EQ(TextOf(sphere), "\timage 0\n\tplacement 0\n");
}

// Bump maps.

TEST_F(Texture, BumpMapInBothForms)
{
    XBumpMap& bump = New<XBumpMap>();
    EXPECT_EQ(ChunkOf(bump), "BUMP_MAP node1\n{\n\tid 1\n\tbump_depth 0\n\ttexture_id 0\n}\n");
    EXPECT_EQ(bump.GetDataSize(), 14u + 5 + 4 + 4 + 4);
    EXPECT_TRUE(ReadText(bump, "bump_depth 2 texture_id 3"));
    EXPECT_EQ(bump.GetBumpDepth(), 2);
    EXPECT_EQ(bump.GetTextureId(), 3u);
    const std::string bytes = std::string(kBase) + "01 00 00 00 03 00 00 00 00 00 00 40";
    EXPECT_EQ(Hex(BodyOf(bump)), bytes);
    ExpectBytes<XBumpMap>(bytes, "\tbump_depth 2\n\ttexture_id 3\n");
    XBumpMap& set = New<XBumpMap>();
    set.SetBumpDepth(2);
    set.SetTextureId(3);
    EXPECT_EQ(TextOf(set), TextOf(bump));
    EXPECT_EQ(TextOf(*set.Clone()), TextOf(bump));
}

TEST_F(Texture, BumpMapOfADamagedFileMayHoldNoImageOrMany)
{
    ExpectBytes<XBumpMap>(std::string(kBase) + "00 00 00 00 00 00 00 40", "\tbump_depth 2\n\ttexture_id 0\n");
    ExpectBytes<XBumpMap>(std::string(kBase) + "02 00 00 00 03 00 00 00 04 00 00 00 00 00 00 40",
                          "\tbump_depth 2\n\ttexture_id 3\n");
}

TEST_F(Texture, BumpMapKeysAreChecked)
{
    EXPECT_FALSE(ReadText(New<XBumpMap>(), "depth 2 texture_id 3"));
    EXPECT_FALSE(ReadText(New<XBumpMap>(), "bump_depth 2 image 3"));
    EXPECT_FALSE(ReadText(New<XBumpMap>(), "bump_depth 2 texture_id x"));
    EXPECT_EQ(m_Log.Text(),
              "Error : Expected bump_depth got depth [.\\src\\VKT\\BumpMap:1]\n"
              "Error : Expected texture_id got image [.\\src\\VKT\\BumpMap:2]\n");
}

TEST_F(Texture, BumpMapVocabularyHasItsImageAsAFloat)
{
    XBumpMap& bump = New<XBumpMap>();
    const XNodeProperties& properties = *bump.GetNodeProperties();
    EXPECT_EQ(properties.GetNumProperties(), 2u);
    EXPECT_EQ(bump.GetPropertyId("bump_depth"), 1u);
    EXPECT_EQ(bump.GetPropertyId("placement"), 2u);
    EXPECT_TRUE(bump.IsPropertyAnimated(1));
    EXPECT_FALSE(bump.IsPropertyAnimated(2));
    EXPECT_TRUE(properties.SetFloat(&bump, 1, 2));
    EXPECT_TRUE(properties.SetFloat(&bump, 2, 3));
    EXPECT_EQ(TextOf(bump), "\tbump_depth 2\n\ttexture_id 3\n");
    f32 placement = 0;
    EXPECT_TRUE(properties.GetFloat(&bump, 2, placement));
    EXPECT_EQ(placement, 3);
    for (const f32 value : {-1.0f, 4294967296.0f, std::nanf("")})
        EXPECT_FALSE(properties.SetFloat(&bump, 2, value)) << value;
    EXPECT_EQ(bump.GetTextureId(), 3u);
}

// Environment maps.

constexpr const char kCubeText[] =
    "\tdynamic 0\n"
    "\tplacement 1\n"
    "\tleft 2\n"
    "\tright 3\n"
    "\ttop 4\n"
    "\tbottom 5\n"
    "\tfront 6\n"
    "\tback 7\n";
constexpr const char kCubeBytes[] =
    "05 00 6e 6f 64 65 31 01 00 00 00 "
    "06 00 00 00 02 00 00 00 03 00 00 00 04 00 00 00 05 00 00 00 06 00 00 00 07 00 00 00 "
    "01 00 00 00 00";

TEST_F(Texture, CubeMapInBothForms)
{
    XCubeMap& cube = New<XCubeMap>();
    EXPECT_EQ(ChunkOf(cube),
              "CUBE_MAP node1\n{\n\tid 1\n\tdynamic 0\n\tplacement 0\n\tleft 0\n\tright 0\n\ttop 0\n"
              "\tbottom 0\n\tfront 0\n\tback 0\n}\n");
    EXPECT_EQ(cube.GetDataSize(), 14u + 5 + 4 + 24 + 4 + 1);
    EXPECT_TRUE(ReadText(cube, kCubeText));
    EXPECT_EQ(TextOf(cube), kCubeText);
    EXPECT_EQ(Hex(BodyOf(cube)), kCubeBytes);
    EXPECT_EQ(cube.GetPlacement(), 1u);
    EXPECT_EQ(cube.GetLeft(), 2u);
    EXPECT_EQ(cube.GetRight(), 3u);
    EXPECT_EQ(cube.GetTop(), 4u);
    EXPECT_EQ(cube.GetBottom(), 5u);
    EXPECT_EQ(cube.GetFront(), 6u);
    EXPECT_EQ(cube.GetBack(), 7u);
    ExpectBytes<XCubeMap>(kCubeBytes, kCubeText);
    XCubeMap& set = New<XCubeMap>();
    set.SetPlacement(1);
    set.SetLeft(2);
    set.SetRight(3);
    set.SetTop(4);
    set.SetBottom(5);
    set.SetFront(6);
    set.SetBack(7);
    EXPECT_EQ(TextOf(set), kCubeText);
}

TEST_F(Texture, DynamicCubeMapHasNoFacesInText)
{
    XCubeMap& cube = New<XCubeMap>();
    EXPECT_TRUE(ReadText(cube, "dynamic 1 placement 2"));
    EXPECT_EQ(TextOf(cube), "\tdynamic 1\n\tplacement 2\n");
    EXPECT_EQ(cube.GetImages(), XIndexList(6, 0));
    ExpectBytes<XCubeMap>(Replaced(kCubeBytes, "01 00 00 00 00", "01 00 00 00 01"),
                          "\tdynamic 1\n\tplacement 1\n");
    // What stands behind is none of it.
    const std::string file =
        "|VKT_004A#0000#00000000|\nCUBE_MAP a\n{\n\tid 1\n\tdynamic 1\n\tplacement 2\n\tleft 3\n}\n";
    ASSERT_EQ(LoadText(m_Model, file), FileOk);
    EXPECT_EQ(XCast<XCubeMap>(m_Model.FindNode("a"))->GetLeft(), 0u);
}

TEST_F(Texture, CubeMapOfADamagedFileMayLackFaces)
{
    ExpectBytes<XCubeMap>(std::string(kBase) + "01 00 00 00 02 00 00 00 01 00 00 00 00",
                          "\tdynamic 0\n\tplacement 1\n\tleft 2\n\tright 0\n\ttop 0\n\tbottom 0\n\tfront 0\n"
                          "\tback 0\n");
}

TEST_F(Texture, CubeMapKeysAreChecked)
{
    const struct {
        const char* key;
        const char* place;
    } cases[] = {{"dynamic", "CubeMap:1"},     {"placement", "CubeMap:2"}, {"left", "CubeMap faces:1"},
                 {"right", "CubeMap faces:2"}, {"top", "CubeMap faces:3"}, {"bottom", "CubeMap faces:4"},
                 {"front", "CubeMap faces:5"}, {"back", "CubeMap faces:6"}};
    for (const auto& [key, place] : cases) {
        m_Log.Clear();
        EXPECT_FALSE(ReadText(New<XCubeMap>(), Replaced(kCubeText, key, "wrong")));
        EXPECT_EQ(m_Log.Text(),
                  std::string("Error : Expected ") + key + " got wrong [.\\src\\VKT\\" + place + "]\n");
    }
}

TEST_F(Texture, SphereMapInBothForms)
{
    XSphereMap& sphere = New<XSphereMap>();
    EXPECT_EQ(ChunkOf(sphere), "SPHERE_MAP node1\n{\n\tid 1\n\timage 0\n\tplacement 0\n}\n");
    EXPECT_EQ(sphere.GetDataSize(), 14u + 5 + 4 + 4 + 4);
    EXPECT_TRUE(ReadText(sphere, "image 2 placement 3"));
    EXPECT_EQ(sphere.GetImageId(), 2u);
    EXPECT_EQ(sphere.GetPlacement(), 3u);
    const std::string bytes = std::string(kBase) + "01 00 00 00 02 00 00 00 03 00 00 00";
    EXPECT_EQ(Hex(BodyOf(sphere)), bytes);
    ExpectBytes<XSphereMap>(bytes, "\timage 2\n\tplacement 3\n");
    EXPECT_EQ(TextOf(*sphere.Clone()), TextOf(sphere));
    XSphereMap& set = New<XSphereMap>();
    set.SetImageId(2);
    set.SetPlacement(3);
    EXPECT_EQ(TextOf(set), TextOf(sphere));
    m_Log.Clear();
    EXPECT_FALSE(ReadText(New<XSphereMap>(), "picture 2 placement 3"));
    EXPECT_FALSE(ReadText(New<XSphereMap>(), "image 2 place 3"));
    EXPECT_EQ(m_Log.Text(),
              "Error : Expected image got picture [.\\src\\VKT\\SphereMap:1]\n"
              "Error : Expected placement got place [.\\src\\VKT\\SphereMap:2]\n");
}

TEST_F(Texture, EnvironmentMapVocabularyNamesNodes)
{
    XBase* const image = &New<XTexPlacement2D>();
    XBase* const place = &New<XTexPlacement3D>();
    XCubeMap& cube = New<XCubeMap>();
    const XNodeProperties& properties = *cube.GetNodeProperties();
    EXPECT_EQ(properties.GetNumProperties(), 8u);
    EXPECT_EQ(properties.GetPropertyNodeType(1), 0x5Au);
    const char* const names[] = {"placement", "dynamic", "left", "right", "top", "bottom", "front", "back"};
    for (u32 id = 1; id <= 8; ++id) {
        EXPECT_EQ(cube.GetPropertyName(id), names[id - 1]);
        EXPECT_EQ(properties.GetPropertyFlags(id), 0u);
    }
    EXPECT_TRUE(properties.SetNode(&cube, 1, place));
    EXPECT_FALSE(properties.SetNode(&cube, 1, image));
    EXPECT_TRUE(properties.SetBool(&cube, 2, false));
    for (u32 id = 3; id <= 8; ++id) {
        EXPECT_EQ(properties.GetPropertyNodeType(id), 0x59u);
        EXPECT_FALSE(properties.SetNode(&cube, id, place)) << id;
        XBase* node = place;
        EXPECT_TRUE(properties.GetNode(&cube, id, node));
        EXPECT_EQ(node, nullptr);
        EXPECT_TRUE(properties.SetNode(&cube, id, image)) << id;
        EXPECT_TRUE(properties.GetNode(&cube, id, node));
        EXPECT_EQ(node, image);
        EXPECT_EQ(cube.GetImage(id - 3), image->GetID());
        EXPECT_TRUE(properties.SetNode(&cube, id, nullptr)) << id;
    }
    EXPECT_EQ(cube.GetImages(), XIndexList(6, 0));
    EXPECT_EQ(cube.GetPlacement(), place->GetID());

    XSphereMap& sphere = New<XSphereMap>();
    EXPECT_EQ(sphere.GetNodeProperties()->GetNumProperties(), 2u);
    EXPECT_EQ(sphere.GetPropertyId("image"), 2u);
    EXPECT_EQ(sphere.GetNodeProperties()->GetPropertyNodeType(2), 0x59u);
    EXPECT_TRUE(sphere.GetNodeProperties()->SetNode(&sphere, 2, image));
    EXPECT_EQ(sphere.GetImageId(), image->GetID());
}

}  // namespace
