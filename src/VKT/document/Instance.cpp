#include "VKT/document/Instance.h"

#include "VKT/base/Logger.h"
#include "VKT/document/Model.h"
#include "VKT/hierarchy/Bone.h"
#include "VKT/hierarchy/Shape.h"
#include "VKT/node/Fn.h"
#include "VKT/stream/BlockReader.h"
#include "VKT/stream/NodeName.h"
#include "VKT/stream/TextWriter.h"

namespace VKT {
namespace {

constexpr const char* kSource = ".\\src\\VKT\\Instance";

bool SavesMaterials(const XInstance& instance)
{
    return instance.GetModel()->GetSaveFlags().Test(SaveMaterials);
}

// Reads on behind the closing brace of the block that the reader stands in, or to the end.
void SkipBlock(XTextReader& in)
{
    XString token;
    for (u64 depth = 1; depth > 0 && in.ReadToken(token);) {
        if (token == "{")
            ++depth;
        else if (token == "}")
            --depth;
    }
}

}  // namespace

XShape* XInstance::GetShape() const
{
    return XCast<XShape>(m_Model->FindNode(m_Object));
}

XBone* XInstance::GetParent() const
{
    return XCast<XBone>(m_Model->FindNode(m_Parent));
}

bool XInstance::SetMaterial(u32 material, u32 group)
{
    if (group >= m_MaterialGroups.size())
        return false;
    m_MaterialGroups[group]->m_Material = material;
    return true;
}

void XInstance::SetNumMaterialGroups(u32 count)
{
    while (m_MaterialGroups.size() < count)
        m_MaterialGroups.push_back(std::make_unique<XMaterialGroup>());
}

bool XInstance::AddFaces(u32 group, const XIndexList& faces)
{
    if (group >= m_MaterialGroups.size())
        return false;
    XIndexList& own = m_MaterialGroups[group]->m_Faces;
    own.insert(own.end(), faces.begin(), faces.end());
    return true;
}

void XInstance::AddUvSet(u32 texture, const XString& setName)
{
    m_UvSets.push_back(std::make_unique<XInstanceUvSet>(XInstanceUvSet{texture, setName}));
}

void XInstance::DropMaterial(u32 material)
{
    if (m_Material == material)
        m_Material = 0;
    for (const auto& group : m_MaterialGroups)
        if (group->m_Material == material)
            group->m_Material = 0;
}

void XInstance::DropTextures(const std::unordered_set<u32, XIdHash>& textures)
{
    std::erase_if(m_UvSets, [&](const auto& uvSet) { return textures.contains(uvSet->m_Texture); });
}

void XInstance::CopyBindings(const XInstance& source)
{
    m_Name = source.m_Name;
    m_Material = source.m_Material;
    m_MaterialGroups.clear();
    for (const auto& group : source.m_MaterialGroups)
        m_MaterialGroups.push_back(std::make_unique<XMaterialGroup>(*group));
    m_UvSets.clear();
    for (const auto& uvSet : source.m_UvSets)
        m_UvSets.push_back(std::make_unique<XInstanceUvSet>(*uvSet));
}

bool XInstance::Write(XTextWriter& out) const
{
    out << "\t\tINSTANCE " << NameAsToken(m_Name) << " {\n\t\t\tobject_id " << XNodeId{m_Object} << '\n';
    out << "\t\t\tnum_uv_sets " << static_cast<u32>(m_UvSets.size()) << '\n';
    for (const auto& uvSet : m_UvSets)
        out << "\t\t\t\t" << XNodeId{uvSet->m_Texture} << ' ' << NameAsToken(uvSet->m_SetName) << '\n';
    if (SavesMaterials(*this)) {
        if (m_Material != 0) {
            out << "\t\t\tmaterial " << XNodeId{m_Material} << '\n';
        } else {
            for (const auto& group : m_MaterialGroups) {
                out << "\t\t\tMATERIAL_GROUP {\n\t\t\t\tmaterial_id " << XNodeId{group->m_Material};
                out << "\n\t\t\t\tnum_face_indices " << static_cast<u32>(group->m_Faces.size()) << '\n';
                out.WriteRow(group->m_Faces, {"\t\t\t\t\t", true});
                out << "\t\t\t}\n";
            }
        }
    }
    out << "\t\t}\n";
    return out.IsGood();
}

bool XInstance::Read(XBone& bone, XTextReader& in)
{
    XModel& model = *bone.GetModel();
    XString name;
    in.ReadToken(name);
    XBlockReader block(in, kSource);
    u32 shapeId = 0;
    if (!block.Expect("{") || !block.Read("object_id", shapeId))
        return false;

    XVector<XInstanceUvSet> uvSets;
    if (!in.IsBelow(4)) {
        u32 count = 0;
        if (!block.Read("num_uv_sets", count))
            return false;
        for (u32 i = 0; i < count && in.IsGood(); ++i) {
            XInstanceUvSet uvSet;
            in.Read(uvSet.m_Texture);
            in.ReadToken(uvSet.m_SetName);
            uvSets.push_back(uvSet);
        }
    }

    XBase* const node = model.FindNode(shapeId);
    XShape* const shape = XCast<XShape>(node);
    if (!shape) {
        GetLogger()->LogFormat(
            kWarning, node ? "Shape ID %d : name %s is not a shape." : "Shape ID %d : name %s not found.",
            shapeId, name.c_str());
        model.GetLoadReport().Drop(XDroppedReference{bone.GetName(), name, XInstanceLink::kShape, shapeId});
        SkipBlock(in);
        return true;
    }
    XInstance& instance = *model.CreateInstance(&bone, shape);
    instance.m_Name = name;
    for (const XInstanceUvSet& uvSet : uvSets)
        if (instance.CanName(uvSet.m_Texture, XInstanceLink::kTexture, bone))
            instance.AddUvSet(uvSet.m_Texture, uvSet.m_SetName);
    return instance.ReadMaterials(block, bone);
}

// Whether an id from a text file leads to a material or a texture. One that does not is dropped.
bool XInstance::CanName(u32 id, XInstanceLink link, const XBone& bone) const
{
    const XBase* node = m_Model->FindNode(id);
    if (node && node->HasFn(link == XInstanceLink::kMaterial ? kFnMaterial : kFnTexture))
        return true;
    if (id != 0)
        m_Model->GetLoadReport().Drop(XDroppedReference{bone.GetName(), m_Name, link, id});
    return false;
}

bool XInstance::ReadMaterials(XBlockReader block, const XBone& bone)
{
    XTextReader& in = block.In();
    const auto isMaterial = [&](u32 id) { return CanName(id, XInstanceLink::kMaterial, bone); };
    XString token;
    for (in.ReadToken(token);; in.ReadToken(token)) {
        if (token == "material") {
            u32 id = 0;
            in.Read(id);
            if (isMaterial(id))
                m_Material = id;
        } else if (token == "MATERIAL_GROUP") {
            auto group = std::make_unique<XMaterialGroup>();
            XBlockReader entry = block;
            u32 count = 0;
            if (!entry.Expect("{") || !entry.Read("material_id", group->m_Material))
                return false;
            if (!isMaterial(group->m_Material))
                group->m_Material = 0;
            if (!entry.Read("num_face_indices", count))
                return false;
            in.ReadNumbers(group->m_Faces, count);
            if (!entry.Expect("}"))
                return false;
            m_MaterialGroups.push_back(std::move(group));
        } else {
            break;
        }
    }
    if (token == "}")
        return true;
    GetLogger()->Log(kError, "Unexpected error when reading instance list");
    return false;
}

bool XInstance::DoData(XFileIO& file)
{
    const bool withMaterials = file.IsReading() || file.IsListing() || SavesMaterials(*this);
    u8 hasGroups = withMaterials && !m_MaterialGroups.empty();
    if (!file.DoData(m_Name) || !file.DoId(m_Object) || !file.DoData(hasGroups))
        return false;
    if (hasGroups == 0) {
        u32 material = withMaterials ? m_Material : 0;
        if (!file.DoId(material))
            return false;
        if (file.IsReading())
            m_Material = material;
        return true;
    }
    file.NoteId(m_Material);
    constexpr u64 kLeastBytes = 8;  // a material and an empty list
    return file.DoEach(m_MaterialGroups, kLeastBytes, [&](XMaterialGroup& group) {
        return file.DoId(group.m_Material) && file.DoData(group.m_Faces);
    });
}

}  // namespace VKT
