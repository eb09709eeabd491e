#include "VKT/animation/AnimCurveList.h"

#include <algorithm>

#include "VKT/stream/BlockReader.h"
#include "VKT/stream/FileIO.h"
#include "VKT/stream/NodeName.h"
#include "VKT/stream/TextWriter.h"

namespace VKT {

bool XCycleCurve::ReadChunk(XBlockReader block)
{
    if (!block.Read("ANIM_CURVE", m_Name))
        return false;
    std::erase(m_Name, '"');
    u32 count = 0;
    if (!block.Expect("{") || !block.Read("attr_name", m_AttrName) || !block.Read("num_keys", count))
        return false;
    for (u32 i = 0; i < count; ++i)
        if (!ReadKey(block))
            return false;
    return block.Expect("}");
}

bool XCycleCurve::ReadKey(XBlockReader block)
{
    XCycleKey key{};
    if (!block.Read("time", key.time) || !block.Read("value", key.value) || !block.Read("in", key.in) ||
        !block.Read("out", key.out))
        return false;
    m_Keys.push_back(key);
    return true;
}

void XCycleCurve::WriteChunk(XTextWriter& out) const
{
    out << "\t\tANIM_CURVE " << NameAsToken(m_Name) << "\n\t\t{\n";
    out << "\t\t\tattr_name " << NameAsToken(m_AttrName) << '\n';
    out << "\t\t\tnum_keys " << static_cast<u32>(m_Keys.size()) << '\n';
    for (const XCycleKey& key : m_Keys)
        out << "\t\t\t\ttime " << key.time << " value " << key.value << " in " << key.in << " out " << key.out
            << '\n';
    out << "\t\t}\n";
}

bool XCycleCurve::DoData(XFileIO& file)
{
    return file.DoData(m_Name) && file.DoData(m_AttrName) && file.DoData(m_Keys);
}

XAnimCurveList::XAnimCurveList(const XAnimCurveList& other, XModel& model)
    : m_Name(other.m_Name), m_NodeId(other.m_NodeId), m_Model(&model)
{
    for (const auto& curve : other.m_Curves)
        m_Curves.push_back(std::make_unique<XCycleCurve>(*curve));
}

XCycleCurve* XAnimCurveList::AddCurve(const XString& name, const XString& attrName)
{
    XCycleCurve* const curve = m_Curves.emplace_back(std::make_unique<XCycleCurve>()).get();
    curve->SetName(name);
    curve->SetAttrName(attrName);
    return curve;
}

bool XAnimCurveList::ReadChunk(XBlockReader block)
{
    block.In().ReadToken(m_Name);
    u32 count = 0;
    if (!block.Expect("{") || !block.Read("node", m_NodeId) || !block.Read("num_curves", count))
        return false;
    for (u32 i = 0; i < count; ++i) {
        auto curve = std::make_unique<XCycleCurve>();
        if (!curve->ReadChunk(block))
            return false;
        m_Curves.push_back(std::move(curve));
    }
    return block.Expect("}");
}

void XAnimCurveList::WriteChunk(XTextWriter& out) const
{
    out << "\tANIM_CURVE_LIST " << NameAsToken(m_Name) << "\n\t{\n";
    out << "\t\tnode " << XNodeId{m_NodeId} << '\n';
    out << "\t\tnum_curves " << static_cast<u32>(m_Curves.size()) << '\n';
    for (const auto& curve : m_Curves)
        curve->WriteChunk(out);
    out << "\t}\n";
}

bool XAnimCurveList::DoData(XFileIO& file)
{
    constexpr u64 kLeastBytes = 8;  // two empty names and an empty list
    return file.DoData(m_Name) && file.DoId(m_NodeId) &&
           file.DoEach(m_Curves, kLeastBytes, [&](XCycleCurve& curve) { return curve.DoData(file); });
}

}  // namespace VKT
