#pragma once

// The usual headers of the host's SDK: our own declarations of what we use of it,
// with its names, signatures and numbers. To be included first.

#include <windows.h>

#include "acolor.h"
#include "animtbl.h"
#include "box3.h"
#include "color.h"
#include "control.h"
#include "coreexp.h"
#include "ifnpub.h"
#include "impapi.h"
#include "impexp.h"
#include "inode.h"
#include "interval.h"
#include "iparamb.h"
#include "ipoint2.h"
#include "matrix3.h"
#include "maxapi.h"
#include "maxtypes.h"
#include "mesh.h"
#include "mnmesh.h"
#include "object.h"
#include "plugapi.h"
#include "point2.h"
#include "point3.h"
#include "point4.h"
#include "polyobj.h"
#include "quat.h"
#include "ref.h"
#include "strclass.h"
#include "tab.h"
#include "triobj.h"
#include "units.h"
