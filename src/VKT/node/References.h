#pragma once

#include "VKT/node/Base.h"

namespace VKT {

// Nodes name each other by id: what a class that has ids asks when it is asked for nodes, and
// the other way round. `type` is that of a class, 0 for any; nodes of classes below answer to it.

// The node of that id in the document of `node` when it answers to `type`, or null.
XBase* FindNodeOfType(const XBase& node, u32 id, u32 type);
// Whether `node` may refer to `value`: to null, and to a node of its document that answers to
// `type`.
bool AcceptsNode(const XBase& node, const XBase* value, u32 type);
// The nodes of those ids that the document of `node` holds and that answer to `type`.
void ListNodesOf(const XBase& node, const XIndexList& ids, u32 type, XNodeList& out);
// The ids of `nodes`. False, and `ids` as it was, when one of them is null or not accepted.
bool ToIds(const XBase& node, const XNodeList& nodes, u32 type, XIndexList& ids);

}  // namespace VKT
