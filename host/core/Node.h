#pragma once

#include <string>
#include <vector>

#include "host/core/References.h"
#include "host/core/UserProperties.h"
#include "host/core/WorldCache.h"
#include "imtl.h"
#include "inode.h"

namespace maxhost {

class Scene;

// A node of the scene's tree, which owns it.
//
// World matrices are cached and evaluated without recursion, so that chains and fans
// of any size take linear time. The caches keep one rule: when a node has been
// evaluated since the last change, so have its ancestors. A change therefore needs to
// be told downwards only as far as something was evaluated.
class Node final : public INode {
public:
    Node(Scene& scene, ULONG handle);
    ~Node() override;

    void DeleteThis() override;  // takes it out of the scene
    void GetClassName(MSTR& name) override { name = "Node"; }
    FPInterfaceDesc* GetDesc() override { return nullptr; }  // publishes nothing

    int NumRefs() override { return 3; }
    RefTargetHandle GetReference(int i) override;
    RefResult NotifyRefChanged(Interval changed, RefTargetHandle target, PartID& part,
                               RefMessage message) override;

    MCHAR* GetName() override { return m_Name.data(); }
    void SetName(MCHAR* name) override { m_Name = name; }
    ULONG GetHandle() override { return m_Handle; }

    Matrix3 GetNodeTM(TimeValue t, Interval* valid) override;
    void SetNodeTM(TimeValue t, Matrix3& tm) override;
    Matrix3 GetObjectTM(TimeValue t, Interval* valid) override;
    Matrix3 GetParentTM(TimeValue t) override;
    Matrix3 GetStretchTM(TimeValue, Interval*) override { return Matrix3(TRUE); }
    void InvalidateTM() override { InvalidateTreeTM(); }  // children hang on it
    void InvalidateTreeTM() override;
    void InvalidateWS() override {}  // objects keep their results themselves

    const ObjectState& EvalWorldState(TimeValue t, BOOL evalHidden) override;
    Object* GetObjectRef() override { return m_Object.Get(); }
    Object* GetObjOrWSMRef() override { return m_Object.Get(); }
    void SetObjectRef(Object* object) override { m_Object.Set(object); }
    Control* GetTMController() override { return m_Controller.Get(); }
    void SetTMController(Control* controller) override;
    Mtl* GetMtl() override { return m_Material.Get(); }
    void SetMtl(Mtl* material) override { m_Material.Set(material); }

    INode* GetParentNode() override { return m_Parent; }
    int NumberOfChildren() override { return static_cast<int>(Children().size()); }
    INode* GetChildNode(int i) override { return Children()[static_cast<std::size_t>(i)]; }
    // A node does not become the child of itself or of one below it.
    void AttachChild(INode* child, int keepTM) override;
    void Detach(TimeValue t, int keepTM) override;
    int IsRootNode() override { return m_Parent == nullptr; }

    int Selected() override { return m_Selected; }
    int IsHidden(DWORD, BOOL) override { return m_Hidden; }
    void Hide(BOOL hide) override { m_Hidden = hide; }
    float GetVisibility(TimeValue, Interval*) override { return m_Visibility; }
    void SetVisibility(TimeValue, float visibility) override { m_Visibility = visibility; }
    DWORD GetWireColor() override { return m_WireColour; }
    void SetWireColor(DWORD colour) override { m_WireColour = colour; }
    BOOL GetBoneNodeOnOff() override { return m_IsBone; }
    void SetBoneNodeOnOff(BOOL on, TimeValue) override { m_IsBone = on; }

    Point3 GetObjOffsetPos() override { return m_OffsetPosition; }
    void SetObjOffsetPos(Point3 position) override { m_OffsetPosition = position; }
    Quat GetObjOffsetRot() override { return m_OffsetRotation; }
    void SetObjOffsetRot(Quat rotation) override { m_OffsetRotation = rotation; }
    ScaleValue GetObjOffsetScale() override { return m_OffsetScale; }
    void SetObjOffsetScale(ScaleValue scale) override { m_OffsetScale = scale; }

    // A node without properties answers a string that was never given a text.
    void GetUserPropBuffer(MSTR& text) override;
    void SetUserPropBuffer(const MSTR& text) override;
    BOOL UserPropExists(const MSTR& key) override;
    BOOL GetUserPropString(const MSTR& key, MSTR& value) override;
    BOOL GetUserPropInt(const MSTR& key, int& value) override;
    BOOL GetUserPropFloat(const MSTR& key, float& value) override;
    BOOL GetUserPropBool(const MSTR& key, BOOL& value) override;
    void SetUserPropString(const MSTR& key, const MSTR& value) override;
    void SetUserPropInt(const MSTR& key, int value) override;
    void SetUserPropFloat(const MSTR& key, float value) override;
    void SetUserPropBool(const MSTR& key, BOOL value) override;

    // For the scene, which keeps the tree and the selection.
    const std::vector<Node*>& Children();
    void SetParent(Node* parent);  // last among its children; null: out of the tree
    void SetSelected(bool selected) { m_Selected = selected; }

private:
    void SetReference(int i, RefTargetHandle target) override;
    WorldCache::Entry EvaluateWorld(TimeValue t);
    bool IsAtOrBelow(const Node& other) const;
    void Attach(Node& child, TimeValue t, bool keepTM);

    Scene& m_Scene;
    ULONG m_Handle;
    std::string m_Name;

    Node* m_Parent = nullptr;
    // A child that left leaves a gap behind until the list is read, so that moving
    // many children away takes linear time.
    std::vector<Node*> m_Children;
    std::size_t m_Gaps = 0;
    std::size_t m_Place = 0;  // among the parent's children

    Reference<Control> m_Controller;
    Reference<Object> m_Object;
    Reference<Mtl> m_Material;
    ObjectState m_State;
    WorldCache m_World;
    bool m_Evaluated = false;

    Point3 m_OffsetPosition = Point3(0, 0, 0);
    Quat m_OffsetRotation;
    ScaleValue m_OffsetScale = ScaleValue(Point3(1, 1, 1));

    UserProperties m_Properties;
    DWORD m_WireColour = RGB(128, 128, 128);
    float m_Visibility = 1.0f;
    BOOL m_Hidden = FALSE;
    BOOL m_Selected = FALSE;
    BOOL m_IsBone = FALSE;
};

}  // namespace maxhost
