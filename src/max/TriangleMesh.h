#pragma once

#include <memory>

#include "VKT/base/Lists.h"
#include "max/HostObject.h"

class Mesh;

namespace VKTMax {

// A triangle mesh of the host, and the converted object that it may have come from.
class TriangleMesh {
public:
    // The mesh of `source`, converted when it is no triangle mesh itself. `evaluated` is
    // the object at the end of the node's stack, which the host keeps. Answers an empty
    // mesh when there is none to be had. Neither may be empty.
    static TriangleMesh Of(const HostObject& source, const HostObject& evaluated);

    explicit operator bool() const { return m_Mesh != nullptr; }

    u32 GetNumFaces() const;
    // Object-space positions, in the host's units.
    VKT::XVector3Array GetPoints() const;
    // Three vertices per face, in the host's order.
    VKT::XU32Array GetCorners() const;
    // The number of each face's material. It may exceed the materials that there are.
    VKT::XIndexList GetFaceMaterials() const;

    // Map channels 1 to 98: whether the mesh has it, its values, three of them per face.
    bool HasChannel(int channel) const;
    VKT::XVector3Array GetChannelValues(int channel) const;
    VKT::XIntList GetChannelCorners(int channel) const;
    // Vertex colours: red, green, blue, and three of them per face.
    VKT::XVector3Array GetColours() const;
    VKT::XIntList GetColourCorners() const;

private:
    // Ends a converted object the way that the host wants it.
    struct DeleteObject {
        void operator()(Object* object) const;
    };

    Mesh* m_Mesh = nullptr;
    std::unique_ptr<Object, DeleteObject> m_Converted;
};

}  // namespace VKTMax
