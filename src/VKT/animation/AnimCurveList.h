#pragma once

#include <memory>

#include "VKT/base/Lists.h"
#include "VKT/stream/BlockReader.h"

namespace VKT {

class XFileIO;
class XModel;
class XTextWriter;

// A key of a cycle's curve: time and value, and what its tangents are made of.
struct XCycleKey {
    f32 time, value, in, out;
    bool operator==(const XCycleKey&) const = default;
};

// A curve of a cycle: the values of one attribute over time.
class XCycleCurve {
public:
    const XString& GetName() const { return m_Name; }
    void SetName(const XString& name) { m_Name = name; }
    const XString& GetAttrName() const { return m_AttrName; }
    void SetAttrName(const XString& name) { m_AttrName = name; }
    XVector<XCycleKey>& GetKeys() { return m_Keys; }
    const XVector<XCycleKey>& GetKeys() const { return m_Keys; }

    // The `ANIM_CURVE` block, and the binary form.
    bool ReadChunk(XBlockReader block);
    void WriteChunk(XTextWriter& out) const;
    bool DoData(XFileIO& file);

private:
    bool ReadKey(XBlockReader block);

    XString m_Name;
    XString m_AttrName;
    XVector<XCycleKey> m_Keys;
};

// The curves of one node in a cycle.
class XAnimCurveList {
public:
    explicit XAnimCurveList(XModel& model) : m_Model(&model) {}
    // A copy with curves of its own.
    XAnimCurveList(const XAnimCurveList& other, XModel& model);
    XAnimCurveList& operator=(const XAnimCurveList&) = delete;

    const XString& GetName() const { return m_Name; }
    void SetName(const XString& name) { m_Name = name; }
    u32 GetNodeId() const { return m_NodeId; }
    void SetNodeId(u32 id) { m_NodeId = id; }
    XModel& GetModel() const { return *m_Model; }
    const XVector<std::unique_ptr<XCycleCurve>>& GetCurves() const { return m_Curves; }
    // A new curve at the end.
    XCycleCurve* AddCurve(const XString& name, const XString& attrName);

    // The block behind its key, and the binary form. A curve whose read fails is not in the
    // list.
    bool ReadChunk(XBlockReader block);
    void WriteChunk(XTextWriter& out) const;
    bool DoData(XFileIO& file);

private:
    XVector<std::unique_ptr<XCycleCurve>> m_Curves;
    XString m_Name;
    u32 m_NodeId = 0;
    XModel* m_Model;
};

}  // namespace VKT
