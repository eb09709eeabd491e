#pragma once

#include "maxtypes.h"

class BaseInterface;

// What can be asked for further interfaces.
class CoreExport InterfaceServer {
public:
    virtual ~InterfaceServer() = default;
    // Null when there is none. What is answered belongs to its server.
    virtual BaseInterface* GetInterface(Interface_ID) { return nullptr; }
};

class CoreExport BaseInterface : public InterfaceServer {
public:
    virtual Interface_ID GetID() { return Interface_ID(0, 0); }
};

// For classes that serve interfaces next to being one.
class CoreExport BaseInterfaceServer : public InterfaceServer {};
