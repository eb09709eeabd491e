#pragma once

#include <span>
#include <variant>

#include "VKT/base/Lists.h"

namespace VKT {

// The types of reflected attributes.
enum XPropertyType : u32 {
    kPropertyNone = 0,
    kPropertyBool = 1,
    kPropertyFloat = 2,
    kPropertyUnsigned = 3,
    kPropertyInteger = 4,
    kPropertyVector = 5,
    kPropertyMatrix = 6,
    kPropertyColour = 7,
    kPropertyString = 8,
    kPropertyNode = 9,
    kPropertyQuaternion = 10,
    kPropertyFloatArray = 11,
    kPropertyVectorArray = 12,
    kPropertyIntegerArray = 13,
    kPropertyNodeArray = 14,
};

// "float", "nodeArray", ...; "none" for a number that is no type.
const char* XPropertyTypeName(u32 type);

enum XPropertyFlag : u32 {
    kAnimatable = 1,
    kReadOnly = 2,
    kList = 4,
};

// How a property of value type T is read and written on a node. Without `set` it is
// read-only.
template <class T>
struct XPropertyAccess {
    bool (*get)(const XBase& node, T& value) = nullptr;
    bool (*set)(XBase& node, const T& value) = nullptr;
};

using XAnyAccess =
    std::variant<XPropertyAccess<bool>, XPropertyAccess<f32>, XPropertyAccess<u32>, XPropertyAccess<i32>,
                 XPropertyAccess<XVector3>, XPropertyAccess<XMatrix>, XPropertyAccess<XColour>,
                 XPropertyAccess<XString>, XPropertyAccess<XBase*>, XPropertyAccess<XQuaternion>,
                 XPropertyAccess<XFloatArray>, XPropertyAccess<XVector3Array>, XPropertyAccess<XIntList>,
                 XPropertyAccess<XNodeList>>;

// One row of a class's vocabulary. A number means something only together with the
// node's class: classes of different chains reuse one another's.
struct XPropertyInfo {
    u32 id;
    const char* name;
    XPropertyType type;
    u32 flags;
    u32 nodeType;  // for nodes and node arrays: what they must answer to; 0 for any
    XAnyAccess access;
};

using XPropertyTable = std::span<const XPropertyInfo>;

// The attributes of a class by number and name: the public vocabulary of the library,
// which lets an animation name the `translate` of a node without knowing its class.
// There is one object per class, built on first use and immutable.
//
// Every typed operation answers false for a number that has no property of its type in
// the class or its bases, for a node of a foreign class, and a setter also for a
// read-only property. Only size checks of setters log.
//
// The order of the operations is relied on by callers that were built apart from the
// library; the two array getters stand in swapped order on purpose.
class XNodeProperties {
public:
    virtual ~XNodeProperties() = default;

    virtual bool SetNodeArray(XBase* node, u32 id, const XNodeList& value) const;
    virtual bool SetNode(XBase* node, u32 id, XBase* value) const;
    virtual bool SetMatrix(XBase* node, u32 id, const XMatrix& value) const;
    virtual bool SetUnsigned(XBase* node, u32 id, u32 value) const;
    virtual bool SetInteger(XBase* node, u32 id, i32 value) const;
    virtual bool SetIntegerArray(XBase* node, u32 id, const XIntList& value) const;
    virtual bool SetVectorArray(XBase* node, u32 id, const XVector3Array& value) const;
    virtual bool SetFloatArray(XBase* node, u32 id, const XFloatArray& value) const;
    virtual bool SetString(XBase* node, u32 id, const XString& value) const;
    virtual bool SetColour(XBase* node, u32 id, const XColour& value) const;
    virtual bool SetFloat(XBase* node, u32 id, f32 value) const;
    virtual bool SetBool(XBase* node, u32 id, bool value) const;
    virtual bool SetVector(XBase* node, u32 id, const XVector3& value) const;
    virtual bool SetQuaternion(XBase* node, u32 id, const XQuaternion& value) const;

    virtual bool GetNodeArray(const XBase* node, u32 id, XNodeList& value) const;
    virtual bool GetNode(const XBase* node, u32 id, XBase*& value) const;
    virtual bool GetMatrix(const XBase* node, u32 id, XMatrix& value) const;
    virtual bool GetUnsigned(const XBase* node, u32 id, u32& value) const;
    virtual bool GetInteger(const XBase* node, u32 id, i32& value) const;
    virtual bool GetVectorArray(const XBase* node, u32 id, XVector3Array& value) const;
    virtual bool GetIntegerArray(const XBase* node, u32 id, XIntList& value) const;
    virtual bool GetFloatArray(const XBase* node, u32 id, XFloatArray& value) const;
    virtual bool GetString(const XBase* node, u32 id, XString& value) const;
    virtual bool GetColour(const XBase* node, u32 id, XColour& value) const;
    virtual bool GetFloat(const XBase* node, u32 id, f32& value) const;
    virtual bool GetBool(const XBase* node, u32 id, bool& value) const;
    virtual bool GetVector(const XBase* node, u32 id, XVector3& value) const;
    virtual bool GetQuaternion(const XBase* node, u32 id, XQuaternion& value) const;

    virtual XString GetPropertyName(u32 id) const;
    virtual XPropertyType GetPropertyType(u32 id) const;
    virtual u32 GetPropertyId(const char* name) const;
    virtual u32 GetNumProperties() const;
    virtual u32 GetPropertyFlags(u32 id) const;
    virtual u32 GetPropertyNodeType(u32 id) const;

    // The rows of the class itself, in the table's order, and the class it chains to.
    XPropertyTable GetRows() const { return m_Rows; }
    const XNodeProperties* GetBase() const { return m_Base; }

    // The object of classes that have no vocabulary.
    static const XNodeProperties* Empty();

    // The object of the class `type` with these rows, in front of those of `base`. Own
    // rows win over those of a base; of two with one number or name the first wins.
    // `total` is reported by GetNumProperties where it is not the sum of the rows.
    XNodeProperties(u32 type, XPropertyTable rows, const XNodeProperties* base, u32 total = 0)
        : m_Type(type), m_Rows(rows), m_Base(base), m_Total(total)
    {
    }

private:
    const XPropertyInfo* Find(u32 id) const;
    template <class T>
    bool Get(const XBase* node, u32 id, T& value) const;
    template <class T>
    bool Set(XBase* node, u32 id, const T& value) const;

    u32 m_Type;
    XPropertyTable m_Rows;
    const XNodeProperties* m_Base;
    u32 m_Total;
};

}  // namespace VKT
