// The base of modifiers, and how an object stands to them.

#include "object.h"

ModContext::ModContext(const ModContext& other)
    : BaseInterfaceServer(other),
      tm(other.tm ? new Matrix3(*other.tm) : nullptr),
      box(other.box ? new Box3(*other.box) : nullptr),
      localData(other.localData ? other.localData->Clone() : nullptr)
{
}

ModContext::ModContext(Matrix3* matrix, Box3* bounds, LocalModData* data)
    : tm(matrix ? new Matrix3(*matrix) : nullptr),
      box(bounds ? new Box3(*bounds) : nullptr),
      localData(data ? data->Clone() : nullptr)
{
}

ModContext::~ModContext()
{
    delete tm;
    delete box;
    delete localData;
}

MSTR Modifier::GetName()
{
    MSTR name = m_Name;
    if (name.isNull())
        GetClassName(name);
    return name;
}

void Modifier::EnableMod()
{
    m_Enabled = TRUE;
    NotifyDependents(FOREVER, PART_ALL, REFMSG_CHANGE);
}

void Modifier::DisableMod()
{
    m_Enabled = FALSE;
    NotifyDependents(FOREVER, PART_ALL, REFMSG_CHANGE);
}
