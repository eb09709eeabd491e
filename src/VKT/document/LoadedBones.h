#pragma once

#include "VKT/base/Lists.h"

namespace VKT {

class XModel;

// What a load makes of the bones that it has read. Files hold bind poses alone: they become
// the current poses too, and the matrices of both are built from them, in one walk, since a
// million bones do not stay in the cache from one walk to the next.
class XLoadedBones {
public:
    explicit XLoadedBones(XModel& model) : m_Model(model) {}

    // In the order of the document.
    void Add(XBone& bone);
    void Settle();

private:
    bool BuildMatrices();

    XModel& m_Model;
    XBoneList m_Bones;
    XBoneList m_Roots;
};

}  // namespace VKT
