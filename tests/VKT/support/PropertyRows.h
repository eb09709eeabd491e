#pragma once

#include <gtest/gtest.h>

#include <sstream>
#include <string>

#include "VKT/node/Base.h"

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
    for (const XPropertyInfo& row : properties->GetRows()) {
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

// Sets the own properties of the node's class, which are bools, floats and vectors, to the
// values that the lines of a text give to the keys of their names.
inline void SetProperties(XBase& node, const std::string& lines)
{
    const XNodeProperties& properties = *node.GetNodeProperties();
    for (const XPropertyInfo& row : properties.GetRows()) {
        const std::size_t at = lines.find(std::string("\t") + row.name + ' ');
        ASSERT_NE(at, std::string::npos) << row.name;
        std::istringstream in(lines.substr(at + 2 + std::string(row.name).size()));
        XVector3 value{};
        in >> value.x;
        bool isSet = false;
        if (row.type == kPropertyBool) {
            isSet = properties.SetBool(&node, row.id, value.x != 0);
        } else if (row.type == kPropertyFloat) {
            isSet = properties.SetFloat(&node, row.id, value.x);
        } else {
            in >> value.y >> value.z;
            isSet = properties.SetVector(&node, row.id, value);
        }
        EXPECT_TRUE(isSet) << row.name;
    }
}

}  // namespace VKT::Test
