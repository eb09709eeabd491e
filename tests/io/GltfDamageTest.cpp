// What a reader of glTF must survive. Where a file is refused, the reason is part of
// the promise; where it may be read or not, only that there is an answer.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <random>

#include "host/io/GltfReader.h"
#include "io/GltfFixture.h"
#include "io/TempFile.h"

namespace maxhost::io {
namespace {

using testing::HasSubstr;

std::string ErrorOf(const std::string& text, const char* extension = "gltf")
{
    return ReadGltf(TempFile(text, extension).Path()).error;
}

// A mesh with all attributes, a skin and an animation.
struct FullFile {
    FullFile()
    {
        fixture.AddFloats({0, 0, 0, 1, 0, 0, 0, 1, 0}, "VEC3", 3);
        fixture.AddShorts({0, 1, 2});
        fixture.AddFloats({0, 0, 1, 0, 0, 1}, "VEC2", 2);
        fixture.AddBytes({0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0}, "VEC4", 4);
        fixture.AddFloats({1, 0, 0, 0, 1, 0, 0, 0, 1, 0, 0, 0}, "VEC4", 4);
        fixture.AddFloats({1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1}, "MAT4", 16);
        fixture.AddFloats({0, 1}, "SCALAR", 1);
        fixture.AddFloats({0, 0, 0, 1, 0, 1, 0, 0}, "VEC4", 4);
    }
    GltfFixture fixture;
    std::string rest = R"("scenes":[{"nodes":[0]}],"nodes":[{"mesh":0,"skin":0,"children":[1]},{"name":"j"}],
        "materials":[{"pbrMetallicRoughness":{"baseColorTexture":{"index":0}}}],"textures":[{"source":0}],
        "images":[{"uri":"a.png"}],
        "meshes":[{"primitives":[{"attributes":{"POSITION":0,"TEXCOORD_0":2,"JOINTS_0":3,"WEIGHTS_0":4},
                   "indices":1,"material":0,"targets":[{"POSITION":0}]}]}],
        "skins":[{"joints":[1],"inverseBindMatrices":5}],
        "animations":[{"channels":[{"sampler":0,"target":{"node":1,"path":"rotation"}}],
                       "samplers":[{"input":6,"output":7}]}])";
};

std::string MeshOf(GltfFixture& fixture, const std::string& accessor)
{
    const int number = fixture.AddAccessor(accessor);
    return fixture.Text(
        "\"nodes\":[{\"mesh\":0}],\"meshes\":[{\"primitives\":[{\"attributes\":{\"POSITION\":" +
        std::to_string(number) + "}}]}]");
}

std::string ErrorOfAccessor(const std::string& accessor)
{
    GltfFixture fixture;
    const float three[] = {0, 0, 0, 1, 0, 0, 0, 1, 0};
    fixture.AddView(three, sizeof three);
    return ErrorOf(MeshOf(fixture, accessor));
}

TEST(GltfDamage, TheWholeFileIsGood)
{
    const FullFile file;
    EXPECT_EQ(ErrorOf(file.fixture.Text(file.rest)), "");
    EXPECT_EQ(ErrorOf(file.fixture.Binary(file.rest), "glb"), "");
}

TEST(GltfDamage, Version1IsRefused)
{
    EXPECT_EQ(ErrorOf(R"({"asset":{"version":"1.0"},"nodes":{}})"), "glTF 1.0 can't be read, only glTF 2.0");
    EXPECT_EQ(ErrorOf(R"({"nodes":{}})"), "no glTF 2.0: asset.version is missing");
    EXPECT_EQ(ErrorOf(std::string("glTF\1\0\0\0\x18\0\0\0\0\0\0\0\0\0\0\0{}  ", 24), "glb"),
              "glTF 1 can't be read, only glTF 2.0");
}

TEST(GltfDamage, MissingAndEmptyFilesAreRefused)
{
    EXPECT_EQ(ReadGltf("/nonexistent/scene.glb").error, "no such file");
    EXPECT_EQ(ErrorOf(""), "the file holds no valid JSON");
    EXPECT_EQ(ErrorOf("{\"asset\""), "the file holds no valid JSON");
}

TEST(GltfDamage, AccessorsBeyondTheirDataAreRefused)
{
    const auto error = [](const char* more) {
        return ErrorOfAccessor(std::string("{\"componentType\":5126,\"type\":\"VEC3\",") + more + "}");
    };
    EXPECT_EQ(error(R"("bufferView":0,"count":3)"), "");
    EXPECT_EQ(error(R"("bufferView":0,"count":4)"), "accessor 0 reaches beyond its buffer view");
    EXPECT_EQ(error(R"("bufferView":0,"count":3,"byteOffset":4)"),
              "accessor 0 reaches beyond its buffer view");
    EXPECT_EQ(error(R"("bufferView":0,"count":1,"byteOffset":18446744073709551608)"),
              "accessor 0 reaches beyond its buffer view");
    EXPECT_EQ(error(R"("bufferView":1,"count":3)"), "accessor 0 names a buffer view that does not exist");
    EXPECT_EQ(error(R"("bufferView":0,"count":1537228672809129302)"),
              "the file claims far more data than its size can hold");
    EXPECT_EQ(error(R"("count":1000000000)"), "the file claims far more data than its size can hold");
}

TEST(GltfDamage, WrongTypesAreRefused)
{
    EXPECT_EQ(ErrorOfAccessor(R"({"bufferView":0,"count":3,"componentType":5126,"type":"VEC2"})"),
              "accessor 0 has 2 numbers per element where 3 are needed");
    EXPECT_EQ(ErrorOfAccessor(R"({"bufferView":0,"count":3,"componentType":5130,"type":"VEC3"})"),
              "accessor 0 has a component type that glTF does not know");
    EXPECT_EQ(ErrorOfAccessor(R"({"bufferView":0,"count":3,"componentType":5127,"type":"VEC3"})"),
              "accessor 0 has a component type that glTF does not know");
}

TEST(GltfDamage, SparseIndicesBeyondTheElementsAreRefused)
{
    GltfFixture fixture;
    const std::uint16_t index[] = {3};
    const float value[] = {1, 2, 3};
    fixture.AddView(index, sizeof index);
    fixture.AddView(value, sizeof value);
    EXPECT_EQ(ErrorOf(MeshOf(fixture, R"({"count":3,"componentType":5126,"type":"VEC3","sparse":{"count":1,
                  "indices":{"bufferView":0,"componentType":5123},"values":{"bufferView":1}}})")),
              "accessor 0 has a sparse index beyond its elements");
}

