#include <algorithm>
#include <cstdio>
#include <exception>

#include "VKT/Bone.h"
#include "VKT/FnRegistry.h"
#include "VKT/Model.h"
#include "VKT/TextReader.h"

// What both forms of a file share: the header, the version rule, and what is done after
// the last chunk.

namespace VKT {
namespace {

constexpr std::string_view kFormatMark = "|VKT_";

// A file can hold any number of what a load drops.
constexpr u32 kMostDroppedKept = 1000;

// Three digits at offset 5 of the header.
u32 VersionOf(std::string_view header)
{
    u32 version = 0;
    for (std::size_t i = 5; i < 8 && i < header.size() && header[i] >= '0' && header[i] <= '9'; ++i)
        version = 10 * version + static_cast<u32>(header[i] - '0');
    return version;
}

}  // namespace

XFileResult XModel::Load(const char* path, bool loadCycles)
{
    return LoadSafely(path, [&] {
        GetLogger()->LogFormat(kInfo, "loading \"%s\"", path);
        const XString extension = LowerCaseExtension(path);
        if (extension != "xld" && extension != "vkt") {
            if (!XTranslatorLoad(path, this))
                return FileNotVkt;
            PostLoad();
            return FileOk;
        }
        char header[26] = "";
        std::FILE* const file = std::fopen(path, "rb");
        if (!file)
            return FileOpenFailed;
        const std::size_t length = std::fread(header, 1, 25, file);
        std::fclose(file);
        XFileResult result = CheckHeader({header, length}, path);
        if (result != FileOk)
            return result;
        result = header[8] == 'A' ? LoadAscii(path, loadCycles) : LoadBin(path, loadCycles);
        PostLoad();
        return result;
    });
}

XFileResult XModel::Load(std::istream& in, const char* path, bool loadCycles)
{
    return LoadSafely(path, [&] {
        XTextReader reader(in);
        const XFileResult result = LoadAsciiStream(reader, path, loadCycles);
        if (result == FileOk || result == FileCorrupt)
            PostLoad();
        return result;
    });
}

// Empties the document and runs `read` on it. Whatever comes of it, nodes created later
// get ids above all that were read.
template <class Reading>
XFileResult XModel::LoadSafely(const char* path, Reading read)
{
    Clear();
    m_NumDroppedChunks = 0;
    m_DroppedChunks.clear();
    m_NumDroppedReferences = 0;
    m_DroppedReferences.clear();
    XFileResult result = FileCorrupt;
    try {
        result = read();
    } catch (const std::exception& error) {
        GetLogger()->LogFormat(kError, "loading \"%s\" failed: %s", path, error.what());
    }
    RenewLastId();
    return result;
}

XFileResult XModel::CheckHeader(std::string_view header, const char* path)
{
    if (!header.starts_with(kFormatMark)) {
        GetLogger()->LogFormat(kError, "File is \"%s\" is not an vkt file", path);
        return FileNotVkt;
    }
    const u32 version = VersionOf(header);
    if (version > kCurrentVersion) {
        GetLogger()->LogFormat(kError, "opening file: file version %d is newer than vkt version %d", version,
                               kCurrentVersion);
        return FileTooNew;
    }
    if (version < kCurrentVersion)
        GetLogger()->LogFormat(
            kWarning,
            "File is from an older vkt version. If saved it will be unreadable by versions of "
            "vkt older than version %d",
            kCurrentVersion);
    m_Version = version;
    return FileOk;
}

// Files hold bind poses alone: they become the current pose too, and the matrices of both
// are built from it.
//
// The rule has one more pass ahead, over the poses of fresh bones. Nothing of it is left,
// but for the inverses of bones that are scaled so small that they have none: those stay
// as that pass left them, so it is made up for where there is such a bone.
void XModel::PostLoad()
{
    XVector<XBone*> bones;
    for (const auto& [name, node] : m_Nodes) {
        node->PostLoad();
        if (XBone* bone = XCast<XBone>(node))
            bones.push_back(bone);
    }
    const auto build = [&] {
        for (XBone* bone : bones)
            bone->CopyBindToCurrent();
        UpdateWorldMatrices();
    };
    build();
    if (!std::all_of(bones.begin(), bones.end(), [](const XBone* bone) { return bone->m_HasInverse; })) {
        for (XBone* bone : bones)
            bone->ResetCurrent();
        UpdateWorldMatrices();
        build();
    }
    for (XBone* bone : bones)
        bone->CopyMatricesToBind();
}

// A node that could not be read to its end leaves no instances behind.
void XModel::Abandon(XBase& node)
{
    const XBone* bone = XCast<XBone>(&node);
    if (!bone)
        return;
    const XIndexList ids = bone->GetInstanceIds();
    for (auto id = ids.rbegin(); id != ids.rend(); ++id)  // the latest first: they stand at the end
        DeleteInstance(*id);
}

void XModel::Drop(XDroppedChunk chunk)
{
    if (m_NumDroppedChunks++ < kMostDroppedKept)
        m_DroppedChunks.push_back(std::move(chunk));
}

void XModel::Drop(XDroppedReference reference)
{
    if (m_NumDroppedReferences++ < kMostDroppedKept)
        m_DroppedReferences.push_back(std::move(reference));
}

void XModel::RenewLastId()
{
    m_LastId = 0;
    for (const auto& [name, node] : m_Nodes)
        m_LastId = std::max(m_LastId, node->GetID());
}

}  // namespace VKT
