#pragma once

#include <algorithm>

#include "VKT/base/Matrix.h"
#include "VKT/base/Vector.h"

namespace VKT {

class XBase;
class XBone;
class XDeformer;
class XInstance;

using XIndexList = XVector<u32>;
using XU32Array = XVector<u32>;
using XIntList = XVector<i32>;
using XRealList = XVector<f32>;
using XFloatArray = XVector<f32>;
using XVector3Array = XVector<XVector3>;
using XColourArray = XVector<XColour>;
using XMatrixArray = XVector<XMatrix>;
using XStringList = XVector<XString>;

// Lists of objects that the document owns.
using XNodeList = XVector<XBase*>;
using XBoneList = XVector<XBone*>;
using XDeformerList = XVector<XDeformer*>;
using XInstanceList = XVector<XInstance*>;

// Removes the first entry that equals `value`. False when there is none.
template <class T>
bool EraseFirst(XVector<T>& list, const T& value)
{
    const auto found = std::find(list.begin(), list.end(), value);
    if (found == list.end())
        return false;
    list.erase(found);
    return true;
}

}  // namespace VKT
