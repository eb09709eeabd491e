#pragma once

#include "VKT/shading/EnvMap.h"

namespace VKT {

// The surroundings on a sphere, in one image.
class XSphereMap : public XNodeClass<XSphereMap, XEnvMap, kFnSphereMap> {
public:
    explicit XSphereMap(XModel* model);

    u32 GetImageId() const { return GetImage(0); }
    void SetImageId(u32 id) { SetImage(0, id); }

    static XBodyTable TextBody();
    static XPropertyTable Properties();
};

}  // namespace VKT
