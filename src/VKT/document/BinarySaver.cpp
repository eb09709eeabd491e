#include "VKT/document/BinarySaver.h"

#include <limits>

#include "VKT/animation/AnimCycle.h"
#include "VKT/document/Model.h"
#include "VKT/document/SaveOrder.h"
#include "VKT/node/FnRegistry.h"
#include "VKT/stream/FileHeader.h"
#include "VKT/stream/FileIO.h"

namespace VKT {

bool XBinarySaver::Measure()
{
    if (m_Model.GetInheritedNodes().size() > XInheritedNode::kMostInBinary) {
        GetLogger()->Log(kError, "a binary file tells no more than 4096 inherited node types apart");
        return false;
    }
    const XNodeList nodes = ListForSave(m_Model);
    m_Chunks.reserve(nodes.size());
    for (XBase* node : nodes)
        if (!Measure(*node))
            return false;
    if (m_Model.GetSaveFlags().Test(SaveAnimCycles))
        for (const auto& cycle : m_Model.GetCycles())
            if (!Measure(*cycle))
                return false;
    return true;
}

bool XBinarySaver::Measure(XBase& node)
{
    const u64 size = node.MeasureChunk();
    if (size > std::numeric_limits<u32>::max()) {
        GetLogger()->LogFormat(kError, "\"%s\" takes more than the 4 GiB that a binary file has for a node",
                               node.GetName());
        return false;
    }
    m_Chunks.push_back({&node, static_cast<u32>(size)});
    return true;
}

XFileResult XBinarySaver::Save(XFileIO& file)
{
    const bool ok = WriteHeader(file) && m_Images.DoData(file) &&
                    (!m_Model.GetInfo() || m_Model.GetInfo()->DoData(file)) && WriteDefinitions(file) &&
                    WriteNodes(file) && file.Close();
    return ok ? FileOk : FileCorrupt;
}

bool XBinarySaver::WriteHeader(XFileIO& file) const
{
    XString header = XFileHeader{kCurrentVersion, XFileForm::kBinary}.Text(XFileHeaderTail());
    header.resize(XFileHeader::kSize);
    return file.DoData(reinterpret_cast<u8*>(header.data()), header.size()) != 0;
}

bool XBinarySaver::WriteDefinitions(XFileIO& file) const
{
    for (const auto& [key, definition] : m_Model.GetNewNodes())
        if (!definition->DoHeader(file) || !definition->DoData(file))
            return false;
    for (const auto& definition : m_Model.GetInheritedNodes())
        if (!definition->DoHeader(file) || !definition->DoData(file))
            return false;
    return true;
}

bool XBinarySaver::WriteNodes(XFileIO& file) const
{
    for (const auto& [node, size] : m_Chunks)
        if (!node->DoHeader(file, size) || !node->DoData(file))
            return false;
    return true;
}

}  // namespace VKT
