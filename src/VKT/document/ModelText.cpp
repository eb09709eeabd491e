#include <cstdio>
#include <memory>

#include "VKT/document/Model.h"
#include "VKT/node/FnRegistry.h"
#include "VKT/stream/FileHeader.h"
#include "VKT/stream/NodeName.h"
#include "VKT/stream/TextReader.h"
#include "VKT/stream/TextWriter.h"

// The text form of a document.

namespace VKT {

XFileResult XModel::LoadAscii(const char* path, bool loadCycles)
{
    const std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(std::fopen(path, "rb"), &std::fclose);
    if (!file) {
        GetLogger()->LogFormat(kInfo, "file \"%s\" failed to open", path);
        return FileOpenFailed;
    }
    std::setvbuf(file.get(), nullptr, _IONBF, 0);  // the reader has a window of its own
    XTextReader in(file.get());
    return LoadAsciiStream(in, path, loadCycles);
}

// Kept on purpose: the header is checked here also where `Load` has done it, so that the
// warning of an older text file comes twice.
XFileResult XModel::LoadAsciiStream(XTextReader& in, const char* path, bool loadCycles)
{
    XString header;
    in.ReadToken(header);
    const XFileResult result = CheckHeader(header, path);
    if (result != FileOk)
        return result;
    in.SetVersion(m_Version);
    if (XFileHeader::Of(header)->form != XFileForm::kText) {
        GetLogger()->LogFormat(kError, "File is \"%s\" is not an ascii vkt file", path);
        return FileNotVkt;
    }
    return in.HasFailed() ? FileOpenFailed : ReadTextChunks(in, path, loadCycles);
}

XFileResult XModel::ReadTextChunks(XTextReader& in, const char* path, bool loadCycles)
{
    XString key;
    XString name;
    for (;;) {
        in.ReadToken(key);
        if (in.IsAtEnd())
            return FileOk;
        in.ReadToken(name);
        if (in.IsAtEnd())
            return FileOk;
        const XFileResult result = ReadTextChunk(in, path, key, CleanName(name), loadCycles);
        if (result != FileOk || in.IsAtEnd())
            return result;
    }
}

// Built-in chunk keys come first, then those that the file has declared. A declaration has
// no name: what was read as one is its opening brace.
XFileResult XModel::ReadTextChunk(XTextReader& in, const char* path, const XString& key, const XString& name,
                                  bool loadCycles)
{
    if (std::unique_ptr<XBase> node{XFnCreateFromChunk(key, this)}) {
        if (node->GetApiType() != kFnAnimCycle)
            return ReadTextNode(in, std::move(node), name);
        return loadCycles ? ReadTextCycle(in, std::move(node), name) : SkipTextChunk(in, key, name);
    }
    if (key == "INFO") {
        m_Info = std::make_unique<XInfo>();
        if (!m_Info->Read(in)) {
            m_Info.reset();
            return FileCorrupt;
        }
        FindTextureFile(path);
        return FileOk;
    }
    if (key == "NEW_NODE") {
        auto definition = std::make_unique<XNewNode>();
        if (!definition->Read(in))
            return FileCorrupt;
        Enter(std::move(definition));
        return FileOk;
    }
    if (key == "INHERITED_NODE") {
        auto definition = std::make_unique<XInheritedNode>(static_cast<u32>(m_InheritedNodes.size()));
        if (!definition->Read(in))
            return FileCorrupt;
        Enter(std::move(definition));
        return FileOk;
    }
    if (const XInheritedNode* definition = FindInheritedNode(key))
        if (std::unique_ptr<XBase> node{XInheritedCreateFrom(*definition, this)})
            return ReadTextNode(in, std::move(node), name);
    if (const XNewNode* definition = FindNewNode(key))
        if (std::unique_ptr<XBase> node{definition->CreateNode(this)})
            return ReadTextNode(in, std::move(node), name);
    Drop({key, name, false});
    return SkipTextChunk(in, key, name);
}

XFileResult XModel::ReadTextNode(XTextReader& in, std::unique_ptr<XBase> node, const XString& name)
{
    node->m_Name = name;
    if (!node->Read(in)) {
        Abandon(*node);
        return FileCorrupt;
    }
    Enter(std::move(node), name);
    return FileOk;
}

// Braces count wherever they begin a token, also inside texts.
XFileResult XModel::SkipTextChunk(XTextReader& in, const XString& key, const XString& name)
{
    GetLogger()->LogFormat(kWarning, "Dumping Unknown Chunk: header: %s name: %s", key.c_str(), name.c_str());
    XString token;
    in.ReadToken(token);
    if (token != "{") {
        GetLogger()->Log(kError, "Missing Bracket '{' after chunk name");
        return FileCorrupt;
    }
    for (u64 depth = 1; depth > 0 && in.ReadToken(token);) {
        if (token.starts_with('{'))
            ++depth;
        else if (token.starts_with('}'))
            --depth;
    }
    return FileOk;
}

XFileResult XModel::SaveAscii(XTextWriter& out)
{
    out << XFileHeader{kCurrentVersion, XFileForm::kText}.Text(XFileHeaderTail()) << '\n';
    if (m_Info)
        m_Info->Write(out);
    for (const auto& [header, definition] : m_NewNodes)
        definition->Write(out);
    for (const auto& definition : m_InheritedNodes)
        definition->Write(out);
    XNodeList nodes;
    ListForSave(nodes);
    for (const XBase* node : nodes)
        node->Write(out);
    WriteTextCycles(out);
    return out.Flush() ? FileOk : FileCorrupt;
}

}  // namespace VKT
