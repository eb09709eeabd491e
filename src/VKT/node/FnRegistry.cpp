#include "VKT/node/FnRegistry.h"

#include <algorithm>
#include <memory>
#include <unordered_map>

namespace VKT {
namespace {

struct FileHandlerEntry {
    std::unique_ptr<XFileHandler> handler;
    XString extension;  // three letters, lower case
};

struct Registry {
    std::vector<std::unique_ptr<XFnInfo>> types;  // in the order of registration
    std::vector<FileHandlerEntry> handlers;
    XString reservedWord2 = "00000000";
    XString reservedWord1 = "0000";

    // The same types by id and by chunk key: both are asked for every chunk of a file.
    std::unordered_map<u32, const XFnInfo*> byType;
    std::unordered_map<XString, const XFnInfo*> byChunk;

    std::unordered_map<u32, XUserNodeCreator> families;
};

std::unique_ptr<Registry> s_Registry;

const XFnInfo* FindType(u32 type)
{
    if (!s_Registry)
        return nullptr;
    const auto found = s_Registry->byType.find(type);
    return found == s_Registry->byType.end() ? nullptr : found->second;
}

const XFnInfo* FindChunk(const XString& chunkKey)
{
    if (!s_Registry)
        return nullptr;
    const auto found = s_Registry->byChunk.find(chunkKey);
    return found == s_Registry->byChunk.end() ? nullptr : found->second;
}

}  // namespace

void XFnInitialise(XLogger* logger)
{
    s_Registry = std::make_unique<Registry>();
    SetLogger(logger);
}

bool XFnShutdown()
{
    s_Registry.reset();
    return true;
}

bool XFnRegister(XFnInfo* info)
{
    if (!s_Registry)
        return false;
    if (FindType(info->GetType()) || XFnFindByName(info->GetTypeName())) {
        GetLogger()->LogFormat(kError, "Type info clashes with previous entry ");
        return false;
    }
    Registry& registry = *s_Registry;
    registry.types.emplace_back(info);
    registry.byType.emplace(info->GetType(), info);
    registry.byChunk.emplace(info->GetChunkName(), info);
    return true;
}

bool XFnRegisterFamily(u32 family, XUserNodeCreator creator)
{
    if (s_Registry)
        s_Registry->families[family] = creator;
    return s_Registry != nullptr;
}

std::unique_ptr<XBase> XFnCreate(u32 type, XModel* model)
{
    const XFnInfo* info = FindType(type);
    return info ? info->Create(model) : nullptr;
}

std::unique_ptr<XBase> XFnCreateFromChunk(const XString& chunkKey, XModel* model)
{
    const XFnInfo* info = FindChunk(chunkKey);
    return info ? info->Create(model) : nullptr;
}

std::unique_ptr<XBase> XFnCreateOfFamily(u32 family, const XNewNode& definition, XModel* model)
{
    if (!s_Registry)
        return nullptr;
    const auto found = s_Registry->families.find(family);
    return found == s_Registry->families.end() ? nullptr : found->second(definition, model);
}

u32 XFnTypeFromChunk(const XString& chunkKey)
{
    if (!s_Registry)
        return kFnLimit;
    const XFnInfo* info = FindChunk(chunkKey);
    return info ? info->GetType() : 0;
}

XString XFnChunkName(u32 type)
{
    if (!s_Registry)
        return "invalid";
    if (type == kChunkInfo)
        return "INFO";
    const XFnInfo* info = FindType(type);
    return info ? info->GetChunkName() : "";
}

XString XFnTypeName(u32 type)
{
    if (!s_Registry)
        return "invalid";
    const XFnInfo* info = FindType(type);
    return info ? info->GetTypeName() : "";
}

const XFnInfo* XFnFindByName(const XString& typeName)
{
    if (s_Registry)
        for (const auto& info : s_Registry->types)
            if (info->GetTypeName() == typeName)
                return info.get();
    return nullptr;
}

std::vector<const XFnInfo*> XFnListTypes()
{
    std::vector<const XFnInfo*> types;
    if (s_Registry)
        for (const auto& info : s_Registry->types)
            types.push_back(info.get());
    return types;
}

XString XFileHeaderTail()
{
    return s_Registry ? s_Registry->reservedWord1 + '#' + s_Registry->reservedWord2 + '|' : "";
}

bool XTranslatorLoad(const char* path, XModel* model)
{
    if (!s_Registry)
        return false;
    const XString extension = LowerCaseExtension(path);
    for (const FileHandlerEntry& entry : s_Registry->handlers)
        if (entry.extension == extension)
            return entry.handler->CanImport() && entry.handler->Import(path, model);
    return false;
}

XString LowerCaseExtension(std::string_view path)
{
    XString extension(path.substr(path.size() - std::min<std::size_t>(3, path.size())));
    for (char& c : extension)
        if (c >= 'A' && c <= 'Z')
            c = static_cast<char>(c - 'A' + 'a');
    return extension;
}

}  // namespace VKT
