#pragma once

#include "VKT/node/Base.h"
#include "VKT/node/References.h"

namespace VKT {

// Rows of property tables made from members: the accessors are generated, so that a
// plain field needs no code.

namespace Detail {

template <class T>
struct MemberOf;
template <class Value, class Owner>
struct MemberOf<Value Owner::*> {
    using Type = Value;
    using Node = Owner;
};

template <class T>
constexpr XPropertyType kPropertyTypeOf = kPropertyNone;
template <>
inline constexpr XPropertyType kPropertyTypeOf<bool> = kPropertyBool;
template <>
inline constexpr XPropertyType kPropertyTypeOf<f32> = kPropertyFloat;
template <>
inline constexpr XPropertyType kPropertyTypeOf<u32> = kPropertyUnsigned;
template <>
inline constexpr XPropertyType kPropertyTypeOf<i32> = kPropertyInteger;
template <>
inline constexpr XPropertyType kPropertyTypeOf<XVector3> = kPropertyVector;
template <>
inline constexpr XPropertyType kPropertyTypeOf<XMatrix> = kPropertyMatrix;
template <>
inline constexpr XPropertyType kPropertyTypeOf<XColour> = kPropertyColour;
template <>
inline constexpr XPropertyType kPropertyTypeOf<XString> = kPropertyString;
template <>
inline constexpr XPropertyType kPropertyTypeOf<XBase*> = kPropertyNode;
template <>
inline constexpr XPropertyType kPropertyTypeOf<XQuaternion> = kPropertyQuaternion;
template <>
inline constexpr XPropertyType kPropertyTypeOf<XFloatArray> = kPropertyFloatArray;
template <>
inline constexpr XPropertyType kPropertyTypeOf<XVector3Array> = kPropertyVectorArray;
template <>
inline constexpr XPropertyType kPropertyTypeOf<XIntList> = kPropertyIntegerArray;
template <>
inline constexpr XPropertyType kPropertyTypeOf<XNodeList> = kPropertyNodeArray;

}  // namespace Detail

// The node of class `Node` that a property operation is called on; the table's engine
// has checked the class.
template <class Node>
Node& As(XBase& node)
{
    return static_cast<Node&>(node);
}
template <class Node>
const Node& As(const XBase& node)
{
    return static_cast<const Node&>(node);
}

// A field that is read and written as it stands.
template <auto Member>
constexpr XPropertyInfo Field(u32 id, const char* name, u32 flags = 0)
{
    using Value = typename Detail::MemberOf<decltype(Member)>::Type;
    using Node = typename Detail::MemberOf<decltype(Member)>::Node;
    XPropertyAccess<Value> access;
    access.get = [](const XBase& node, Value& value) {
        value = As<Node>(node).*Member;
        return true;
    };
    if (!(flags & kReadOnly))
        access.set = [](XBase& node, const Value& value) {
            As<Node>(node).*Member = value;
            return true;
        };
    return {id, name, Detail::kPropertyTypeOf<Value>, flags, 0, access};
}

// A property with accessors of its own; `set` null makes it read-only.
template <class Value>
constexpr XPropertyInfo Computed(u32 id, const char* name, u32 flags, bool (*get)(const XBase&, Value&),
                                 bool (*set)(XBase&, const Value&), u32 nodeType = 0)
{
    return {id, name, Detail::kPropertyTypeOf<Value>, flags, nodeType, XPropertyAccess<Value>{get, set}};
}

// An unsigned field, or a list of such numbers, that the vocabulary has as signed.
template <auto Member>
constexpr XPropertyInfo AsInteger(u32 id, const char* name, u32 flags = 0)
{
    using Stored = typename Detail::MemberOf<decltype(Member)>::Type;
    using Node = typename Detail::MemberOf<decltype(Member)>::Node;
    if constexpr (std::is_integral_v<Stored>)
        return Computed<i32>(
            id, name, flags,
            [](const XBase& node, i32& value) {
                value = static_cast<i32>(As<Node>(node).*Member);
                return true;
            },
            [](XBase& node, const i32& value) {
                As<Node>(node).*Member = static_cast<Stored>(value);
                return true;
            });
    else
        return Computed<XIntList>(
            id, name, flags,
            [](const XBase& node, XIntList& value) {
                const XU32Array& list = As<Node>(node).*Member;
                value.assign(list.begin(), list.end());
                return true;
            },
            [](XBase& node, const XIntList& value) {
                (As<Node>(node).*Member).assign(value.begin(), value.end());
                return true;
            });
}

// A row whose type, as the vocabulary reports it, is not that of its accessors.
constexpr XPropertyInfo ReportedAs(XPropertyType type, XPropertyInfo row)
{
    row.type = type;
    return row;
}

// A reference to another node, held as its id. It must answer to `nodeType` (0 for any)
// and be of the same document; null clears it.
template <auto Member, u32 NodeType>
constexpr XPropertyInfo NodeField(u32 id, const char* name, u32 flags = 0)
{
    using Node = typename Detail::MemberOf<decltype(Member)>::Node;
    XPropertyAccess<XBase*> access;
    access.get = [](const XBase& node, XBase*& value) {
        value = FindNodeOfType(node, As<Node>(node).*Member, NodeType);
        return true;
    };
    if (!(flags & kReadOnly))
        access.set = [](XBase& node, XBase* const& value) {
            if (!AcceptsNode(node, value, NodeType))
                return false;
            As<Node>(node).*Member = value ? value->GetID() : 0;
            return true;
        };
    return {id, name, kPropertyNode, flags, NodeType, access};
}

// References to other nodes, held as their ids; each as with `NodeField`, and none null.
// Those that the document no longer holds are left out of what is read.
template <auto Member, u32 NodeType>
constexpr XPropertyInfo NodeListField(u32 id, const char* name, u32 flags = 0)
{
    using Node = typename Detail::MemberOf<decltype(Member)>::Node;
    return Computed<XNodeList>(
        id, name, flags,
        [](const XBase& node, XNodeList& value) {
            ListNodesOf(node, As<Node>(node).*Member, NodeType, value);
            return true;
        },
        [](XBase& node, const XNodeList& value) {
            return ToIds(node, value, NodeType, As<Node>(node).*Member);
        },
        NodeType);
}

// The node that feeds a shader input. Null does not clear it.
template <auto Member, u32 NodeType>
constexpr XPropertyInfo InputNode(u32 id, const char* name, u32 flags = 0)
{
    using Node = typename Detail::MemberOf<decltype(Member)>::Node;
    return Computed<XBase*>(
        id, name, flags,
        [](const XBase& node, XBase*& value) {
            value = FindNodeOfType(node, (As<Node>(node).*Member).input, NodeType);
            return true;
        },
        [](XBase& node, XBase* const& value) {
            if (!value || !AcceptsNode(node, value, NodeType))
                return false;
            (As<Node>(node).*Member).input = value->GetID();
            return true;
        },
        NodeType);
}

// The colour of a shader input.
template <auto Member>
constexpr XPropertyInfo InputColour(u32 id, const char* name, u32 flags = 0)
{
    using Node = typename Detail::MemberOf<decltype(Member)>::Node;
    return Computed<XColour>(
        id, name, flags,
        [](const XBase& node, XColour& value) {
            value = (As<Node>(node).*Member).colour;
            return true;
        },
        [](XBase& node, const XColour& value) {
            (As<Node>(node).*Member).colour = value;
            return true;
        });
}

}  // namespace VKT
