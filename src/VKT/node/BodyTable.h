#pragma once

#include <span>
#include <string_view>
#include <variant>

#include "VKT/base/Lists.h"
#include "VKT/node/ShaderInput.h"
#include "VKT/stream/LimitPair.h"
#include "VKT/stream/TextSyntax.h"

namespace VKT {

class XBase;
class XFileIO;
class XTextWriter;

// A class says what it stores as tables of fields. Text body, binary body, data size
// and copy derive from them. Where the two forms of a class differ, it has two tables.
//
// A row is a literal, a member, and what follows the value. The literal is what gets
// written before the value, tabs and all; the reader's key is the literal without its
// white space, and a row without a key continues the line before it.

// Kinds of values that say more than the type of the member.
struct XStoredNode {  // u32, the id of another node
    u32 XBase::*member;
};
struct XStoredNodes {  // a list of such ids; a list that is no more than numbers is a plain member
    XIndexList XBase::*member;
};
struct XStoredThree {  // red, green and blue of a colour; alpha stays as it is
    XColour XBase::*member;
};
// u32, a value of an enumeration: its word in text, its number in binary. Text with a
// word that is none of them calls `unknown`, where there is one, and leaves the value.
struct XStoredWord {
    u32 XBase::*member;
    XWordList words;
    void (*unknown)(XBase& node, const XString& word);
};
struct XStoredInputId {  // the connected node of an input; the key is the input's name
    XShaderInput XBase::*member;
};
// XString between double quotes in text, a counted string in binary. There are several
// ways to read one, and the row names its own.
struct XStoredQuoted {
    XString XBase::*member;
    bool (*read)(XTextReader& in, XString& text);
};
// An input of a file below version 4: in text the key, four floats, "tex" and an id; in
// binary a whole input, whose stored name must be the row's key, unless it has none, and
// becomes `name`. Without a member the value is read and dropped.
struct XStoredOldInput {
    XShaderInput XBase::*member;
    const char* name;
};
struct XStoredFirst {  // x alone: what older files hold of a vector
    XVector3 XBase::*member;
};
// A list of node ids or of numbers: in text its count, and below it a line with a blank behind each
// number, or a line for each number.
struct XStoredList {
    std::variant<XIndexList XBase::*, XRealList XBase::*> member;
    bool oneLine;
};
struct XDroppedNumber {};  // four bytes, or a number, without a meaning any more
// A field with a text form of its own. The writer puts out everything behind the row's
// literal, the reader takes over behind the key.
struct XStoredText {
    void (*write)(const XBase& node, XTextWriter& out);
    bool (*read)(XBase& node, XTextReader& in);
};

using XStored = std::variant<bool XBase::*, u8 XBase::*, u16 XBase::*,                    //
                             i32 XBase::*, u32 XBase::*, f32 XBase::*,                    //
                             XVector3 XBase::*, XColour XBase::*, XQuaternion XBase::*,   //
                             XMatrix XBase::*, XLimitPair XBase::*,                       //
                             XShaderInput XBase::*,                                       //
                             XIndexList XBase::*, XIntList XBase::*, XRealList XBase::*,  //
                             XStoredNode, XStoredThree, XStoredInputId, XStoredOldInput,  //
                             XDroppedNumber, XStoredText, XStoredNodes, XStoredWord,      //
                             XStoredFirst, XStoredList, XStoredQuoted>;

// Which files hold a row.
enum class XGate : u8 {
    kAlways,
    kSince,      // from a version on: reading text, both directions of binary
    kSinceBoth,  // the same, and writing text
    kReadSince,  // reading alone, in both forms
    kBelow,      // up to a version: as kSince, and text never holds it when written
};

// Any member of any node class, seen from XBase: one table type for all classes and one
// engine that is no template. Valid because a table is only used on nodes of its class.
template <class T, class Node>
constexpr T XBase::*Seen(T Node::*member)
{
    return static_cast<T XBase::*>(member);
}

struct XBodyRow {
    template <class T, class Node>
    constexpr XBodyRow(const char* literal, T Node::*member, const char* ending = "\n")
        : XBodyRow(literal, XStored(Seen(member)), ending)
    {
    }
    constexpr XBodyRow(const char* literal, XStored value, const char* ending = "\n")
        : before(literal), key(KeyOf(literal)), stored(value), after(ending)
    {
    }
    // Rows of a binary table need no literals.
    template <class T, class Node>
    constexpr XBodyRow(T Node::*member) : XBodyRow("", member)
    {
    }
    constexpr XBodyRow(XStored value) : XBodyRow("", value) {}

