#include "VKT/document/TextLoader.h"

#include "VKT/document/Model.h"
#include "VKT/document/SceneLoad.h"
#include "VKT/node/FnRegistry.h"
#include "VKT/stream/FileHeader.h"
#include "VKT/stream/NodeName.h"
#include "VKT/stream/TextReader.h"

namespace VKT {

XFileResult XTextLoader::Load()
{
    XString start;
    m_In.ReadToken(start);
    XFileHeader header;
    const XFileResult result = m_Load.CheckHeader(start, header);
    if (result != FileOk)
        return result;
    m_In.SetVersion(header.version);
    if (header.form != XFileForm::kText) {
        GetLogger()->LogFormat(kError, "File is \"%s\" is not an ascii vkt file", m_Load.GetPath());
        return FileNotVkt;
    }
    return m_In.HasFailed() ? FileOpenFailed : ReadChunks();
}

XFileResult XTextLoader::ReadChunks()
{
    XString key;
    XString name;
    for (;;) {
        m_In.ReadToken(key);
        if (m_In.IsAtEnd())
            return FileOk;
        m_In.ReadToken(name);
        if (m_In.IsAtEnd())
            return FileOk;
        const XFileResult result = ReadChunk(key, CleanName(name));
        if (result != FileOk || m_In.IsAtEnd())
            return result;
    }
}

// Built-in chunk keys come first, then those that the file has declared. A declaration has
// no name: what was read as one is its opening brace.
XFileResult XTextLoader::ReadChunk(const XString& key, const XString& name)
{
    XModel& model = m_Load.GetModel();
    XTypeDeclarations& declarations = m_Load.GetDeclarations();
    if (auto node = XFnCreateFromChunk(key, &model)) {
        if (node->GetApiType() != kFnAnimCycle)
            return ReadNode(std::move(node), name);
        return m_Load.WantsCycles() ? ReadCycle(std::move(node), name) : SkipChunk(key, name);
    }
    if (key == "INFO")
        return ReadInfo();
    if (key == "NEW_NODE")
        return ReadDefinition(std::make_unique<XNewNode>());
    if (key == "INHERITED_NODE")
        return ReadDefinition(declarations.MakeInherited());
    if (const XInheritedNode* definition = declarations.FindInherited(key))
        if (auto node = XInheritedCreateFrom(*definition, &model))
            return ReadNode(std::move(node), name);
    if (const XNewNode* definition = declarations.FindNew(key))
        if (auto node = definition->CreateNode(&model))
            return ReadNode(std::move(node), name);
    m_Load.Drop({key, name, false});
    return SkipChunk(key, name);
}

XFileResult XTextLoader::ReadNode(std::unique_ptr<XBase> node, const XString& name)
{
    m_Load.SetName(*node, name);
    if (!node->Read(m_In)) {
        m_Load.Abandon(*node);
        return FileCorrupt;
    }
    m_Load.Enter(std::move(node));
    return FileOk;
}

// A cycle writes and reads its own braces, and no id.
XFileResult XTextLoader::ReadCycle(std::unique_ptr<XBase> cycle, const XString& name)
{
    XString brace;
    m_In.ReadToken(brace);
    m_Load.SetName(*cycle, name);
    if (!cycle->ReadChunk(m_In))
        return FileCorrupt;
    m_Load.Enter(std::move(cycle));
    return FileOk;
}

XFileResult XTextLoader::ReadInfo()
{
    XModel& model = m_Load.GetModel();
    model.SetInfo(std::make_unique<XInfo>());
    if (!model.GetInfo()->Read(m_In)) {
        model.SetInfo(nullptr);
        return FileCorrupt;
    }
    m_Load.GetImages().FindSideFile(*model.GetInfo(), m_Load.GetPath());
    return FileOk;
}

template <class Definition>
XFileResult XTextLoader::ReadDefinition(std::unique_ptr<Definition> definition)
{
    if (!definition->Read(m_In))
        return FileCorrupt;
    m_Load.GetDeclarations().Enter(std::move(definition));
    return FileOk;
}

// Braces count wherever they begin a token, also inside texts.
XFileResult XTextLoader::SkipChunk(const XString& key, const XString& name)
{
    GetLogger()->LogFormat(kWarning, "Dumping Unknown Chunk: header: %s name: %s", key.c_str(), name.c_str());
    XString token;
    m_In.ReadToken(token);
    if (token != "{") {
        GetLogger()->Log(kError, "Missing Bracket '{' after chunk name");
        return FileCorrupt;
    }
    for (u64 depth = 1; depth > 0 && m_In.ReadToken(token);) {
        if (token.starts_with('{'))
            ++depth;
        else if (token.starts_with('}'))
            --depth;
    }
    return FileOk;
}

}  // namespace VKT
