#pragma once

#include "VKT/geometry/Deformer.h"

namespace VKT {

class XBone;

// The base of the deformers that a handle drives. They are parameter records: the
// library stores their values as they stand and never applies them.
class XNonLinearDeformer : public XNodeClass<XNonLinearDeformer, XDeformer, kFnNonLinearDeformer> {
public:
    using XNodeClass::XNodeClass;

    // The transform that drives the deformer, null for none.
    XBone* GetHandle() const;
    void SetHandle(const XBone* handle);

    bool NodeDeath(u32 id) override;

    static XBodyTable TextBody();
    static XBodyTable BinaryBody() { return TextBody(); }
    static XPropertyTable Properties();

private:
    u32 m_Handle = 0;
};

// What the family calls itself in messages about wrong keys.
inline constexpr const char* kNonLinearSource = ".\\src\\VKT\\NonLinearDeformer";

}  // namespace VKT
