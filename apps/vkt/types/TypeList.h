#pragma once

#include <string>
#include <vector>

#include "VKT/base/Types.h"

namespace tool {

// What `vkt types` tells of the node classes: words and numbers alone, so that its three
// outputs say the same.

// A row of a body table.
struct BodyRow {
    std::string name;  // its key in text files, or what the field is called; may be empty
    std::string kind;
    std::string bytes;               // in binary files
    std::vector<std::string> words;  // of an enumeration, by number
    std::string gate;                // empty for a row of all versions
    VKT::u32 version = 0;            // of the gate
    std::string written;             // what a new node writes to a text file; empty for nothing
};

struct PropertyRow {
    VKT::u32 number = 0;
    std::string name;
    std::string type;
    bool isAnimatable = false;
    bool isReadOnly = false;
    bool isList = false;
    std::string nodeType;  // what nodes must be; empty for any, and for other types
};

struct TypeDescription {
    std::string name;
    VKT::u32 id = 0;
    std::string chunk;  // empty for an abstract class
    std::string base;   // empty for the root
    // Whether the class has code of its own for a form, so that its rows may not be all.
    bool hasTextCode = false;
    bool hasBinaryCode = false;
    bool formsAgree = false;  // the binary rows are those of the text
    std::vector<BodyRow> text;
    std::vector<BodyRow> binary;
    std::vector<BodyRow> oldText;  // the whole body of files below a version
    std::vector<BodyRow> oldBinary;
    VKT::u32 oldBelow = 0;                // that version; 0 for none
    std::vector<PropertyRow> properties;  // its own
    VKT::u32 numProperties = 0;           // as the class reports it, bases included
};

struct TypeTotals {
    std::size_t types = 0;
    std::size_t concrete = 0;
    std::size_t properties = 0;  // rows of all tables
};

using TypeList = std::vector<TypeDescription>;

// All classes of the registry in its order.
TypeList DescribeTypes();
TypeTotals CountTypes(const TypeList& types);

// For people.
std::string ToText(const TypeList& types);
// One JSON object, as docs/tool.md describes it.
std::string ToJson(const TypeList& types);
// The generated part of docs/file-format.md.
std::string ToMarkdown(const TypeList& types);

// Line ends and tabs as the escapes of C.
std::string ShowWhiteSpace(const std::string& text);

}  // namespace tool
