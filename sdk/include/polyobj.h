#pragma once

#include "mnmesh.h"
#include "object.h"

extern CoreExport Class_ID polyObjectClassID;

class CoreExport PolyObject : public GeomObject {
public:
    MNMesh mm;

    Class_ID ClassID() override { return Class_ID(POLYOBJ_CLASS_ID, 0); }
    void GetClassName(MSTR& name) override { name = "Editable Poly"; }
    ObjectState Eval(TimeValue) override { return ObjectState(this); }
    int CanConvertToType(Class_ID classID) override;
    Object* ConvertToType(TimeValue t, Class_ID classID) override;
    Object* MakeShallowCopy(ChannelMask channels) override;
    void ShallowCopy(Object* from, ChannelMask channels) override;
    RefResult NotifyRefChanged(Interval, RefTargetHandle, PartID&, RefMessage) override
    {
        return REF_SUCCEED;
    }

    MNMesh& GetMesh() { return mm; }
};
