#pragma once

#include "VKT/node/BodyTable.h"

namespace VKT {

// What people and programs that look at body tables are told about a row: for tools and
// documents, not for reading files.

// The kind of a value, one word for each way in which values stand in files:
//
//     kind                               bytes in binary files
//     bool u8                            1
//     u16                                2
//     u32 i32 f32 node word first        4
//     limits                             8
//     vector3 rgb                        12
//     colour quaternion matrix           16, 16, 64
//     u32List i32List f32List nodeList   a u32 count, and 4 each
//     nodeRow nodeRows f32Row f32Rows    the same; in text the numbers have lines of their own
//     string                             a u16 length, and its characters
//     input oldInput droppedInput        a u32, four f32, and a string
//     inputNode                          4
//     dropped                            4, without a meaning any more
//     special                            nothing; the class has its own text
struct XKind {
    const char* name;
    const char* bytes;  // such as "12" or "4 + 4 n"; "" when binary files don't hold it
};
XKind KindOf(const XStored& stored);

// The words of an enumeration, by number; empty for other kinds.
XWordList WordsOf(const XStored& stored);

// "", "since", "sinceBoth", "readSince" or "below".
const char* GateName(XGate gate);

// Whether two rows move the same member of a node.
bool IsSameField(const XStored& a, const XStored& b);

// The key of a row in text files. That of an input is the name of the input, which a node
// of the row's class tells.
XString KeyOf(const XBodyRow& row, const XBase& node);

}  // namespace VKT
