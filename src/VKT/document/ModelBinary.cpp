#include <algorithm>
#include <memory>

#include "VKT/document/Model.h"
#include "VKT/node/FnRegistry.h"
#include "VKT/stream/FileHeader.h"
#include "VKT/stream/FileIO.h"

// The binary form of a document.

namespace VKT {
namespace {

constexpr i64 kChunkHeaderSize = 8;

// A chunk that fails sends the walk back to the end that it claims. What its body has read
// past that is read again by the chunks that follow, and where each of them runs far ahead
// and fails, a load would take the square of the file's size: this much, and a few times
// the file, is let pass.
constexpr i64 kMostOverrun = i64{128} << 20;

}  // namespace

struct XModel::BinaryChunk {
    u16 type = 0;
    u8 hasExtraAttributes = 0;
    u8 reserved = 0;
    u32 size = 0;  // header included

    bool Read(XFileIO& file)
    {
        return file.DoData(type) && file.DoData(hasExtraAttributes) && file.DoData(reserved) &&
               file.DoData(size);
    }
};

XFileResult XModel::LoadBin(const char* path, bool loadCycles)
{
    XFileIO file(path, true);
    if (!file.GetFile()) {
        GetLogger()->LogFormat(kInfo, "file \"%s\" failed to open", path);
        return FileOpenFailed;
    }
    file.SetVersion(m_Version);  // of the header, which `Load` has checked
    u8 header[XFileHeader::kSize];
    file.DoData(header, XFileHeader::kSize);
    if (!DoImages(file))
        GetLogger()->Log(kError, "could not load the textures");

    // The walk goes by the sizes that the chunks claim, not by the bytes they take.
    i64 remaining = static_cast<i64>(file.Remaining());
    i64 overrun = -4 * remaining;
    while (remaining >= 1) {
        BinaryChunk chunk;
        if (!chunk.Read(file))
            return FileCorrupt;
        if (file.IsAtEnd() || chunk.type == 0)
            break;
        const i64 body = file.Position();
        const ChunkUse use = UseBinaryChunk(file, chunk, loadCycles);
        if (use == ChunkUse::kFatal)
            return FileCorrupt;
        if (use == ChunkUse::kDropped) {
            if (chunk.size == 0) {
                GetLogger()->Log(kError, "XModel::LoadBin : header byte size 0");
                return FileCorrupt;
            }
            const i64 ahead = body + chunk.size - kChunkHeaderSize - file.Position();
            overrun -= std::min<i64>(ahead, 0);
            if (overrun > kMostOverrun) {
                GetLogger()->Log(kError, "XModel::LoadBin : too many chunks overrun their size");
                return FileCorrupt;
            }
            file.Skip(ahead);
        }
        // The size of such a definition is above what it takes: by it the walk would stop
        // ahead of the end of a file with many of them.
        const bool isOverstated = use == ChunkUse::kRead && chunk.type == kChunkInheritedNode;
        remaining -= isOverstated ? file.Position() - body + kChunkHeaderSize : chunk.size;
    }
    return FileOk;
}

// A chunk that can't be used costs itself alone, unless it is a definition, which others
// may need.
XModel::ChunkUse XModel::UseBinaryChunk(XFileIO& file, const BinaryChunk& chunk, bool loadCycles)
{
    if (chunk.type == kFnAnimCycle && !loadCycles)
        return ChunkUse::kDropped;  // as asked for
    if (chunk.type == kChunkInfo) {
        m_Info = std::make_unique<XInfo>();
        if (!m_Info->DoData(file)) {
            m_Info.reset();
            Drop({"INFO", "", true});
            return ChunkUse::kDropped;
        }
        if (m_Images.empty() && m_Info->HasTextureFile())
            TryTextureFile(m_Info->GetTextureFile());
        return ChunkUse::kRead;
    }
    if (chunk.type == kChunkInheritedNode) {
        auto definition = std::make_unique<XInheritedNode>(static_cast<u32>(m_InheritedNodes.size()));
        if (!definition->DoData(file))
            return ChunkUse::kFatal;
        Enter(std::move(definition));
        return ChunkUse::kRead;
    }
    if (chunk.type == kChunkNewNode) {
        auto definition = std::make_unique<XNewNode>();
        if (!definition->DoData(file))
            return ChunkUse::kFatal;
        Enter(std::move(definition));
        return ChunkUse::kRead;
    }
    return ReadBinaryNode(file, chunk) ? ChunkUse::kRead : ChunkUse::kDropped;
}

bool XModel::ReadBinaryNode(XFileIO& file, const BinaryChunk& chunk)
{
    std::unique_ptr<XBase> node(XInheritedCreate(this, chunk.type));
    if (!node) {
        const XString key = XFnChunkName(chunk.type);
        Drop({key.empty() ? std::to_string(chunk.type) : key, "", false});
        return false;
    }
    if (chunk.hasExtraAttributes)
        node->RenewExtraAttributes();
    if (!node->DoData(file)) {
        Abandon(*node);
        Drop({XFnChunkName(chunk.type), node->m_Name, true});
        return false;
    }
    const XString name = node->m_Name;
    Enter(std::move(node), name);
    return true;
}

XFileResult XModel::SaveBinary(XFileIO& file)
{
    XString header = XFileHeader{kCurrentVersion, XFileForm::kBinary}.Text(XFileHeaderTail());
    header.resize(XFileHeader::kSize);
    if (!file.DoData(reinterpret_cast<u8*>(header.data()), XFileHeader::kSize) || !DoImages(file))
        return FileCorrupt;
    if (m_Info && !m_Info->DoData(file))
        return FileCorrupt;
    for (const auto& [key, definition] : m_NewNodes)
        if (!definition->DoHeader(file) || !definition->DoData(file))
            return FileCorrupt;
    for (const auto& definition : m_InheritedNodes)
        if (!definition->DoHeader(file) || !definition->DoData(file))
            return FileCorrupt;
    XNodeList nodes;
    ListForSave(nodes);
    for (XBase* node : nodes)
        if (!node->DoHeader(file) || !node->DoData(file))
            return FileCorrupt;
    if (!WriteBinaryCycles(file))
        return FileCorrupt;
    return file.Close() ? FileOk : FileCorrupt;
}

}  // namespace VKT
