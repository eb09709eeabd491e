#pragma once

#include <sstream>
#include <string>

#include "VKT/NodeProperties.h"

namespace VKT::Test {

// The total of a class and its own rows as text, one a line: name, type, number, flags
// (animatable, read-only, list), and what a node must answer to.
//
//     "67 properties\n"
//     "direction vector 67 a\n"
inline std::string RowsOf(const XNodeProperties* properties)
{
    static constexpr const char* kTypes[] = {"none",   "bool",   "float",   "uint",   "int",
                                             "vector", "matrix", "colour",  "string", "node",
                                             "quat",   "floats", "vectors", "ints",   "nodes"};
    std::ostringstream out;
    out << properties->GetNumProperties() << " properties\n";
    for (const XPropertyRow& row : properties->GetRows()) {
        out << row.name << ' ' << kTypes[row.type] << ' ' << row.id;
        if (row.flags != 0)
            out << ' ' << (row.flags & kAnimatable ? "a" : "") << (row.flags & kReadOnly ? "r" : "")
                << (row.flags & kList ? "l" : "");
        if (row.nodeType != 0)
            out << " of " << row.nodeType;
        out << '\n';
    }
    return out.str();
}

}  // namespace VKT::Test
