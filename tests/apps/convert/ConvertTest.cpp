#include <sys/stat.h>

#include "apps/support/Documents.h"
#include "apps/support/ToolRun.h"

namespace {

using Convert = ToolTest;

TEST_F(Convert, TextToBinaryToTextGivesTheSameBytes)
{
    WriteFile("plate.vkt", kPlate);
    EXPECT_EQ(Run({"convert", "plate.vkt", "binary.vkt", "--binary"}).status, 0);
    EXPECT_EQ(ReadFile("binary.vkt").substr(0, 9), "|VKT_004B");
    const ToolResult back = Run({"convert", "binary.vkt", "text.vkt", "--ascii"});
    EXPECT_EQ(back.status, 0);
    EXPECT_EQ(back.out, "");
    EXPECT_EQ(back.err, "Info : loading \"binary.vkt\"\n");
    EXPECT_EQ(ReadFile("text.vkt"), kPlate);
    EXPECT_EQ(ListFiles(), "binary.vkt plate.vkt text.vkt ");
}

TEST_F(Convert, WithoutAFormThatOfInIsKept)
{
    WriteFile("plate.vkt", kPlate);
    ASSERT_EQ(Run({"convert", "plate.vkt", "text.xld"}).status, 0);
    EXPECT_EQ(ReadFile("text.xld"), kPlate);
    ASSERT_EQ(Run({"convert", "plate.vkt", "binary.vkt", "--binary"}).status, 0);
    ASSERT_EQ(Run({"convert", "binary.vkt", "again.VKT"}).status, 0);
    EXPECT_EQ(ReadFile("again.VKT"), ReadFile("binary.vkt"));
}

TEST_F(Convert, AFileCanBeConvertedInPlace)
{
    WriteFile("plate.vkt", kPlate);
    ASSERT_EQ(Run({"convert", "plate.vkt", "plate.vkt", "--binary"}).status, 0);
    EXPECT_EQ(ReadFile("plate.vkt").substr(0, 9), "|VKT_004B");
    ASSERT_EQ(Run({"convert", "plate.vkt", "plate.vkt", "--ascii"}).status, 0);
    EXPECT_EQ(ReadFile("plate.vkt"), kPlate);
}

TEST_F(Convert, LinkAndPermissionsOfTheOldFileStay)
{
    WriteFile("plate.vkt", kPlate);
    WriteFile("old", "old");
    ASSERT_EQ(chmod(PathOf("old").c_str(), 0640), 0);
    std::filesystem::create_symlink("old", PathOf("link.vkt"));
    ASSERT_EQ(Run({"convert", "plate.vkt", "link.vkt"}).status, 0);
    EXPECT_TRUE(std::filesystem::is_symlink(PathOf("link.vkt")));
    EXPECT_EQ(ReadFile("old"), kPlate);
    struct stat status;
    ASSERT_EQ(stat(PathOf("old").c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777u, 0640u);
}

TEST_F(Convert, FailedLoadsAnswerTheirResultAndKeepTheOldFile)
{
    WriteFile("out.vkt", "old");
    WriteFile("new.vkt", "|VKT_009B#0000#00000000|");
    WriteFile("cut.vkt", kPlate.substr(0, kPlate.find("deformer_queue")));
    WriteFile("other.vkt", "Hello, world. This is no scene.\n");
    const std::vector<std::pair<const char*, int>> files = {
        {"new.vkt", 2}, {"missing.vkt", 3}, {"cut.vkt", 4}, {"other.vkt", 5}};
    for (const auto& [name, status] : files)
        EXPECT_EQ(Run({"convert", name, "out.vkt"}).status, status) << name;
    EXPECT_EQ(ReadFile("out.vkt"), "old");
    EXPECT_EQ(ListFiles(), "cut.vkt new.vkt other.vkt out.vkt ");
}

TEST_F(Convert, FolderThatIsNotThereIsAFailedSave)
{
    WriteFile("plate.vkt", kPlate);
    const ToolResult result = Run({"convert", "plate.vkt", "nowhere/out.vkt"});
    EXPECT_EQ(result.status, 3);
    EXPECT_EQ(result.err, "vkt: \"nowhere/out.vkt\" cannot be written: there is no folder \"nowhere\"\n");
}

// The size limit stands for a disk that runs full in the middle of the file.
TEST_F(Convert, CutOffSaveKeepsTheOldFile)
{
    WriteFile("plate.vkt", kPlate);
    WriteFile("out.vkt", "old");
    for (const std::string form : {"--ascii", "--binary"}) {
        const std::string command =
            "cd '" + PathOf("") +
            "' && trap '' XFSZ && ulimit -f 1 && exec " VKT_TOOL_PATH " convert plate.vkt out.vkt " + form;
        std::string large = kPlate;
        for (int i = 0; i < 50; ++i)
            large += kPlate.substr(kPlate.find("POLYGON_MESH"));
        WriteFile("plate.vkt", large);
        const ToolResult result = RunProgram("/bin/bash", {"-c", command});
        EXPECT_EQ(result.status, 4) << form;
        EXPECT_NE(result.err.find("vkt: \"out.vkt\" could not be written to its end: file too large\n"),
                  std::string::npos)
            << result.err;
        EXPECT_EQ(ReadFile("out.vkt"), "old");
    }
    EXPECT_EQ(ListFiles(), "out.vkt plate.vkt ");
}

TEST_F(Convert, DroppedChunksAreCountedAndNamed)
{
    WriteFile("plate.vkt", PlateWithUnknownChunk());
    const ToolResult result = Run({"convert", "plate.vkt", "out.vkt"});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.err,
              "Info : loading \"plate.vkt\"\n"
              "Warning : Dumping Unknown Chunk: header: FLAVOUR name: sweet\n"
              "vkt: \"plate.vkt\": 1 chunk was dropped\n"
              "vkt:   FLAVOUR \"sweet\": is of no known type\n");
    EXPECT_EQ(ReadFile("out.vkt"), kPlate);
}

TEST_F(Convert, LongListsOfDroppedChunksAreCutUnlessVerbose)
{
    std::string text = kPlate;
    for (int i = 0; i < 12; ++i)
        text.insert(text.find("BONE"), "FLAVOUR sweet\n{\n}\n");
    WriteFile("plate.vkt", text);
    EXPECT_NE(
        Run({"convert", "plate.vkt", "out.vkt"}).err.find("vkt:   ... and 2 more (--verbose lists them)\n"),
        std::string::npos);
    EXPECT_EQ(Run({"convert", "plate.vkt", "out.vkt", "--verbose"}).err.find("more"), std::string::npos);
}

// The binary form has numbers for its chunks, and only a damaged one may have a name.
TEST_F(Convert, DroppedBinaryChunksAreNamed)
{
    WriteFile("plate.vkt", kPlate);
    ASSERT_EQ(Run({"convert", "plate.vkt", "binary.vkt", "--binary"}).status, 0);
    std::string bytes = ReadFile("binary.vkt");
    const std::size_t mesh = 26;  // behind the header and the count of images
    const std::size_t name = mesh + 8;
    bytes[name + 2 + 10 + 4] = '\x7F';  // in the count of points, behind name and id
    bytes[name + 2 + 10 + 7] = '\x7F';
    bytes += std::string("\x0F\x27\x00\x00\x08\x00\x00\x00", 8);  // type 9999
    WriteFile("binary.vkt", bytes);
    const ToolResult result = Run({"convert", "binary.vkt", "out.vkt"});
    EXPECT_EQ(result.status, 0);
    EXPECT_NE(result.err.find("vkt: \"binary.vkt\": 2 chunks were dropped\n"
                              "vkt:   POLYGON_MESH \"plateShape\": is damaged\n"
                              "vkt:   9999: is of no known type\n"),
              std::string::npos)
        << result.err;
}

TEST_F(Convert, DroppedReferencesAreNamedToo)
{
    WriteFile("plate.vkt", With(kPlate, "id 2", "id 7"));  // of the shape that the instance names
    const ToolResult result = Run({"convert", "plate.vkt", "out.vkt"});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.err,
              "Info : loading \"plate.vkt\"\n"
              "Warning : Shape ID 2 : name plateShape not found.\n"
              "vkt: \"plate.vkt\": 1 reference was dropped\n"
              "vkt:   bone \"plate\": instance \"plateShape\": no shape of id 2 stands ahead of it\n");
    EXPECT_EQ(Run({"convert", "plate.vkt", "strict.vkt", "--strict"}).status, 1);
    EXPECT_EQ(ListFiles(), "out.vkt plate.vkt ");
}

