#include "max/Application.h"

#include <max.h>

#include "max/Text.h"

namespace VKTMax {

INode* RootNodeOf(Interface* application)
{
    return application->GetRootNode();
}

void* ActiveWindow()
{
    return GetActiveWindow();
}

std::string PluginConfigFolder()
{
    return TextOrEmpty(GetCOREInterface()->GetDir(APP_PLUGCFG_DIR));
}

}  // namespace VKTMax
