#include "VKT/lights/VolumeLight.h"
#include "VKT/node/FnRegistry.h"
#include "VKT/shading/CubeMap.h"
#include "VKT/shading/LayeredTexture.h"
#include "VKT/shading/RampShader.h"
#include "VKT/shading/TexPlacement2D.h"
#include "VKT/support/NodeTest.h"

// What one of the two forms of a file holds and the other one loses.

using namespace VKT;
using namespace VKT::Test;

namespace {

class CrossForm : public NodeTest {};

// What binary files hold and text files leave out or say otherwise.
const struct {
    const char* what;
    u32 type;
    void (*set)(XBase& node);
} kValues[] = {
    {"images of a texture", kFnTexture,
     [](XBase& node) {
         As<XTexture>(node).SetImages({7, 8});
     }},
    {"images behind the one of a bump map", kFnBumpMap,
     [](XBase& node) {
         As<XTexture>(node).SetImages({7, 8});
     }},
    {"images behind the one of a sphere map", kFnSphereMap,
     [](XBase& node) {
         As<XTexture>(node).SetImages({7, 8});
     }},
    {"images behind the six of a cube map", kFnCubeMap,
     [](XBase& node) {
         As<XTexture>(node).SetImages({1, 2, 3, 4, 5, 6, 7});
     }},
    {"faces of a dynamic cube map", kFnCubeMap,
     [](XBase& node) {
         As<XCubeMap>(node).SetDynamic(true);
         As<XCubeMap>(node).SetLeft(7);
     }},
    {"images of a layered texture", kFnLayeredTexture,
     [](XBase& node) {
         As<XTexture>(node).SetImages({7, 8});
     }},
    {"numbers that are no blend mode", kFnLayeredTexture,
     [](XBase& node) { As<XLayeredTexture>(node).AddLayer(13); }},
    {"numbers that are no interpolation of a shader's ramp", kFnRampShader,
     [](XBase& node) { As<XRampShader>(node).AddFloatKey(XRampShader::kReflectivityRamp, 0, 4, 0); }},
    {"numbers that are no interpolation of a light's ramp", kFnVolumeLight,
     [](XBase& node) { As<XVolumeLight>(node).GetPenumbraRamp().AddFloatKey(0, 0, 4); }},
    {"quotes and line feeds in file names", kFnTexPlacement2D,
     [](XBase& node) { As<XTexPlacement2D>(node).SetFileTextureName("a\"b\nc"); }},
};

TEST_F(CrossForm, BytesHoldWhatTextLoses)
{
    for (const auto& [what, type, set] : kValues) {
        SCOPED_TRACE(what);
        XModel source, binary, text;  // each gives its node the same id and name
        XBase& node = *source.CreateNode(type);
        set(node);
        XBase& fromBytes = *binary.CreateNode(type);
        EXPECT_TRUE(ReadBody(fromBytes, BodyOf(node)));
        EXPECT_EQ(BodyOf(fromBytes), BodyOf(node));
        XBase& fromText = *text.CreateNode(type);
        EXPECT_TRUE(ReadText(fromText, TextOf(node)));
        EXPECT_NE(BodyOf(fromText), BodyOf(node));
    }
}

// Properties that text files do not hold.
const struct {
    u32 type;
    const char* property;
} kProperties[] = {
    {kFnBezierPatch, "num_cvs_u"}, {kFnBezierPatch, "num_cvs_v"},  {kFnBezierPatch, "type_u"},
    {kFnBezierPatch, "type_v"},    {kFnHermitePatch, "num_cvs_u"}, {kFnHermitePatch, "num_cvs_v"},
    {kFnHermitePatch, "type_u"},   {kFnHermitePatch, "type_v"},
};

TEST_F(CrossForm, BytesHoldPropertiesThatTextLoses)
{
    for (const auto& [type, property] : kProperties) {
        SCOPED_TRACE(property);
        XBase* node = m_Model.CreateNode(type);
        const std::string text = TextOf(*node);
        const u32 id = node->GetPropertyId(property);
        EXPECT_TRUE(node->GetNodeProperties()->SetInteger(node, id, 7));
        EXPECT_EQ(TextOf(*node), text);
        XBase* other = m_Model.CreateNode(type);
        EXPECT_TRUE(ReadBody(*other, BodyOf(*node)));
        i32 value = 0;
        EXPECT_TRUE(other->GetNodeProperties()->GetInteger(other, id, value));
        EXPECT_EQ(value, 7);
    }
}

}  // namespace
