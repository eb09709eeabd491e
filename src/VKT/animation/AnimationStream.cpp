#include "VKT/animation/AnimationStream.h"

#include <iterator>

#include "VKT/animation/AnimatedAttribute.h"
#include "VKT/animation/FCurveStream.h"
#include "VKT/animation/PoseStream.h"
#include "VKT/animation/SampledStream.h"
#include "VKT/stream/FileIO.h"

namespace VKT {
namespace {

constexpr u32 kHeaderSize = 8;  // type and kind

}  // namespace

u32 GetElementCount(XStreamKind kind)
{
    constexpr u32 counts[] = {1, 2, 3, 4, 4, 16, 1};
    return kind < std::size(counts) ? counts[kind] : 0;
}

u32 XAnimationStream::GetDataSize() const
{
    XFileIO measure = XFileIO::Measuring();
    const_cast<XAnimationStream*>(this)->DoData(measure);  // a measure changes nothing
    return static_cast<u32>(kHeaderSize + measure.GetMeasure());
}

XPoseStream* XAnimationStream::AsPose()
{
    return m_StreamType == kPoseStream ? static_cast<XPoseStream*>(this) : nullptr;
}

XSampledStream* XAnimationStream::AsSampled()
{
    return m_StreamType == kSampledStream ? static_cast<XSampledStream*>(this) : nullptr;
}

XFCurveStream* XAnimationStream::AsFCurve()
{
    return m_StreamType == kFCurveStream ? static_cast<XFCurveStream*>(this) : nullptr;
}

}  // namespace VKT
