#pragma once

#include <memory>

#include "VKT/node/NodeClass.h"

namespace VKT {

class XBlockReader;
class XMesh;

// A named table of colours, and for each face of the mesh an index per corner.
struct XColourSet {
    XString m_Name;
    XColourArray m_Colours;  // red, green, blue, alpha
    XVector<XIntList> m_FaceIndices;
};

// The vertex colours of an older mesh. The node names its mesh by id and dies with it.
class XMeshVertexColours final : public XNodeClass<XMeshVertexColours, XBase, kFnMeshVertexColours> {
public:
    using XNodeClass::XNodeClass;

    u32 GetMeshId() const { return m_MeshId; }
    // Null when the document does not hold the mesh.
    XMesh* GetMesh() const;
    void SetMesh(XMesh* mesh);

    u32 GetNumColourSets() const { return static_cast<u32>(m_ColourSets.size()); }
    // A set by its position, which must exist.
    XColourSet& GetColourSet(u32 i) { return *m_ColourSets[i]; }
    const XColourSet& GetColourSet(u32 i) const { return *m_ColourSets[i]; }
    // A new, empty set behind the others; the name need not be unique.
    XColourSet& AddColourSet(const XString& name);

    bool NodeDeath(u32 id) override;
    bool DoData(XFileIO& file) override;
    void DoCopy(const XBase* source) override;
    bool WriteChunk(XTextWriter& out) const override;
    bool ReadFields(XTextReader& in) override;
    // Makes itself known to the mesh, so that a mesh need not search the document.
    void PostLoad() override;

private:
    bool ReadColourSet(XBlockReader block);

    u32 m_MeshId = 0;
    XVector<std::unique_ptr<XColourSet>> m_ColourSets;
};

}  // namespace VKT
