#include "exporter/walk/ExportCore.h"

#include "max/Node.h"

namespace VKTMax {
namespace {

template <class Map, class Key>
auto Find(const Map& map, Key key) -> typename Map::mapped_type
{
    const auto found = map.find(key);
    return found == map.end() ? nullptr : found->second;
}

}  // namespace

void VKTExportCore::Remember(INode* node, VKT::XBone& bone)
{
    m_Bones.emplace(node, &bone);
    m_NodesByBone.emplace(&bone, node);
}

void VKTExportCore::Remember(Object* evaluated, VKT::XBase& shape)
{
    m_Shapes.emplace(evaluated, &shape);
}

void VKTExportCore::Remember(Mtl* material, VKT::XBase& node)
{
    m_Materials.emplace(material, &node);
}

VKT::XBone* VKTExportCore::FindBone(INode* node) const
{
    return Find(m_Bones, node);
}

INode* VKTExportCore::FindNode(const VKT::XBone* bone) const
{
    return Find(m_NodesByBone, bone);
}

VKT::XBase* VKTExportCore::FindShape(Object* evaluated) const
{
    return Find(m_Shapes, evaluated);
}

VKT::XBase* VKTExportCore::FindMaterial(Mtl* material) const
{
    return Find(m_Materials, material);
}

RowMatrix VKTExportCore::GetBindMatrix(INode* node) const
{
    if (!node)
        return {};
    const auto bound = m_BindMatrices.find(node);
    return bound == m_BindMatrices.end() ? WorldMatrix(node, 0) : bound->second;
}

void VKTExportCore::SetBindMatrix(INode* node, const RowMatrix& world)
{
    m_BindMatrices.insert_or_assign(node, world);
}

}  // namespace VKTMax
