#pragma once

#include "VKT/deformers/PointCluster.h"

namespace VKT {

// Weights that one joint has on points of the geometry. The joint clusters of a queue
// together are a skin; `XSkinPruner` merges them.
class XJointCluster : public XNodeClass<XJointCluster, XPointCluster, kFnJointCluster> {
public:
    using XNodeClass::XNodeClass;

    bool ReadFields(XTextReader& in) override;

    static XPropertyTable Properties();
};

}  // namespace VKT