TEST(GltfDamage, ViewsBeyondTheirBufferAreRefused)
{
    const std::string mesh =
        R"({"asset":{"version":"2.0"},"nodes":[{"mesh":0}],"meshes":[{"primitives":[{"attributes":{"POSITION":0}}]}],
        "accessors":[{"bufferView":0,"count":1,"componentType":5126,"type":"VEC3"}],
        "buffers":[{"byteLength":12,"uri":"data:application/octet-stream;base64,AAAAAAAAAAAAAAAA"}],"bufferViews":[)";
    EXPECT_EQ(ErrorOf(mesh + R"({"buffer":0,"byteLength":12}]})"), "");
    EXPECT_EQ(ErrorOf(mesh + R"({"buffer":0,"byteLength":13}]})"),
              "accessor 0 lies in a buffer view that reaches beyond its buffer");
    EXPECT_EQ(ErrorOf(mesh + R"({"buffer":0,"byteLength":12,"byteOffset":18446744073709551612}]})"),
              "accessor 0 lies in a buffer view that reaches beyond its buffer");
    EXPECT_EQ(ErrorOf(mesh + R"({"buffer":1,"byteLength":12}]})"),
              "accessor 0 lies in a buffer that does not exist");
    EXPECT_EQ(ErrorOf(mesh + R"({"buffer":0,"byteLength":12,"byteStride":8}]})"),
              "accessor 0 has elements larger than their stride");
}

