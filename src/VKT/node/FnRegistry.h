#pragma once

#include <string_view>
#include <vector>

#include "VKT/base/Logger.h"
#include "VKT/node/Base.h"

namespace VKT {

// What a class adds to its base, as data: what it is read from, and what people are told
// about it. A class that has code of its own for a form may have only a part of it here.
struct XClassTables {
    u32 base = kFnBase;  // the type of the class it derives from; the root has itself
    XBodyTable text;
    XBodyTable binary;
    XBodyTable oldText;  // where older files had another body altogether
    XBodyTable oldBinary;
    const XNodeProperties* properties = nullptr;  // those of the base too
    // Whether the class overrides what reads and writes a form by its rows.
    bool hasTextCode = false;
    bool hasBinaryCode = false;
};

// What the registry knows of one node class.
class XFnInfo {
public:
    virtual ~XFnInfo() = default;
    virtual u32 GetType() const = 0;
    virtual XString GetTypeName() const = 0;
    // Empty for an abstract class.
    virtual XString GetChunkName() const = 0;
    // A new node, of no document yet; null for an abstract class.
    virtual std::unique_ptr<XBase> Create(XModel* model) const = 0;
    // Nothing for a class that the library does not know.
    virtual XClassTables GetTables() const { return {}; }
};

// Makes an instance of a node type that users define, of no document yet.
using XUserNodeCreator = std::unique_ptr<XBase> (*)(const XNewNode& definition, XModel* model);

// A loader of a foreign file format. None is registered by the library itself.
class XFileHandler {
public:
    virtual ~XFileHandler() = default;
    virtual bool Import(const char* path, XModel* model) = 0;
    // Three operations that the library does not use keep `CanImport` at its place.
    virtual void Reserved1() {}
    virtual void Reserved2() {}
    virtual void Reserved3() {}
    virtual bool CanImport() const = 0;
};

// The process-wide type registry. It is null before `XFnInitialise` and after
// `XFnShutdown`; everything happens on the host's main thread, and between the two the
// tables are only read.

// Builds a new, empty registry in place of any that stands, and installs the logger, or
// the default one for null.
void XFnInitialise(XLogger* logger);
// Deletes the registry with all it owns; the logger stays. Answers true.
bool XFnShutdown();
// Adds a class. False without a registry, and, with a logged error, when the id or the
// type name is taken; the info stays the caller's then.
bool XFnRegister(XFnInfo* info);
// Sets what makes the instances of a family of user-defined node types. False without a registry.
bool XFnRegisterFamily(u32 family, XUserNodeCreator creator);
// `XFnInitialise`, then every class of the library. Answers true.
bool XRegisterTypes(XLogger* logger);

// Look-ups. The first entry that matches counts; without a registry nothing is found.
std::unique_ptr<XBase> XFnCreate(u32 type, XModel* model);
std::unique_ptr<XBase> XFnCreateFromChunk(const XString& chunkKey, XModel* model);
std::unique_ptr<XBase> XFnCreateOfFamily(u32 family, const XNewNode& definition, XModel* model);
u32 XFnTypeFromChunk(const XString& chunkKey);  // 0 for none, 173 without a registry
XString XFnChunkName(u32 type);                 // "" for none, "invalid" without a registry
XString XFnTypeName(u32 type);                  // likewise
const XFnInfo* XFnFindByName(const XString& typeName);
// The classes in the order of their registration.
std::vector<const XFnInfo*> XFnListTypes();

// The second half of the header of a scene file: both reserved words and the bar.
XString XFileHeaderTail();

// Hands a file of a foreign extension to its handler. False when there is none that
// can and does load it.
bool XTranslatorLoad(const char* path, XModel* model);
// The last three characters of a path in lower case: what a file's format goes by.
XString LowerCaseExtension(std::string_view path);

}  // namespace VKT
