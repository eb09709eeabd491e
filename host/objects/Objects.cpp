#include "host/objects/Objects.h"

#include "cs/bipexp.h"
#include "dummy.h"
#include "host/objects/IdentityObject.h"
#include "host/objects/SolidObject.h"
#include "polyobj.h"
#include "triobj.h"

Class_ID dummyClassID(DUMMY_CLASS_ID, 0);

namespace maxhost {

namespace {

template <class T>
void Add(ClassDirectory& classes, const char* name, SClass_ID superClass, Class_ID classID)
{
    classes.AddBuiltIn(std::make_unique<BuiltInClass<Object, T>>(name, superClass, classID));
}

}  // namespace

void AddObjectClasses(ClassDirectory& classes)
{
    Add<TriObject>(classes, "Editable Mesh", GEOMOBJECT_CLASS_ID, triObjectClassID);
    Add<PolyObject>(classes, "Editable Poly", GEOMOBJECT_CLASS_ID, polyObjectClassID);
    Add<DummyObject>(classes, "Dummy", HELPER_CLASS_ID, dummyClassID);

    Add<SolidObject>(classes, "Box", GEOMOBJECT_CLASS_ID, Class_ID(BOXOBJ_CLASS_ID, 0));
    Add<SolidObject>(classes, "Bone", GEOMOBJECT_CLASS_ID, BONE_OBJ_CLASSID);
    Add<SolidObject>(classes, "Biped Object", GEOMOBJECT_CLASS_ID, SKELOBJ_CLASS_ID);

    // clang-format off
    struct Identity {
        const char* name;
        SClass_ID superClass;
        ULONG classID;
    };
    static constexpr Identity identities[] = {
        {"Point",              HELPER_CLASS_ID,     POINTHELP_CLASS_ID},
        {"Bone",               HELPER_CLASS_ID,     BONE_CLASS_ID},
        {"Tape",               HELPER_CLASS_ID,     TAPEHELP_CLASS_ID},
        {"Grid",               HELPER_CLASS_ID,     GRIDHELP_CLASS_ID},
        {"Protractor",         HELPER_CLASS_ID,     PROTHELP_CLASS_ID},
        {"Target",             GEOMOBJECT_CLASS_ID, TARGET_CLASS_ID},
        {"Patch",              GEOMOBJECT_CLASS_ID, PATCHOBJ_CLASS_ID},
        {"Line",               SHAPE_CLASS_ID,      SPLINE3D_CLASS_ID},
        {"Editable Spline",    SHAPE_CLASS_ID,      SPLINESHAPE_CLASS_ID},
        {"Free Camera",        CAMERA_CLASS_ID,     SIMPLE_CAM_CLASS_ID},
        {"Target Camera",      CAMERA_CLASS_ID,     LOOKAT_CAM_CLASS_ID},
        {"Omni Light",         LIGHT_CLASS_ID,      OMNI_LIGHT_CLASS_ID},
        {"Target Spot",        LIGHT_CLASS_ID,      SPOT_LIGHT_CLASS_ID},
        {"Free Spot",          LIGHT_CLASS_ID,      FSPOT_LIGHT_CLASS_ID},
        {"Directional",        LIGHT_CLASS_ID,      DIR_LIGHT_CLASS_ID},
        {"Target Directional", LIGHT_CLASS_ID,      TDIR_LIGHT_CLASS_ID},
    };
    // clang-format on
    for (const Identity& one : identities)
        Add<IdentityObject>(classes, one.name, one.superClass, Class_ID(one.classID, 0));
}

}  // namespace maxhost
