#pragma once

#include "VKT/deformers/PointCluster.h"

namespace VKT {

// A group of points that a transform moves. It does not outlive that transform.
class XCluster : public XNodeClass<XCluster, XPointCluster, kFnCluster> {
public:
    using XNodeClass::XNodeClass;

    bool NodeDeath(u32 id) override;
    void PreDelete(std::set<u32>& ids) override;
    bool ReadFields(XTextReader& in) override;

    static XPropertyTable Properties();
};

}  // namespace VKT
