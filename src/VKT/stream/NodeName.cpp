#include "VKT/stream/NodeName.h"

#include "VKT/base/Logger.h"

namespace VKT {

XString CleanName(std::string_view name)
{
    XString clean;
    clean.reserve(name.size());
    for (const char c : name)
        if (c != '"' && c != '/' && c != '\\')
            clean += c == ' ' ? '_' : c;
    return clean;
}

XString NameAsToken(std::string_view name)
{
    XString token(name.empty() ? "_" : name);
    for (char& c : token)
        if (c == ' ' || (c >= '\t' && c <= '\r'))
            c = '_';
    if (token != name)
        GetLogger()->LogFormat(kWarning, "the name \"%s\" is written as %s: names in text files are one word",
                               XString(name).c_str(), token.c_str());
    return token;
}

XString NameInQuotes(std::string_view name)
{
    return name.empty() ? "\"\"" : '"' + NameAsToken(name) + '"';
}

}  // namespace VKT
