#pragma once

#include <gtest/gtest.h>

#include <string>

#include "VKT/animation/AnimCurve.h"
#include "VKT/stream/TextReader.h"

namespace VKT {

// Gives a curve the bound of keys that nothing in the library raises.
class XAnimCurveBound {
public:
    static void Set(XAnimCurve& curve, u32 bound) { curve.m_KeyLimit = bound; }
};

}  // namespace VKT

namespace VKT::Test {

// A curve as text files hold it: `keys` are its floats, key after key.
inline XAnimCurve CurveOf(const char* interpolation, int numKeys, const std::string& keys,
                          const char* preInfinity = "kInfinityConstant",
                          const char* postInfinity = "kInfinityConstant")
{
    const std::string text = std::string("ANIM_CURVE { interpolation ") + interpolation + " num_keys " +
                             std::to_string(numKeys) + " pre_infinity " + preInfinity + " post_infinity " +
                             postInfinity + " component -1 index -1 " + keys + " }";
    XTextReader in{std::string_view(text)};
    XAnimCurve curve;
    EXPECT_TRUE(curve.ReadChunk(in)) << text;
    EXPECT_EQ(curve.GetNumKeys(), static_cast<u32>(numKeys));
    return curve;
}

}  // namespace VKT::Test
