#include "VKT/document/SceneLoad.h"

#include <cstdio>
#include <exception>

#include "VKT/document/BinaryLoader.h"
#include "VKT/document/LoadedBones.h"
#include "VKT/document/Model.h"
#include "VKT/document/TextLoader.h"
#include "VKT/hierarchy/Bone.h"
#include "VKT/node/FnRegistry.h"
#include "VKT/stream/FileHeader.h"
#include "VKT/stream/TextReader.h"

namespace VKT {

XSceneLoad::XSceneLoad(XModel& model, const char* path, bool cycles)
    : m_Model(model), m_Path(path), m_Cycles(cycles)
{
}

XFileResult XSceneLoad::LoadFile()
{
    return Run([this] {
        GetLogger()->LogFormat(kInfo, "loading \"%s\"", m_Path);
        const XString extension = LowerCaseExtension(m_Path);
        if (extension == "xld" || extension == "vkt")
            return ReadFile();
        if (!XTranslatorLoad(m_Path, &m_Model))
            return FileNotVkt;
        PostLoad();
        return FileOk;
    });
}

XFileResult XSceneLoad::LoadStream(std::istream& in)
{
    return Run([&] {
        XTextReader reader(in);
        const XFileResult result = XTextLoader(*this, reader).Load();
        if (result == FileOk || result == FileCorrupt)
            PostLoad();
        return result;
    });
}

// Empties the document and runs `read` on it. No exception gets past a load.
template <class Reading>
XFileResult XSceneLoad::Run(Reading read)
{
    m_Model.Clear();
    m_Model.m_LoadReport = {};
    try {
        return read();
    } catch (const std::exception& error) {
        GetLogger()->LogFormat(kError, "loading \"%s\" failed: %s", m_Path, error.what());
        return FileCorrupt;
    }
}

// Kept on purpose: the header of a text file is checked here and by its loader, which may have
// come by a stream, so that the warning of an older text file comes twice.
XFileResult XSceneLoad::ReadFile()
{
    const std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(std::fopen(m_Path, "rb"), &std::fclose);
    if (!file)
        return FileOpenFailed;
    std::setvbuf(file.get(), nullptr, _IONBF, 0);  // the readers have windows of their own
    char start[XFileHeader::kSize] = "";
    const std::size_t length = std::fread(start, 1, sizeof start, file.get());
    XFileHeader header;
    XFileResult result = CheckHeader({start, length}, header);
    if (result != FileOk)
        return result;
    std::rewind(file.get());
    if (header.form == XFileForm::kText) {
        XTextReader in(file.get());
        result = XTextLoader(*this, in).Load();
    } else {
        XFileIO in(file.get(), true);
        in.SetVersion(header.version);
        result = XBinaryLoader(*this, in).Load();
    }
    PostLoad();
    return result;
}

XFileResult XSceneLoad::CheckHeader(std::string_view start, XFileHeader& header)
{
    const std::optional<XFileHeader> found = XFileHeader::Of(start);
    if (!found) {
        GetLogger()->LogFormat(kError, "File is \"%s\" is not an vkt file", m_Path);
        return FileNotVkt;
    }
    header = *found;
    if (header.version > kCurrentVersion) {
        GetLogger()->LogFormat(kError, "opening file: file version %d is newer than vkt version %d",
                               header.version, kCurrentVersion);
        return FileTooNew;
    }
    if (header.version < kCurrentVersion)
        GetLogger()->LogFormat(
            kWarning,
            "File is from an older vkt version. If saved it will be unreadable by versions of "
            "vkt older than version %d",
            kCurrentVersion);
    m_Model.m_Version = header.version;
    return FileOk;
}

void XSceneLoad::PostLoad()
{
    XLoadedBones bones(m_Model);
    for (const auto& [name, node] : m_Model.GetNodes()) {
        node->PostLoad();
        if (XBone* const bone = XCast<XBone>(node))
            bones.Add(*bone);
    }
    bones.Settle();
}

void XSceneLoad::SetName(XBase& node, const XString& name)
{
    m_Model.m_Nodes.Rename(node, name);
}

void XSceneLoad::Enter(std::unique_ptr<XBase> node)
{
    m_Model.Enter(std::move(node));
}

void XSceneLoad::Abandon(const XBase& node)
{
    const XBone* bone = XCast<XBone>(&node);
    if (!bone)
        return;
    const XIndexList ids = bone->GetInstanceIds();
    for (auto id = ids.rbegin(); id != ids.rend(); ++id)  // the latest first: they stand at the end
        m_Model.DeleteInstance(*id);
}

void XSceneLoad::Drop(XDroppedChunk chunk)
{
    m_Model.m_LoadReport.Drop(std::move(chunk));
}

XTypeDeclarations& XSceneLoad::GetDeclarations()
{
    return m_Model.m_Declarations;
}

XImageTable& XSceneLoad::GetImages()
{
    return m_Model.m_Images;
}

}  // namespace VKT
