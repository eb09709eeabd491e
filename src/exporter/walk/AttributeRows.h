#pragma once

#include <span>
#include <variant>

#include "VKT/base/Vectors.h"
#include "VKT/node/Attribute.h"
#include "VKT/node/Base.h"
#include "max/HostTypes.h"

namespace VKTMax {

// A field of a host struct that an exported node carries as an extra attribute.
template <class Host>
struct AttributeRow {
    const char* name;
    std::variant<bool Host::*, i32 Host::*, f32 Host::*, VKT::XColour Host::*> field;
};

// Adds the attributes in the order of the rows. A name that the node has already stays.
template <class Host>
void WriteAttributes(VKT::XBase& node, const Host& host, std::span<const AttributeRow<Host>> rows)
{
    for (const AttributeRow<Host>& row : rows)
        if (VKT::XAttribute* attribute = node.CreateExtraAttribute(row.name))
            std::visit([&](auto field) { attribute->Set(host.*field); }, row.field);
}

}  // namespace VKTMax
