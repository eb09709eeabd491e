#include "VKT/node/NodeProperties.h"

#include <algorithm>
#include <cstring>

#include "VKT/node/Base.h"

namespace VKT {

const char* XPropertyTypeName(u32 type)
{
    constexpr const char* names[] = {"none",       "bool",       "float",       "unsigned",     "integer",
                                     "vector",     "matrix",     "colour",      "string",       "node",
                                     "quaternion", "floatArray", "vectorArray", "integerArray", "nodeArray"};
    static_assert(std::size(names) == kPropertyNodeArray + 1);
    return names[type < std::size(names) ? type : kPropertyNone];
}

const XNodeProperties* XNodeProperties::Empty()
{
    static const XNodeProperties empty(kFnBase, {}, nullptr);
    return &empty;
}

const XPropertyInfo* XNodeProperties::Find(u32 id) const
{
    for (const XNodeProperties* level = this; level; level = level->m_Base)
        for (const XPropertyInfo& row : level->m_Rows)
            if (row.id == id)
                return &row;
    return nullptr;
}

// Each class answers for its own rows of the type, so that a base still finds a number
// that the class uses for another type.
template <class T>
bool XNodeProperties::Get(const XBase* node, u32 id, T& value) const
{
    if (!node || !IsOfType(*node, m_Type))
        return false;
    for (const XPropertyInfo& row : m_Rows)
        if (row.id == id)
            if (const auto* access = std::get_if<XPropertyAccess<T>>(&row.access))
                return access->get(*node, value);
    return m_Base && m_Base->Get(node, id, value);
}

template <class T>
bool XNodeProperties::Set(XBase* node, u32 id, const T& value) const
{
    if (!node || !node->HasFn(m_Type))
        return false;
    for (const XPropertyInfo& row : m_Rows)
        if (row.id == id)
            if (const auto* access = std::get_if<XPropertyAccess<T>>(&row.access))
                return access->set && access->set(*node, value);
    return m_Base && m_Base->Set(node, id, value);
}

// clang-format off
bool XNodeProperties::SetNodeArray(XBase* node, u32 id, const XNodeList& value) const { return Set(node, id, value); }
bool XNodeProperties::SetNode(XBase* node, u32 id, XBase* value) const { return Set(node, id, value); }
bool XNodeProperties::SetMatrix(XBase* node, u32 id, const XMatrix& value) const { return Set(node, id, value); }
bool XNodeProperties::SetUnsigned(XBase* node, u32 id, u32 value) const { return Set(node, id, value); }
bool XNodeProperties::SetInteger(XBase* node, u32 id, i32 value) const { return Set(node, id, value); }
bool XNodeProperties::SetIntegerArray(XBase* node, u32 id, const XIntList& value) const { return Set(node, id, value); }
bool XNodeProperties::SetVectorArray(XBase* node, u32 id, const XVector3Array& value) const { return Set(node, id, value); }
bool XNodeProperties::SetFloatArray(XBase* node, u32 id, const XFloatArray& value) const { return Set(node, id, value); }
bool XNodeProperties::SetString(XBase* node, u32 id, const XString& value) const { return Set(node, id, value); }
bool XNodeProperties::SetColour(XBase* node, u32 id, const XColour& value) const { return Set(node, id, value); }
bool XNodeProperties::SetFloat(XBase* node, u32 id, f32 value) const { return Set(node, id, value); }
bool XNodeProperties::SetBool(XBase* node, u32 id, bool value) const { return Set(node, id, value); }
bool XNodeProperties::SetVector(XBase* node, u32 id, const XVector3& value) const { return Set(node, id, value); }
bool XNodeProperties::SetQuaternion(XBase* node, u32 id, const XQuaternion& value) const { return Set(node, id, value); }

bool XNodeProperties::GetNodeArray(const XBase* node, u32 id, XNodeList& value) const { return Get(node, id, value); }
bool XNodeProperties::GetNode(const XBase* node, u32 id, XBase*& value) const { return Get(node, id, value); }
bool XNodeProperties::GetMatrix(const XBase* node, u32 id, XMatrix& value) const { return Get(node, id, value); }
bool XNodeProperties::GetUnsigned(const XBase* node, u32 id, u32& value) const { return Get(node, id, value); }
bool XNodeProperties::GetInteger(const XBase* node, u32 id, i32& value) const { return Get(node, id, value); }
bool XNodeProperties::GetVectorArray(const XBase* node, u32 id, XVector3Array& value) const { return Get(node, id, value); }
bool XNodeProperties::GetIntegerArray(const XBase* node, u32 id, XIntList& value) const { return Get(node, id, value); }
bool XNodeProperties::GetFloatArray(const XBase* node, u32 id, XFloatArray& value) const { return Get(node, id, value); }
bool XNodeProperties::GetString(const XBase* node, u32 id, XString& value) const { return Get(node, id, value); }
bool XNodeProperties::GetColour(const XBase* node, u32 id, XColour& value) const { return Get(node, id, value); }
bool XNodeProperties::GetFloat(const XBase* node, u32 id, f32& value) const { return Get(node, id, value); }
bool XNodeProperties::GetBool(const XBase* node, u32 id, bool& value) const { return Get(node, id, value); }
bool XNodeProperties::GetVector(const XBase* node, u32 id, XVector3& value) const { return Get(node, id, value); }
bool XNodeProperties::GetQuaternion(const XBase* node, u32 id, XQuaternion& value) const { return Get(node, id, value); }
// clang-format on

XString XNodeProperties::GetPropertyName(u32 id) const
{
    const XPropertyInfo* row = Find(id);
    return row ? row->name : "";
}

XPropertyType XNodeProperties::GetPropertyType(u32 id) const
{
    const XPropertyInfo* row = Find(id);
    return row ? row->type : kPropertyNone;
}

u32 XNodeProperties::GetPropertyId(const char* name) const
{
    for (const XNodeProperties* level = this; level; level = level->m_Base)
        for (const XPropertyInfo& row : level->m_Rows)
            if (std::strcmp(row.name, name) == 0)
                return row.id;
    return 0;
}

u32 XNodeProperties::GetNumProperties() const
{
    if (m_Total != 0)
        return m_Total;
    return static_cast<u32>(m_Rows.size()) + (m_Base ? m_Base->GetNumProperties() : 0);
}

u32 XNodeProperties::GetPropertyFlags(u32 id) const
{
    const XPropertyInfo* row = Find(id);
    return row ? row->flags : 0;
}

u32 XNodeProperties::GetPropertyNodeType(u32 id) const
{
    const XPropertyInfo* row = Find(id);
    return row ? row->nodeType : 0;
}

}  // namespace VKT
