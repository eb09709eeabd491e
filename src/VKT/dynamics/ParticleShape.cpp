#include "VKT/dynamics/ParticleShape.h"

#include <algorithm>

#include "VKT/base/Logger.h"
#include "VKT/document/Model.h"
#include "VKT/dynamics/Emitter.h"
#include "VKT/dynamics/Field.h"

namespace VKT {
namespace {

constexpr const char* kSource = ".\\src\\VKT\\ParticleShape";

}  // namespace

XField* XParticleShape::GetField(u32 i) const
{
    return i < m_Fields.size() ? XCast<XField>(GetModel()->FindNode(m_Fields[i])) : nullptr;
}

bool XParticleShape::AddField(XField* field)
{
    if (!field || field->GetModel() != GetModel())
        return false;
    if (std::find(m_Fields.begin(), m_Fields.end(), field->GetID()) == m_Fields.end())
        field->AddShape(GetID());
    m_Fields.push_back(field->GetID());
    return true;
}

void XParticleShape::RemoveField(XField* field)
{
    if (!field)
        return;
    std::erase(m_Fields, field->GetID());
    field->RemoveShape(GetID());
}

void XParticleShape::LinkFields()
{
    for (u32 i = 0; i < GetNumFields(); ++i)
        if (XField* field = GetField(i))
            field->AddShape(GetID());
}

void XParticleShape::UnlinkFields()
{
    for (u32 i = 0; i < GetNumFields(); ++i)
        if (XField* field = GetField(i))
            field->RemoveShape(GetID());
}

bool XParticleShape::SetFields(const XNodeList& fields)
{
    XIndexList ids;
    if (!ToIds(*this, fields, kFnField, ids))
        return false;
    UnlinkFields();
    m_Fields = std::move(ids);
    LinkFields();
    return true;
}

XEmitter* XParticleShape::GetEmitter(u32 i) const
{
    return i < m_Emitters.size() ? XCast<XEmitter>(GetModel()->FindNode(m_Emitters[i])) : nullptr;
}

bool XParticleShape::AddEmitter(XEmitter* emitter)
{
    return emitter && emitter->SetShape(this);
}

bool XParticleShape::SetEmitters(const XNodeList& emitters)
{
    XIndexList accepted;
    if (!ToIds(*this, emitters, kFnEmitter, accepted))
        return false;
    const XIndexList former = std::move(m_Emitters);
    m_Emitters.clear();
    for (const u32 id : former)
        if (XEmitter* emitter = XCast<XEmitter>(GetModel()->FindNode(id));
            emitter && emitter->GetShape() == this)
            emitter->SetShape(nullptr);
    for (XBase* emitter : emitters)
        AddEmitter(XCast<XEmitter>(emitter));
    return true;
}

XBase* XParticleShape::GetMaterial() const
{
    return FindNodeOfType(*this, m_Material, kFnMaterial);
}

bool XParticleShape::SetMaterial(const XBase* material)
{
    if (!AcceptsNode(*this, material, kFnMaterial))
        return false;
    m_Material = material ? material->GetID() : 0;
    return true;
}

bool XParticleShape::NodeDeath(u32 id)
{
    EraseFirst(m_Emitters, id);
    EraseFirst(m_Fields, id);
    return XGeometry::NodeDeath(id);
}

bool XParticleShape::DoData(XFileIO& file)
{
    file.NoteIds(m_Emitters);
    file.NoteId(m_Material);
    return XNodeClass::DoData(file);
}

void XParticleShape::DoCopy(const XBase* source)
{
    const XParticleShape* other = XCast<XParticleShape>(source);
    if (!other || other == this)
        return;
    XIndexList fields = m_Fields;
    XNodeClass::DoCopy(source);
    std::swap(m_Fields, fields);
    if (!GetModel()->GetCopyFlags().Test(CopyParticleLinks))
        return;
    UnlinkFields();
    m_Fields = other->m_Fields;
    LinkFields();
    m_Emitters = other->m_Emitters;
}

void XParticleShape::PostLoad()
{
    XGeometry::PostLoad();
    LinkFields();
}

XBodyTable XParticleShape::TextBody()
{
    static constexpr const char* kLifespans[] = {"LIVE_FOREVER", "CONSTANT", "RANDOM"};
    static constexpr const char* kTypes[] = {"POINT",       "POINT_SPRITES", "STREAK",  "SPHERE",
                                             "MULTI_POINT", "MULTI_STREAK",  "SPRITES", "NUMERIC"};
    static constexpr auto unknownLifespan = [](XBase& node, const XString&) {
        As<XParticleShape>(node).m_LifespanType = kLiveForever;
        GetLogger()->LogFormat(
            kWarning, "Unknown lifespan type when loading XParticleShape \"%s\". Defaulting to kLiveForever",
            node.GetName());
    };
    // Kept on purpose: the message is that of the lifespan.
    static constexpr auto unknownType = [](XBase& node, const XString& word) {
        As<XParticleShape>(node).m_ParticleType = kParticlePoint;
        if (word != "POINTS")
            GetLogger()->LogFormat(
                kWarning, "Unknown lifespan type when loading XParticleShape \"%s\". Defaulting to kPoint",
                node.GetName());
    };
    static constexpr XBodyRow rows[] = {
        {"\tfields ", LinePerNumber(&XParticleShape::m_Fields)},
        Since(4, {"\tdepth_sort ", &XParticleShape::m_DepthSort}),
        Since(4, {"\tlifespan_type ", Word(&XParticleShape::m_LifespanType, kLifespans, unknownLifespan)}),
        Since(4, {"\tlifespan ", &XParticleShape::m_Lifespan}),
        Since(4, {"\tlifespan_random ", &XParticleShape::m_LifespanRandom}),
        Since(4, {"\tparticle_type ", Word(&XParticleShape::m_ParticleType, kTypes, unknownType)}),
        Since(4, {"\t material ", NodeId(&XParticleShape::m_Material)}),  // the blank is part of the form
    };
    return {kSource, rows};
}

// Kept on purpose: the material comes with version 5, which is yet to be.
XBodyTable XParticleShape::BinaryBody()
{
    static constexpr XBodyRow rows[] = {
        LinePerNumber(&XParticleShape::m_Fields),      Since(4, &XParticleShape::m_DepthSort),
        Since(4, &XParticleShape::m_LifespanType),     Since(4, &XParticleShape::m_Lifespan),
        Since(4, &XParticleShape::m_LifespanRandom),   Since(4, &XParticleShape::m_ParticleType),
        Since(5, NodeId(&XParticleShape::m_Material)),
    };
    return {kSource, rows};
}

XPropertyTable XParticleShape::Properties()
{
    static constexpr auto getEmitters = [](const XBase& node, XNodeList& value) {
        ListNodesOf(node, As<XParticleShape>(node).m_Emitters, kFnEmitter, value);
        return true;
    };
    static constexpr auto setEmitters = [](XBase& node, const XNodeList& value) {
        return As<XParticleShape>(node).SetEmitters(value);
    };
    static constexpr auto getFields = [](const XBase& node, XNodeList& value) {
        ListNodesOf(node, As<XParticleShape>(node).m_Fields, kFnField, value);
        return true;
    };
    static constexpr auto setFields = [](XBase& node, const XNodeList& value) {
        return As<XParticleShape>(node).SetFields(value);
    };
    static constexpr XPropertyInfo rows[] = {
        Computed<XNodeList>(4, "emitters", kList, getEmitters, setEmitters, kFnEmitter),
        Computed<XNodeList>(5, "fields", kList, getFields, setFields, kFnField),
        Field<&XParticleShape::m_DepthSort>(6, "depth_sort"),
        AsInteger<&XParticleShape::m_LifespanType>(7, "lifespan_type"),
        Field<&XParticleShape::m_Lifespan>(8, "lifespan"),
        Field<&XParticleShape::m_LifespanRandom>(9, "lifespan_random"),
        AsInteger<&XParticleShape::m_ParticleType>(10, "particle_type"),
    };
    return rows;
}

}  // namespace VKT
