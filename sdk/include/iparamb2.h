#pragma once

#include "ifnpub.h"
#include "iparamb.h"
#include "plugapi.h"

// Describes a class whose resources lie in the module of HInstance().
class CoreExport ClassDesc2 : public ClassDesc {
public:
    // String `id` of the module, "" when it isn't there; good until the next call.
    virtual const MCHAR* GetRsrcString(INT_PTR id);
};
