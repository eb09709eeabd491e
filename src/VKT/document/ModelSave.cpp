#include <array>
#include <cstdio>
#include <exception>
#include <memory>
#include <ostream>

#include "VKT/document/Model.h"
#include "VKT/node/FnRegistry.h"
#include "VKT/stream/TextWriter.h"

// What both forms of a file share when they are written.

namespace VKT {
namespace {

// The order of the groups in a file: what a group refers to stands ahead of it. Nodes of
// none of these types are the last group.
struct SaveGroup {
    u32 type;
    u32 flag;
};
constexpr std::array<SaveGroup, 6> kGroups = {{
    {kFnTexPlacement2D, SaveTextures},
    {kFnTexture, SaveTextures},
    {kFnMaterial, SaveMaterials},
    {kFnShape, SaveShapes},
    {kFnBone, SaveBones},
    {kFnDeformer, SaveDeformers},
}};

// A text file pads the indices that a set lacks. A damaged mesh can claim more corners
// than any disk holds.
constexpr u64 kMostPadding = 1 << 24;

std::size_t GroupOf(const XBase& node)
{
    std::size_t group = 0;
    while (group < kGroups.size() && !IsOfType(node, kGroups[group].type))
        ++group;
    return group;
}

}  // namespace

// All nodes that the save flags ask for, in the order of the file: group by group, and
// within a group by name.
void XModel::ListForSave(XNodeList& out) const
{
    std::array<XNodeList, kGroups.size() + 1> groups;
    for (const auto& [name, node] : m_Nodes)
        groups[GroupOf(*node)].push_back(node);
    out.clear();
    out.reserve(m_Nodes.size());
    for (std::size_t i = 0; i < groups.size(); ++i)
        if (i == kGroups.size() || (m_SaveFlags.Test(kGroups[i].flag)))
            out.insert(out.end(), groups[i].begin(), groups[i].end());
}

bool XModel::CanSaveAsText() const
{
    u64 padding = 0;
    for (const auto& [name, node] : m_Nodes)
        padding += node->GetTextPadding();
    if (padding <= kMostPadding)
        return CanSaveCyclesAsText();
    GetLogger()->Log(kError, "the document's polygons claim more corners than its index sets hold");
    return false;
}

bool XModel::CanSaveAsBinary() const
{
    if (m_InheritedNodes.size() <= XInheritedNode::kMostInBinary)
        return true;
    GetLogger()->Log(kError, "a binary file tells no more than 4096 inherited node types apart");
    return false;
}

XFileResult XModel::Save(const char* path)
{
    try {
        m_Version = kCurrentVersion;
        if (!m_SaveFlags.Test(VKT::SaveAscii)) {
            if (!CanSaveAsBinary())
                return FileCorrupt;
            XFileIO file(path, false);
            return file.GetFile() ? SaveBinary(file) : FileOpenFailed;
        }
        if (!CanSaveAsText())
            return FileCorrupt;
        std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(std::fopen(path, "wb"), &std::fclose);
        if (!file)
            return FileOpenFailed;
        std::setvbuf(file.get(), nullptr, _IONBF, 0);  // the writer has a window of its own
        XFileResult result = FileCorrupt;
        {
            XTextWriter out(file.get());
            result = SaveAscii(out);
        }
        return std::fclose(file.release()) == 0 ? result : FileCorrupt;
    } catch (const std::exception& error) {
        GetLogger()->LogFormat(kError, "saving \"%s\" failed: %s", path, error.what());
        return FileCorrupt;
    }
}

XFileResult XModel::Save(std::ostream& stream)
{
    try {
        m_Version = kCurrentVersion;
        if (!CanSaveAsText())
            return FileCorrupt;
        XTextWriter out(stream);
        return SaveAscii(out);
    } catch (const std::exception& error) {
        GetLogger()->LogFormat(kError, "saving failed: %s", error.what());
        return FileCorrupt;
    }
}

}  // namespace VKT
