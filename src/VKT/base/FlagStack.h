#pragma once

#include <array>

#include "VKT/base/Types.h"

namespace VKT {

// An option word of a document: 32 words, of which the current one, always the first,
// is tested and changed.
class XFlagStack {
public:
    explicit XFlagStack(u32 bits) { m_Words[0] = bits; }
    // Whether the current word has any of `bits`.
    bool Test(u32 bits) const { return (m_Words[m_Current] & bits) != 0; }
    void Set(u32 bits) { m_Words[m_Current] |= bits; }
    void Clear(u32 bits) { m_Words[m_Current] &= ~bits; }

private:
    std::array<u32, 32> m_Words{};
    u32 m_Current = 0;
};

// What `XModel::Save` writes. All are set in a new document.
enum XSaveFlag : u32 {
    SaveBones = 1,
    SaveShapes = 2,     // also the instance lists of bones
    SaveMaterials = 4,  // also the materials and material groups of instances
    SaveTextures = 8,
    SaveDeformers = 32,  // also the deformer queues of geometry
    SaveExtraAttributes = 64,
    SaveAnimCycles = 128,
    SaveAscii = 256,  // text; clear, the file is binary
};

// How far `XBase::Clone` reaches.
enum XCopyFlag : u32 {
    CopyDeformers = 1,
    CopyChildren = 2,
    CopyInstances = 4,
    CopyShareInstances = 8,  // with CopyInstances: share the ids, make no new instances
    CopyParent = 16,
    CopyParticleLinks = 32,
};

// What goes along with a node that is deleted.
enum XDeleteFlag : u32 {
    DeleteShapes = 2,      // a bone takes the shapes of its instances
    DeleteMaterials = 4,   // a shape takes materials that no other shape uses
    DeleteTextures = 8,    // a shading node takes the textures that it feeds
    DeleteDeformers = 16,  // a geometry takes deformers of fewer than two geometries
    DeleteEmitters = 32,
    DeleteDeformerInputs = 64,
    DeleteChildren = 128,  // a bone takes its child bones
    DeleteConnectionInputs = 256,
    DeleteConnectionOutputs = 512,
    DeleteTransforms = 1024,  // a shape takes the plain bones of its instances
};

}  // namespace VKT
