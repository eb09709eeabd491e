#pragma once

#include "baseinterface.h"

class FPInterfaceDesc;

// Function publishing, as far as the classes of the scene need it as a base.
class CoreExport FPInterface : public BaseInterface {
public:
    // The description of what is published; null when nothing is.
    virtual FPInterfaceDesc* GetDesc() = 0;
};

class CoreExport FPInterfaceDesc : public FPInterface {
public:
    FPInterfaceDesc* GetDesc() override { return this; }
};

// One object for all.
class CoreExport FPStaticInterface : public FPInterfaceDesc {};

// One per instance of the class that mixes it in.
class CoreExport FPMixinInterface : public FPInterface {};
