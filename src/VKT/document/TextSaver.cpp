#include "VKT/document/TextSaver.h"

#include "VKT/animation/AnimCycle.h"
#include "VKT/document/Model.h"
#include "VKT/document/SaveOrder.h"
#include "VKT/node/FnRegistry.h"
#include "VKT/stream/FileHeader.h"
#include "VKT/stream/TextWriter.h"

namespace VKT {
namespace {

// A text file pads the indices that a set lacks, and the frames that the tables of cycles
// lack. A damaged mesh can claim more corners, and a damaged cycle more frames, than any disk
// holds.
constexpr u64 kMostIndexPadding = 1 << 24;
constexpr u64 kMostFramePadding = 1 << 20;

bool FailWith(const char* message)
{
    GetLogger()->Log(kError, message);
    return false;
}

}  // namespace

bool XTextSaver::CanSave(const XModel& model)
{
    u64 indices = 0;
    for (const auto& [name, node] : model.GetNodes())
        indices += node->GetTextPadding();
    if (indices > kMostIndexPadding)
        return FailWith("the document's polygons claim more corners than its index sets hold");
    u64 frames = 0;
    for (const auto& cycle : model.GetCycles())
        frames += cycle->GetTextPadding();
    return frames <= kMostFramePadding ||
           FailWith("the document's cycles claim more frames than their tables hold");
}

XFileResult XTextSaver::Save()
{
    m_Out << XFileHeader{kCurrentVersion, XFileForm::kText}.Text(XFileHeaderTail()) << '\n';
    if (const XInfo* info = m_Model.GetInfo())
        info->Write(m_Out);
    for (const auto& [header, definition] : m_Model.GetNewNodes())
        definition->Write(m_Out);
    for (const auto& definition : m_Model.GetInheritedNodes())
        definition->Write(m_Out);
    for (const XBase* node : ListForSave(m_Model))
        node->Write(m_Out);
    if (m_Model.GetSaveFlags().Test(SaveAnimCycles))
        for (const auto& cycle : m_Model.GetCycles())
            cycle->WriteChunk(m_Out);
    return m_Out.Flush() ? FileOk : FileCorrupt;
}

}  // namespace VKT
