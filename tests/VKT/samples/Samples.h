#pragma once

#include <ostream>

#include "VKT/samples/AnimationSample.h"
#include "VKT/samples/BasicSample.h"
#include "VKT/samples/DeformerSample.h"
#include "VKT/samples/DynamicsSample.h"
#include "VKT/samples/GeometrySample.h"
#include "VKT/samples/LightSample.h"
#include "VKT/samples/RiggingSample.h"
#include "VKT/samples/ShadingSample.h"

namespace VKT::Test {

// Documents that together hold a node of every class that files can hold, as text files.
// Every value differs from its default and from its neighbours, so that a field that is
// lost or swapped is seen. A bone's matrix is the one that a load computes.
//
// A new class gets a node in the sample of its family.
struct Sample {
    const char* name;
    const char* text;
};

inline std::ostream& operator<<(std::ostream& out, const Sample& sample)
{
    return out << sample.name;
}

inline constexpr Sample kSamples[] = {
    {"Basic", kBasicSample},       {"Light", kLightSample},         {"Shading", kShadingSample},
    {"Deformer", kDeformerSample}, {"Animation", kAnimationSample}, {"Geometry", kGeometrySample},
    {"Rigging", kRiggingSample},   {"Dynamics", kDynamicsSample},
};

}  // namespace VKT::Test
