#include "VKT/document/LoadedBones.h"

#include "VKT/document/Model.h"
#include "VKT/hierarchy/BoneWalk.h"

namespace VKT {

void XLoadedBones::Add(XBone& bone)
{
    bone.CopyBindToCurrent();
    m_Bones.push_back(&bone);
    if (bone.GetParentId() == 0)
        m_Roots.push_back(&bone);
}

// By rule the matrices are built once more ahead, in the poses of fresh bones. Nothing of that
// is left but the inverses of bones that are scaled so small that they have none: those stay
// as they were, so it is made up for where there is such a bone.
void XLoadedBones::Settle()
{
    if (BuildMatrices())
        return;
    for (XBone* bone : m_Bones)
        bone->ResetCurrent();
    m_Model.UpdateWorldMatrices();
    for (XBone* bone : m_Bones)
        bone->CopyBindToCurrent();
    BuildMatrices();
}

// Builds the matrices of the current pose and copies them to the bind pose, also where no
// root leads. False when a bone has no inverse.
bool XLoadedBones::BuildMatrices()
{
    bool haveInverses = true;
    const auto build = [&](XBone& bone, const XMatrix& above) {
        bone.UpdateOwnMatrices(above);
        bone.CopyMatricesToBind();
        haveInverses = haveInverses && bone.HasInverse();
    };
    XBoneWalk walk(m_Model);
    for (XBone* root : m_Roots) {
        build(*root, kIdentityMatrix);
        walk.Below(*root, [&](XBone& bone, const XBone& above) { build(bone, above.GetWorld(false)); });
    }
    if (walk.GetNumVisited() < m_Bones.size())
        for (XBone* bone : m_Bones)
            if (!walk.HasVisited(*bone))
                bone->CopyMatricesToBind();
    return haveInverses;
}

}  // namespace VKT
