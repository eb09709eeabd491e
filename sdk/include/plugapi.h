#pragma once

#include "animtbl.h"
#include "maxtypes.h"

class FPInterface;

// The release that a plug-in is built for. The host refuses another one's.
#define MAX_RELEASE 11000
#define MAX_API_NUM 25
#define MAX_SDK_REV 0
#define VERSION_3DSMAX ((MAX_RELEASE << 16) + (MAX_API_NUM << 8) + MAX_SDK_REV)

#define BASENODE_CLASS_ID 0x1
#define GEN_DERIVOB_CLASS_ID 0x2
#define DERIVOB_CLASS_ID 0x3
#define WSM_DERIVOB_CLASS_ID 0x4
#define PARAMETER_BLOCK_CLASS_ID 0x8
#define PARAMETER_BLOCK2_CLASS_ID 0x82
#define GEOMOBJECT_CLASS_ID 0x10
#define CAMERA_CLASS_ID 0x20
#define LIGHT_CLASS_ID 0x30
#define SHAPE_CLASS_ID 0x40
#define HELPER_CLASS_ID 0x50
#define SYSTEM_CLASS_ID 0x60
#define REF_MAKER_CLASS_ID 0x100
#define REF_TARGET_CLASS_ID 0x200
#define OSM_CLASS_ID 0x810
#define WSM_CLASS_ID 0x820
#define WSM_OBJECT_CLASS_ID 0x830
#define SCENE_IMPORT_CLASS_ID 0xA10
#define SCENE_EXPORT_CLASS_ID 0xA20
#define MATERIAL_CLASS_ID 0xC00
#define TEXMAP_CLASS_ID 0xC10
#define UVGEN_CLASS_ID 0xC20
#define XYZGEN_CLASS_ID 0xC30
#define TEXOUTPUT_CLASS_ID 0xC40
#define UTILITY_CLASS_ID 0x1020
#define GUP_CLASS_ID 0x10E0

#define CTRL_INTEGER_CLASS_ID 0x9002
#define CTRL_FLOAT_CLASS_ID 0x9003
#define CTRL_POINT3_CLASS_ID 0x9005
#define CTRL_MATRIX3_CLASS_ID 0x9008
#define CTRL_POSITION_CLASS_ID 0x900B
#define CTRL_ROTATION_CLASS_ID 0x900C
#define CTRL_SCALE_CLASS_ID 0x900D
#define CTRL_MORPH_CLASS_ID 0x900E
#define CTRL_MASTERPOINT_CLASS_ID 0x9010
#define MASTERBLOCK_SUPER_CLASS_ID 0x9011
#define CTRL_POINT4_CLASS_ID 0x9012

// First parts of class ids; the second is 0.
#define TRIOBJ_CLASS_ID 0x9
#define POLYOBJ_CLASS_ID 0x5d21369a
#define EDITTRIOBJ_CLASS_ID 0xe44f10b3
#define PATCHOBJ_CLASS_ID 0x1030
#define NURBSOBJ_CLASS_ID 0x4135
#define SPLINE3D_CLASS_ID 0x1040
#define SPLINESHAPE_CLASS_ID 0xa
#define LINEARSHAPE_CLASS_ID 0xaa
#define BOXOBJ_CLASS_ID 0x10
#define SPHERE_CLASS_ID 0x11
#define SIMPLE_CAM_CLASS_ID 0x1001
#define LOOKAT_CAM_CLASS_ID 0x1002
#define OMNI_LIGHT_CLASS_ID 0x1011
#define SPOT_LIGHT_CLASS_ID 0x1012
#define DIR_LIGHT_CLASS_ID 0x1013
#define FSPOT_LIGHT_CLASS_ID 0x1014
#define TDIR_LIGHT_CLASS_ID 0x1015
#define TARGET_CLASS_ID 0x1020
#define DUMMY_CLASS_ID 0x876234
#define BONE_CLASS_ID 0x8a63c0
#define GRIDHELP_CLASS_ID 0x2010
#define TAPEHELP_CLASS_ID 0x2011
#define POINTHELP_CLASS_ID 0x2013
#define PROTHELP_CLASS_ID 0x2014
#define DMTL_CLASS_ID 0x2
#define CMTL_CLASS_ID 0x100
#define MULTI_CLASS_ID 0x200
#define BMTEX_CLASS_ID 0x240
#define STDUV_CLASS_ID 0x100
#define PRS_CONTROL_CLASS_ID 0x2005
#define LININTERP_FLOAT_CLASS_ID 0x2001
#define HYBRIDINTERP_FLOAT_CLASS_ID 0x2007
#define HYBRIDINTERP_POSITION_CLASS_ID 0x2008
#define HYBRIDINTERP_ROTATION_CLASS_ID 0x2009
#define HYBRIDINTERP_POINT3_CLASS_ID 0x200A
#define HYBRIDINTERP_SCALE_CLASS_ID 0x2010
#define HYBRIDINTERP_COLOR_CLASS_ID 0x2011
#define EULER_CONTROL_CLASS_ID 0x2012
#define TCBINTERP_FLOAT_CLASS_ID 0x442311

#define BONE_OBJ_CLASSID Class_ID(0x28bf6e8d, 0x2ecca840)

// Describes a class of a plug-in, and makes it.
class CoreExport ClassDesc {
public:
    virtual ~ClassDesc() = default;
    virtual int IsPublic() = 0;
    // The host casts the result to the base of the super class: answer a pointer
    // to exactly that base.
    virtual void* Create(BOOL loading = FALSE) = 0;
    virtual int BeginCreate(Interface*) { return 0; }
    virtual int EndCreate(Interface*) { return 0; }
    virtual const MCHAR* ClassName() = 0;
    virtual SClass_ID SuperClassID() = 0;
    virtual Class_ID ClassID() = 0;
    virtual const MCHAR* Category() = 0;
    virtual const MCHAR* InternalName() { return nullptr; }
    virtual HINSTANCE HInstance() { return nullptr; }
    // String `id` of the module, "" when it isn't there; good until the next call.
    virtual MCHAR* GetRsrcString(INT_PTR id);

    // What the class publishes, by id and by name.
    virtual FPInterface* GetInterface(Interface_ID) { return nullptr; }
    virtual FPInterface* GetInterface(MCHAR*) { return nullptr; }
};
