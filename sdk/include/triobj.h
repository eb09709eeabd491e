#pragma once

#include "mesh.h"
#include "object.h"

extern CoreExport Class_ID triObjectClassID;

class CoreExport TriObject : public GeomObject {
public:
    Mesh mesh;

    Class_ID ClassID() override { return Class_ID(TRIOBJ_CLASS_ID, 0); }
    void GetClassName(MSTR& name) override { name = "Editable Mesh"; }
    ObjectState Eval(TimeValue) override { return ObjectState(this); }
    int CanConvertToType(Class_ID classID) override;
    Object* ConvertToType(TimeValue t, Class_ID classID) override;
    Object* MakeShallowCopy(ChannelMask channels) override;
    void ShallowCopy(Object* from, ChannelMask channels) override;
    RefResult NotifyRefChanged(Interval, RefTargetHandle, PartID&, RefMessage) override
    {
        return REF_SUCCEED;
    }

    Mesh& GetMesh() { return mesh; }
};

CoreExport TriObject* CreateNewTriObject();
