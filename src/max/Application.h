#pragma once

#include <string>

#include "max/HostTypes.h"

namespace VKTMax {

// The node that all others of the scene hang under.
INode* RootNodeOf(Interface* application);

// The window (a HWND) that a dialog stands before; null for none.
void* ActiveWindow();

// The folder of the plug-ins' configuration files, as the host writes paths and without a
// separator at its end.
std::string PluginConfigFolder();

}  // namespace VKTMax
