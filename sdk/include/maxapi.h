#pragma once

#include "ifnpub.h"
#include "inode.h"
#include "interval.h"
#include "plugapi.h"

// For Interface::GetDir.
#define APP_SCENE_DIR 1
#define APP_IMPORT_DIR 2
#define APP_EXPORT_DIR 3
#define APP_IMAGE_DIR 7
#define APP_PLUGCFG_DIR 9

// For Interface::RedrawViews.
#define REDRAW_NORMAL 8

// The host as its plug-ins see it.
class CoreExport Interface : public FPStaticInterface {
public:
    Interface_ID GetID() override { return Interface_ID(0x64854123, 0x7b9e551c); }

    virtual HWND GetMAXHWnd() = 0;
    // A folder, without a separator at its end.
    virtual const MCHAR* GetDir(int which) = 0;

    // In ticks.
    virtual TimeValue GetTime() = 0;
    virtual void SetTime(TimeValue t, BOOL redraw = TRUE) = 0;
    virtual Interval GetAnimRange() = 0;
    virtual void SetAnimRange(Interval range) = 0;

    virtual INode* GetRootNode() = 0;
    virtual INode* GetINodeByName(const MCHAR* name) = 0;  // the first of that name, or null
    // A new node below the root.
    virtual INode* CreateObjectNode(Object* object) = 0;
    virtual unsigned int DeleteNode(INode* node, BOOL redraw = TRUE, BOOL overrideSlaves = FALSE) = 0;
    // Null when there is no such class. To be cast to the base of the super class.
    virtual void* CreateInstance(SClass_ID superClass, Class_ID classID) = 0;

    virtual int GetSelNodeCount() = 0;
    virtual INode* GetSelNode(int i) = 0;
    virtual void SelectNode(INode* node, int clear = 1) = 0;
    virtual void ClearNodeSelection(BOOL redraw = TRUE) = 0;

    virtual void RedrawViews(TimeValue t, DWORD vpFlags = REDRAW_NORMAL,
                             ReferenceTarget* change = nullptr) = 0;
};

// The host as the creation of objects sees it. Not another name of the same class.
class IObjParam : public Interface {};
