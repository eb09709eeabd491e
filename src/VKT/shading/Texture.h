#pragma once

#include "VKT/shading/ShadingNode.h"

namespace VKT {

// The base of textures: a list of ids of images, which are 2D placements of the document.
// Binary files hold the list, text files only the places that derived classes name.
class XTexture : public XNodeClass<XTexture, XShadingNode, kFnTexture> {
public:
    using XNodeClass::XNodeClass;

    u32 GetNumImages() const { return static_cast<u32>(m_Images.size()); }
    // 0 for none, which a place that the list does not have is too.
    u32 GetImage(u32 i) const { return i < m_Images.size() ? m_Images[i] : 0; }
    const XIndexList& GetImages() const { return m_Images; }
    void SetImages(const XIndexList& ids) { m_Images = ids; }

    // Empties the places that hold the dying image.
    bool NodeDeath(u32 id) override;

    static XBodyTable BinaryBody();

protected:
    // Makes the list longer where it does not reach the place.
    void SetImage(u32 i, u32 id);

    // A place of the list as a row of a text body and as a property.
    template <u32 Place>
    static constexpr XStored ImageId()
    {
        return XStoredText{
            [](const XBase& node, XTextWriter& out) {
                WriteImage(static_cast<const XTexture&>(node), Place, out);
            },
            [](XBase& node, XTextReader& in) { return ReadImage(static_cast<XTexture&>(node), Place, in); }};
    }
    template <u32 Place>
    static constexpr XPropertyInfo ImageNode(u32 id, const char* name)
    {
        return Computed<XBase*>(
            id, name, 0,
            [](const XBase& node, XBase*& value) {
                value = FindNodeOfType(node, As<XTexture>(node).GetImage(Place), kFnTexPlacement2D);
                return true;
            },
            [](XBase& node, XBase* const& value) {
                if (!AcceptsNode(node, value, kFnTexPlacement2D))
                    return false;
                As<XTexture>(node).SetImage(Place, value ? value->GetID() : 0);
                return true;
            },
            kFnTexPlacement2D);
    }

private:
    static void WriteImage(const XTexture& texture, u32 place, XTextWriter& out);
    static bool ReadImage(XTexture& texture, u32 place, XTextReader& in);

    XIndexList m_Images;
};

}  // namespace VKT
