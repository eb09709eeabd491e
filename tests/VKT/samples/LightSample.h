#pragma once

namespace VKT::Test {

// A camera, and one light of each class but the spot light. Ids 800 to 899. See
// Samples.h.
inline constexpr char kLightSample[] =
    R"(|VKT_004A#0000#00000000|
AMBIENT_LIGHT ambience
{
	id 801
	colour		111 112 113
	intensity	114
	shadow_colour	115 116 117
	emit_ambient 1
	emit_diffuse 1
	emit_specular 1
	ambient_shade	118
	cast_soft_shadows	1
	shadow_radius	119
}
CAMERA lens
{
	id 802
	aspect 0.5
	near 0.25
	far 125
	horiz_aspect 1.25
	vert_aspect 0.75
}
VOLUME_LIGHT mist
{
	id 806
	colour		157 158 159
	intensity	160
	shadow_colour	161 162 163
	emit_ambient 1
	emit_diffuse 1
	emit_specular 1
	use_depth_map_shadows	1
	cast_soft_shadows	1
	shadow_radius	164
	decay_rate	165
	depth_map_filter_size	166
	depth_map_resolution	167
	depth_map_bias	168
	arc	169
	cone_end_radius	170
	color_ramp {
		type colour
		count 3
		0 -0.5 171 172 173 174 linear
		1 0.25 175 176 177 178 smooth
		2 0.25 179 180 181 182 spline
	}
	penumbra_ramp {
		type curve
		count 4
		0 0.125 183 spline
		1 0.375 184 none
		2 0.625 185 linear
		3 0.875 186 smooth
	}
}
AREA_LIGHT panel
{
	id 803
	colour		120 121 122
	intensity	123
	shadow_colour	124 125 126
	emit_ambient 1
	emit_diffuse 1
	emit_specular 1
	use_depth_map_shadows	1
	cast_soft_shadows	1
	shadow_radius	127
	decay_rate	128
	depth_map_filter_size	129
	depth_map_resolution	130
	depth_map_bias	131
}
POINT_LIGHT spark
{
	id 804
	colour		132 133 134
	intensity	135
	shadow_colour	136 137 138
	emit_ambient 1
	emit_diffuse 1
	emit_specular 1
	use_depth_map_shadows	1
	cast_soft_shadows	1
	shadow_radius	139
	decay_rate	140
	depth_map_filter_size	141
	depth_map_resolution	142
	depth_map_bias	143
}
DIRECTIONAL_LIGHT sun
{
	id 805
	colour		144 145 146
	intensity	147
	shadow_colour	148 149 150
	emit_ambient 1
	emit_diffuse 1
	emit_specular 1
	use_depth_map_shadows	1
	cast_soft_shadows	1
	shadow_radius	151
	decay_rate	152
	depth_map_filter_size	153
	depth_map_resolution	154
	depth_map_bias	155
	shadow_angle	156
}
)";

}  // namespace VKT::Test
