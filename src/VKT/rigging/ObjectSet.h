#pragma once

#include "VKT/rigging/NodeCollection.h"

namespace VKT {

// A set of nodes with a remark.
class XObjectSet final : public XNodeClass<XObjectSet, XNodeCollection, kFnObjectSet> {
public:
    using XNodeClass::XNodeClass;

    const XString& GetAnnotation() const { return m_Annotation; }
    void SetAnnotation(const XString& annotation) { m_Annotation = annotation; }

    bool DoData(XFileIO& file) override;
    void DoCopy(const XBase* source) override;
    bool WriteChunk(XTextWriter& out) const override;
    // Kept on purpose: the annotation is read up to its first blank, with the quote in front
    // of it and one behind it taken off. What follows passes as keys of a newer writer.
    bool ReadFields(XTextReader& in) override;

    static XPropertyTable Properties();

private:
    XString m_Annotation;
};

}  // namespace VKT
