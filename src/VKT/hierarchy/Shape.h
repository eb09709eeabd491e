#pragma once

#include "VKT/node/NodeClass.h"

namespace VKT {

// Anything that an instance can place in the scene: geometry, cameras, lights. It keeps
// the ids of the instances that show it.
class XShape : public XNodeClass<XShape, XBase, kFnShape> {
public:
    using XNodeClass::XNodeClass;

    // Fills `out` with the instances that show this shape, in the document's order.
    // Answers whether there are any.
    bool GetObjectInstances(XInstanceList& out) const;

    // When the bone of an instance dies, the instance goes too, and the answer is
    // whether any other is left.
    bool NodeDeath(u32 id) override;
    void PreDelete(std::set<u32>& ids) override;
    // Finds the shape's instances anew.
    void PostLoad() override;

private:
    friend class XInstanceTable;

    XIndexList m_Instances;
};

}  // namespace VKT
