#pragma once

#include <variant>

#include "VKT/node/Base.h"

namespace VKT::Test {

// A value of a property. The place of its type in the list is the number of that type.
using PropertyValue = std::variant<std::monostate, bool, f32, u32, i32, XVector3, XMatrix, XColour, XString,
                                   XBase*, XQuaternion, XFloatArray, XVector3Array, XIntList, XNodeList>;

// Sets a property by the operation of the value's type; that operation's answer.
inline bool SetValue(const XNodeProperties& properties, XBase* node, u32 id, const PropertyValue& value)
{
    struct Setter {
        const XNodeProperties& properties;
        XBase* node;
        u32 id;

        bool operator()(std::monostate) const { return false; }
        bool operator()(bool v) const { return properties.SetBool(node, id, v); }
        bool operator()(f32 v) const { return properties.SetFloat(node, id, v); }
        bool operator()(u32 v) const { return properties.SetUnsigned(node, id, v); }
        bool operator()(i32 v) const { return properties.SetInteger(node, id, v); }
        bool operator()(const XVector3& v) const { return properties.SetVector(node, id, v); }
        bool operator()(const XMatrix& v) const { return properties.SetMatrix(node, id, v); }
        bool operator()(const XColour& v) const { return properties.SetColour(node, id, v); }
        bool operator()(const XString& v) const { return properties.SetString(node, id, v); }
        bool operator()(XBase* v) const { return properties.SetNode(node, id, v); }
        bool operator()(const XQuaternion& v) const { return properties.SetQuaternion(node, id, v); }
        bool operator()(const XFloatArray& v) const { return properties.SetFloatArray(node, id, v); }
        bool operator()(const XVector3Array& v) const { return properties.SetVectorArray(node, id, v); }
        bool operator()(const XIntList& v) const { return properties.SetIntegerArray(node, id, v); }
        bool operator()(const XNodeList& v) const { return properties.SetNodeArray(node, id, v); }
    };
    return std::visit(Setter{properties, node, id}, value);
}

// Gets a property by the operation of the type that `value` holds; that operation's answer.
inline bool GetValue(const XNodeProperties& properties, const XBase* node, u32 id, PropertyValue& value)
{
    struct Getter {
        const XNodeProperties& properties;
        const XBase* node;
        u32 id;

        bool operator()(std::monostate) const { return false; }
        bool operator()(bool& v) const { return properties.GetBool(node, id, v); }
        bool operator()(f32& v) const { return properties.GetFloat(node, id, v); }
        bool operator()(u32& v) const { return properties.GetUnsigned(node, id, v); }
        bool operator()(i32& v) const { return properties.GetInteger(node, id, v); }
        bool operator()(XVector3& v) const { return properties.GetVector(node, id, v); }
        bool operator()(XMatrix& v) const { return properties.GetMatrix(node, id, v); }
        bool operator()(XColour& v) const { return properties.GetColour(node, id, v); }
        bool operator()(XString& v) const { return properties.GetString(node, id, v); }
        bool operator()(XBase*& v) const { return properties.GetNode(node, id, v); }
        bool operator()(XQuaternion& v) const { return properties.GetQuaternion(node, id, v); }
        bool operator()(XFloatArray& v) const { return properties.GetFloatArray(node, id, v); }
        bool operator()(XVector3Array& v) const { return properties.GetVectorArray(node, id, v); }
        bool operator()(XIntList& v) const { return properties.GetIntegerArray(node, id, v); }
        bool operator()(XNodeList& v) const { return properties.GetNodeArray(node, id, v); }
    };
    return std::visit(Getter{properties, node, id}, value);
}

}  // namespace VKT::Test
