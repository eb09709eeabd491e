#pragma once

#include "VKT/document/NewNode.h"
#include "VKT/dynamics/Emitter.h"
#include "VKT/dynamics/Field.h"
#include "VKT/geometry/Deformer.h"
#include "VKT/hierarchy/Bone.h"
#include "VKT/lights/Light.h"
#include "VKT/node/NodeClass.h"
#include "VKT/shading/HwShader.h"
#include "VKT/shading/Material.h"

namespace VKT {

// Reads the raw body of a user-defined node: everything up to the closing brace of its
// chunk, or up to extra attributes. What ended it is handed back to the reader. The line
// end in front of the body and the indentation in front of extra attributes are no part of
// it. False when the input ends first.
bool ReadRawBody(XTextReader& in, XString& data);
// Writes the body and ends its last line.
void WriteRawBody(const XString& data, XTextWriter& out);

// An instance of a new node type: a class of the library and, behind its body in text
// files, raw text that is carried along. Binary files don't hold the text. These classes
// are not in the registry: an instance is made from its definition, so that it cannot be
// cloned, nor read from a binary file.
template <class Base, u32 Type>
class XUserNode : public XNodeClass<XUserNode<Base, Type>, Base, Type> {
    using NodeClass = XNodeClass<XUserNode<Base, Type>, Base, Type>;

public:
    XUserNode(XModel* model, const XNewNode& definition) : NodeClass(model), m_Definition(&definition) {}

    const XNewNode* GetUserDefinition() const override { return m_Definition; }
    // The text behind the body of the base class, in whole lines.
    const XString& GetData() const { return m_Data; }
    void SetData(const XString& data) { m_Data = data; }

    void DoCopy(const XBase*) override {}
    bool WriteChunk(XTextWriter& out) const override { return NodeClass::WriteChunk(out) && WriteBody(out); }
    bool ReadFields(XTextReader& in) override
    {
        return NodeClass::ReadFields(in) && (ReadBody(in) || ReadRawBody(in, m_Data));
    }

    virtual bool WriteBody(XTextWriter& out) const
    {
        WriteRawBody(m_Data, out);
        return out.IsGood();
    }
    // A class that understands the body reads it and answers true.
    virtual bool ReadBody(XTextReader&) { return false; }

private:
    const XNewNode* m_Definition;
    XString m_Data;
};

using XNewBase = XUserNode<XBase, kFnNewBase>;
using XNewMaterial = XUserNode<XMaterial, kFnNewMaterial>;
using XNewShape = XUserNode<XShape, kFnNewShape>;
using XNewLight = XUserNode<XLight, kFnNewLight>;
using XNewBone = XUserNode<XBone, kFnNewBone>;
using XNewEmitter = XUserNode<XEmitter, kFnNewEmitter>;
using XNewField = XUserNode<XField, kFnNewField>;
using XNewDeformer = XUserNode<XDeformer, kFnNewDeformer>;
using XNewAnim = XUserNode<XBase, kFnNewAnim>;
using XNewHwShader = XUserNode<XHwShader, kFnNewHwShader>;

}  // namespace VKT