TEST_F(Convert, StrictWritesNothingWhenChunksWereDropped)
{
    WriteFile("plate.vkt", PlateWithUnknownChunk());
    WriteFile("out.vkt", "old");
    const ToolResult result = Run({"convert", "plate.vkt", "out.vkt", "--strict"});
    EXPECT_EQ(result.status, 1);
    EXPECT_NE(result.err.find("header: FLAVOUR name: sweet\n"), std::string::npos);
    EXPECT_EQ(ReadFile("out.vkt"), "old");
    WriteFile("plate.vkt", kPlate);
    EXPECT_EQ(Run({"convert", "plate.vkt", "out.vkt", "--strict"}).status, 0);
    EXPECT_EQ(ReadFile("out.vkt"), kPlate);
}

TEST_F(Convert, EqualMessagesAreFoldedUnlessVerbose)
{
    std::string text = kPlate;
    for (int i = 0; i < 3; ++i)
        text.insert(text.find("BONE"), "FLAVOUR sweet\n{\n}\n");
    WriteFile("plate.vkt", text);
    EXPECT_EQ(Run({"convert", "plate.vkt", "out.vkt"}).err,
              "Info : loading \"plate.vkt\"\n"
              "Warning : Dumping Unknown Chunk: header: FLAVOUR name: sweet (3 times)\n"
              "vkt: \"plate.vkt\": 3 chunks were dropped\n"
              "vkt:   FLAVOUR \"sweet\": is of no known type\n"
              "vkt:   FLAVOUR \"sweet\": is of no known type\n"
              "vkt:   FLAVOUR \"sweet\": is of no known type\n");
    EXPECT_EQ(Run({"convert", "plate.vkt", "out.vkt", "--verbose"}).err,
              "Info : loading \"plate.vkt\"\n"
              "Warning : Dumping Unknown Chunk: header: FLAVOUR name: sweet\n"
              "Warning : Dumping Unknown Chunk: header: FLAVOUR name: sweet\n"
              "Warning : Dumping Unknown Chunk: header: FLAVOUR name: sweet\n"
              "vkt: \"plate.vkt\": 3 chunks were dropped\n"
              "vkt:   FLAVOUR \"sweet\": is of no known type\n"
              "vkt:   FLAVOUR \"sweet\": is of no known type\n"
              "vkt:   FLAVOUR \"sweet\": is of no known type\n");
}

TEST_F(Convert, ImagesThatATextFileCannotHoldAreReported)
{
    // One record: id 7, 2 by 2, no pixels, named "dot", from "/dot".
    const std::string image(
        "\x07\x00\x11\x00\x03\x00"
        "dot"
        "\x04\x00"
        "/dot",
        15);
    WriteFile("images.vkt", std::string("|VKT_004B#0000#00000000|") + std::string("\x01\x00", 2) + image);
    const ToolResult text = Run({"convert", "images.vkt", "text.vkt", "--ascii"});
    EXPECT_EQ(text.status, 0);
    EXPECT_NE(text.err.find("vkt: the images of \"images.vkt\" are left out: a text file holds none\n"),
              std::string::npos)
        << text.err;
    const ToolResult binary = Run({"convert", "images.vkt", "binary.vkt"});
    EXPECT_EQ(binary.status, 0);
    EXPECT_EQ(binary.err.find("left out"), std::string::npos);
    EXPECT_EQ(ReadFile("binary.vkt"), ReadFile("images.vkt"));
}

}  // namespace
