#include "exporter/walk/NodeAttributes.h"

#include "VKT/hierarchy/Bone.h"
#include "exporter/options/ExportOptions.h"
#include "exporter/walk/AttributeRows.h"
#include "exporter/walk/PropertyText.h"
#include "max/Node.h"
#include "max/UserProperties.h"

namespace VKTMax {

namespace {

constexpr AttributeRow<HostNode> kNodeAttributes[] = {
    {"wire_colour", &HostNode::wireColour},
};

void SetValue(VKT::XAttribute& attribute, INode* node, const UserProperty& property)
{
    switch (property.kind) {
        case PropertyKind::False:
            attribute.Set(false);
            break;
        case PropertyKind::True:
            attribute.Set(true);
            break;
        case PropertyKind::Whole:
            attribute.Set(UserPropertyInt(node, property.name));
            break;
        case PropertyKind::Number:
            attribute.Set(UserPropertyFloat(node, property.name));
            break;
        case PropertyKind::Text:
            attribute.Set(VKT::XString(property.value));
            break;
    }
}

// Of properties of one name the first counts; "wire_colour" is taken.
void WriteUserProperties(VKT::XBone& bone, INode* node)
{
    if (!GetExportOptions().GetIncludeProperties())
        return;
    for (const UserProperty& property : ParsePropertyText(UserPropertyText(node)))
        if (VKT::XAttribute* attribute = bone.CreateExtraAttribute(property.name.c_str()))
            SetValue(*attribute, node, property);
}

}  // namespace

void WriteNodeAttributes(const VKTExportCore& core, INode* node)
{
    VKT::XBone* bone = core.FindBone(node);
    if (!bone)
        return;
    WriteAttributes<HostNode>(*bone, ReadNode(node), kNodeAttributes);
    WriteUserProperties(*bone, node);
}

}  // namespace VKTMax
