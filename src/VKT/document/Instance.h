#pragma once

#include <memory>
#include <unordered_set>

#include "VKT/base/IdMap.h"
#include "VKT/base/Lists.h"
#include "VKT/document/LoadReport.h"

namespace VKT {

class XBlockReader;
class XBone;
class XFileIO;
class XModel;
class XShape;
class XTextReader;
class XTextWriter;

// The faces of a shape that one material covers.
struct XMaterialGroup {
    u32 m_Material = 0;  // id of the material, 0 for none
    XIndexList m_Faces;
};

// Which uv set of the shape a texture uses here. Text files alone hold these.
struct XInstanceUvSet {
    u32 m_Texture = 0;
    XString m_SetName;
};

// The place of a shape under a bone, with the materials that cover it there. It is no
// node: it belongs to the document and has an id among instances alone. Made by
// `XModel::CreateInstance` and by the loaders.
class XInstance {
public:
    explicit XInstance(XModel* model) : m_Model(model) {}
    XInstance(const XInstance&) = delete;
    XInstance& operator=(const XInstance&) = delete;

    u32 GetID() const { return m_ID; }
    const char* GetName() const { return m_Name.c_str(); }
    void SetName(const XString& name) { m_Name = name; }
    XModel* GetModel() const { return m_Model; }

    // The shape and the bone, null when the document no longer holds them.
    XShape* GetShape() const;
    XBone* GetParent() const;
    u32 GetShapeId() const { return m_Object; }
    u32 GetParentId() const { return m_Parent; }

    // The material of the whole shape: 0 when there is none or there are groups.
    u32 GetMaterial() const { return m_Material; }
    void SetMaterial(u32 material) { m_Material = material; }
    // The material of one group. False when there is no such group.
    bool SetMaterial(u32 material, u32 group);
    // Adds a group or groups, up to `count` of them in all.
    void SetNumMaterialGroups(u32 count);
    const XVector<std::unique_ptr<XMaterialGroup>>& GetMaterialGroups() const { return m_MaterialGroups; }
    // Appends `faces` to those of a group. False when there is no such group.
    bool AddFaces(u32 group, const XIndexList& faces);

    void AddUvSet(u32 texture, const XString& setName);
    const XVector<std::unique_ptr<XInstanceUvSet>>& GetUvSets() const { return m_UvSets; }

    // Drops `material` wherever it is used here: the single one, or those of groups.
    void DropMaterial(u32 material);
    // Drops the uv sets of textures that are going.
    void DropTextures(const std::unordered_set<u32, XIdHash>& textures);
    // Takes over name, materials, groups and uv sets.
    void CopyBindings(const XInstance& source);

    // The `INSTANCE` block of a bone, in a text chunk; the reader stands behind the word
    // `INSTANCE`. A shape that is missing or is no shape drops the block with a warning
    // and is no failure.
    bool Write(XTextWriter& out) const;
    static bool Read(XBone& bone, XTextReader& in);
    // Both directions of the binary form, which has no uv sets.
    bool DoData(XFileIO& file);

private:
    friend class XBone;
    friend class XInstanceTable;

    // The bone that is being read is not in the document yet.
    bool CanName(u32 id, XInstanceLink link, const XBone& bone) const;
    bool ReadMaterials(XBlockReader block, const XBone& bone);

    u32 m_ID = 0;
    bool m_IsDead = false;  // deleted, and not yet out of the document's list
    u32 m_Material = 0;
    XVector<std::unique_ptr<XMaterialGroup>> m_MaterialGroups;
    u32 m_Object = 0;
    u32 m_Parent = 0;
    XVector<std::unique_ptr<XInstanceUvSet>> m_UvSets;
    XModel* m_Model;
    XString m_Name;
};

}  // namespace VKT
