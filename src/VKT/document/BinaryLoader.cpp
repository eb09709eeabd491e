#include "VKT/document/BinaryLoader.h"

#include <algorithm>

#include "VKT/document/Model.h"
#include "VKT/document/SceneLoad.h"
#include "VKT/node/FnRegistry.h"
#include "VKT/stream/FileHeader.h"
#include "VKT/stream/FileIO.h"

namespace VKT {
namespace {

constexpr i64 kChunkHeaderSize = 8;

// A chunk that fails sends the walk back to the end that it claims. What its body has read
// past that is read again by the chunks that follow, and where each of them runs far ahead
// and fails, a load would take the square of the file's size: this much, and a few times
// the file, is let pass.
constexpr i64 kMostOverrun = i64{128} << 20;

}  // namespace

struct XBinaryLoader::Chunk {
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

XFileResult XBinaryLoader::Load()
{
    u8 header[XFileHeader::kSize] = {};
    m_File.DoData(header, sizeof header);  // which `XSceneLoad` has checked
    if (!m_Load.GetImages().DoData(m_File))
        GetLogger()->Log(kError, "could not load the textures");

    i64 remaining = static_cast<i64>(m_File.Remaining());
    m_Overrun = -4 * remaining;
    while (remaining >= 1) {
        Chunk chunk;
        if (!chunk.Read(m_File))
            return FileCorrupt;
        if (m_File.IsAtEnd() || chunk.type == 0)
            break;
        const i64 body = m_File.Position();
        const Use use = UseChunk(chunk);
        if (use == Use::kFatal || (use == Use::kDropped && !SkipChunk(chunk, body)))
            return FileCorrupt;
        // The size of such a definition is above what it takes: by it the walk would stop
        // ahead of the end of a file with many of them.
        const bool isOverstated = use == Use::kRead && chunk.type == kChunkInheritedNode;
        remaining -= isOverstated ? m_File.Position() - body + kChunkHeaderSize : chunk.size;
    }
    return FileOk;
}

bool XBinaryLoader::SkipChunk(const Chunk& chunk, i64 body)
{
    if (chunk.size == 0) {
        GetLogger()->Log(kError, "XModel::LoadBin : header byte size 0");
        return false;
    }
    const i64 ahead = body + chunk.size - kChunkHeaderSize - m_File.Position();
    m_Overrun -= std::min<i64>(ahead, 0);
    if (m_Overrun > kMostOverrun) {
        GetLogger()->Log(kError, "XModel::LoadBin : too many chunks overrun their size");
        return false;
    }
    m_File.Skip(ahead);
    return true;
}

XBinaryLoader::Use XBinaryLoader::UseChunk(const Chunk& chunk)
{
    if (chunk.type == kFnAnimCycle && !m_Load.WantsCycles())
        return Use::kDropped;  // as asked for
    if (chunk.type == kChunkInfo)
        return ReadInfo();
    if (chunk.type == kChunkInheritedNode)
        return ReadDefinition(m_Load.GetDeclarations().MakeInherited());
    if (chunk.type == kChunkNewNode)
        return ReadDefinition(std::make_unique<XNewNode>());
    return ReadNode(chunk);
}

XBinaryLoader::Use XBinaryLoader::ReadInfo()
{
    XModel& model = m_Load.GetModel();
    model.SetInfo(std::make_unique<XInfo>());
    XInfo& info = *model.GetInfo();
    if (!info.DoData(m_File)) {
        model.SetInfo(nullptr);
        m_Load.Drop({"INFO", "", true});
        return Use::kDropped;
    }
    XImageTable& images = m_Load.GetImages();
    if (images.GetImages().empty() && info.HasTextureFile())
        images.LoadSideFile(info.GetTextureFile());
    return Use::kRead;
}

template <class Definition>
XBinaryLoader::Use XBinaryLoader::ReadDefinition(std::unique_ptr<Definition> definition)
{
    if (!definition->DoData(m_File))
        return Use::kFatal;
    m_Load.GetDeclarations().Enter(std::move(definition));
    return Use::kRead;
}

XBinaryLoader::Use XBinaryLoader::ReadNode(const Chunk& chunk)
{
    auto node = XInheritedCreate(&m_Load.GetModel(), chunk.type);
    if (!node) {
        const XString key = XFnChunkName(chunk.type);
        m_Load.Drop({key.empty() ? std::to_string(chunk.type) : key, "", false});
        return Use::kDropped;
    }
    if (chunk.hasExtraAttributes)
        node->RenewExtraAttributes();
    if (!node->DoData(m_File)) {
        m_Load.Abandon(*node);
        m_Load.Drop({XFnChunkName(chunk.type), node->GetName(), true});
        return Use::kDropped;
    }
    m_Load.Enter(std::move(node));
    return Use::kRead;
}

}  // namespace VKT
