#pragma once

#include <array>
#include <variant>

#include "VKT/base/Lists.h"
#include "VKT/node/Connection.h"

namespace VKT {

class XFileIO;
class XModel;
class XTextReader;
class XTextWriter;

using XInt2 = std::array<i32, 2>;
using XInt3 = std::array<i32, 3>;
using XInt4 = std::array<i32, 4>;

// The value of an attribute that only serves to be connected.
struct XMessage {};
// The array form of it: a number of elements without values.
struct XMessageArray {
    i32 count = 0;
};

// The types of extra attributes. The numbers stand in binary files.
enum XAttributeType : u32 {
    kAttributeBool = 136,
    kAttributeColour,
    kAttributeFloat,
    kAttributeFloat2,
    kAttributeFloat3,
    kAttributeFloat4,
    kAttributeInt,
    kAttributeInt2,
    kAttributeInt3,
    kAttributeInt4,
    kAttributeString,
    kAttributeMessage,
    kAttributeMatrix,
    kAttributeBoolArray,
    kAttributeColourArray,
    kAttributeFloatArray,
    kAttributeFloat2Array,
    kAttributeFloat3Array,
    kAttributeFloat4Array,
    kAttributeIntArray,
    kAttributeInt2Array,
    kAttributeInt3Array,
    kAttributeInt4Array,
    kAttributeStringArray,
    kAttributeMessageArray,
    kAttributeMatrixArray = 161,
};

// The alternatives in the order of the types. Arrays of bools hold one byte each.
using XAttributeValue =
    std::variant<bool, XColour, f32, XVector2, XVector3, XVector4, i32, XInt2, XInt3, XInt4, XString,
                 XMessage, XMatrix, XVector<u8>, XColourArray, XFloatArray, XVector<XVector2>, XVector3Array,
                 XVector<XVector4>, XIntList, XVector<XInt2>, XVector<XInt3>, XVector<XInt4>, XStringList,
                 XMessageArray, XMatrixArray>;

// A named, typed value that a user hung on a node, and its connections. The type is
// simply what was set last; a new attribute is the bool false.
class XAttribute {
public:
    const XString& GetName() const { return m_Name; }
    void SetName(const XString& name) { m_Name = name; }
    u32 GetType() const { return kAttributeBool + static_cast<u32>(m_Value.index()); }
    bool IsArray() const { return GetType() >= kAttributeBoolArray; }
    // Elements of an array; 1 for a scalar.
    u32 Size() const;

    // The whole value. `Get` is false, and `value` untouched, for another type.
    template <class T>
    void Set(T value)
    {
        m_Value = std::move(value);
    }
    template <class T>
    bool Get(T& value) const
    {
        const T* held = std::get_if<T>(&m_Value);
        if (held)
            value = *held;
        return held != nullptr;
    }
    // One element of an array of such elements; false for another type or out of range.
    template <class T>
    bool SetElement(u32 i, const T& value)
    {
        auto* list = std::get_if<XVector<T>>(&m_Value);
        if (!list || i >= list->size())
            return false;
        (*list)[i] = value;
        return true;
    }
    template <class T>
    bool GetElement(u32 i, T& value) const
    {
        const auto* list = std::get_if<XVector<T>>(&m_Value);
        if (!list || i >= list->size())
            return false;
        value = (*list)[i];
        return true;
    }
    const XAttributeValue& GetValue() const { return m_Value; }

    // Connections, by element. An element has at most one input and any number of
    // outputs.
    bool HasInput(u32 element) const { return FindInput(element) != nullptr; }
    bool HasOutput(u32 element) const { return FindOutput(element, 0) != nullptr; }
    bool HasConnections() const { return !m_Inputs.empty() || !m_Outputs.empty(); }
    u32 NumOutputs(u32 element) const;
    // The node at the other end, null when there is none or the document lost it, and
    // the name of its attribute.
    XBase* GetInput(const XModel& model, u32 element) const;
    XString GetInputAttribute(const XModel& model, u32 element) const;
    XBase* GetOutput(const XModel& model, u32 element, u32 n) const;
    XString GetOutputAttribute(const XModel& model, u32 element, u32 n) const;
    const XVector<XConnection>& GetInputs() const { return m_Inputs; }
    const XVector<XConnection>& GetOutputs() const { return m_Outputs; }
    // Replaces the input of the element, or adds one. True.
    bool SetInput(u32 element, u32 node, const XString& attribute);
    // Adds an output; false when an equal one stands.
    bool AddOutput(u32 element, u32 node, const XString& attribute);
    // Removes the connections that name the dead node, as the delete flags say.
    void NodeDeath(XModel& model, u32 id);

    // One entry of the text block: name, keyword and value. The reader stands behind the
    // name; false abandons the block, after a logged wrong brace.
    void Write(XTextWriter& out) const;
    bool Read(XTextReader& in);
    // The attribute's `ATTR` entries of the connections block.
    void WriteConnections(XTextWriter& out, const XModel& model) const;
    // Type, name, value and connections, in both directions. Files below version 3 have
    // no connections, and no element count of message arrays.
    bool DoData(XFileIO& file);

private:
    const XConnection* FindInput(u32 element) const;
    const XConnection* FindOutput(u32 element, u32 n) const;
    // Becomes the empty or zero value of a type of the enumeration.
    void SetType(u32 type);
    bool DoValue(XFileIO& file);

    XString m_Name = "default";
    XAttributeValue m_Value;
    XVector<XConnection> m_Inputs;
    XVector<XConnection> m_Outputs;
};

// The keyword of a type in text files, such as "vector<float3>"; null for a number that
// is no type.
const char* GetAttributeKeyword(u32 type);

}  // namespace VKT
