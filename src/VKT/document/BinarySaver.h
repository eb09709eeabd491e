#pragma once

#include "VKT/base/FileResult.h"
#include "VKT/base/Vector.h"

namespace VKT {

class XBase;
class XFileIO;
class XImageTable;
class XModel;

// Writes the binary form of a document: header, images, file information, definitions of node
// types, nodes, cycles. The first write that fails ends it with `FileCorrupt`.
class XBinarySaver {
public:
    XBinarySaver(const XModel& model, XImageTable& images) : m_Model(model), m_Images(images) {}

    // Measures all chunks, ahead of the file, which is then spared if the form has no room for
    // the document: false, with a logged error, for more inherited types than chunks can tell
    // apart, or for a node whose chunk is longer than its header can say.
    bool Measure();
    // Writes what was measured, and closes the file too.
    XFileResult Save(XFileIO& file);

private:
    struct Chunk {
        XBase* node;
        u32 size;
    };

    bool Measure(XBase& node);
    bool WriteHeader(XFileIO& file) const;
    bool WriteDefinitions(XFileIO& file) const;
    bool WriteNodes(XFileIO& file) const;

    const XModel& m_Model;
    XImageTable& m_Images;
    XVector<Chunk> m_Chunks;  // of nodes, then of cycles
};

}  // namespace VKT
