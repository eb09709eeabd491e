#pragma once

namespace VKT::Test {

// One node of each class that gives surfaces their look. See Samples.h. Ids 700 to 799.
inline constexpr char kShadingSample[] =
    R"(|VKT_004A#0000#00000000|
HW_SHADER program
{
	id 701
}
)";

}  // namespace VKT::Test
