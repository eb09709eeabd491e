#pragma once

#include "VKT/dynamics/CollisionObject.h"

namespace VKT {

// Points in object space, in scene units, and the indices of the corners of triangles.
class XCollisionMesh final : public XNodeClass<XCollisionMesh, XCollisionObject, kFnCollisionMesh> {
public:
    using XNodeClass::XNodeClass;

    const XVector3Array& GetPoints() const { return m_Points; }
    void SetPoints(const XVector3Array& points) { m_Points = points; }
    // They may point outside of the points; look before use.
    const XU32Array& GetIndices() const { return m_Indices; }
    void SetIndices(const XU32Array& indices) { m_Indices = indices; }

    bool DoData(XFileIO& file) override;
    void DoCopy(const XBase* source) override;
    bool WriteChunk(XTextWriter& out) const override;
    bool ReadFields(XTextReader& in) override;

    static XPropertyTable Properties();

private:
    XVector3Array m_Points;
    XU32Array m_Indices;
};

}  // namespace VKT
