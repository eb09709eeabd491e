#pragma once

#include "VKT/base/FileResult.h"

namespace VKT {

class XModel;
class XTextWriter;

// Writes the text form of a document: header, file information, definitions of node types,
// nodes, cycles. Chunks are not checked one by one; the result is that of the stream.
class XTextSaver {
public:
    XTextSaver(const XModel& model, XTextWriter& out) : m_Model(model), m_Out(out) {}

    // Whether a save would be taken on: false, with a logged error, for a document that
    // claims far more data than it holds, which a text file would have to pad.
    static bool CanSave(const XModel& model);
    XFileResult Save();

private:
    const XModel& m_Model;
    XTextWriter& m_Out;
};

}  // namespace VKT
