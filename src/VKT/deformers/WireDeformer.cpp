#include "VKT/deformers/WireDeformer.h"

#include "VKT/base/Logger.h"
#include "VKT/document/Model.h"
#include "VKT/stream/BlockReader.h"
#include "VKT/stream/TextWriter.h"

namespace VKT {
namespace {

constexpr const char* kSource = ".\\src\\VKT\\WireDeformer";

// What is said, with the node's name, when numbers don't come one for each wire.
// Kept on purpose: the second name lacks a letter.
constexpr char kScaleRefused[] =
    "cannot set the %s.wireScale attr because the array provided does not match the number of wires";
constexpr char kDropoffRefused[] =
    "cannot set the %s.wireDropoffDistanc attr because the array provided does not match the number of wires";

}  // namespace

void XWireDeformer::PreDelete(std::set<u32>& ids)
{
    XDeformer::PreDelete(ids);
    if (!GetModel()->GetDeleteFlags().Test(DeleteDeformerInputs))
        return;
    for (const XWireRecord& wire : m_Wires)
        for (const u32 id : {wire.m_Wire, wire.m_BaseWire})
            if (id != 0)
                ids.insert(id);
}

// The numbers behind the wires in binary files and in front of them in text.
XBodyTable XWireDeformer::TextBody()
{
    static constexpr XBodyRow rows[] = {
        {"\tcrossing_effect ", &XWireDeformer::m_CrossingEffect},
        {"\tlocal_intensity ", &XWireDeformer::m_LocalIntensity},
        {"\trotation ", &XWireDeformer::m_Rotation},
    };
    return {kSource, rows};
}

bool XWireDeformer::DoData(XFileIO& file)
{
    const bool isOld = file.IsBelow(4);
    return XDeformer::DoData(file) && (isOld ? DoOldWires(file) : DoWires(file)) && DoOwnBinaryBody(file);
}

bool XWireDeformer::DoWires(XFileIO& file)
{
    return file.DoEach(m_Wires, sizeof(XWireRecord), [&](XWireRecord& wire) {
        return file.DoId(wire.m_BaseWire) && file.DoId(wire.m_Wire) && file.DoData(wire.m_WireParam1) &&
               file.DoData(wire.m_WireParam2);
    });
}

// Files below version 4 hold three lists, and no curves at rest: those are the wires
// themselves. A number that its list lacks keeps its default.
bool XWireDeformer::DoOldWires(XFileIO& file)
{
    XIndexList curves;
    XFloatArray first;
    XFloatArray second;
    for (const XWireRecord& wire : m_Wires) {
        curves.push_back(wire.m_Wire);
        first.push_back(wire.m_WireParam1);
        second.push_back(wire.m_WireParam2);
    }
    if (!file.DoIds(curves) || !file.DoData(first) || !file.DoData(second))
        return false;
    if (!file.IsReading())
        return true;
    m_Wires.assign(curves.size(), XWireRecord{});
    for (std::size_t i = 0; i < curves.size(); ++i) {
        XWireRecord& wire = m_Wires[i];
        wire.m_BaseWire = wire.m_Wire = curves[i];
        if (i < first.size())
            wire.m_WireParam1 = first[i];
        if (i < second.size())
            wire.m_WireParam2 = second[i];
    }
    return true;
}

void XWireDeformer::DoCopy(const XBase* source)
{
    XNodeClass::DoCopy(source);
    if (const XWireDeformer* other = XCast<XWireDeformer>(source))
        m_Wires = other->m_Wires;
}

bool XWireDeformer::WriteChunk(XTextWriter& out) const
{
    if (!XNodeClass::WriteChunk(out))
        return false;
    out << "\tnum_wires " << GetNumWires() << '\n';
    for (const XWireRecord& wire : m_Wires)
        out << "\t\t" << XNodeId{wire.m_BaseWire} << ' ' << XNodeId{wire.m_Wire} << ' ' << wire.m_WireParam1
            << ' ' << wire.m_WireParam2 << '\n';
    out << '\n';
    return out.IsGood();
}

bool XWireDeformer::ReadFields(XTextReader& in)
{
    u32 count = 0;
    if (!XNodeClass::ReadFields(in) ||
        !XBlockReader(in, kSource, TextBody().rows.size()).Read("num_wires", count))
        return false;
    const bool isOld = in.IsBelow(4);
    m_Wires.clear();
    for (u32 i = 0; i < count; ++i) {
        XWireRecord wire;
        if (!isOld)
            in.Read(wire.m_BaseWire);
        in.Read(wire.m_Wire);
        if (isOld)
            wire.m_BaseWire = wire.m_Wire;
        in.Read(wire.m_WireParam1);
        if (!in.Read(wire.m_WireParam2))
            return false;
        m_Wires.push_back(wire);
    }
    return true;
}

// Kept on purpose: `wires` and `base_wires` share a number, so that the latter are known
// by name alone. Setting the wires makes as many records as there are curves.
XPropertyTable XWireDeformer::Properties()
{
    static constexpr auto curves = []<u32 XWireRecord::*Curve>(u32 id, const char* name) {
        return Computed<XNodeList>(
            id, name, kList,
            [](const XBase& node, XNodeList& value) {
                value.clear();
                for (const XWireRecord& wire : As<XWireDeformer>(node).m_Wires)
                    value.push_back(FindNodeOfType(node, wire.*Curve, kFnBase));
                return true;
            },
            [](XBase& node, const XNodeList& value) {
                for (const XBase* curve : value)
                    if (!AcceptsNode(node, curve, kFnBase))
                        return false;
                XWireDeformer& deformer = As<XWireDeformer>(node);
                deformer.m_Wires.resize(value.size());
                for (std::size_t i = 0; i < value.size(); ++i)
                    deformer.m_Wires[i].*Curve = value[i] ? value[i]->GetID() : 0;
                return true;
            });
    };
    static constexpr auto parameters = []<f32 XWireRecord::*Parameter, const char * Refusal>(
                                           u32 id, const char* name) {
        return Computed<XFloatArray>(
            id, name, kAnimatable,
            [](const XBase& node, XFloatArray& value) {
                value.clear();
                for (const XWireRecord& wire : As<XWireDeformer>(node).m_Wires)
                    value.push_back(wire.*Parameter);
                return true;
            },
            [](XBase& node, const XFloatArray& value) {
                XVector<XWireRecord>& wires = As<XWireDeformer>(node).m_Wires;
                if (value.size() != wires.size()) {
                    GetLogger()->LogFormat(kError, Refusal, node.GetName());
                    return false;
                }
                for (std::size_t i = 0; i < wires.size(); ++i)
                    wires[i].*Parameter = value[i];
                return true;
            });
    };
    static constexpr XPropertyInfo rows[] = {
        parameters.operator()<&XWireRecord::m_WireParam1, kScaleRefused>(3, "wire_scale"),
        parameters.operator()<&XWireRecord::m_WireParam2, kDropoffRefused>(4, "wire_dropoff_distance"),
        Field<&XWireDeformer::m_LocalIntensity>(5, "local_intensity", kAnimatable),
        Field<&XWireDeformer::m_Rotation>(6, "rotation", kAnimatable),
        curves.operator()<&XWireRecord::m_Wire>(7, "wires"),
        Field<&XWireDeformer::m_CrossingEffect>(8, "crossing_effect"),
        curves.operator()<&XWireRecord::m_BaseWire>(7, "base_wires"),
    };
    return rows;
}

}  // namespace VKT