    static constexpr std::string_view KeyOf(std::string_view literal)
    {
        constexpr std::string_view white = " \t\n";
        const std::size_t begin = literal.find_first_not_of(white);
        if (begin == std::string_view::npos)
            return {};
        return literal.substr(begin, literal.find_last_not_of(white) + 1 - begin);
    }

    const char* before;
    std::string_view key;
    XStored stored;
    const char* after;
    XGate gate = XGate::kAlways;
    u32 version = 0;
};

constexpr XBodyRow Gated(XGate gate, u32 version, XBodyRow row)
{
    row.gate = gate;
    row.version = version;
    return row;
}
constexpr XBodyRow Since(u32 version, XBodyRow row)
{
    return Gated(XGate::kSince, version, row);
}
constexpr XBodyRow SinceBoth(u32 version, XBodyRow row)
{
    return Gated(XGate::kSinceBoth, version, row);
}
constexpr XBodyRow ReadSince(u32 version, XBodyRow row)
{
    return Gated(XGate::kReadSince, version, row);
}
constexpr XBodyRow Below(u32 version, XBodyRow row)
{
    return Gated(XGate::kBelow, version, row);
}
template <class Node>
constexpr XStored NodeId(u32 Node::*member)
{
    return XStoredNode{Seen(member)};
}
template <class Node>
constexpr XStored NodeIds(XIndexList Node::*member)
{
    return XStoredNodes{Seen(member)};
}
template <class Node>
constexpr XStored FirstThree(XColour Node::*member)
{
    return XStoredThree{Seen(member)};
}
template <class Node>
constexpr XStored Word(u32 Node::*member, XWordList words,
                       void (*unknown)(XBase& node, const XString& word) = nullptr)
{
    return XStoredWord{Seen(member), words, unknown};
}
template <class Node>
constexpr XStored FirstOf(XVector3 Node::*member)
{
    return XStoredFirst{Seen(member)};
}
template <class List, class Node>
constexpr XStored InOneLine(List Node::*member)
{
    return XStoredList{Seen(member), true};
}
template <class List, class Node>
constexpr XStored LinePerNumber(List Node::*member)
{
    return XStoredList{Seen(member), false};
}
template <class Node>
constexpr XStored InputId(XShaderInput Node::*member)
{
    return XStoredInputId{Seen(member)};
}
template <class Node>
constexpr XStored OldInput(XShaderInput Node::*member, const char* name)
{
    return XStoredOldInput{Seen(member), name};
}
constexpr XStored DroppedInput()
{
    return XStoredOldInput{nullptr, nullptr};
}
constexpr XStored DroppedNumber()
{
    return XDroppedNumber{};
}
template <class Node>
constexpr XStored Quoted(XString Node::*member, bool (*read)(XTextReader& in, XString& text))
{
    return XStoredQuoted{Seen(member), read};
}

struct XBodyTable {
    const char* source = nullptr;  // names the class in messages about wrong keys
    std::span<const XBodyRow> rows;
    u32 below = 0;  // of an old body: the version that ended it
};

// What files below a version hold in place of the body.
constexpr XBodyTable BodyBelow(u32 version, XBodyTable table)
{
    table.below = version;
    return table;
}

// The engine. Gates are held against the version of the stream. Reading stops at the first failure, which has
// been logged; a wrong key logs the table's source and the row's number. Text that is no number fails the
// input, and that is seen at the next key, which may be one behind the table.
bool WriteTextBody(const XBase& node, const XBodyTable& table, XTextWriter& out);
bool ReadTextBody(XBase& node, const XBodyTable& table, XTextReader& in);
// Both directions, and measuring.
bool DoBinaryBody(XBase& node, const XBodyTable& table, XFileIO& file);
// Copies what the table lists, whatever its gates.
void CopyBody(XBase& target, const XBase& source, const XBodyTable& table);

}  // namespace VKT
