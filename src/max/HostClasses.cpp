#include "max/HostClasses.h"

#include <max.h>

// A header of the host with other numbers than ours must not compile.
namespace VKTMax {

static_assert(kTriObject == HostClass{TRIOBJ_CLASS_ID, 0});
static_assert(kPolyObject == HostClass{POLYOBJ_CLASS_ID, 0});
static_assert(kPatchObject == HostClass{PATCHOBJ_CLASS_ID, 0});
static_assert(kSuperGeometry == GEOMOBJECT_CLASS_ID);

}  // namespace VKTMax
