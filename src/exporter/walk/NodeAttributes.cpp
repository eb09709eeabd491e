// What a node of the host carries beside transform and shape: extra attributes of its bone.

#include "VKT/hierarchy/Bone.h"
#include "VKT/node/Attribute.h"
#include "exporter/options/ExportOptions.h"
#include "exporter/walk/ExportCore.h"
#include "exporter/walk/PropertyText.h"

namespace VKTMax {

using VKT::XBone;

namespace {

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

}  // namespace

void VKTExportCore::WriteWireColour(INode* node) const
{
    XBone* bone = FindBone(node);
    VKT::XAttribute* attribute = bone ? bone->CreateExtraAttribute("wire_colour") : nullptr;
    if (!attribute)
        return;
    const u32 colour = WireColourOf(node);
    const auto channel = [colour](int shift) { return static_cast<f32>((colour >> shift & 0xFF) / 255.0); };
    attribute->Set(VKT::XColour{channel(0), channel(8), channel(16), 1.0f});
}

// Of properties of one name the first counts; "wire_colour" is taken.
void VKTExportCore::WriteUserProperties(INode* node) const
{
    XBone* bone = FindBone(node);
    if (!bone || !GetExportOptions().GetIncludeProperties())
        return;
    for (const UserProperty& property : ParsePropertyText(UserPropertyText(node)))
        if (VKT::XAttribute* attribute = bone->CreateExtraAttribute(property.name.c_str()))
            SetValue(*attribute, node, property);
}

}  // namespace VKTMax
