#include "VKT/node/BodyRowWords.h"

#include "VKT/node/Base.h"

namespace VKT {
namespace {

struct Kinds {
    XKind operator()(bool XBase::*) const { return {"bool", "1"}; }
    XKind operator()(u8 XBase::*) const { return {"u8", "1"}; }
    XKind operator()(u16 XBase::*) const { return {"u16", "2"}; }
    XKind operator()(i32 XBase::*) const { return {"i32", "4"}; }
    XKind operator()(u32 XBase::*) const { return {"u32", "4"}; }
    XKind operator()(f32 XBase::*) const { return {"f32", "4"}; }
    XKind operator()(XVector3 XBase::*) const { return {"vector3", "12"}; }
    XKind operator()(XColour XBase::*) const { return {"colour", "16"}; }
    XKind operator()(XQuaternion XBase::*) const { return {"quaternion", "16"}; }
    XKind operator()(XMatrix XBase::*) const { return {"matrix", "64"}; }
    XKind operator()(XLimitPair XBase::*) const { return {"limits", "8"}; }
    XKind operator()(XShaderInput XBase::*) const { return {"input", "22 + n"}; }
    XKind operator()(XIndexList XBase::*) const { return {"u32List", "4 + 4 n"}; }
    XKind operator()(XIntList XBase::*) const { return {"i32List", "4 + 4 n"}; }
    XKind operator()(XRealList XBase::*) const { return {"f32List", "4 + 4 n"}; }
    XKind operator()(XStoredNode) const { return {"node", "4"}; }
    XKind operator()(XStoredThree) const { return {"rgb", "12"}; }
    XKind operator()(XStoredInputId) const { return {"inputNode", "4"}; }
    XKind operator()(XStoredOldInput stored) const
    {
        return {stored.member ? "oldInput" : "droppedInput", "22 + n"};
    }
    XKind operator()(XDroppedNumber) const { return {"dropped", "4"}; }
    XKind operator()(XStoredText) const { return {"special", ""}; }
    XKind operator()(XStoredNodes) const { return {"nodeList", "4 + 4 n"}; }
    XKind operator()(XStoredWord) const { return {"word", "4"}; }
    XKind operator()(XStoredFirst) const { return {"first", "4"}; }
    XKind operator()(XStoredList stored) const
    {
        const bool holdsIds = std::holds_alternative<XIndexList XBase::*>(stored.member);
        const char* const row = holdsIds ? "nodeRow" : "f32Row";
        const char* const rows = holdsIds ? "nodeRows" : "f32Rows";
        return {stored.oneLine ? row : rows, "4 + 4 n"};
    }
    XKind operator()(XStoredQuoted) const { return {"string", "2 + n"}; }
};

struct ToMember {
    template <class T>
    XStored operator()(const T& value) const
    {
        if constexpr (requires { XStored(value.member); })
            return value.member;
        else
            return value;
    }
    XStored operator()(const XStoredList& list) const
    {
        return std::visit([](auto member) -> XStored { return member; }, list.member);
    }
};

// The member that a row moves, as a plain row of it; one without a member stays.
XStored MemberOf(const XStored& stored)
{
    return std::visit(ToMember{}, stored);
}

}  // namespace

XKind KindOf(const XStored& stored)
{
    return std::visit(Kinds{}, stored);
}

XWordList WordsOf(const XStored& stored)
{
    const auto* word = std::get_if<XStoredWord>(&stored);
    return word ? word->words : XWordList();
}

const char* GateName(XGate gate)
{
    switch (gate) {
        case XGate::kAlways:
            return "";
        case XGate::kSince:
            return "since";
        case XGate::kSinceBoth:
            return "sinceBoth";
        case XGate::kReadSince:
            return "readSince";
        case XGate::kBelow:
            return "below";
    }
    return "";
}

bool IsSameField(const XStored& a, const XStored& b)
{
    return std::visit(
        [](const auto& first, const auto& second) {
            if constexpr (std::is_same_v<decltype(first), decltype(second)> &&
                          std::is_member_pointer_v<std::decay_t<decltype(first)>>)
                return first != nullptr && first == second;  // what is dropped has no member
            else
                return false;
        },
        MemberOf(a), MemberOf(b));
}

XString KeyOf(const XBodyRow& row, const XBase& node)
{
    if (const auto* input = std::get_if<XShaderInput XBase::*>(&row.stored))
        return (node.*(*input)).name;
    if (const auto* input = std::get_if<XStoredInputId>(&row.stored))
        return (node.*input->member).name;
    return XString(row.key);
}

}  // namespace VKT
