#include "VKT/geometry/MeshVertexColours.h"

#include <algorithm>

#include "VKT/document/Model.h"
#include "VKT/geometry/Mesh.h"
#include "VKT/stream/BlockReader.h"
#include "VKT/stream/NodeName.h"
#include "VKT/stream/TextWriter.h"

namespace VKT {
namespace {

constexpr const char* kSource = ".\\src\\VKT\\MeshVertexColours";

bool DoColourSet(XFileIO& file, XColourSet& set)
{
    constexpr u64 kLeastBytes = 4;  // an empty list
    return file.DoData(set.m_Name) && file.DoData(set.m_Colours) &&
           file.DoEach(set.m_FaceIndices, kLeastBytes,
                       [&](XIntList& indices) { return file.DoData(indices) != 0; });
}

// A name without the quotes around it, whatever stands in their places.
void RemoveQuotes(XString& word)
{
    word.erase(0, 1);
    if (!word.empty())
        word.pop_back();
}

}  // namespace

XMesh* XMeshVertexColours::GetMesh() const
{
    return XCast<XMesh>(GetModel()->FindNode(m_MeshId));
}

void XMeshVertexColours::SetMesh(XMesh* mesh)
{
    if (XMesh* const former = GetMesh()) {
        XIndexList& ids = former->m_VertexColours;
        const auto found = std::find(ids.rbegin(), ids.rend(), GetID());  // a clone leaves from the end
        if (found != ids.rend())
            ids.erase(std::next(found).base());
    }
    m_MeshId = mesh ? mesh->GetID() : 0;
    PostLoad();
}

void XMeshVertexColours::PostLoad()
{
    XMesh* const mesh = GetMesh();
    if (mesh && (mesh->m_VertexColours.empty() || mesh->m_VertexColours.back() != GetID()))
        mesh->m_VertexColours.push_back(GetID());
}

XColourSet& XMeshVertexColours::AddColourSet(const XString& name)
{
    XColourSet& set = *m_ColourSets.emplace_back(std::make_unique<XColourSet>());
    set.m_Name = name;
    return set;
}

bool XMeshVertexColours::NodeDeath(u32 id)
{
    return id != m_MeshId && XBase::NodeDeath(id);
}

bool XMeshVertexColours::DoData(XFileIO& file)
{
    constexpr u64 kLeastBytes = 10;  // an empty name and two empty lists
    return XNodeClass::DoData(file) && file.DoId(m_MeshId) &&
           file.DoEach(m_ColourSets, kLeastBytes, [&](XColourSet& set) { return DoColourSet(file, set); });
}

void XMeshVertexColours::DoCopy(const XBase* source)
{
    const XMeshVertexColours* other = XCast<XMeshVertexColours>(source);
    if (!other || other == this)
        return;
    m_MeshId = other->m_MeshId;
    m_ColourSets.clear();
    for (const auto& set : other->m_ColourSets)
        m_ColourSets.push_back(std::make_unique<XColourSet>(*set));
    PostLoad();
}

bool XMeshVertexColours::WriteChunk(XTextWriter& out) const
{
    out << "\tmesh_id " << XNodeId{m_MeshId} << "\n\tnum_colour_sets " << GetNumColourSets() << '\n';
    for (const auto& set : m_ColourSets) {
        out << "\tcolour_set " << NameInQuotes(set->m_Name) << ' ' << static_cast<u32>(set->m_Colours.size())
            << '\n';
        for (const XColour& c : set->m_Colours)
            out << "\t\t" << c.r << ' ' << c.g << ' ' << c.b << ' ' << c.a << '\n';
        out << "\tfaces " << static_cast<u32>(set->m_FaceIndices.size()) << '\n';
        for (const XIntList& indices : set->m_FaceIndices) {
            out << "\t\t" << static_cast<u32>(indices.size()) << ' ';
            out.WriteRow(indices, {"", true});
        }
    }
    return out.IsGood();
}

bool XMeshVertexColours::ReadFields(XTextReader& in)
{
    XBlockReader block(in, kSource);
    u32 count = 0;
    if (!block.Read("mesh_id", m_MeshId) || !block.Read("num_colour_sets", count))
        return false;
    m_ColourSets.clear();
    for (u32 i = 0; i < count; ++i)
        if (!ReadColourSet(block))
            return false;
    return true;
}

bool XMeshVertexColours::ReadColourSet(XBlockReader block)
{
    if (!block.Expect("colour_set"))
        return false;
    XTextReader& in = block.In();
    XColourSet& set = AddColourSet("");
    in.ReadToken(set.m_Name);
    RemoveQuotes(set.m_Name);
    u32 count = 0;
    in.Read(count);
    for (u32 i = 0; i < count && in.IsGood(); ++i)
        in.ReadArray(&set.m_Colours.emplace_back().r, 4);
    if (!block.Read("faces", count))
        return false;
    for (u32 i = 0; i < count && in.IsGood(); ++i) {
        XIntList& indices = set.m_FaceIndices.emplace_back();
        u32 corners = 0;
        in.Read(corners);
        in.ReadNumbers(indices, corners);
    }
    return true;
}

}  // namespace VKT
