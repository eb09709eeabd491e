#pragma once

#include "maxapi.h"

namespace maxhost {

class HeadlessHost;

// The host as its plug-ins see it: forwards to the scene, the class directory and the
// folders of a host. There are no windows.
class HostInterface final : public Interface {
public:
    explicit HostInterface(HeadlessHost& host) : m_Host(host) {}

    HWND GetMAXHWnd() override { return nullptr; }
    const MCHAR* GetDir(int which) override;

    TimeValue GetTime() override;
    void SetTime(TimeValue t, BOOL redraw) override;
    Interval GetAnimRange() override;
    void SetAnimRange(Interval range) override;

    INode* GetRootNode() override;
    INode* GetINodeByName(const MCHAR* name) override;
    INode* CreateObjectNode(Object* object) override;
    unsigned int DeleteNode(INode* node, BOOL redraw, BOOL overrideSlaves) override;
    void* CreateInstance(SClass_ID superClass, Class_ID classID) override;

    int GetSelNodeCount() override;
    INode* GetSelNode(int i) override;
    void SelectNode(INode* node, int clear) override;
    void ClearNodeSelection(BOOL redraw) override;

    void RedrawViews(TimeValue, DWORD, ReferenceTarget*) override {}

private:
    HeadlessHost& m_Host;
};

}  // namespace maxhost
