#include "VKT/animation/FCurveStream.h"

#include <algorithm>

#include "VKT/animation/AnimatedAttribute.h"
#include "VKT/hierarchy/Bone.h"
#include "VKT/stream/BlockReader.h"
#include "VKT/stream/FileIO.h"
#include "VKT/stream/TextWriter.h"

namespace VKT {
namespace {

constexpr const char* kSource = ".\\src\\VKT\\FCurveStream";
constexpr u32 kBoneRotation = 1;  // the attribute's number

}  // namespace

const XAnimCurve* XFCurveStream::FindCurve(i32 component, i32 index) const
{
    const auto found = std::find_if(m_Curves.begin(), m_Curves.end(), [=](const auto& curve) {
        return curve->GetComponent() == component && curve->GetIndex() == index;
    });
    return found == m_Curves.end() ? nullptr : found->get();
}

XAnimCurve* XFCurveStream::GetCurve(i32 component, i32 index)
{
    if (const XAnimCurve* found = FindCurve(component, index))
        return const_cast<XAnimCurve*>(found);
    XAnimCurve* const curve = m_Curves.emplace_back(std::make_unique<XAnimCurve>()).get();
    curve->SetComponent(component);
    curve->SetIndex(index);
    curve->SetInterpolation(kBezier2D);
    return curve;
}

bool XFCurveStream::Evaluate(f32 time, f32* out) const
{
    switch (GetKind()) {
        case kScalar:
            if (const XAnimCurve* curve = FindCurve(-1))
                curve->Evaluate(time, out[0]);
            return true;
        case kVector2:
        case kVector3:
        case kVector4:
            EvaluateComponents(time, static_cast<i32>(GetElementCount(GetKind())), out);
            return true;
        case kQuaternion:
            EvaluateRotation(time, out);
            return true;
        case kFloatArray:
            EvaluateArray(time, out);
            return true;
        default:
            return false;
    }
}

void XFCurveStream::EvaluateComponents(f32 time, i32 count, f32* out) const
{
    for (i32 i = 0; i < count; ++i)
        if (const XAnimCurve* curve = FindCurve(i))
            curve->Evaluate(time, out[i]);
}

void XFCurveStream::EvaluateRotation(f32 time, f32* out) const
{
    XVector3 angles{};
    EvaluateComponents(time, 3, &angles.x);
    const XBone* const bone = XCast<XBone>(GetAttribute().GetNode());
    const bool isBoneRotation = bone && GetAttribute().GetAttributeId() == kBoneRotation;
    XQuaternion rotation;
    XEulerToQuaternion(angles, isBoneRotation ? bone->GetRotationOrder() : 0, rotation);
    std::copy_n(&rotation.x, 4, out);
}

// One pass over the curves, since both they and the entries can be many.
void XFCurveStream::EvaluateArray(f32 time, f32* out) const
{
    XFloatArray current;
    GetAttribute().GetCurrentArray(current);
    std::copy(current.begin(), current.end(), out);
    XVector<bool> isDone(current.size(), false);
    for (const auto& curve : m_Curves) {
        const std::size_t entry = static_cast<std::size_t>(curve->GetIndex());
        if (curve->GetComponent() != 0 || entry >= current.size() || isDone[entry])
            continue;
        curve->Evaluate(time, out[entry]);
        isDone[entry] = true;
    }
}

// A count that cannot be true ends at the first curve that is not there.
bool XFCurveStream::DoData(XFileIO& file)
{
    u32 count = GetNumCurves();
    if (!file.DoData(count))
        return false;
    if (file.IsReading())
        m_Curves.clear();
    return file.DoElements(m_Curves, count, [&](XAnimCurve& curve) { return curve.DoData(file); });
}

// A count that fails to come is seen at the closing brace.
bool XFCurveStream::ReadChunk(XTextReader& in)
{
    u32 count = 0;
    if (!XBlockReader(in, kSource).Read("num_fcurves", count))
        return false;
    for (u32 i = 0; i < count; ++i)
        if (!m_Curves.emplace_back(std::make_unique<XAnimCurve>())->ReadChunk(in))
            return false;
    return true;
}

bool XFCurveStream::WriteChunk(XTextWriter& out) const
{
    out << "\t\t\tFCURVE_STREAM\n\t\t\t{\n\t\t\t\tnum_fcurves " << GetNumCurves() << '\n';
    for (const auto& curve : m_Curves)
        curve->WriteChunk(out);
    out << "\t\t\t}\n";
    return out.IsGood();
}

}  // namespace VKT
