#pragma once

#include <memory>

#include "VKT/base/FileResult.h"
#include "VKT/base/Types.h"

namespace VKT {

class XBase;
class XSceneLoad;
class XTextReader;

// Reads the text form of a document: the header, then chunks up to the end of the input. A
// chunk that fails ends the load with `FileCorrupt`; one of no known key is skipped.
class XTextLoader {
public:
    XTextLoader(XSceneLoad& load, XTextReader& in) : m_Load(load), m_In(in) {}

    XFileResult Load();

private:
    XFileResult ReadChunks();
    // Behind its key and name.
    XFileResult ReadChunk(const XString& key, const XString& name);
    XFileResult ReadNode(std::unique_ptr<XBase> node, const XString& name);
    XFileResult ReadCycle(std::unique_ptr<XBase> cycle, const XString& name);
    XFileResult ReadInfo();
    template <class Definition>
    XFileResult ReadDefinition(std::unique_ptr<Definition> definition);
    XFileResult SkipChunk(const XString& key, const XString& name);

    XSceneLoad& m_Load;
    XTextReader& m_In;
};

}  // namespace VKT
