#pragma once

#include <assimp/scene.h>

#include <string>
#include <unordered_map>
#include <vector>

#include "host/io/NeutralScene.h"

namespace maxhost::io {

Matrix ToMatrix(const aiMatrix4x4& m);

// A node of the file and what Assimp made of it: FBX pivots arrive as a chain of
// helper nodes above the node, which vanish here.
struct AssimpNode {
    const aiNode* node = nullptr;
    // Outermost first, without those of the geometric offset; their product with the
    // node's own matrix is the local transform.
    std::vector<const aiNode*> helpers;
    // What the helpers of the geometric offset do to the node's mesh alone.
    Matrix geometric;
};

// The node tree of an Assimp scene, laid flat: entry i belongs to node i of the
// neutral scene.
class AssimpNodes {
public:
    // Appends the nodes below `root` to `scene`, and `root` itself when `keepRoot`.
    AssimpNodes(const aiNode& root, bool keepRoot, NeutralScene& scene);

    const AssimpNode& operator[](std::size_t index) const { return m_Nodes[index]; }
    std::size_t Count() const { return m_Nodes.size(); }

    // The first node of a name, -1 when there is none. A name that several nodes
    // bear is reported once.
    int Find(const aiString& name, NeutralScene& scene);
    // The node whose chain a helper of this name belongs to, -1 when there is none.
    int FindByHelper(const aiString& name) const;

private:
    std::vector<AssimpNode> m_Nodes;
    std::unordered_map<std::string, std::vector<int>> m_ByName;
    std::unordered_map<std::string, int> m_ByHelper;
};

}  // namespace maxhost::io
