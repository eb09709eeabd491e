#pragma once

#include "ifnpub.h"
#include "iparamb.h"
#include "plugapi.h"

// Describes a class whose resources lie in the module of HInstance().
class CoreExport ClassDesc2 : public ClassDesc {};
