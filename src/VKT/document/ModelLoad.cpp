#include <algorithm>
#include <cstdio>
#include <exception>

#include "VKT/document/Model.h"
#include "VKT/hierarchy/BoneWalk.h"
#include "VKT/node/FnRegistry.h"
#include "VKT/stream/FileHeader.h"
#include "VKT/stream/TextReader.h"

// What both forms of a file share: the header, the version rule, and what is done after
// the last chunk.

namespace VKT {
namespace {

// A file can hold any number of what a load drops.
constexpr u32 kMostDroppedKept = 1000;

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
        char start[XFileHeader::kSize] = "";
        std::FILE* const file = std::fopen(path, "rb");
        if (!file)
            return FileOpenFailed;
        const std::size_t length = std::fread(start, 1, sizeof start, file);
        std::fclose(file);
        const std::string_view header(start, length);
        XFileResult result = CheckHeader(header, path);
        if (result != FileOk)
            return result;
        result = XFileHeader::Of(header)->form == XFileForm::kText ? LoadAscii(path, loadCycles)
                                                                   : LoadBin(path, loadCycles);
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

// Empties the document and runs `read` on it.
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
    return result;
}

XFileResult XModel::CheckHeader(std::string_view start, const char* path)
{
    const std::optional<XFileHeader> header = XFileHeader::Of(start);
    if (!header) {
        GetLogger()->LogFormat(kError, "File is \"%s\" is not an vkt file", path);
        return FileNotVkt;
    }
    const u32 version = header->version;
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
// are built from it, in one walk: a million bones do not stay in the cache from one walk to
// the next.
//
// The rule has one more pass over the matrices ahead, in the poses of fresh bones. Nothing of
// it is left, but for the inverses of bones that are scaled so small that they have none:
// those stay as that pass left them, so it is made up for where there is such a bone.
void XModel::PostLoad()
{
    XBoneList bones;
    XBoneList roots;
    for (const auto& [name, node] : m_Nodes) {
        node->PostLoad();
        XBone* const bone = XCast<XBone>(node);
        if (!bone)
            continue;
        bone->CopyBindToCurrent();
        bones.push_back(bone);
        if (bone->GetParentId() == 0)
            roots.push_back(bone);
    }
    if (BuildBindMatrices(bones, roots))
        return;
    for (XBone* bone : bones)
        bone->ResetCurrent();
    UpdateWorldMatrices();
    for (XBone* bone : bones)
        bone->CopyBindToCurrent();
    BuildBindMatrices(bones, roots);
}

// Builds the matrices of the current pose and copies them to the bind pose, also where no
// root leads. False when a bone has no inverse.
bool XModel::BuildBindMatrices(const XBoneList& bones, const XBoneList& roots)
{
    bool haveInverses = true;
    const auto build = [&](XBone& bone, const XMatrix& above) {
        bone.UpdateOwnMatrices(above);
        bone.CopyMatricesToBind();
        haveInverses = haveInverses && bone.m_HasInverse;
    };
    XBoneWalk walk(*this);
    for (XBone* root : roots) {
        build(*root, kIdentityMatrix);
        walk.Below(*root, [&](XBone& bone, const XBone& above) { build(bone, above.GetWorld(false)); });
    }
    if (walk.GetNumVisited() < bones.size())
        for (XBone* bone : bones)
            if (!walk.HasVisited(*bone))
                bone->CopyMatricesToBind();
    return haveInverses;
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

}  // namespace VKT
