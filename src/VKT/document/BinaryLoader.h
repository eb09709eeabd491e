#pragma once

#include <memory>

#include "VKT/base/FileResult.h"
#include "VKT/base/Types.h"

namespace VKT {

class XFileIO;
class XSceneLoad;

// Reads the binary form of a document: the header, the images, then chunks. The walk goes by
// the sizes that the chunks claim, not by the bytes they take. A chunk that can't be used costs
// itself alone, unless it is a definition, which others may need.
class XBinaryLoader {
public:
    XBinaryLoader(XSceneLoad& load, XFileIO& file) : m_Load(load), m_File(file) {}

    XFileResult Load();

private:
    struct Chunk;
    enum class Use { kRead, kDropped, kFatal };

    Use UseChunk(const Chunk& chunk);
    Use ReadInfo();
    template <class Definition>
    Use ReadDefinition(std::unique_ptr<Definition> definition);
    Use ReadNode(const Chunk& chunk);
    // Goes to the end of a chunk that was not used, whose body begins at `body`. False, with a
    // logged error, when that is not possible.
    bool SkipChunk(const Chunk& chunk, i64 body);

    XSceneLoad& m_Load;
    XFileIO& m_File;
    i64 m_Overrun = 0;  // bytes read beyond chunks that failed, less what is let pass for the file's size
};

}  // namespace VKT
