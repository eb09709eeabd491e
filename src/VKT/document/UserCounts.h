#pragma once

#include <unordered_map>

#include "VKT/base/IdMap.h"

namespace VKT {

class XModel;

// How much of a document depends on its shading nodes, counted in one walk. Good for as
// long as the document does not change.
class XUserCounts {
public:
    explicit XUserCounts(const XModel& model);

    // Shader inputs that the node feeds, its own among them.
    u32 GetInputsFedBy(u32 node) const { return Get(m_Inputs, node); }
    // Shapes that some instance covers with the material.
    u32 GetShapesCoveredBy(u32 material) const { return Get(m_Shapes, material); }

private:
    using Counts = std::unordered_map<u32, u32, XIdHash>;
    static u32 Get(const Counts& counts, u32 id)
    {
        const auto found = counts.find(id);
        return found == counts.end() ? 0 : found->second;
    }

    Counts m_Inputs;
    Counts m_Shapes;
};

}  // namespace VKT
