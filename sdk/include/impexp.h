#pragma once

#include "maxtypes.h"

class ExpInterface;
class ImpInterface;
class Interface;

#define IMPEXP_FAIL 0
#define IMPEXP_SUCCESS 1
#define IMPEXP_CANCEL 2

// An option of an export: only what is selected.
#define SCENE_EXPORT_SELECTED (1 << 0)

#define ZOOMEXT_NOT_IMPLEMENTED -1
#define ZOOMEXT_YES 1
#define ZOOMEXT_NO 0

// A file format that scenes can be written in.
class CoreExport SceneExport {
public:
    virtual ~SceneExport() = default;
    virtual int ExtCount() = 0;
    virtual const MCHAR* Ext(int n) = 0;  // without the dot
    virtual const MCHAR* LongDesc() = 0;
    virtual const MCHAR* ShortDesc() = 0;
    virtual const MCHAR* AuthorName() = 0;
    virtual const MCHAR* CopyrightMessage() = 0;
    virtual const MCHAR* OtherMessage1() = 0;
    virtual const MCHAR* OtherMessage2() = 0;
    virtual unsigned int Version() = 0;  // in hundredths
    virtual void ShowAbout(HWND parent) = 0;
    // Answers one of IMPEXP_*. `suppressPrompts` forbids dialogs.
    virtual int DoExport(const MCHAR* name, ExpInterface* ei, Interface* i, BOOL suppressPrompts = FALSE,
                         DWORD options = 0) = 0;
    virtual BOOL SupportsOptions(int, DWORD) { return FALSE; }
};

// A file format that scenes can be read from.
class CoreExport SceneImport {
public:
    virtual ~SceneImport() = default;
    virtual int ExtCount() = 0;
    virtual const MCHAR* Ext(int n) = 0;
    virtual const MCHAR* LongDesc() = 0;
    virtual const MCHAR* ShortDesc() = 0;
    virtual const MCHAR* AuthorName() = 0;
    virtual const MCHAR* CopyrightMessage() = 0;
    virtual const MCHAR* OtherMessage1() = 0;
    virtual const MCHAR* OtherMessage2() = 0;
    virtual unsigned int Version() = 0;
    virtual void ShowAbout(HWND parent) = 0;
    virtual int DoImport(const MCHAR* name, ImpInterface* ii, Interface* i, BOOL suppressPrompts = FALSE) = 0;
    virtual int ZoomExtents() { return ZOOMEXT_NOT_IMPLEMENTED; }
};
