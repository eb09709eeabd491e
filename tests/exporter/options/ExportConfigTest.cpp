#include "exporter/options/ExportConfig.h"

#include <cmath>

#include "scenes/ExportScenes.h"

namespace VKTMax {
namespace {

using export_scenes::BytesOf;
using export_scenes::WriteBytes;
using Bytes = std::vector<unsigned char>;

// clang-format off
const Bytes kDefaultFile = {
    12, 0, 0, 0,                                     // version
    1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1,           // materials to lattices
    1, 1, 1,                                         // animation, timeline, properties
    0, 0, 0, 0,  24, 0, 0, 0,                        // first and last frame
    0, 1,                                            // Yup, Zup
    0, 0, 0x80, 0x3F, 1,                             // scale factor, convert scale
    4, 0, 0, 0,                                      // reserved
    1, 1, 1, 1, 1, 0, 0, 1,                          // dummies to ascii
    30, 0, 0, 0,                                     // frame rate
    0, 0, 0,                                         // dependent transforms, biped, current pose
};
// clang-format on

class ExportConfigTest : public export_scenes::ExportTest {
protected:
    // The file of the defaults at an older version, cut after `size` bytes.
    Bytes DefaultFile(unsigned char version, std::size_t size)
    {
        Bytes bytes(kDefaultFile.begin(), kDefaultFile.begin() + static_cast<std::ptrdiff_t>(size));
        bytes[0] = version;
        return bytes;
    }
    bool Read(const Bytes& bytes)
    {
        WriteBytes(PathOf("read.cfg"), bytes);
        return ReadExportConfig(PathOf("read.cfg"));
    }
    Bytes Written()
    {
        EXPECT_TRUE(WriteExportConfig(PathOf("written.cfg")));
        return BytesOf(PathOf("written.cfg"));
    }
};

TEST_F(ExportConfigTest, LiesInTheFolderForPluginConfigurations)
{
    host.SetDirectory(APP_PLUGCFG_DIR, "C:\\max\\plugcfg");
    EXPECT_EQ(ExportConfigPath(), "C:\\max\\plugcfg\\VKT_max_plugin.cfg");
}

TEST_F(ExportConfigTest, DefaultsAreFiftyFourBytes)
{
    EXPECT_EQ(kDefaultFile.size(), 54u);
    EXPECT_EQ(Written(), kDefaultFile);
}

TEST_F(ExportConfigTest, BackslashesReachTheFileOnEverySystem)
{
    ASSERT_TRUE(WriteExportConfig(ExportConfigPath()));
    EXPECT_EQ(BytesOf(PathOf("VKT_max_plugin.cfg")), kDefaultFile);
    options.SetIncludeMeshes(false);
    ASSERT_TRUE(ReadExportConfig(ExportConfigPath()));
    EXPECT_TRUE(options.GetIncludeMeshes());
}

TEST_F(ExportConfigTest, EveryOptionHasItsPlace)
{
    struct Place {
        void (*set)(ExportOptions&);
        std::size_t offset;
        Bytes bytes;
    };
    const Place places[] = {
        {[](ExportOptions& o) { o.SetIncludeMaterials(false); }, 4, {0}},
        {[](ExportOptions& o) { o.SetIncludeTextures(false); }, 5, {0}},
        {[](ExportOptions& o) { o.SetIncludeExtraAttributes(false); }, 6, {0}},
        {[](ExportOptions& o) { o.SetIncludeCameras(false); }, 7, {0}},
        {[](ExportOptions& o) { o.SetIncludeLights(false); }, 8, {0}},
        {[](ExportOptions& o) { o.SetIncludeGizmos(false); }, 9, {0}},
        {[](ExportOptions& o) { o.SetIncludeMeshes(false); }, 10, {0}},
        {[](ExportOptions& o) { o.SetIncludeNurbsCurves(false); }, 11, {0}},
        {[](ExportOptions& o) { o.SetIncludeNurbsSurfaces(false); }, 12, {0}},
        {[](ExportOptions& o) { o.SetIncludeSkinning(false); }, 13, {0}},
        {[](ExportOptions& o) { o.SetIncludeBlendShapes(false); }, 14, {0}},
        {[](ExportOptions& o) { o.SetIncludeNonLinearDeformers(false); }, 15, {0}},
        {[](ExportOptions& o) { o.SetIncludeLattices(false); }, 16, {0}},
        {[](ExportOptions& o) { o.SetIncludeAnimation(false); }, 17, {0}},
        {[](ExportOptions& o) { o.SetUseTimeline(false); }, 18, {0}},
        {[](ExportOptions& o) { o.SetIncludeProperties(false); }, 19, {0}},
        {[](ExportOptions& o) { o.SetStartFrame(-2); }, 20, {0xFE, 0xFF, 0xFF, 0xFF}},
        {[](ExportOptions& o) { o.SetEndFrame(0x01020304); }, 24, {4, 3, 2, 1}},
        {[](ExportOptions& o) { o.SetYup(true); }, 28, {1, 0}},
        {[](ExportOptions& o) { o.SetScaleFactor(-0.5f); }, 30, {0, 0, 0, 0xBF}},
        {[](ExportOptions& o) { o.SetRemoveScale(false); }, 34, {0}},
        {[](ExportOptions& o) { o.SetReservedOption(0x0A0B0C0D); }, 35, {0x0D, 0x0C, 0x0B, 0x0A}},
        {[](ExportOptions& o) { o.SetIncludeDummies(false); }, 39, {0}},
        {[](ExportOptions& o) { o.SetIncludeModifiers(false); }, 40, {0}},
        {[](ExportOptions& o) { o.SetIncludeTexCoords(false); }, 41, {0}},
        {[](ExportOptions& o) { o.SetIncludeVertexNormals(false); }, 42, {0}},
        {[](ExportOptions& o) { o.SetIncludeVertexColours(false); }, 43, {0}},
        {[](ExportOptions& o) { o.SetUseXMesh(true); }, 44, {1}},
        {[](ExportOptions& o) { o.SetUseXAnimCycle(true); }, 45, {1}},
        {[](ExportOptions& o) { o.SetExportAscii(false); }, 46, {0}},
        {[](ExportOptions& o) { o.SetFrameRate(60); }, 47, {60, 0, 0, 0}},
        {[](ExportOptions& o) { o.SetIncludeDependentTransforms(true); }, 51, {1}},
        {[](ExportOptions& o) { o.SetIncludeBipedMeshes(true); }, 52, {1}},
        {[](ExportOptions& o) { o.SetUseCurrentPoseAsBindpose(true); }, 53, {1}},
    };
    for (const Place& place : places) {
        options = ExportOptions();
        place.set(options);
        Bytes expected = kDefaultFile;
        std::copy(place.bytes.begin(), place.bytes.end(),
                  expected.begin() + static_cast<std::ptrdiff_t>(place.offset));
        EXPECT_EQ(Written(), expected) << "offset " << place.offset;

        options = ExportOptions();
        ASSERT_TRUE(Read(expected));
        EXPECT_EQ(Written(), expected) << "read back, offset " << place.offset;
    }
}

TEST_F(ExportConfigTest, OptionsOutsideTheFileStay)
{
    options.SetIncludeTextureAnims(false);
    options.SetAnimTakeOptions(2);
    options.SetStaticFrame(160);
    ASSERT_TRUE(Read(kDefaultFile));
    EXPECT_FALSE(options.GetIncludeTextureAnims());
    EXPECT_EQ(options.GetAnimTakeOptions(), 2);
    EXPECT_EQ(options.GetStaticFrame(), 160);
}

TEST_F(ExportConfigTest, MissingFileChangesNothing)
{
    options.SetIncludeMeshes(false);
    EXPECT_FALSE(ReadExportConfig(PathOf("none.cfg")));
    EXPECT_FALSE(options.GetIncludeMeshes());
}

TEST_F(ExportConfigTest, FolderThatIsNotThereCannotBeWrittenTo)
{
    EXPECT_FALSE(WriteExportConfig(PathOf("none/file.cfg")));
}

TEST_F(ExportConfigTest, VersionThreeIsTooOldAndNoError)
{
    options.SetIncludeMeshes(false);
    EXPECT_TRUE(Read(DefaultFile(3, 28)));
    EXPECT_FALSE(options.GetIncludeMeshes());
}

TEST_F(ExportConfigTest, EmptyFileIsTooOldAndNoError)
{
    options.SetIncludeMeshes(false);
    EXPECT_TRUE(Read({}));
    EXPECT_FALSE(options.GetIncludeMeshes());
}

TEST_F(ExportConfigTest, VersionSevenStopsBehindTheReservedOption)
{
    options.SetFrameRate(99);
    options.SetIncludeDummies(false);
    options.SetIncludeBipedMeshes(true);
    options.SetReservedOption(1);
    EXPECT_TRUE(Read(DefaultFile(7, 39)));
    EXPECT_EQ(options.GetReservedOption(), 4);
    EXPECT_EQ(options.GetFrameRate(), 99);
    EXPECT_FALSE(options.GetIncludeDummies());
    EXPECT_TRUE(options.GetIncludeBipedMeshes());
}

TEST_F(ExportConfigTest, EachVersionReadsUpToItsLastField)
{
    const std::pair<unsigned char, std::size_t> sizes[] = {{4, 28}, {5, 30},  {6, 35},  {7, 39}, {8, 47},
                                                           {9, 51}, {10, 52}, {11, 53}, {12, 54}};
    for (const auto& [version, size] : sizes) {
        // Zeros all through; what the version does not hold keeps its default.
        Bytes file(54, 0);
        file[0] = version;
        Bytes expected = kDefaultFile;
        std::fill(expected.begin() + 4, expected.begin() + static_cast<std::ptrdiff_t>(size),
                  static_cast<unsigned char>(0));
        if (size > 29)
            expected[28] = 1;  // Zup off is Yup on
        options = ExportOptions();
        ASSERT_TRUE(Read(file));
        EXPECT_EQ(Written(), expected) << "version " << int{version};
    }
}

TEST_F(ExportConfigTest, SecondByteOfVersionFiveDecidesTheUpAxis)
{
    for (const unsigned char first : {0, 1})
        for (const unsigned char second : {0, 1}) {
            Bytes file = DefaultFile(5, 30);
            file[28] = first;
            file[29] = second;
            ASSERT_TRUE(Read(file));
            EXPECT_EQ(options.GetZup(), second != 0);
            EXPECT_EQ(options.GetYup(), second == 0);
        }
}

TEST_F(ExportConfigTest, AnyByteButZeroIsTrue)
{
    options.SetIncludeMeshes(false);
    Bytes file = kDefaultFile;
    file[10] = 0x80;
    ASSERT_TRUE(Read(file));
    EXPECT_TRUE(options.GetIncludeMeshes());
    EXPECT_EQ(Written()[10], 1);
}

TEST_F(ExportConfigTest, NewerVersionIsReadAsTheCurrentOne)
{
    Bytes file = kDefaultFile;
    file[0] = 200;
    file[53] = 1;
    EXPECT_TRUE(Read(file));
    EXPECT_TRUE(options.GetUseCurrentPoseAsBindpose());
    EXPECT_EQ(Written()[0], 12);
}

TEST_F(ExportConfigTest, MissingEndReadsAsTrueAndMinusOne)
{
    options.SetIncludeMeshes(false);
    options.SetUseCurrentPoseAsBindpose(false);
    // Cut inside the first frame: a word that is not whole is missing.
    EXPECT_TRUE(Read(DefaultFile(12, 22)));
    EXPECT_TRUE(options.GetIncludeMeshes());
    EXPECT_EQ(options.GetStartFrame(), -1);
    EXPECT_EQ(options.GetEndFrame(), -1);
    EXPECT_TRUE(options.GetZup());
    EXPECT_TRUE(std::isnan(options.GetScaleFactor()));  // the bits of -1
    EXPECT_EQ(options.GetReservedOption(), -1);
    EXPECT_EQ(options.GetFrameRate(), -1);
    EXPECT_TRUE(options.GetUseXMesh());
    EXPECT_TRUE(options.GetUseCurrentPoseAsBindpose());
}

TEST_F(ExportConfigTest, EveryPrefixIsRead)
{
    for (std::size_t size = 4; size < kDefaultFile.size(); ++size)
        EXPECT_TRUE(Read(DefaultFile(12, size))) << size;
}

}  // namespace
}  // namespace VKTMax
