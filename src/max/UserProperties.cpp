#include "max/UserProperties.h"

#include <max.h>

#include "max/Text.h"

namespace VKTMax {

std::string UserPropertyText(INode* node)
{
    MSTR text;
    node->GetUserPropBuffer(text);
    return TextOrEmpty(text.data());
}

i32 UserPropertyInt(INode* node, const std::string& name)
{
    const MSTR key(name.c_str());
    int value = 0;
    node->GetUserPropInt(key, value);
    return value;
}

f32 UserPropertyFloat(INode* node, const std::string& name)
{
    const MSTR key(name.c_str());
    float value = 0.0f;
    node->GetUserPropFloat(key, value);
    return value;
}

}  // namespace VKTMax
