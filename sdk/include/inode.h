#pragma once

#include "ifnpub.h"
#include "object.h"

class Mtl;

#define INODE_INTERFACE Interface_ID(0x67b113ca, 0x34204b2b)

// An object's place in the scene. Asked for INODE_INTERFACE, it answers itself as a
// BaseInterface*, to be cast back by static_cast.
class CoreExport INode : public ReferenceTarget, public FPMixinInterface {
public:
    SClass_ID SuperClassID() override { return BASENODE_CLASS_ID; }
    Class_ID ClassID() override { return Class_ID(BASENODE_CLASS_ID, 0); }
    void* GetInterface(ULONG id) override { return ReferenceTarget::GetInterface(id); }
    BaseInterface* GetInterface(Interface_ID id) override
    {
        return id == INODE_INTERFACE ? static_cast<BaseInterface*>(this) : nullptr;
    }
    Interface_ID GetID() override { return INODE_INTERFACE; }

    virtual MCHAR* GetName() = 0;
    virtual void SetName(MCHAR* name) = 0;
    virtual ULONG GetHandle() = 0;

    // World matrix of the pivot, without the object offset.
    virtual Matrix3 GetNodeTM(TimeValue t, Interval* valid = nullptr) = 0;
    virtual void SetNodeTM(TimeValue t, Matrix3& tm) = 0;
    // Object offset * node TM.
    virtual Matrix3 GetObjectTM(TimeValue t, Interval* valid = nullptr) = 0;
    virtual Matrix3 GetParentTM(TimeValue t) = 0;
    virtual Matrix3 GetStretchTM(TimeValue t, Interval* valid = nullptr) = 0;
    virtual void InvalidateTM() = 0;
    virtual void InvalidateTreeTM() = 0;
    virtual void InvalidateWS() = 0;

    // The evaluated pipeline, cached by the node; not owned by the caller.
    virtual const ObjectState& EvalWorldState(TimeValue t, BOOL evalHidden = TRUE) = 0;
    virtual Object* GetObjectRef() = 0;
    virtual Object* GetObjOrWSMRef() = 0;
    virtual void SetObjectRef(Object* object) = 0;
    virtual Control* GetTMController() = 0;
    virtual void SetTMController(Control* controller) = 0;
    virtual Mtl* GetMtl() = 0;
    virtual void SetMtl(Mtl* material) = 0;

    // The root's parent is null.
    virtual INode* GetParentNode() = 0;
    virtual int NumberOfChildren() = 0;
    virtual INode* GetChildNode(int i) = 0;
    virtual void AttachChild(INode* child, int keepTM = 1) = 0;
    virtual void Detach(TimeValue t, int keepTM = 1) = 0;  // to the root
    virtual int IsRootNode() = 0;

    virtual int Selected() = 0;
    virtual int IsHidden(DWORD flags = 0, BOOL forRenderer = FALSE) = 0;
    virtual void Hide(BOOL hide) = 0;
    // 1 opaque, 0 transparent, below 0 invisible.
    virtual float GetVisibility(TimeValue t, Interval* valid = nullptr) = 0;
    virtual void SetVisibility(TimeValue t, float visibility) = 0;
    virtual DWORD GetWireColor() = 0;  // 0x00BBGGRR
    virtual void SetWireColor(DWORD colour) = 0;
    virtual BOOL GetBoneNodeOnOff() = 0;
    virtual void SetBoneNodeOnOff(BOOL on, TimeValue t) = 0;

    virtual Point3 GetObjOffsetPos() = 0;
    virtual void SetObjOffsetPos(Point3 position) = 0;
    virtual Quat GetObjOffsetRot() = 0;
    virtual void SetObjOffsetRot(Quat rotation) = 0;
    virtual ScaleValue GetObjOffsetScale() = 0;
    virtual void SetObjOffsetScale(ScaleValue scale) = 0;

    // Lines "key = value". Getters answer FALSE and leave the value alone when the
    // key isn't there.
    virtual void GetUserPropBuffer(MSTR& text) = 0;
    virtual void SetUserPropBuffer(const MSTR& text) = 0;
    virtual BOOL UserPropExists(const MSTR& key) = 0;
    virtual BOOL GetUserPropString(const MSTR& key, MSTR& value) = 0;
    virtual BOOL GetUserPropInt(const MSTR& key, int& value) = 0;
    virtual BOOL GetUserPropFloat(const MSTR& key, float& value) = 0;
    virtual BOOL GetUserPropBool(const MSTR& key, BOOL& value) = 0;
    virtual void SetUserPropString(const MSTR& key, const MSTR& value) = 0;
    virtual void SetUserPropInt(const MSTR& key, int value) = 0;
    virtual void SetUserPropFloat(const MSTR& key, float value) = 0;
    virtual void SetUserPropBool(const MSTR& key, BOOL value) = 0;
};
