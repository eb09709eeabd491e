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
    void SetReference(int i, RefTargetHandle target) override;
    RefResult NotifyRefChanged(Interval changed, RefTargetHandle target, PartID& part,
                               RefMessage message) override;

    const MCHAR* GetName() override { return m_name.c_str(); }
    void SetName(MCHAR* name) override { m_name = name; }
    ULONG GetHandle() override { return m_handle; }

    Matrix3 GetNodeTM(TimeValue t, Interval* valid) override;
    void SetNodeTM(TimeValue t, Matrix3& tm) override;
    Matrix3 GetObjectTM(TimeValue t, Interval* valid) override;
    Matrix3 GetParentTM(TimeValue t) override;
    Matrix3 GetStretchTM(TimeValue, Interval*) override { return Matrix3(TRUE); }
    void InvalidateTM() override { InvalidateTreeTM(); }  // children hang on it
    void InvalidateTreeTM() override;
    void InvalidateWS() override {}  // objects keep their results themselves

    const ObjectState& EvalWorldState(TimeValue t, BOOL evalHidden) override;
    Object* GetObjectRef() override { return m_object.Get(); }
    Object* GetObjOrWSMRef() override { return m_object.Get(); }
    void SetObjectRef(Object* object) override { m_object.Set(object); }
    Control* GetTMController() override { return m_controller.Get(); }
    BOOL SetTMController(Control* controller) override;
    Mtl* GetMtl() override { return m_material.Get(); }
    void SetMtl(Mtl* material) override { m_material.Set(material); }

    INode* GetParentNode() override { return m_parent; }
    int NumberOfChildren() override { return static_cast<int>(Children().size()); }
    INode* GetChildNode(int i) override { return Children()[static_cast<std::size_t>(i)]; }
    // A node does not become the child of itself or of one below it.
    void AttachChild(INode* child, int keepTM) override;
    void Detach(TimeValue t, int keepTM) override;
    int IsRootNode() override { return m_parent == nullptr; }

    int Selected() override { return m_selected; }
    int IsHidden(DWORD, BOOL) override { return m_hidden; }
    void Hide(BOOL hide) override { m_hidden = hide; }
    float GetVisibility(TimeValue, Interval*) override { return m_visibility; }
    void SetVisibility(TimeValue, float visibility) override { m_visibility = visibility; }
    DWORD GetWireColor() override { return m_wireColour; }
    void SetWireColor(DWORD colour) override { m_wireColour = colour; }
    BOOL GetBoneNodeOnOff() override { return m_isBone; }
    void SetBoneNodeOnOff(BOOL on, TimeValue) override { m_isBone = on; }

    Point3 GetObjOffsetPos() override { return m_offsetPosition; }
    void SetObjOffsetPos(Point3 position) override { m_offsetPosition = position; }
    Quat GetObjOffsetRot() override { return m_offsetRotation; }
    void SetObjOffsetRot(Quat rotation) override { m_offsetRotation = rotation; }
    ScaleValue GetObjOffsetScale() override { return m_offsetScale; }
    void SetObjOffsetScale(ScaleValue scale) override { m_offsetScale = scale; }

    void GetUserPropBuffer(MSTR& text) override { text = m_properties.GetText().c_str(); }
    void SetUserPropBuffer(const MSTR& text) override { m_properties.SetText(text.data()); }
    BOOL UserPropExists(const MSTR& key) override;
    BOOL GetUserPropString(const MSTR& key, MSTR& value) override;
    BOOL GetUserPropInt(const MSTR& key, int& value) override;
    BOOL GetUserPropFloat(const MSTR& key, float& value) override;
    BOOL GetUserPropBool(const MSTR& key, BOOL& value) override;
    void SetUserPropString(const MSTR& key, const MSTR& value) override;
    void SetUserPropInt(const MSTR& key, int value) override { m_properties.Set(key.data(), value); }
    void SetUserPropFloat(const MSTR& key, float value) override { m_properties.Set(key.data(), value); }
    void SetUserPropBool(const MSTR& key, BOOL value) override { m_properties.Set(key.data(), value != 0); }

    // For the scene, which keeps the tree and the selection.
    const std::vector<Node*>& Children();
    void SetParent(Node* parent);  // last among its children; null: out of the tree
    void SetSelected(bool selected) { m_selected = selected; }

private:
    WorldCache::Entry EvaluateWorld(TimeValue t);
    bool IsAtOrBelow(const Node& other) const;
    void Attach(Node& child, TimeValue t, bool keepTM);

    Scene& m_scene;
    ULONG m_handle;
    std::string m_name;

    Node* m_parent = nullptr;
    // A child that left leaves a gap behind until the list is read, so that moving
    // many children away takes linear time.
    std::vector<Node*> m_children;
    std::size_t m_gaps = 0;
    std::size_t m_place = 0;  // among the parent's children

    Reference<Control> m_controller;
    Reference<Object> m_object;
    Reference<Mtl> m_material;
    ObjectState m_state;
    WorldCache m_world;
    bool m_evaluated = false;

    Point3 m_offsetPosition = Point3(0, 0, 0);
    Quat m_offsetRotation;
    ScaleValue m_offsetScale = ScaleValue(Point3(1, 1, 1));

    UserProperties m_properties;
    DWORD m_wireColour = RGB(128, 128, 128);
    float m_visibility = 1.0f;
    BOOL m_hidden = FALSE;
    BOOL m_selected = FALSE;
    BOOL m_isBone = FALSE;
};

}  // namespace maxhost
