#include "VKT/animation/AnimCurveList.h"

#include <algorithm>

#include "VKT/stream/FileIO.h"
#include "VKT/stream/NodeName.h"
#include "VKT/stream/TextSyntax.h"
#include "VKT/stream/TextWriter.h"

namespace VKT {
namespace {

constexpr const char* kSource = ".\\src\\VKT\\AnimCycle";

// A number that fails to come is seen at the next key.
bool ReadKeyed(std::string_view key, XTextReader& in, int line, f32& value)
{
    if (!Expect(key, in, kSource, line))
        return false;
    in.Read(value);
    return true;
}

}  // namespace

bool XCycleCurve::ReadChunk(XTextReader& in)
{
    if (!Expect("ANIM_CURVE", in, kSource, 11))
        return false;
    in.ReadToken(m_Name);
    std::erase(m_Name, '"');
    if (!Expect("{", in, kSource, 7) || !Expect("attr_name", in, kSource, 12))
        return false;
    in.ReadToken(m_AttrName);
    if (!Expect("num_keys", in, kSource, 13))
        return false;
    u32 count = 0;
    in.Read(count);
    for (u32 i = 0; i < count; ++i) {
        XCycleKey key{};
        if (!ReadKeyed("time", in, 14, key.time) || !ReadKeyed("value", in, 15, key.value) ||
            !ReadKeyed("in", in, 16, key.in) || !ReadKeyed("out", in, 17, key.out))
            return false;
        m_Keys.push_back(key);
    }
    return Expect("}", in, kSource, 8);
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

bool XAnimCurveList::ReadChunk(XTextReader& in)
{
    in.ReadToken(m_Name);
    if (!Expect("{", in, kSource, 7) || !Expect("node", in, kSource, 9))
        return false;
    in.Read(m_NodeId);
    if (!Expect("num_curves", in, kSource, 10))
        return false;
    u32 count = 0;
    in.Read(count);
    for (u32 i = 0; i < count; ++i) {
        auto curve = std::make_unique<XCycleCurve>();
        if (!curve->ReadChunk(in))
            return false;
        m_Curves.push_back(std::move(curve));
    }
    return Expect("}", in, kSource, 8);
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