TEST(GltfDamage, FacesOfMissingVerticesAreLeftOut)
{
    GltfFixture fixture;
    fixture.AddFloats({0, 0, 0, 1, 0, 0, 0, 1, 0}, "VEC3", 3);
    fixture.AddShorts({0, 1, 2, 0, 1, 3});
    const ReadResult result = ReadGltf(TempFile(fixture.Text(R"("nodes":[{"mesh":0}],
        "meshes":[{"primitives":[{"attributes":{"POSITION":0},"indices":1}]}])"),
                                                "gltf")
                                           .Path());
    ASSERT_EQ(result.error, "");
    EXPECT_EQ(result.scene.meshes[0].cornerCounts.size(), 1u);
    EXPECT_THAT(
        result.scene.warnings,
        testing::ElementsAre("mesh 0 \"\": 1 triangles left out that name vertices which do not exist"));
}

TEST(GltfDamage, ASmallFileCanNotClaimMuchByNamingOneListOften)
{
    GltfFixture fixture;
    fixture.AddFloats({0, 0, 0, 1, 0, 0, 0, 1, 0}, "VEC3", 3);
    fixture.AddBytes(std::vector<std::uint8_t>(30000, 0), "SCALAR", 1);
    std::string primitives = R"({"attributes":{"POSITION":0},"indices":1})";
    for (int i = 0; i < 10; ++i)
        primitives += "," + primitives;
    EXPECT_EQ(
        ErrorOf(fixture.Text("\"nodes\":[{\"mesh\":0}],\"meshes\":[{\"primitives\":[" + primitives + "]}]")),
        "the file claims far more data than its size can hold");
}

TEST(GltfDamage, DeepNestingIsRefused)
{
    constexpr int kDepth = 200000;
    EXPECT_EQ(ErrorOf(R"({"asset":{"version":"2.0"},"extras":)" + std::string(kDepth, '[') +
                      std::string(kDepth, ']') + "}"),
              "the JSON nests deeper than 128 levels");
}

TEST(GltfDamage, UnknownRequiredExtensionsAreRefused)
{
    EXPECT_EQ(ErrorOf(R"({"asset":{"version":"2.0"},"extensionsRequired":["KHR_draco_mesh_compression"]})"),
              "the file can't be read without the extension KHR_draco_mesh_compression");
}

TEST(GltfDamage, DevicesAreNotReadAsBuffers)
{
    EXPECT_THAT(ErrorOf(R"({"asset":{"version":"2.0"},"buffers":[{"byteLength":4,"uri":"/dev/zero"}]})"),
                HasSubstr("not found"));
}

TEST(GltfDamage, BinaryHeadersThatClaimTooMuchAreRefused)
{
    const FullFile file;
    const std::string good = file.fixture.Binary(file.rest);
    for (const std::size_t word : {8u, 12u}) {  // the whole, the JSON
        std::string bad = good;
        bad.replace(word, 4, "\xff\xff\xff\x7f");
        EXPECT_NE(ErrorOf(bad, "glb"), "") << word;
    }
    // A data chunk that is 4 bytes longer than the file.
    std::string bad = good;
    const std::size_t data = good.find(std::string("BIN\0", 4)) - 4;
    bad[data] = static_cast<char>(bad[data] + 4);
    EXPECT_EQ(ErrorOf(bad, "glb"), "the data of the binary glTF reach beyond its end");
}

TEST(GltfDamage, EveryPrefixGetsAnAnswer)
{
    const FullFile file;
    const std::string text = file.fixture.Text(file.rest), binary = file.fixture.Binary(file.rest);
    for (std::size_t length = 0; length < text.size(); ++length)
        EXPECT_NE(ErrorOf(text.substr(0, length)), "") << length;
    for (std::size_t length = 0; length < binary.size(); ++length)
        EXPECT_NE(ErrorOf(binary.substr(0, length), "glb"), "") << length;
}

TEST(GltfDamage, AlteredBytesGetAnAnswer)
{
    const FullFile file;
    const std::string good = file.fixture.Binary(file.rest);
    std::mt19937 random(3);
    constexpr std::string_view kTelling = "0123456789-.eE{}[]\",:\xff";
    std::size_t read = 0;
    for (std::size_t place = 0; place < good.size(); ++place) {
        std::string bad = good;
        bad[place] = kTelling[random() % kTelling.size()];
        read += ErrorOf(bad, "glb").empty();
    }
    // Neither all nor none: the changes bite, and are not all fatal.
    EXPECT_GT(read, good.size() / 10);
    EXPECT_LT(read, good.size());
}

}  // namespace
}  // namespace maxhost::io
