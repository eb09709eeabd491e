#include <filesystem>

#include "VKT/support/BinaryFile.h"
#include "VKT/support/NodeTest.h"

using namespace VKT;
using namespace VKT::Test;

namespace {

// A folder of its own that vanishes with all it holds.
class TempFolder {
public:
    TempFolder() { std::filesystem::create_directory(m_Mark.Path()); }
    ~TempFolder()
    {
        std::error_code ignored;
        std::filesystem::remove_all(m_Mark.Path(), ignored);
    }
    std::string Path(const std::string& name) const { return std::string(m_Mark.Path()) + "/" + name; }

private:
    TempFile m_Mark{""};
};

// A table of one image that has a name and no pixels.
std::string Images(const std::string& name)
{
    return Word(1, 2) + Word(7, 2) + Word(0, 2) + Word(name.size(), 2) + name + Word(0, 2);
}

class TextureFile : public NodeTest {
protected:
    // Loads a scene that records `recorded`; answers the name of its image, or the number
    // of its images where that is not one.
    std::string ImageOf(const std::string& recorded)
    {
        XModel scene;
        scene.SetInfo(std::make_unique<XInfo>());
        scene.GetInfo()->SetTextureFile(recorded);
        const std::string path = m_Folder.Path("scene.vkt");
        scene.Save(path.c_str());
        m_Log.Clear();
        EXPECT_EQ(m_Model.Load(path.c_str()), FileOk);
        m_Said = m_Log.Text().substr(m_Log.Text().find('\n') + 1);
        const auto& images = m_Model.GetImages();
        return images.size() == 1 ? images[0]->m_Name : std::to_string(images.size());
    }
    void Put(const std::string& name, const std::string& bytes) const
    {
        std::ofstream(m_Folder.Path(name), std::ios::binary) << bytes;
    }

    TempFolder m_Folder;
    std::string m_Said;
};

TEST_F(TextureFile, TheRecordedPathComesFirst)
{
    Put("recorded.bin", Images("recorded"));
    Put("scene.vtt", Images("sibling"));
    EXPECT_EQ(ImageOf(m_Folder.Path("recorded.bin")), "recorded");
    EXPECT_EQ(m_Said, "");
}

TEST_F(TextureFile, TheFileBesideTheSceneComesSecond)
{
    Put("scene.vtt", Images("sibling"));
    Put("away.bin", Images("beside"));
    EXPECT_EQ(ImageOf("D:\\nowhere\\away.bin"), "sibling");
    EXPECT_EQ(m_Said, "");
}

TEST_F(TextureFile, TheRecordedNameBesideTheSceneComesLast)
{
    Put("away.bin", Images("beside"));
    EXPECT_EQ(ImageOf("D:\\nowhere\\away.bin"), "beside");
    EXPECT_EQ(ImageOf("/nowhere/away.bin"), "beside");
    EXPECT_EQ(ImageOf("away.bin"), "beside");
}

TEST_F(TextureFile, NoneIsNoFile)
{
    Put("scene.vtt", Images("sibling"));
    Put("none", Images("none"));
    EXPECT_EQ(ImageOf("none"), "0");
    EXPECT_EQ(ImageOf(""), "0");
    EXPECT_EQ(m_Said, "");
}

TEST_F(TextureFile, ASceneWithoutItsImagesLoads)
{
    EXPECT_EQ(ImageOf("gone.bin"), "0");
    EXPECT_EQ(m_Said, "");
}

TEST_F(TextureFile, AnEmptyFileIsSaidAndTheNextIsTried)
{
    Put("scene.vtt", "");
    Put("away.bin", Images("beside"));
    EXPECT_EQ(ImageOf("away.bin"), "beside");
    EXPECT_EQ(m_Said, "Error : XFileIO::DoData : expected to read/write 1 elements got 0\n");
}

TEST_F(TextureFile, AFolderIsNoFile)
{
    std::filesystem::create_directory(m_Folder.Path("scene.vtt"));
    EXPECT_EQ(ImageOf("gone.bin"), "0");
}

TEST_F(TextureFile, DamagedImagesDoNotStopTheLoad)
{
    Put("scene.vtt", Word(0xFFFF, 2) + Word(7, 2) + "\xFF\x03" + Word(1, 2) + "n" + Word(0, 2));
    EXPECT_EQ(ImageOf("gone.bin"), "n");
}

TEST_F(TextureFile, BinaryFilesHoldTheirImagesThemselves)
{
    Put("scene.vtt", Images("sibling"));
    ImageOf("gone.bin");
    const std::string bytes = SaveBinaryBytes(m_Model);
    Put("scene.vkt", bytes);
    ASSERT_EQ(m_Model.Load(m_Folder.Path("scene.vkt").c_str()), FileOk);
    ASSERT_EQ(m_Model.GetImages().size(), 1u);
    EXPECT_EQ(m_Model.GetImages()[0]->m_Name, "sibling");
    EXPECT_FALSE(m_Model.GetInfo()->HasTextureFile());
}

}  // namespace
