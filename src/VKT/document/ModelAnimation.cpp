#include <algorithm>

#include "VKT/animation/AnimCycle.h"
#include "VKT/base/Logger.h"
#include "VKT/document/Model.h"
#include "VKT/stream/FileIO.h"
#include "VKT/stream/TextReader.h"

// Animation cycles, which a document keeps apart from its nodes, and the bounds of what
// damaged animation may cost.

namespace VKT {
namespace {

// Frames that a text file pads the tables of cycles with. A damaged cycle can claim more
// than any disk holds.
constexpr u64 kMostFramePadding = 1 << 20;

}  // namespace

// A cycle writes and reads its own braces, and no id.
XFileResult XModel::ReadTextCycle(XTextReader& in, std::unique_ptr<XBase> cycle, const XString& name)
{
    XString brace;
    in.ReadToken(brace);
    cycle->m_Name = name;
    if (!cycle->ReadChunk(in))
        return FileCorrupt;
    Enter(std::move(cycle), name);
    return FileOk;
}

void XModel::WriteTextCycles(XTextWriter& out) const
{
    if (m_SaveFlags.Test(SaveAnimCycles))
        for (const auto& cycle : m_Cycles)
            cycle->WriteChunk(out);
}

bool XModel::WriteBinaryCycles(XFileIO& file) const
{
    if (m_SaveFlags.Test(SaveAnimCycles))
        for (const auto& cycle : m_Cycles)
            if (!cycle->DoHeader(file) || !cycle->DoData(file))
                return false;
    return true;
}

bool XModel::CanSaveCyclesAsText() const
{
    u64 padding = 0;
    for (const auto& cycle : m_Cycles)
        padding += cycle->GetTextPadding();
    if (padding <= kMostFramePadding)
        return true;
    GetLogger()->Log(kError, "the document's cycles claim more frames than their tables hold");
    return false;
}

// Counts zeroes that stand for samples which a file claims and does not hold. False, with
// a logged error, once they are more than a whole file may have.
bool XModel::AllowSamplePadding(u64 floats)
{
    m_SamplePadding += std::min(floats, kMostSamplePadding + 1);
    if (m_SamplePadding <= kMostSamplePadding)
        return true;
    GetLogger()->Log(kError, "the file's takes claim more samples than it holds");
    return false;
}

}  // namespace VKT
